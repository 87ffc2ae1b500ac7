// What the vector functions are compared with. A peer is one line in one of the peers_*.cc files.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orvik::bench {

// Arrays as the entries have them; b of an array and a scalar points to the scalar.
struct Arrays {
  const void* a;
  const void* b;
  void* r1;
  void* r2;
  int32_t incA, incB, incR1, incR2;  // strided calls

  friend bool operator==(const Arrays&, const Arrays&) = default;
};
using PeerFunction = void (*)(int32_t n, const Arrays& arrays);

struct Peer {
  std::string_view row;     // such as sExp
  std::string_view source;  // such as sleef u10
  double ulp;               // largest error, see accuracy.md for ours; 0.5: correctly rounded or exact
  PeerFunction unit;
  PeerFunction strided;  // null: none
};

// Scalars of Powx and LinearFrac, the order of Jn and Yn.
inline constexpr double kPower = 2.5, kPowerImaginary = -1.25;
inline constexpr double kScaleA = 2.5, kShiftA = -1, kScaleB = 0.5, kShiftB = 30;
inline constexpr int32_t kOrder = 3;

std::span<const Peer> loop_peers();     // plain loops over the language's operators and the C library's functions
std::span<const Peer> sleef_peers();    // these where the package is there
std::span<const Peer> libmvec_peers();
std::span<const Peer> sleef_wide_peers();  // of 512 bits, for processors that have such registers
std::span<const Peer> libmvec_wide_peers();
std::span<const Peer> eigen_peers();
std::span<const Peer> boost_peers();
std::span<const Peer> gsl_peers();
std::span<const Peer> numpy_peers();  // starts an interpreter

std::vector<Peer> all_peers();

// Which NumPy is among the peers; empty where none is.
std::string numpy_description();

}  // namespace orvik::bench
