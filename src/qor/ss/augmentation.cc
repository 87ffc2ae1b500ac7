// Draws of data augmentation (Tanner and Wong 1987; Schafer 1997): missing values given the parameters, parameters
// given the completed data.
#include <algorithm>
#include <cmath>

#include "qor/ss/matrix.h"
#include "qor/ss/normal_model.h"
#include "serv/blas.h"

namespace orvik::ss {
namespace {

namespace blas = serv::blas;

int32_t order_of(int64_t p) { return static_cast<int32_t>(p); }

// The generator's own faults cannot occur; memory for its side blocks may be short.
bool fine(int32_t status) { return status >= 0; }

// Degrees of freedom and, into s->a, the lower factor of the inverse scale matrix of the posterior Wishart
// distribution; the posterior's mean into s->row. With C the completed data's scatter about its mean m, weight w and
// mean m0 of the prior: scale0 + C + n w / (n + w) (m - m0)(m - m0)'.
int32_t posterior(int64_t p, const Prior& prior, ModelScratch* s, double* degrees) {
  const double n = s->sums.n, weight = prior.weight;
  double *mean = s->row, *g = s->a;
  for (int64_t j = 0; j < p; ++j) mean[j] = s->sums.first[j] / n;
  for (int64_t j = 0; j < p; ++j) {
    for (int64_t i = 0; i <= j; ++i) {
      double value = s->sums.second[j * p + i] - n * mean[i] * mean[j];
      if (prior.mean != nullptr) {
        value += n * weight / (n + weight) * (mean[i] - prior.mean[i]) * (mean[j] - prior.mean[j]);
        value += prior.scale[j * p + i];
      }
      g[i * p + j] = value;
      if (i < j) g[j * p + i] = 0;
    }
  }
  if (prior.mean != nullptr) {
    for (int64_t j = 0; j < p; ++j) mean[j] = (n * mean[j] + weight * prior.mean[j]) / (n + weight);
  }
  *degrees = n + prior.degrees;
  if (!(*degrees > static_cast<double>(p - 1))) return kPosteriorSingular;
  double* const variances = s->b;
  for (int64_t j = 0; j < p; ++j) variances[j] = g[j * p + j];
  if (!factor('L', p, g)) return kPosteriorSingular;
  // What rounding alone leaves of a variable that the others determine is nothing.
  for (int64_t j = 0; j < p; ++j) {
    if (!(g[j * p + j] * g[j * p + j] > 1e-13 * variances[j])) return kPosteriorSingular;
  }
  return kDone;
}

}  // namespace

int32_t impute(const IncompleteData& data, const Normal& theta, OrvikStream stream, double* x, ModelScratch* s) {
  const int64_t p = data.p();
  std::fill(s->row, s->row + p, 0.0);
  for (int64_t k = 0; k < data.patterns(); ++k) {
    const Pattern& pattern = data.pattern(k);
    const int64_t r = p - pattern.present;
    if (const int32_t status = regress(p, pattern, theta, s); status != kDone) return status;
    // The upper factor by columns is the lower one by rows, as the generator takes it.
    if (!factor('U', r, s->residual)) return kConditionalSingular;
    bool drawn = true;
    for_blocks(pattern, [&](int64_t i, int64_t m) {
      drawn = drawn && fine(_qordRngGaussianMV(ORVIK_GAUSSIAN_INVERSE, stream, static_cast<int32_t>(m), s->noise,
                                               order_of(r), ORVIK_FACTOR_FULL, s->row, s->residual));
      predict(p, pattern, theta, m, x + i * p, s->noise, s);
    });
    if (!drawn) return kNoMemory;
  }
  return kDone;
}

// The inverse covariance is Wishart distributed about the inverse of G G': with A Bartlett's (1933) lower triangle of
// roots of chi-square numbers and normal numbers, the covariance is H H' with H = G A'^-1; the mean is normal with that
// covariance over n + w.
int32_t draw_parameters(const IncompleteData& data, const Prior& prior, const double* x, OrvikStream stream,
                        const Normal& theta, ModelScratch* s) {
  const int64_t p = data.p();
  const int32_t order = order_of(p);
  s->sums.set(p, data.complete());
  s->sums.add(p, x, data.rows_with_values());
  double degrees;
  if (const int32_t status = posterior(p, prior, s, &degrees); status != kDone) return status;
  double *h = s->a, *bartlett = s->b;
  for (int64_t j = 0; j < p; ++j) {
    double* column = bartlett + j * p;
    if (!fine(_qordRngGaussian(ORVIK_GAUSSIAN_INVERSE, stream, order, column, 0, 1))) return kNoMemory;
    // A chi-square number, also of degrees that are not whole.
    double chi_square;
    const double shape = (degrees - static_cast<double>(j)) / 2;
    if (!fine(_qordRngGamma(0, stream, 1, &chi_square, shape, 0, 2))) return kNoMemory;
    std::fill(column, column + j, 0.0);
    column[j] = std::sqrt(chi_square);
    if (!(column[j] > 0)) return kPosteriorSingular;
  }
  if (blas::trtri('L', 'N', order, bartlett, order) != 0) return kPosteriorSingular;
  blas::trmm('R', 'L', 'T', 'N', order, order, 1.0, bartlett, order, h, order);
  blas::syrk('U', 'N', order, order, 1.0, h, order, 0.0, theta.covariance, order);
  mirror_upper(p, theta.covariance);
  double* z = s->b;
  if (!fine(_qordRngGaussian(ORVIK_GAUSSIAN_INVERSE, stream, order, z, 0, 1))) return kNoMemory;
  std::copy(s->row, s->row + p, theta.mean);
  const double root = 1 / std::sqrt(s->sums.n + prior.weight);
  blas::gemv('N', order, order, root, h, order, z, 1, 1.0, theta.mean, 1);
  return kDone;
}

}  // namespace orvik::ss
