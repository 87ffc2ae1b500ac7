// Compiled for the carry-less multiplication instruction, which every processor with AVX2 has.
#include "qor/stream/clmul.h"

#include "lanes/clmul.h"

namespace orvik::qor {
namespace {

constexpr int64_t kSchoolbook = 16;  // words; below, halving no longer pays

// Column by column: the sum of a column's products stays in one register.
void schoolbook(uint64_t* out, const uint64_t* a, const uint64_t* b, int64_t n) {
  uint64_t carry = 0;
  for (int64_t k = 0; k < 2 * n - 1; ++k) {
    I32Half sum = no_terms();
    for (int64_t i = k < n ? 0 : k - n + 1; i <= k && i < n; ++i) sum = sum ^ carryless_product(a + i, b + k - i);
    out[k] = low_long(sum) ^ carry;
    carry = high_long(sum);
  }
  out[2 * n - 1] = carry;
}

}  // namespace

// Karatsuba: (a1 X + a0)(b1 X + b0), the middle term from the product of the sums.
void clmul(uint64_t* out, const uint64_t* a, const uint64_t* b, int64_t n, uint64_t* scratch) {
  if (n <= kSchoolbook) {
    schoolbook(out, a, b, n);
    return;
  }
  const int64_t low = (n + 1) / 2, high = n - low;
  uint64_t* const sum_a = scratch;
  uint64_t* const sum_b = sum_a + low;
  uint64_t* const middle = sum_b + low;
  uint64_t* const deeper = middle + 2 * low;
  for (int64_t i = 0; i < low; ++i) {
    sum_a[i] = a[i] ^ (i < high ? a[low + i] : 0);
    sum_b[i] = b[i] ^ (i < high ? b[low + i] : 0);
  }
  clmul(middle, sum_a, sum_b, low, deeper);
  clmul(out, a, b, low, deeper);
  clmul(out + 2 * low, a + low, b + low, high, deeper);
  for (int64_t i = 0; i < 2 * low; ++i) middle[i] ^= out[i] ^ (i < 2 * high ? out[2 * low + i] : 0);
  for (int64_t i = 0; i < 2 * low; ++i) out[low + i] ^= middle[i];
}

void clsquare(uint64_t* out, const uint64_t* a, int64_t n) {
  for (int64_t i = 0; i < n; ++i) store(out + 2 * i, carryless_product(a + i, a + i));
}

}  // namespace orvik::qor
