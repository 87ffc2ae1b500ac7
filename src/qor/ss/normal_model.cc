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

// Expected sums of the completed data into s->sums.
int32_t expect(const IncompleteData& data, const Normal& theta, double* x, ModelScratch* s) {
  const int64_t p = data.p();
  s->sums.set(p, data.complete());
  for (int64_t k = 0; k < data.patterns(); ++k) {
    const Pattern& pattern = data.pattern(k);
    if (pattern.present == 0) continue;
    if (const int32_t status = regress(p, pattern, theta, s); status != kDone) return status;
    for_blocks(pattern, [&](int64_t i, int64_t m) { predict(p, pattern, theta, m, x + i * p, nullptr, s); });
    const int64_t r = p - pattern.present;
    const int32_t* missing = pattern.order + pattern.present;  // ascending
    for (int64_t j = 0; j < r; ++j) {
      for (int64_t i = 0; i <= j; ++i) {
        s->sums.second[missing[j] * p + missing[i]] += static_cast<double>(pattern.rows) * s->residual[j * r + i];
      }
    }
  }
  s->sums.add(p, x, data.rows_with_values());
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
  for (int64_t k = 0; k < iterations; ++k) {
    if (const int32_t status = expect(data, theta, x, scratch); status != kDone) return status;
    const double change = update(data.p(), scratch->sums, theta);
    if (!std::isfinite(change)) return kBlockSingular;
    if (change < accuracy) break;
  }
  return kDone;
}

}  // namespace orvik::ss
