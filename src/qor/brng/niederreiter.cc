// Niederreiter's points in base 2: direction numbers from irreducible polynomials (Bratley, Fox, Niederreiter 1992).
#include <string.h>

#include "qor/brng/digital.h"
#include "qor/stream/record.h"
#include "serv/memory.h"

namespace orvik::qor {
namespace {

using NiederreiterState = DigitalState<318, 320, 2>;
constexpr int kLimit = NiederreiterState::kLimit;

// Side block of the numbers of more dimensions than the state holds; the 33rd word of a row is the point's coordinate.
constexpr uint32_t kTable = 10;
constexpr uint64_t table_size(uint64_t dim) { return 4 * 33 * dim; }

// Products of polynomials in base 2 stay below bit 63 here.
constexpr uint64_t product(uint64_t a, uint64_t b) {
  uint64_t r = 0;
  for (; b != 0; b >>= 1, a <<= 1)
    if (b & 1) r ^= a;
  return r;
}

// The first irreducible polynomials in the order of their bit masks: no multiple of a smaller one (Eratosthenes).
struct Polynomials {
  uint16_t mask[kLimit];
};
constexpr Polynomials find_polynomials() {
  constexpr uint32_t kEnd = 4096;  // degree 12
  bool composite[kEnd] = {};
  Polynomials p = {};
  int count = 0;
  for (uint32_t a = 2; count < kLimit; ++a) {
    if (composite[a]) continue;
    p.mask[count++] = static_cast<uint16_t>(a);
    if (a >= 64) continue;  // what is composite has a factor of degree 5 or less
    for (uint32_t b = 2; degree_of(a) + degree_of(b) < 12; ++b) composite[product(a, b)] = true;
  }
  return p;
}
constexpr Polynomials kPolynomials = find_polynomials();
static_assert(kPolynomials.mask[0] == 2 && kPolynomials.mask[7] == 31 && kPolynomials.mask[315] == 3035 &&
              kPolynomials.mask[317] == 3047);

// The direction numbers of a polynomial. Row r of the generator matrix, r = q e + u, is a stretch of the sequence whose
// recurrence is the polynomial's power q + 1.
void numbers_of(uint32_t polynomial, uint32_t* v) {
  const int e = degree_of(polynomial);
  memset(v, 0, 4 * 32);
  bool s[128] = {};
  uint64_t power = 1;
  for (int r = 0; r < 32; ++r) {
    const int q = r / e, u = r % e;
    if (u == 0) {
      power = product(power, polynomial);
      const int m = e * (q + 1);
      for (int t = 0; t < m; ++t) s[t] = t >= e * q;
      for (int t = m; t <= e + 30; ++t) {
        bool sum = false;
        for (int k = 0; k < m; ++k) sum ^= (power >> k & 1) && s[t - m + k];
        s[t] = sum;
      }
    }
    for (int c = 0; c < 32; ++c) v[c] |= static_cast<uint32_t>(s[u + c]) << (31 - r);
  }
}

struct Request {
  uint32_t dim = 1;
  const uint32_t* polynomial = nullptr;
  const uint32_t* number = nullptr;
};

Request read_seeds(int32_t n, const uint32_t* seeds) {
  Request r;
  if (n <= 0) return r;
  const bool positive = n == 1 || static_cast<int32_t>(seeds[0]) > 0;
  if (positive && seeds[0] >= 1 && seeds[0] <= kLimit) r.dim = seeds[0];
  if (n < 3 || !positive || seeds[1] != 1) return r;
  const int64_t dim = seeds[0], count = n;
  if (seeds[2] == 1 && count >= dim + 3) return {seeds[0], seeds + 3, nullptr};
  if (seeds[2] == 4 && count >= 32 * dim + 3) return {seeds[0], nullptr, seeds + 3};
  return r;
}

// False for a polynomial of degree 0, which has no rows.
bool make_table(const Request& r, uint32_t* v) {
  for (uint32_t d = 0; d < r.dim; ++d, v += 33) {
    if (r.number) {
      for (int j = 0; j < 32; ++j) v[j] = r.number[32 * size_t{d} + static_cast<size_t>(j)] << (31 - j);
    } else {
      const uint32_t polynomial = r.polynomial ? r.polynomial[d] : kPolynomials.mask[d];
      if (degree_of(polynomial) < 1) return false;
      numbers_of(polynomial, v);
    }
  }
  return true;
}

struct Niederreiter {
  static bool view(OrvikStream stream, DigitalView& view) {
    auto& state = state_of<NiederreiterState>(stream);
    view = {&state, state.x, 1, state.v[0], 33, state.vt[0], NiederreiterState::kRow};
    auto* const table = static_cast<uint32_t*>(find_chunk(stream, kTable, table_size(state.dim)));
    if (table) view = {&state, table + 32, 33, table, 33, nullptr, 0};
    return make_sound(view, table || state.dim <= kLimit);
  }

  static int32_t seed(OrvikStream stream, int32_t n, const uint32_t* seeds) {
    auto& state = state_of<NiederreiterState>(stream);
    memset(&state, 0, sizeof state);
    remove_chunks(stream, kTable);
    const Request r = read_seeds(n, seeds);
    if (r.dim <= kLimit) {
      if (!make_table(r, state.v[0])) return ORVIK_QOR_BAD_ABSTRACT_ARGUMENT;
      for (uint32_t d = 0; d < r.dim; ++d) {
        state.x[d] = state.v[d][0];
        for (int j = 0; j < 32; ++j) state.vt[j][d] = state.v[d][j];
      }
      begin(state, r.dim);
      return ORVIK_QOR_OK;
    }
    serv::Block<uint32_t> table(33 * uint64_t{r.dim});
    if (!table) return ORVIK_QOR_NO_MEMORY;
    if (!make_table(r, table.get())) return ORVIK_QOR_BAD_ABSTRACT_ARGUMENT;
    for (uint32_t d = 0; d < r.dim; ++d) table[33 * uint64_t{d} + 32] = table[33 * uint64_t{d}];
    const int32_t status = __qorAddChunk(stream, static_cast<int32_t>(kTable), nullptr, table.get(),
                                         static_cast<uint32_t>(table_size(r.dim)));
    if (status < 0) return status;
    table.release();
    begin(state, r.dim);
    return ORVIK_QOR_OK;
  }
};

using NiederreiterGenerator = DigitalGenerator<Niederreiter>;
static_assert(record_size<NiederreiterState>() == 84288);

}  // namespace
}  // namespace orvik::qor

ORVIK_QOR_GENERATOR(Niederr, orvik::qor::NiederreiterGenerator)
