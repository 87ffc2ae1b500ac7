// What the streams are measured beside: the standard library's, Boost's and GSL's generators, and the recurrences as a
// scalar loop writes them where no library has one.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace orvik::bench {

// Fills n words, floats or doubles of [0, 1); null where a peer has no such form.
struct StreamPeer {
  std::string name;
  std::function<void(uint32_t* r, int32_t n)> words;
  std::function<void(float* r, int32_t n)> floats;
  std::function<void(double* r, int32_t n)> doubles;
};

// Peers of a generator by its name in the list of generators; `dim` is the dimension of quasi-random points.
std::vector<StreamPeer> peers_of(const std::string& generator, uint32_t dim);

}  // namespace orvik::bench
