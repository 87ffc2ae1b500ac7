// Sobol's points: direction numbers from primitive polynomials and initial numbers (Bratley, Fox 1988).
#include <string.h>

#include "qor/brng/digital.h"
#include "qor/stream/record.h"
#include "serv/memory.h"

namespace orvik::qor {
namespace {

struct SobolNumbers {
  int degree;
  uint32_t polynomial;
  uint32_t initial[8];
};
constexpr SobolNumbers kNumbers[] = {
#include "qor/brng/sobol_numbers.inc"
};

using SobolState = DigitalState<40, 48, 8>;
static_assert(sizeof(kNumbers) / sizeof(kNumbers[0]) == SobolState::kLimit - 1);

// Side blocks of user's numbers: the shared tables, the point.
constexpr uint32_t kTables = 9, kPoint = 13;
constexpr uint64_t table_row(uint64_t dim) { return 16 * ((dim >> 4) + 1); }
constexpr uint64_t table_words(uint64_t dim) { return 32 * dim + 32 * table_row(dim); }
constexpr uint64_t table_size(uint64_t dim) { return 4 * (64 * dim - 32 * ((4 * dim) & 60) + 2048); }

// The 32 numbers that follow from a polynomial and as many as its degree.
void continue_numbers(uint32_t* m, uint32_t polynomial, int degree) {
  for (int j = degree; j < 32; ++j) {
    m[j] = m[j - degree];
    for (int k = 0; k < degree; ++k)
      if (polynomial >> k & 1) m[j] ^= m[j - degree + k] << (degree - k);
  }
}

// Of dimension d, from 0. The first has no polynomial.
void default_numbers(uint32_t d, uint32_t* m) {
  if (d == 0) {
    for (int j = 0; j < 32; ++j) m[j] = 1;
    return;
  }
  const SobolNumbers& numbers = kNumbers[d - 1];
  memcpy(m, numbers.initial, 4 * static_cast<size_t>(numbers.degree));
  continue_numbers(m, numbers.polynomial, numbers.degree);
}

// What a seed array asks for.
struct Request {
  enum Form { kDefault, kPolynomials, kInitial, kBoth, kDirections, kBothFromTheFirst } form = kDefault;
  uint32_t dim = 1;
  const uint32_t* polynomial = nullptr;  // of dimension `first` on
  const uint32_t* number = nullptr;
  uint32_t per_dimension = 0;
  uint32_t first = 1;

  bool in_chunks() const { return form == kBoth || form == kDirections || form == kBothFromTheFirst; }
};

Request read_seeds(int32_t n, const uint32_t* seeds) {
  Request r;
  if (n <= 0) return r;
  const bool positive = n == 1 || static_cast<int32_t>(seeds[0]) > 0;
  if (positive && seeds[0] >= 1 && seeds[0] <= SobolState::kLimit) r.dim = seeds[0];
  if (n < 4 || !positive || seeds[1] != 1) return r;
  const int64_t dim = seeds[0], count = n;
  const bool fits_state = dim <= SobolState::kLimit;
  Request u;
  u.dim = seeds[0];
  // As many numbers a dimension as a later seed says, where the array is long enough to hold them.
  const auto holds = [&](int64_t at, int64_t dimensions, int64_t fixed) {
    if (count < at + 1) return false;
    u.per_dimension = seeds[at];
    return count >= static_cast<int64_t>(u.per_dimension) * dimensions + fixed;
  };
  switch (seeds[2]) {
    case 1:
      if (!fits_state || count < dim + 2) return r;
      u.form = Request::kPolynomials;
      u.polynomial = seeds + 3;
      return u;
    case 2:
      if (!fits_state || !holds(3, dim - 1, 4)) return r;
      u.form = Request::kInitial;
      u.number = seeds + 4;
      return u;
    case 3:
      if (!holds(dim + 2, dim - 1, dim + 3)) return r;
      u.form = Request::kBoth;
      u.polynomial = seeds + 3;
      u.number = seeds + dim + 3;
      return u;
    case 4:
      if (count < 32 * dim + 3) return r;
      u.form = Request::kDirections;
      u.number = seeds + 3;
      u.per_dimension = 32;
      u.first = 0;
      return u;
    case 11:
      if (!holds(dim + 3, dim, dim + 4)) return r;
      u.form = Request::kBothFromTheFirst;
      u.polynomial = seeds + 3;
      u.number = seeds + dim + 4;
      u.first = 0;
      return u;
    default:
      return r;
  }
}

// False for a polynomial that gives no numbers, or for too few numbers to begin with.
bool numbers_of(const Request& r, uint32_t d, uint32_t* m) {
  if (r.form == Request::kDefault || d < r.first) {
    default_numbers(d, m);
    return true;
  }
  const uint32_t at = d - r.first;
  const uint32_t* const given = r.number ? r.number + static_cast<size_t>(at) * r.per_dimension : nullptr;
  if (r.form == Request::kDirections) {
    memcpy(m, given, 4 * 32);
    return true;
  }
  const uint32_t polynomial = r.polynomial ? r.polynomial[at] : kNumbers[d - 1].polynomial;
  const int degree = degree_of(polynomial);
  if (degree < 1) {
    if (d != 0) return false;
    default_numbers(0, m);
    return true;
  }
  if (r.form == Request::kPolynomials) {
    // More numbers than the default table has follow from the default polynomial.
    if (degree > 8) return false;
    default_numbers(d, m);
  } else {
    if (static_cast<uint32_t>(degree) > r.per_dimension) return false;
    memcpy(m, given, 4 * static_cast<size_t>(degree));
  }
  continue_numbers(m, polynomial, degree);
  return true;
}

// Writes the direction numbers of all dimensions, by dimension and transposed.
bool make_tables(const Request& r, uint32_t* x, uint32_t* v, size_t v_stride, uint32_t* vt, size_t vt_stride) {
  for (uint32_t d = 0; d < r.dim; ++d) {
    uint32_t m[32];
    if (!numbers_of(r, d, m)) return false;
    for (size_t j = 0; j < 32; ++j) vt[j * vt_stride + d] = v[d * v_stride + j] = m[j] << (31 - j);
    x[d] = v[d * v_stride];
  }
  return true;
}

int32_t add_block(OrvikStream stream, uint32_t id, const uint64_t* key, serv::Block<uint32_t>& block, uint64_t size) {
  const int32_t status = __qorAddChunk(stream, static_cast<int32_t>(id), key, block.get(), static_cast<uint32_t>(size));
  if (status >= 0) block.release();
  return status;
}

struct Sobol {
  static bool view(OrvikStream stream, DigitalView& view) {
    auto& state = state_of<SobolState>(stream);
    const uint64_t dim = state.dim;
    view = {&state, state.x, 1, state.v[0], 33, state.vt[0], SobolState::kRow};
    auto* const tables = static_cast<uint32_t*>(find_chunk(stream, kTables, 4 * table_words(dim)));
    auto* const x = static_cast<uint32_t*>(find_chunk(stream, kPoint, 4 * dim));
    const bool user = tables && x;
    if (user) view = {&state, x, 1, tables, 32, tables + 32 * dim, static_cast<ptrdiff_t>(table_row(dim))};
    return make_sound(view, user || dim <= SobolState::kLimit);
  }

  static int32_t seed(OrvikStream stream, int32_t n, const uint32_t* seeds) {
    auto& state = state_of<SobolState>(stream);
    memset(&state, 0, sizeof state);
    remove_chunks(stream, kTables);
    remove_chunks(stream, kPoint);
    const Request r = read_seeds(n, seeds);
    if (!r.in_chunks()) {
      if (!make_tables(r, state.x, state.v[0], 33, state.vt[0], SobolState::kRow))
        return ORVIK_QOR_BAD_ABSTRACT_ARGUMENT;
      begin(state, r.dim);
      return ORVIK_QOR_OK;
    }
    serv::Block<uint32_t> tables(table_size(r.dim) / 4), point(r.dim);
    if (!tables || !point) return ORVIK_QOR_NO_MEMORY;
    memset(tables.get(), 0, table_size(r.dim));
    if (!make_tables(r, point.get(), tables.get(), 32, tables.get() + 32 * size_t{r.dim}, table_row(r.dim)))
      return ORVIK_QOR_BAD_ABSTRACT_ARGUMENT;
    uint64_t key[2];
    __qorGenerateNewGlobalRODataTableEntryId(key, kTables);
    if (const int32_t status = add_block(stream, kPoint, nullptr, point, 4 * uint64_t{r.dim}); status < 0)
      return status;
    if (const int32_t status = add_block(stream, kTables, key, tables, table_size(r.dim)); status < 0) {
      remove_chunks(stream, kPoint);
      return status;
    }
    begin(state, r.dim);
    return ORVIK_QOR_OK;
  }
};

using SobolGenerator = DigitalGenerator<Sobol>;
static_assert(record_size<SobolState>() == 11712);

}  // namespace
}  // namespace orvik::qor

ORVIK_QOR_GENERATOR(Sobol, orvik::qor::SobolGenerator)
