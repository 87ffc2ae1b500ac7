/* Distributions over streams.
 *
 * All entries have the same head: `method`, `stream`, `n` numbers, the array `r` for them, then parameters. They return
 * a status: a negative one of the generator ends the work at once, and `r` keeps what was written; any other one is the
 * last that the generator gave. An n below 1 writes nothing. Parameters are not checked. The stream moves on by a known
 * number of uniforms where docs/distributions.md says so. The thread's vector mode, error callback and control
 * registers are afterwards as before, but that a denormal field of zero becomes ZYM's 0x140000.
 *
 * `method` is 0 unless said otherwise. ORVIK_RNG_CLAMP in it forces results into the support of the distribution, where
 * "clamp" is said. */
#ifndef ORVIK_QOR_DISTRIBUTIONS_H
#define ORVIK_QOR_DISTRIBUTIONS_H

#include <stdint.h>

#include "orvik/qor_generators.h"

#pragma GCC visibility push(default)

#ifdef __cplusplus
extern "C" {
#endif

enum { ORVIK_RNG_CLAMP = 0x40000000 };

/* ---- Uniform ----------------------------------------------------------------------------------------------------- */

/* Numbers from `a` to `b`. Clamp. */
int32_t _qordRngUniform(uint32_t method, OrvikStream stream, int32_t n, double* r, double a, double b);
int32_t _qorsRngUniform(uint32_t method, OrvikStream stream, int32_t n, float* r, float a, float b);
/* Integers from `a` to `b` - 1; `b` itself where a double next to it is rounded to it, which large bounds have happen. */
int32_t _qoriRngUniform(uint32_t method, OrvikStream stream, int32_t n, int32_t* r, int32_t a, int32_t b);

/* ---- A uniform transformed --------------------------------------------------------------------------------------- */

/* Displacement `a`, scale `beta`. */
int32_t _qordRngCauchy(uint32_t method, OrvikStream stream, int32_t n, double* r, double a, double beta);
int32_t _qorsRngCauchy(uint32_t method, OrvikStream stream, int32_t n, float* r, float a, float beta);
/* Clamp. */
int32_t _qordRngExponential(uint32_t method, OrvikStream stream, int32_t n, double* r, double a, double beta);
int32_t _qorsRngExponential(uint32_t method, OrvikStream stream, int32_t n, float* r, float a, float beta);
/* a + beta ln(E) of unit exponential numbers E: extremes of minima. */
int32_t _qordRngGumbel(uint32_t method, OrvikStream stream, int32_t n, double* r, double a, double beta);
int32_t _qorsRngGumbel(uint32_t method, OrvikStream stream, int32_t n, float* r, float a, float beta);
/* Two uniforms a number. */
int32_t _qordRngLaplace(uint32_t method, OrvikStream stream, int32_t n, double* r, double a, double beta);
int32_t _qorsRngLaplace(uint32_t method, OrvikStream stream, int32_t n, float* r, float a, float beta);
/* a + beta sqrt(E): the usual Rayleigh deviation is beta / sqrt(2). Clamp. */
int32_t _qordRngRayleigh(uint32_t method, OrvikStream stream, int32_t n, double* r, double a, double beta);
int32_t _qorsRngRayleigh(uint32_t method, OrvikStream stream, int32_t n, float* r, float a, float beta);
/* Shape `alpha`. Clamp. */
int32_t _qordRngWeibull(uint32_t method, OrvikStream stream, int32_t n, double* r, double alpha, double a, double beta);
int32_t _qorsRngWeibull(uint32_t method, OrvikStream stream, int32_t n, float* r, float alpha, float a, float beta);

/* ---- Gaussian ---------------------------------------------------------------------------------------------------- */

enum {
  ORVIK_GAUSSIAN_BOX_MULLER = 0,       /* one number of each pair of uniforms */
  ORVIK_GAUSSIAN_BOX_MULLER_PAIRS = 1, /* both numbers; a number left over waits in the stream for the next call */
  ORVIK_GAUSSIAN_INVERSE = 2           /* inverse of the distribution function, one uniform a number */
};

/* Mean `a`, deviation `sigma`. Another method is -2. -4 for method 1. */
int32_t _qordRngGaussian(uint32_t method, OrvikStream stream, int32_t n, double* r, double a, double sigma);
int32_t _qorsRngGaussian(uint32_t method, OrvikStream stream, int32_t n, float* r, float a, float sigma);
/* b + beta exp(g) of Gaussian numbers g of mean `a` and deviation `sigma`: by pairs with method 0, by the inverse with
 * any other, the clamp bit alone included. Clamp. */
int32_t _qordRngLognormal(uint32_t method, OrvikStream stream, int32_t n, double* r, double a, double sigma, double b,
                          double beta);
int32_t _qorsRngLognormal(uint32_t method, OrvikStream stream, int32_t n, float* r, float a, float sigma, float b,
                          float beta);

enum {
  ORVIK_FACTOR_FULL = 0,    /* rows one after another; what stands above the diagonal is not read */
  ORVIK_FACTOR_PACKED = 1,  /* the columns of the lower triangle one after another */
  ORVIK_FACTOR_DIAGONAL = 2 /* deviations */
};

/* `n` vectors of `dimen` numbers, a + L z of unit normal vectors z by the methods of Gaussian. `a`: the mean; `t`: the
 * lower triangular factor of the covariance as `mstorage` says; another storage leaves unit normal numbers. One
 * dimension takes t[0] as the deviation. -1160 where a product is needed and no BLAS package is found. */
int32_t _qordRngGaussianMV(uint32_t method, OrvikStream stream, int32_t n, double* r, int32_t dimen, int32_t mstorage,
                           const double* a, const double* t);
int32_t _qorsRngGaussianMV(uint32_t method, OrvikStream stream, int32_t n, float* r, int32_t dimen, int32_t mstorage,
                           const float* a, const float* t);

/* ---- Gamma and its kin ------------------------------------------------------------------------------------------- */

/* Shape `alpha`, displacement `a`, scale `beta`. Rejection: the number of uniforms varies. Above shape 1 half a pair of
 * normal numbers may wait in the stream for the next call; -4. Clamp. */
int32_t _qordRngGamma(uint32_t method, OrvikStream stream, int32_t n, double* r, double alpha, double a, double beta);
int32_t _qorsRngGamma(uint32_t method, OrvikStream stream, int32_t n, float* r, float alpha, float a, float beta);
/* Shapes `p` and `q`, from `a` to `a` + `beta`. Clamp. */
int32_t _qordRngBeta(uint32_t method, OrvikStream stream, int32_t n, double* r, double p, double q, double a,
                     double beta);
int32_t _qorsRngBeta(uint32_t method, OrvikStream stream, int32_t n, float* r, float p, float q, float a, float beta);
/* `v` degrees of freedom. */
int32_t _qordRngChiSquare(uint32_t method, OrvikStream stream, int32_t n, double* r, int32_t v);
int32_t _qorsRngChiSquare(uint32_t method, OrvikStream stream, int32_t n, float* r, int32_t v);

/* ---- Discrete, one uniform a number ------------------------------------------------------------------------------ */

/* 1 with probability `p`, else 0. */
int32_t _qoriRngBernoulli(uint32_t method, OrvikStream stream, int32_t n, int32_t* r, double p);
/* Failures before the first success of probability `p`; numbers beyond 2^31 - 1 are cut to it. */
int32_t _qoriRngGeometric(uint32_t method, OrvikStream stream, int32_t n, int32_t* r, double p);

/* ---- Discrete, by inversion or rejection ------------------------------------------------------------------------- */

/* Their set-up stays in the stream and serves further calls with the same parameters; -4. */

/* Successes of `ntrial` trials of probability `p`. No trials: zeros, nothing is drawn. */
int32_t _qoriRngBinomial(uint32_t method, OrvikStream stream, int32_t n, int32_t* r, int32_t ntrial, double p);
/* Marked ones in a sample of `s` out of a lot of `l` of which `m` are marked. */
int32_t _qoriRngHypergeometric(uint32_t method, OrvikStream stream, int32_t n, int32_t* r, int32_t l, int32_t s,
                               int32_t m);
/* Failures before the success that makes the sum of successes `a`, of probability `p`; any `a` above 0. Numbers beyond
 * 2^31 - 1 are cut to it. */
int32_t _qoriRngNegbinomial(uint32_t method, OrvikStream stream, int32_t n, int32_t* r, double a, double p);

enum {
  ORVIK_POISSON_REJECTION = 0, /* a table below a mean of 27, rejection under a hat above */
  ORVIK_POISSON_NORMAL = 1     /* a normal number and a polynomial: one float a number, and another uniform for few */
};

/* Mean `lambda`, below 2^31; numbers beyond 2^31 - 1 are cut to it. Another method is -2. */
int32_t _qoriRngPoisson(uint32_t method, OrvikStream stream, int32_t n, int32_t* r, double lambda);
/* A mean for each number; numbers beyond 2^31 - 1 are cut to it. */
int32_t _qoriRngPoissonV(uint32_t method, OrvikStream stream, int32_t n, int32_t* r, const double* lambda);

enum {
  ORVIK_MULTINOMIAL_SEQUENTIAL = 0, /* a binomial number of what is left for each outcome, one uniform each */
  ORVIK_MULTINOMIAL_POISSON = 1     /* Poisson numbers corrected to the sum */
};

/* `n` rows of `k` counts that sum to `ntrial`, of outcomes with probabilities `p`. No trials: zeros, nothing is drawn.
 * -1150 where k is below 1, a probability is negative or no number, or their sum is not within 0.001 of 1; -2 for
 * another method; -4. */
int32_t _qoriRngMultinomial(uint32_t method, OrvikStream stream, int32_t n, int32_t* r, int32_t ntrial, int32_t k,
                            const double* p);

/* ---- Words ------------------------------------------------------------------------------------------------------- */

/* Elements as the generator gives them, of its word size. */
int32_t _qoriRngUniformBits(uint32_t method, OrvikStream stream, int32_t n, void* r);
/* Words whose bits are all good. -1014 for generators that have none. */
int32_t _qoriRngUniformBits32(uint32_t method, OrvikStream stream, int32_t n, uint32_t* r);
int32_t _qoriRngUniformBits64(uint32_t method, OrvikStream stream, int32_t n, uint64_t* r);

#ifdef __cplusplus
}
#endif

#pragma GCC visibility pop

#endif
