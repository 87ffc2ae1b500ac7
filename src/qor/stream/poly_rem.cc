// x^n modulo a polynomial over GF(2).
#include <string.h>

#include "qor/stream/clmul.h"
#include "qor/stream/record.h"
#include "serv/memory.h"

namespace orvik::qor {
namespace {

bool bit(const uint64_t* a, uint64_t i) { return a[i / 64] >> i % 64 & 1; }
void set_bit(uint64_t* a, uint64_t i) { a[i / 64] |= uint64_t{1} << i % 64; }

// Arithmetic modulo p, in blocks of one allocation. Reduction after Barrett (1986): the quotient of a value below
// x^(2d) is the top part of (value div x^d) times the reciprocal x^(2d) div p, exactly so over GF(2).
class Modulus {
 public:
  static uint64_t words(uint64_t degree) { return (degree + 64) / 64; }

  Modulus(uint64_t* block, uint64_t degree, uint32_t nterms, const uint32_t* terms)
      : degree_(degree),
        n_(static_cast<int64_t>(words(degree))),
        p_(block),
        reciprocal_(p_ + n_),
        value_(reciprocal_ + n_),
        wide_(value_ + n_),
        product_(wide_ + 2 * n_),
        quotient_(product_ + 2 * n_),
        scratch_(quotient_ + n_) {
    memset(block, 0, 8 * 25 * static_cast<uint64_t>(n_));
    for (uint32_t i = 0; i < nterms; ++i) set_bit(p_, terms[i]);
    invert();
  }

  void set_power(uint64_t exponent) { set_bit(value_, exponent); }

  // value = value^2, or x value^2
  void square(bool times_x) {
    clsquare(wide_, value_, n_);
    if (times_x)
      for (int64_t i = 2 * n_ - 1; i >= 0; --i) wide_[i] = wide_[i] << 1 | (i > 0 ? wide_[i - 1] >> 63 : 0);
    take_top(value_, wide_);
    clmul(product_, value_, reciprocal_, n_, scratch_);
    take_top(quotient_, product_);
    clmul(product_, quotient_, p_, n_, scratch_);
    for (int64_t i = 0; i < n_; ++i) value_[i] = wide_[i] ^ product_[i];
    value_[n_ - 1] &= (uint64_t{1} << degree_ % 64) - 1;
  }

  const uint64_t* value() const { return value_; }
  int64_t size() const { return n_; }

 private:
  // to = from div x^degree, from of 2 n words
  void take_top(uint64_t* to, const uint64_t* from) const {
    const uint64_t word = degree_ / 64, shift = degree_ % 64;
    for (uint64_t i = 0; i < static_cast<uint64_t>(n_); ++i) {
      to[i] = from[word + i] >> shift;
      if (shift != 0 && word + i + 1 < 2 * static_cast<uint64_t>(n_)) to[i] |= from[word + i + 1] << (64 - shift);
    }
  }

  // Newton's iteration on the reversed polynomial q: with r q = 1 up to x^k, r^2 q has that up to x^(2k).
  void invert() {
    uint64_t* const q = quotient_;
    uint64_t* const r = value_;
    for (uint64_t i = 0; i <= degree_; ++i)
      if (bit(p_, degree_ - i)) set_bit(q, i);
    r[0] = 1;
    for (uint64_t k = 1; k <= degree_;) {
      k *= 2;
      const int64_t need = static_cast<int64_t>(k + 63) / 64, size = need < n_ ? need : n_;
      clsquare(wide_, r, size);
      clmul(product_, wide_, q, size, scratch_);
      memcpy(r, product_, 8 * static_cast<uint64_t>(size));
      if (k < 64) r[0] &= (uint64_t{1} << k) - 1;
    }
    for (uint64_t i = 0; i <= degree_; ++i)
      if (bit(r, i)) set_bit(reciprocal_, degree_ - i);
    memset(r, 0, 8 * static_cast<uint64_t>(n_));
  }

  uint64_t degree_;
  int64_t n_;
  uint64_t *p_, *reciprocal_, *value_, *wide_, *product_, *quotient_, *scratch_;
};
static_assert(1 + 1 + 1 + 2 + 2 + 1 + clmul_scratch(1) <= 25);

}  // namespace
}  // namespace orvik::qor

extern "C" int32_t __qorPolyRem(uint64_t n, uint64_t degree, uint32_t nterms, const uint32_t* terms, int32_t outwords,
                                uint32_t* out) {
  using namespace orvik::qor;
  memset(out, 0, 4 * static_cast<uint64_t>(outwords));
  if (n < degree) {
    if (n / 32 < static_cast<uint64_t>(outwords)) out[n / 32] = 1u << n % 32;
    return ORVIK_QOR_OK;
  }
  if (degree == 0) return ORVIK_QOR_OK;
  const orvik::serv::Block<uint64_t> block(25 * Modulus::words(degree));
  if (!block) return ORVIK_QOR_NO_MEMORY;
  Modulus p(block.get(), degree, nterms, terms);
  // The leading bits of n that stay below the degree need no reduction.
  int shift = 0;
  while (shift < 63 && n >> shift >= degree && n >> shift > 1) ++shift;
  if (n >> shift < degree) {
    p.set_power(n >> shift);
  } else {  // a degree of one
    p.set_power(0);
    ++shift;
  }
  while (shift-- > 0) p.square(n >> shift & 1);
  const uint64_t size = 8 * static_cast<uint64_t>(p.size()), room = 4 * static_cast<uint64_t>(outwords);
  memcpy(out, p.value(), size < room ? size : room);
  return ORVIK_QOR_OK;
}
