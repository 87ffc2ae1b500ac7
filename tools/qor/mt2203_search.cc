// Searches the parameter sets of the MT2203 family: MatrixA, MaskB, MaskC of rows 0 to 6023.
//
//   mt2203_search rows FIRST LAST FILE   appends the rows of [FIRST, LAST) that FILE does not hold yet
//   mt2203_search table FILE...          writes the table of the library to standard output
//
// Deterministic: a row depends on its number only, so ranges may run in any order, in any number of processes, and be
// taken up again after a stop. A row takes about a fifth of a second of one core.
//
// Matrix. With u = t^68 + t^33 the characteristic polynomial of the recurrence is
//   t^27 u^32 + sum_{i<5} a_i t^27 u^(31-i) + sum_{i>=5} a_i (t u)^(31-i)      (Matsumoto, Nishimura 1998)
// 2203 and 2^2203 - 1 are both prime, so the period is 2^2203 - 1 exactly when the polynomial is irreducible. The low
// 13 bits of a matrix are the number of its row (Matsumoto, Nishimura 2000), which keeps all polynomials distinct.
// Masks. A beam search from the top bit down for the best dimension of equidistribution k(v) of the v leading bits;
// k(v) is found by reducing a lattice whose vectors are generator states (Harase, Matsumoto, Saito 2011).
#include <immintrin.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <vector>

namespace {

constexpr int kRows = 6024, kDegree = 2203, kWords = 35, kShift = 64 * kWords - kDegree;  // 37
using Poly = std::array<uint64_t, 2 * kWords>;

struct Row {
  uint32_t matrix, b, c;
};
const std::map<int, Row> kGiven = {{0, {0xAF81055F, 0xDD7EEF80, 0xEFD78000}},
                                   {1, {0x832604E1, 0x66AD7F80, 0xEBD58000}},
                                   {2, {0x92F70739, 0x656D7780, 0xEFC50000}},
                                   {6023, {0xE8761D4B, 0x72967680, 0xEFEB0000}}};

// ---- the polynomial of a matrix -----------------------------------------------------------------------------------

void xor_shifted(Poly& p, const Poly& q, int shift) {
  const int words = shift / 64, bits = shift % 64;
  for (int i = 2 * kWords - 1; i >= words; --i) {
    uint64_t w = q[i - words] << bits;
    if (bits && i - words > 0) w |= q[i - words - 1] >> (64 - bits);
    p[i] ^= w;
  }
}

// Parts 0 to 31 belong to the matrix bits, part 32 is the constant one.
std::vector<Poly> make_parts() {
  std::vector<Poly> u(33), parts(33);
  u[0] = {};
  u[0][0] = 1;
  for (int k = 1; k <= 32; ++k) {
    u[k] = {};
    xor_shifted(u[k], u[k - 1], 68);
    xor_shifted(u[k], u[k - 1], 33);
  }
  for (int i = 0; i < 33; ++i) {
    parts[i] = {};
    if (i == 32)
      xor_shifted(parts[i], u[32], 27);
    else
      xor_shifted(parts[i], u[31 - i], i < 5 ? 27 : 31 - i);
  }
  return parts;
}

const std::vector<Poly> kParts = make_parts();

Poly polynomial(uint32_t matrix) {
  Poly p = kParts[32];
  for (int i = 0; i < 32; ++i)
    if (matrix >> i & 1)
      for (int w = 0; w < 2 * kWords; ++w) p[w] ^= kParts[i][w];
  return p;
}

// ---- sieve by all irreducible polynomials of degree up to 14 --------------------------------------------------------

struct Sieve {
  struct Divisor {
    uint16_t fixed;
    uint16_t byte[4][256];
  };
  std::vector<Divisor> divisors;

  Sieve() {
    std::vector<uint32_t> irreducible;
    for (uint32_t q = 2; q < 1u << 15; ++q) {
      bool prime = true;
      const int dq = 31 - __builtin_clz(q);
      for (uint32_t f : irreducible) {
        const int df = 31 - __builtin_clz(f);
        if (2 * df > dq) break;
        if (reduce(q, f, df) == 0) {
          prime = false;
          break;
        }
      }
      if (prime) irreducible.push_back(q);
    }
    for (uint32_t q : irreducible) {
      const int dq = 31 - __builtin_clz(q);
      uint16_t residue[33];
      for (int i = 0; i < 33; ++i) {
        uint32_t r = 0;
        for (int bit = kDegree; bit >= 0; --bit) {
          r = r << 1 | (kParts[i][bit / 64] >> (bit % 64) & 1);
          if (r >> dq & 1) r ^= q;
        }
        residue[i] = static_cast<uint16_t>(r);
      }
      Divisor d{};
      d.fixed = residue[32];
      for (int k = 0; k < 4; ++k)
        for (int v = 0; v < 256; ++v)
          for (int b = 0; b < 8; ++b)
            if (v >> b & 1) d.byte[k][v] ^= residue[8 * k + b];
      divisors.push_back(d);
    }
  }
  static uint32_t reduce(uint32_t a, uint32_t f, int df) {
    for (int s = 31 - __builtin_clz(a); s >= df; --s)
      if (a >> s & 1) a ^= f << (s - df);
    return a;
  }
  bool passes(uint32_t m) const {
    for (const Divisor& d : divisors)
      if ((d.fixed ^ d.byte[0][m & 255] ^ d.byte[1][m >> 8 & 255] ^ d.byte[2][m >> 16 & 255] ^ d.byte[3][m >> 24]) == 0)
        return false;
    return true;
  }
};

// ---- irreducibility -------------------------------------------------------------------------------------------------

// Arithmetic modulo t^37 p, whose leading term falls on a word border; the tail of p lies 68 or more below its leading
// term, so a whole leading word is its own quotient.
struct Field {
  uint64_t tail[kWords + 1] = {};
  Poly p;

  explicit Field(uint32_t matrix) : p(polynomial(matrix)) {
    Poly shifted{};
    xor_shifted(shifted, p, kShift);
    for (int i = 0; i < kWords; ++i) tail[i] = shifted[i];
  }

  // v += (word of place 0) times (n words of a)
  static void add_product(uint64_t* v, uint64_t w, const uint64_t* a, int n) {
    const __m128i x = _mm_cvtsi64_si128(static_cast<long long>(w));
    __m128i carry = _mm_setzero_si128();
    int i = 0;
    for (; i + 1 < n; i += 2) {
      const __m128i pair = _mm_loadu_si128(reinterpret_cast<const __m128i*>(a + i));
      const __m128i low = _mm_clmulepi64_si128(x, pair, 0x00), high = _mm_clmulepi64_si128(x, pair, 0x10);
      __m128i sum = _mm_xor_si128(low, _mm_slli_si128(high, 8));
      sum = _mm_xor_si128(sum, carry);
      carry = _mm_srli_si128(high, 8);
      __m128i* place = reinterpret_cast<__m128i*>(v + i);
      _mm_storeu_si128(place, _mm_xor_si128(_mm_loadu_si128(place), sum));
    }
    for (; i < n; ++i) {
      const __m128i low =
          _mm_xor_si128(_mm_clmulepi64_si128(x, _mm_cvtsi64_si128(static_cast<long long>(a[i])), 0), carry);
      v[i] ^= static_cast<uint64_t>(_mm_cvtsi128_si64(low));
      carry = _mm_srli_si128(low, 8);
    }
    v[n] ^= static_cast<uint64_t>(_mm_cvtsi128_si64(carry));
  }
  void reduce(uint64_t* v) const {
    for (int i = 2 * kWords - 1; i >= kWords; --i) {
      const uint64_t w = v[i];
      add_product(v + i - kWords, w, tail, kWords - 1);
      v[i] = 0;
    }
  }
  void square(uint64_t* x) const {
    uint64_t v[2 * kWords + 2];
    for (int i = 0; i < kWords; ++i) {
      v[2 * i] = _pdep_u64(x[i] & 0xFFFFFFFF, 0x5555555555555555);
      v[2 * i + 1] = _pdep_u64(x[i] >> 32, 0x5555555555555555);
    }
    reduce(v);
    std::memcpy(x, v, 8 * kWords);
  }
  void multiply(uint64_t* x, const uint64_t* y) const {
    uint64_t v[2 * kWords + 2] = {};
    for (int i = 0; i < kWords; ++i) add_product(v + i, x[i], y, kWords);
    reduce(v);
    std::memcpy(x, v, 8 * kWords);
  }
  // x modulo p itself
  void finish(uint64_t* x) const {
    for (int bit = 64 * kWords - 1; bit >= kDegree; --bit)
      if (x[bit / 64] >> (bit % 64) & 1) {
        const int s = bit - kDegree, w = s / 64, b = s % 64;  // w is 0: s < 37
        for (int i = kWords - 1; i >= w; --i) x[i] ^= p[i - w] << b | (b && i - w ? p[i - w - 1] >> (64 - b) : 0);
      }
  }
  static int degree(const std::vector<uint64_t>& x) {
    for (int i = static_cast<int>(x.size()) - 1; i >= 0; --i)
      if (x[i]) return 64 * i + 63 - __builtin_clzll(x[i]);
    return -1;
  }
  bool coprime_to_p(const uint64_t* x) const {
    std::vector<uint64_t> a(p.begin(), p.begin() + kWords), b(x, x + kWords);
    int da = degree(a), db = degree(b);
    while (db > 0) {
      if (da < db) {
        a.swap(b);
        std::swap(da, db);
        continue;
      }
      const int s = da - db, w = s / 64, sh = s % 64;
      for (int i = da / 64; i >= w; --i) a[i] ^= b[i - w] << sh | (sh && i - w ? b[i - w - 1] >> (64 - sh) : 0);
      da = degree(a);
      if (da < db) {
        a.swap(b);
        std::swap(da, db);
      }
    }
    return db == 0;
  }

  bool irreducible() const {
    uint64_t x[kWords] = {2}, product[kWords] = {1};
    // Every degree up to 64 has a multiple between 33 and 64: one gcd finds all factors of such degrees.
    for (int i = 1; i <= kDegree; ++i) {
      square(x);
      if (i > 32 && i <= 64) {
        x[0] ^= 2;
        multiply(product, x);
        x[0] ^= 2;
      }
      if (i == 64) {
        finish(product);
        if (!coprime_to_p(product)) return false;
      }
    }
    finish(x);
    if (x[0] != 2) return false;
    return std::all_of(x + 1, x + kWords, [](uint64_t w) { return w == 0; });
  }
};

uint64_t mix(uint64_t z) {
  z += 0x9E3779B97F4A7C15;
  z = (z ^ z >> 30) * 0xBF58476D1CE4E5B9;
  z = (z ^ z >> 27) * 0x94D049BB133111EB;
  return z ^ z >> 31;
}

uint32_t find_matrix(int row, const Sieve& sieve) {
  const uint32_t start = static_cast<uint32_t>(mix(row)), stride = static_cast<uint32_t>(mix(row + 0x10000)) | 1;
  for (uint32_t j = 0; j < 1u << 18; ++j) {
    const uint32_t m = 0x80000000 | ((start + j * stride) & 0x3FFFF) << 13 | static_cast<uint32_t>(row);
    bool given = false;
    for (const auto& g : kGiven) given |= g.second.matrix == m;
    if (!given && sieve.passes(m) && Field(m).irreducible()) return m;
  }
  std::fprintf(stderr, "row %d: no matrix\n", row);
  std::exit(1);
}

// ---- equidistribution -----------------------------------------------------------------------------------------------

constexpr int kN = 69, kM = 34, kRoom = 1024;

struct Temper {
  uint32_t b = 0, c = 0;
  uint32_t operator()(uint32_t y) const {
    y ^= y >> 12;
    y ^= y << 7 & b;
    y ^= y << 15 & c;
    return y ^ y >> 18;
  }
};

// A lattice vector: a state whose first `count` outputs vanish, and the leading bits of the next one.
struct Vector {
  uint32_t word[kRoom + 16];
  int base, count;
  uint32_t next;

  void unit(int bit) {
    std::memset(word, 0, 4 * (kN + 8));
    base = count = 0;
    next = 0x80000000u >> bit;
  }
  void random() {
    for (int i = 0; i < kN; ++i) word[i] = static_cast<uint32_t>(mix(i));
    base = count = 0;
    next = 0;
  }
  uint32_t step(uint32_t matrix) {
    if (base + kN == kRoom) {
      std::memmove(word, word + base, 4 * kN);
      base = 0;
    }
    const uint32_t* x = word + base++;
    const uint32_t y = (x[0] & ~0x1Fu) | (x[1] & 0x1F);
    return word[base + kN - 1] = x[kM] ^ y >> 1 ^ (y & 1 ? matrix : 0);
  }
  bool zero() const {
    if (word[base] & ~0x1Fu) return false;
    for (int i = 1; i < kN; ++i)
      if (word[base + i]) return false;
    return true;
  }
  void add(const Vector& o) {
    uint32_t* x = word + base;
    const uint32_t* y = o.word + o.base;
    for (int i = 0; i < kN; ++i) x[i] ^= y[i];
    next ^= o.next;
  }
};

// k(v): the smallest count of a reduced basis.
int equidistribution(uint32_t matrix, Temper temper, int v) {
  static Vector store[33];
  Vector* basis[33];
  const uint32_t top = v == 32 ? 0xFFFFFFFF : ~(0xFFFFFFFFu >> v);
  for (int i = 0; i <= v; ++i) basis[i] = &store[i];
  for (int i = 0; i < v; ++i) basis[i]->unit(i);
  Vector*& extra = basis[v];
  extra->random();
  for (;;) {
    for (int zeros = 0; extra->next == 0; ++zeros) {
      if (zeros % 16 == 15 && extra->zero()) {
        int k = kDegree;
        for (int i = 0; i < v; ++i) k = std::min(k, basis[i]->count);
        return k;
      }
      extra->next = temper(extra->step(matrix)) & top;
      ++extra->count;
    }
    Vector*& pivot = basis[__builtin_clz(extra->next)];
    if (extra->count > pivot->count) std::swap(extra, pivot);
    extra->add(*pivot);
  }
}

struct Candidate {
  Temper temper;
  uint32_t decided = 0;  // bits of MaskB that are settled
  int defect = 0;
  uint64_t order = 0;
};

constexpr size_t kBeam = 10;

Candidate find_masks(uint32_t matrix) {
  std::vector<Candidate> beam(1);
  for (int i = 0; i < 32; ++i) {
    const uint32_t bit = 0x80000000u >> i;
    std::vector<Candidate> grown;
    for (const Candidate& from : beam)
      for (int choice = 0; choice < 8; ++choice) {
        Candidate next = from;
        const uint32_t far = i + 15 <= 24 ? bit >> 15 : 0;
        if (choice & 1) {
          if (i > 16) continue;
          next.temper.c |= bit;
        }
        if (i <= 24 && !(next.decided & bit)) {
          if (choice & 2) next.temper.b |= bit;
          next.decided |= bit;
        } else if (choice & 2) {
          continue;
        }
        if ((choice & 1) && far && !(next.decided & far)) {
          if (choice & 4) next.temper.b |= far;
          next.decided |= far;
        } else if (choice & 4) {
          continue;
        }
        next.defect += kDegree / (i + 1) - equidistribution(matrix, next.temper, i + 1);
        next.order = mix(uint64_t{next.temper.b} << 32 ^ next.temper.c ^ uint64_t{matrix} << 7);
        grown.push_back(next);
      }
    std::sort(grown.begin(), grown.end(), [](const Candidate& x, const Candidate& y) {
      return x.defect != y.defect ? x.defect < y.defect : x.order < y.order;
    });
    if (grown.size() > kBeam) grown.resize(kBeam);
    beam = grown;
  }
  return beam[0];
}

std::map<int, Row> read_rows(const char* name) {
  std::map<int, Row> rows;
  if (FILE* f = std::fopen(name, "r")) {
    int row, defect;
    Row r;
    while (std::fscanf(f, "%d %x %x %x %d\n", &row, &r.matrix, &r.b, &r.c, &defect) == 5) rows[row] = r;
    std::fclose(f);
  }
  return rows;
}

int total_defect(const Row& r) {
  int sum = 0;
  for (int v = 1; v <= 32; ++v) sum += kDegree / v - equidistribution(r.matrix, {r.b, r.c}, v);
  return sum;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 5 && !std::strcmp(argv[1], "rows")) {
    const std::map<int, Row> have = read_rows(argv[4]);
    FILE* f = std::fopen(argv[4], "a");
    if (!f) return 1;
    const Sieve sieve;
    for (int row = std::atoi(argv[2]); row < std::atoi(argv[3]); ++row) {
      if (have.count(row)) continue;
      const auto given = kGiven.find(row);
      if (given != kGiven.end()) {
        const Row& r = given->second;
        if (!sieve.passes(r.matrix) || !Field(r.matrix).irreducible()) std::fprintf(stderr, "row %d reducible\n", row);
        std::fprintf(f, "%d %08X %08X %08X %d\n", row, r.matrix, r.b, r.c, total_defect(r));
      } else {
        const uint32_t matrix = find_matrix(row, sieve);
        const Candidate best = find_masks(matrix);
        std::fprintf(f, "%d %08X %08X %08X %d\n", row, matrix, best.temper.b, best.temper.c, best.defect);
      }
      std::fflush(f);
    }
    return std::fclose(f);
  }
  if (argc >= 3 && !std::strcmp(argv[1], "table")) {
    std::map<int, Row> rows;
    for (int i = 2; i < argc; ++i) rows.merge(read_rows(argv[i]));
    std::printf("// MatrixA, MaskB, MaskC of each sub-generator. Written by tools/qor/mt2203_search.cc.\n");
    for (int row = 0; row < kRows; ++row) {
      if (!rows.count(row)) {
        std::fprintf(stderr, "row %d is missing\n", row);
        return 1;
      }
      const Row& r = rows[row];
      std::printf("{0x%08X, 0x%08X, 0x%08X},\n", r.matrix, r.b, r.c);
    }
    return 0;
  }
  std::fprintf(stderr, "usage: mt2203_search rows FIRST LAST FILE | mt2203_search table FILE...\n");
  return 2;
}
