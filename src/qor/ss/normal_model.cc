#include "qor/ss/normal_model.h"

#include <algorithm>
#include <cmath>

#include "qor/ss/matrix.h"
#include "serv/blas.h"

namespace orvik::ss {
namespace {

namespace blas = serv::blas;

int32_t order_of(int64_t p) { return static_cast<int32_t>(p); }

}  // namespace

// LAPACK packages differ in what they make of a NaN.
bool factor(char triangle, int64_t p, double* a) {
  if (blas::potrf(triangle, order_of(p), a, order_of(p)) != 0) return false;
  for (int64_t j = 0; j < p; ++j) {
    if (!(a[j * p + j] > 0) || std::isinf(a[j * p + j])) return false;
  }
  return true;
}

// With L L' the covariance of the present: slopes = L'^-1 L^-1 S12, residual = S22 - (L^-1 S12)' (L^-1 S12).
int32_t regress(int64_t p, const Pattern& pattern, const Normal& theta, ModelScratch* s) {
  const int64_t q = pattern.present, r = p - q;
  const auto present = order_of(q), lacking = order_of(r);
  const int32_t* missing = pattern.order + q;
  for (int64_t j = 0; j < r; ++j) {
    for (int64_t i = 0; i < r; ++i) s->residual[j * r + i] = theta.covariance[missing[j] * p + missing[i]];
  }
  if (q == 0) return kDone;
  double* inverse = s->a;
  for (int64_t j = 0; j < q; ++j) {
    for (int64_t i = 0; i < q; ++i) inverse[j * q + i] = theta.covariance[pattern.order[j] * p + pattern.order[i]];
  }
  for (int64_t j = 0; j < r; ++j) {
    for (int64_t i = 0; i < q; ++i) s->slopes[j * q + i] = theta.covariance[missing[j] * p + pattern.order[i]];
  }
  if (!factor('L', q, inverse) || blas::trtri('L', 'N', present, inverse, present) != 0) return kBlockSingular;
  blas::trmm('L', 'L', 'N', 'N', present, lacking, 1.0, inverse, present, s->slopes, present);
  blas::syrk('U', 'T', lacking, present, -1.0, s->slopes, present, 1.0, s->residual, lacking);
  blas::trmm('L', 'L', 'T', 'N', present, lacking, 1.0, inverse, present, s->slopes, present);
  return kDone;
}

void predict(int64_t p, const Pattern& pattern, const Normal& theta, int64_t m, double* x, const double* noise,
             ModelScratch* s) {
  const int64_t q = pattern.present, r = p - q;
  double *deviations = s->block, *predicted = s->block + m * q;
  for (int64_t i = 0; i < m; ++i) {
    for (int64_t k = 0; k < q; ++k) {
      const int32_t j = pattern.order[k];
      deviations[i * q + k] = x[i * p + j] - theta.mean[j];
    }
  }
  if (q > 0) {
    blas::gemm('T', 'N', order_of(r), order_of(m), order_of(q), 1.0, s->slopes, order_of(q), deviations, order_of(q),
               0.0, predicted, order_of(r));
  }
  for (int64_t i = 0; i < m; ++i) {
    for (int64_t k = 0; k < r; ++k) {
      const int32_t j = pattern.order[q + k];
      double value = theta.mean[j];
      if (q > 0) value += predicted[i * r + k];
      if (noise != nullptr) value += noise[i * r + k];
      x[i * p + j] = value;
    }
  }
}

namespace {

// Patterns with as many rows as variables, or more: their sums of present values, taken once, say all that an
// expectation needs of the rows.
class PresentSums {
 public:
  static bool holds(int64_t p, const Pattern& pattern) { return pattern.present > 0 && pattern.rows >= p; }

  // False when memory is exhausted.
  bool take(const IncompleteData& data, ModelScratch* s) {
    const int64_t p = data.p();
    int64_t size = 0;
    for (int64_t k = 0; k < data.patterns(); ++k) {
      const int64_t q = data.pattern(k).present;
      if (holds(p, data.pattern(k))) size += q + q * q;
    }
    memory_ = serv::Block<double>(static_cast<uint64_t>(std::max<int64_t>(size, 1)));
    if (!memory_) return false;
    std::fill(memory_.get(), memory_.get() + size, 0.0);
    double* next = memory_.get();
    for (int64_t k = 0; k < data.patterns(); ++k) {
      const Pattern& pattern = data.pattern(k);
      if (!holds(p, pattern)) continue;
      const int64_t q = pattern.present;
      Sums sums{0, next, next + q};
      for_blocks(pattern, [&](int64_t first, int64_t m) {
        for (int64_t i = 0; i < m; ++i) {
          const double* x = data.x() + (first + i) * p;
          for (int64_t j = 0; j < q; ++j) s->block[i * q + j] = x[pattern.order[j]];
        }
        sums.add(q, s->block, m);
      });
      mirror_upper(q, sums.second);
      next += q + q * q;
    }
    return true;
  }
  // Of the first pattern that it holds; those of the next one follow.
  const double* first() const { return memory_.get(); }

 private:
  serv::Block<double> memory_;
};

// Adds the expected sums of a pattern's rows to s->sums, from those of the present values: with x = a + B' y of the
// missing given the present values y, and s and S the sums of y and y y', those of x are n a + B' s, of y x' s a' + S
// B, of x x' n a a' + a (B' s)' + (B' s) a' + B' S B.
void add_expected(int64_t p, const Pattern& pattern, const Normal& theta, const double* present, ModelScratch* s) {
  const int64_t q = pattern.present, r = p - q;
  const auto known = order_of(q), lacking = order_of(r);
  const double n = static_cast<double>(pattern.rows), *sum = present, *products = present + q;
  double *a = s->row, *fitted = s->noise, *mixed = s->b, *square = s->a;  // a, B' s, S B, B' S B
  for (int64_t j = 0; j < r; ++j) {
    a[j] = theta.mean[pattern.order[q + j]];
    fitted[j] = 0;
    for (int64_t i = 0; i < q; ++i) {
      a[j] -= s->slopes[j * q + i] * theta.mean[pattern.order[i]];
      fitted[j] += s->slopes[j * q + i] * sum[i];
    }
  }
  blas::gemm('N', 'N', known, lacking, known, 1.0, products, known, s->slopes, known, 0.0, mixed, known);
  blas::gemm('T', 'N', lacking, lacking, known, 1.0, s->slopes, known, mixed, known, 0.0, square, lacking);
  const auto add = [&](int64_t i, int64_t j, double value) {
    s->sums.second[std::max(pattern.order[i], pattern.order[j]) * p + std::min(pattern.order[i], pattern.order[j])] +=
        value;
  };
  for (int64_t j = 0; j < q; ++j) {
    s->sums.first[pattern.order[j]] += sum[j];
    for (int64_t i = 0; i <= j; ++i) add(i, j, products[j * q + i]);
  }
  for (int64_t j = 0; j < r; ++j) {
    s->sums.first[pattern.order[q + j]] += n * a[j] + fitted[j];
    for (int64_t i = 0; i < q; ++i) add(i, q + j, sum[i] * a[j] + mixed[j * q + i]);
    for (int64_t i = 0; i <= j; ++i) {
      add(q + i, q + j, n * a[i] * a[j] + a[i] * fitted[j] + fitted[i] * a[j] + square[j * r + i]);
    }
  }
  s->sums.n += n;
}

// Expected sums of the completed data into s->sums.
int32_t expect(const IncompleteData& data, const Normal& theta, const PresentSums& sums, double* x, ModelScratch* s) {
  const int64_t p = data.p();
  s->sums.set(p, data.complete());
  const double* present = sums.first();
  for (int64_t k = 0; k < data.patterns(); ++k) {
    const Pattern& pattern = data.pattern(k);
    const int64_t q = pattern.present, r = p - q;
    if (q == 0) continue;
    if (const int32_t status = regress(p, pattern, theta, s); status != kDone) return status;
    if (PresentSums::holds(p, pattern)) {
      add_expected(p, pattern, theta, present, s);
      present += q + q * q;
    } else {
      for_blocks(pattern, [&](int64_t i, int64_t m) { predict(p, pattern, theta, m, x + i * p, nullptr, s); });
      s->sums.add(p, x + pattern.first * p, pattern.rows);
    }
    const int32_t* missing = pattern.order + q;  // ascending
    for (int64_t j = 0; j < r; ++j) {
      for (int64_t i = 0; i <= j; ++i) {
        s->sums.second[missing[j] * p + missing[i]] += static_cast<double>(pattern.rows) * s->residual[j * r + i];
      }
    }
  }
  return kDone;
}

// The estimates that the sums give; returns the largest change.
double update(int64_t p, const Sums& sums, const Normal& theta) {
  double change = 0;
  auto put = [&](double* to, double value) {
    const double step = std::fabs(value - *to);
    if (!(step <= change)) change = step;
    *to = value;
  };
  for (int64_t j = 0; j < p; ++j) put(theta.mean + j, sums.first[j] / sums.n);
  for (int64_t j = 0; j < p; ++j) {
    for (int64_t i = 0; i <= j; ++i) {
      put(theta.covariance + j * p + i, sums.second[j * p + i] / sums.n - theta.mean[i] * theta.mean[j]);
    }
  }
  mirror_upper(p, theta.covariance);
  return change;
}

}  // namespace

bool ModelScratch::allocate(int64_t p) {
  const int64_t square = p * p, rows = kRows * p;
  memory_ = serv::Block<double>(static_cast<uint64_t>(5 * square + 2 * rows + 2 * p));
  if (!memory_) return false;
  slopes = memory_.get();
  residual = slopes + square;
  a = residual + square;
  b = a + square;
  sums.second = b + square;
  block = sums.second + square;
  noise = block + rows;
  row = noise + rows;
  sums.first = row + p;
  return true;
}

int32_t maximize(const IncompleteData& data, int64_t iterations, double accuracy, double* x, const Normal& theta,
                 ModelScratch* scratch) {
  PresentSums sums;
  if (iterations > 0 && !sums.take(data, scratch)) return kNoMemory;
  for (int64_t k = 0; k < iterations; ++k) {
    if (const int32_t status = expect(data, theta, sums, x, scratch); status != kDone) return status;
    const double change = update(data.p(), scratch->sums, theta);
    if (!std::isfinite(change)) return kBlockSingular;
    if (change < accuracy) break;
  }
  return kDone;
}

}  // namespace orvik::ss
