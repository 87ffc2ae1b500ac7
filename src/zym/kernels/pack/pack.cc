// The data movers: sparse or strided arrays gathered into dense ones and spread back. Plain copies of bit patterns; no
// floating-point state, no mode, no report. `form` 1 selects 32-bit counts, increments, indices and masks, any other
// value 64-bit ones.
#include <cstdint>

namespace orvik::zym {
namespace {

// The unit that an element is moved in.
struct Word128 {
  uint64_t low, high;
};
using Word_s = uint32_t;
using Word_d = uint64_t;
using Word_c = uint64_t;  // a pair of 32-bit words; may be aligned to 4 bytes only
using Word_z = Word128;

template <class T>
struct [[gnu::packed, gnu::may_alias]] Unaligned {
  T word;
};

template <class T, class Integer>
struct Mover {
  using Element = Unaligned<T>;

  static void PackI(Integer n, const Element* a, Integer inc, Element* y) {
    for (int64_t i = 0; i < n; ++i) y[i] = a[i * inc];
  }
  static void PackV(Integer n, const Element* a, const Integer* index, Element* y) {
    for (int64_t i = 0; i < n; ++i) y[i] = a[index[i]];
  }
  static void PackM(Integer n, const Element* a, const Integer* mask, Element* y) {
    int64_t j = 0;
    for (int64_t i = 0; i < n; ++i) {
      if (mask[i] != 0) y[j++] = a[i];
    }
  }
  static void UnpackI(Integer n, const Element* a, Element* y, Integer inc) {
    for (int64_t i = 0; i < n; ++i) y[i * inc] = a[i];
  }
  static void UnpackV(Integer n, const Element* a, Element* y, const Integer* index) {
    for (int64_t i = 0; i < n; ++i) y[index[i]] = a[i];
  }
  static void UnpackM(Integer n, const Element* a, Element* y, const Integer* mask) {
    int64_t j = 0;
    for (int64_t i = 0; i < n; ++i) {
      if (mask[i] != 0) y[i] = a[j++];
    }
  }
};

}  // namespace
}  // namespace orvik::zym

// Both widths of a kernel behind its one symbol. The third and fourth arguments change places between the kinds; the
// count, and the increment where there is one, are cut to the width that `form` selects.
#define ORVIK_PACK_KERNEL(p, Name, T3, T4, Cut3, Cut4)                                                    \
  extern "C" void orvik_zym_##p##Name##_HA(int64_t n, const void* a, T3 third, T4 fourth, int32_t form) { \
    using namespace orvik::zym;                                                                           \
    using Narrow = Mover<Word_##p, int32_t>;                                                              \
    using Wide = Mover<Word_##p, int64_t>;                                                                \
    const auto* from = static_cast<const Unaligned<Word_##p>*>(a);                                        \
    if (form == 1) {                                                                                      \
      Narrow::Name(static_cast<int32_t>(n), from, Cut3(int32_t, third), Cut4(int32_t, fourth));           \
    } else {                                                                                              \
      Wide::Name(n, from, Cut3(int64_t, third), Cut4(int64_t, fourth));                                   \
    }                                                                                                     \
  }
#define ORVIK_INC(Integer, value) static_cast<Integer>(value)
#define ORVIK_LIST(Integer, value) static_cast<const Integer*>(value)
#define ORVIK_DENSE(Integer, value) static_cast<Mover<decltype(from->word), Integer>::Element*>(value)
#define ORVIK_PACK_KERNELS(p)                                                \
  ORVIK_PACK_KERNEL(p, PackI, int64_t, void*, ORVIK_INC, ORVIK_DENSE)        \
  ORVIK_PACK_KERNEL(p, PackV, const void*, void*, ORVIK_LIST, ORVIK_DENSE)   \
  ORVIK_PACK_KERNEL(p, PackM, const void*, void*, ORVIK_LIST, ORVIK_DENSE)   \
  ORVIK_PACK_KERNEL(p, UnpackI, void*, int64_t, ORVIK_DENSE, ORVIK_INC)      \
  ORVIK_PACK_KERNEL(p, UnpackV, void*, const void*, ORVIK_DENSE, ORVIK_LIST) \
  ORVIK_PACK_KERNEL(p, UnpackM, void*, const void*, ORVIK_DENSE, ORVIK_LIST)

ORVIK_PACK_KERNELS(s)
ORVIK_PACK_KERNELS(d)
ORVIK_PACK_KERNELS(c)
ORVIK_PACK_KERNELS(z)
