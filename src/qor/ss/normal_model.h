// The multivariate normal model of incomplete observations: regressions of what is missing on what is present, maximum
// likelihood by expectation and maximisation (Dempster, Laird and Rubin 1977), draws by data augmentation (Tanner and
// Wong 1987, Schafer 1997).
#pragma once

#include <algorithm>

#include "orvik/qor.h"
#include "qor/ss/incomplete.h"

namespace orvik::ss {

// Mean, and covariance with both triangles.
struct Normal {
  double* mean;
  double* covariance;
};

// The normal-inverted-Wishart prior: the mean has the weight of `weight` observations, the covariance `degrees` degrees
// of freedom and the inverse scale matrix `scale`, p by p, upper triangle. As it stands, the non-informative one.
struct Prior {
  double weight = 0;
  double degrees = -1;
  const double* mean = nullptr;
  const double* scale = nullptr;
};

// Working memory for models of p variables.
class ModelScratch {
 public:
  static constexpr int64_t kRows = 256;  // observations of a block
  // False when memory is exhausted.
  bool allocate(int64_t p);

  // Of a pattern with q present and r missing variables: `slopes`, q by r, of the missing on the present; `residual`,
  // r by r, the upper triangle of their covariance given those.
  double *slopes, *residual;
  double *block, *noise;  // kRows observations
  double *a, *b, *row;    // p by p, p by p, p
  Sums sums;

 private:
  serv::Block<double> memory_;
};

// The lower or upper Cholesky factor of a p by p matrix, in place. False where it is not positive definite.
bool factor(char triangle, int64_t p, double* a);

// Fills `slopes` and `residual` for a pattern; kBlockSingular.
int32_t regress(int64_t p, const Pattern& pattern, const Normal& theta, ModelScratch* scratch);

// Fills the missing values of m observations of a pattern: what is expected given the present ones, plus noise, one
// observation after the other, if there is any.
void predict(int64_t p, const Pattern& pattern, const Normal& theta, int64_t m, double* x, const double* noise,
             ModelScratch* scratch);

// Calls body(i, m) for the blocks [i, i + m) of a pattern's observations.
template <class Body>
void for_blocks(const Pattern& pattern, Body&& body) {
  for (int64_t i = 0; i < pattern.rows; i += ModelScratch::kRows) {
    body(pattern.first + i, std::min(ModelScratch::kRows, pattern.rows - i));
  }
}

// Maximises the likelihood from `theta`, up to `iterations` steps or until no element of mean and covariance, in units
// of the deviations, changes by as much as `accuracy`. `x`: a copy of the data's rows, whose missing values are working
// memory, as below.
int32_t maximize(const IncompleteData& data, int64_t iterations, double accuracy, double* x, const Normal& theta,
                 ModelScratch* scratch);

// Draws the missing values given theta.
int32_t impute(const IncompleteData& data, const Normal& theta, OrvikStream stream, double* x, ModelScratch* scratch);

// Draws theta given the completed data.
int32_t draw_parameters(const IncompleteData& data, const Prior& prior, const double* x, OrvikStream stream,
                        const Normal& theta, ModelScratch* scratch);

}  // namespace orvik::ss
