/* The front: checked, threaded calls over the kernels. Arguments are checked, lengths have 64 bits, long vectors are split
 * over threads, and results never depend, in a single bit, on how many there are.
 *
 * Every call returns an orvik_status: 0; a positive one where a vector function met exceptional elements (the
 * computation is complete); a negative one where nothing was computed, and then no result was written and objects are as
 * they were. orvik_status_text has a sentence for each. The caller's mode word, errno, error status and rounding direction
 * are afterwards as before; exception flags are raised as one thread would. The input vector pointer of the kernels
 * (_zymSetInterfInputVectorPointer), which cannot be read, is null after a call of a function whose elements can be reported.
 *
 * Objects (streams, summaries, splines ...) are used by one thread at a time. A null or deleted one is refused. */
#ifndef ORVIK_FRONT_H
#define ORVIK_FRONT_H

#include <stdint.h>

#include "orvik/qor_distributions.h" /* methods of Gaussian, storage of a factor, ids of generators */
#include "orvik/version.h"
#include "orvik/zym_types.h" /* complex elements */

/* What every call returns: one of these, or a status of the kernels. */
typedef int32_t orvik_status;
enum {
  ORVIK_SUCCESS = 0,
  /* A vector function met such elements: the least code of all. */
  ORVIK_DOMAIN = 1,
  ORVIK_SINGULARITY = 2,
  ORVIK_OVERFLOW = 3,
  ORVIK_UNDERFLOW = 4,
  /* Nothing was computed. Statuses of the kernels, all above -10000, come back unchanged. */
  ORVIK_ERROR_NULL_POINTER = -10001,
  ORVIK_ERROR_BAD_LENGTH = -10002,
  ORVIK_ERROR_OVERLAP = -10003,
  ORVIK_ERROR_BAD_ACCURACY = -10004,
  ORVIK_ERROR_BAD_PARAMETER = -10005,
  ORVIK_ERROR_BAD_STREAM = -10006,
  ORVIK_ERROR_BAD_IMAGE = -10007,
  ORVIK_ERROR_UNSUPPORTED = -10008,
  ORVIK_ERROR_NOT_SORTED = -10009,
  ORVIK_ERROR_NO_MEMORY = -10010,
  ORVIK_ERROR_CPU = -10011,
  ORVIK_ERROR_BAD_OBJECT = -10012 /* a summary, spline ... that is null or deleted, or of another kind */
};

/* ---- Options of the vector functions ------------------------------------------------------------------------------- */

/* Levels of accuracy. */
enum { ORVIK_HA = 0, ORVIK_LA = 1, ORVIK_EP = 2 };

/* An exceptional element. Second parts are imaginary ones, of a real function with two results the second result; what the
 * function has not is 0. */
typedef struct orvik_report {
  int64_t index; /* in the whole call */
  int32_t code;  /* ORVIK_DOMAIN ... ORVIK_UNDERFLOW */
  double a[2], b[2], r[2]; /* arguments and result */
} orvik_report;

/* How vector functions are computed; null: high accuracy, as many threads as pay, no reports. */
typedef struct orvik_math_options {
  int32_t accuracy;        /* ORVIK_HA, ORVIK_LA, ORVIK_EP */
  int32_t threads;         /* 0: as many as pay; 1: the caller's alone */
  orvik_report* reports;   /* receives exceptional elements by index, the first that fit; may be null */
  int64_t report_capacity; /* how many fit */
  int64_t report_count;    /* out: all exceptional elements of this call */
} orvik_math_options;

#pragma GCC visibility push(default)
#ifdef __cplusplus
extern "C" {
#endif

/* An English sentence, for any number. */
const char* orvik_status_text(int32_t status);

/* How many threads pay at most where a call leaves it open. 0, as at the start: as many as the process may run on. Below 0:
 * ORVIK_ERROR_BAD_PARAMETER. */
orvik_status orvik_set_num_threads(int32_t threads);
int32_t orvik_get_num_threads(void);

/* ---- Streams ------------------------------------------------------------------------------------------------------- */

/* A stream of random numbers. */
typedef struct orvik_stream orvik_stream;

/* Generators. Members of the families: ORVIK_MT2203 + k, k below 6024; ORVIK_WH + k, k below 273. */
enum {
  ORVIK_MCG31M1 = ORVIK_BRNG_MCG31M1,
  ORVIK_R250 = ORVIK_BRNG_R250,
  ORVIK_MRG32K3A = ORVIK_BRNG_MRG32K3A,
  ORVIK_MCG59 = ORVIK_BRNG_MCG59,
  ORVIK_WH = ORVIK_BRNG_WH,
  ORVIK_SOBOL = ORVIK_BRNG_SOBOL,
  ORVIK_NIEDERREITER = ORVIK_BRNG_NIEDERREITER,
  ORVIK_MT19937 = ORVIK_BRNG_MT19937,
  ORVIK_MT2203 = ORVIK_BRNG_MT2203,
  ORVIK_SFMT19937 = ORVIK_BRNG_SFMT19937,
  ORVIK_TRNG = ORVIK_BRNG_TRNG,
  ORVIK_ARS5 = ORVIK_BRNG_ARS5,
  ORVIK_PHILOX4X32X10 = ORVIK_BRNG_PHILOX4X32X10
};

/* "MT19937", "MT2203" for any member; null for no generator. */
const char* orvik_generator_name(int32_t generator);

/* Makes a stream; null is stored on failure. `seed`: its low, then its high word are the seed words; of Sobol and
 * Niederreiter the dimension, 1 to 40 and 1 to 318. ORVIK_ERROR_UNSUPPORTED for the abstract generators of the kernels. */
orvik_status orvik_stream_new(orvik_stream** s, int32_t generator, uint64_t seed);
orvik_status orvik_stream_new_seeds(orvik_stream** s, int32_t generator, int32_t n, const uint32_t* seeds);
orvik_status orvik_stream_copy(orvik_stream** copy, const orvik_stream* s);
void orvik_stream_delete(orvik_stream* s); /* null and deleted ones are left alone */
/* Writes an image of *size bytes at most and stores its size; with a null `memory` only that. */
orvik_status orvik_stream_save(const orvik_stream* s, void* memory, int64_t* size);
orvik_status orvik_stream_load(orvik_stream** s, const void* memory, int64_t size);
orvik_status orvik_stream_skip(orvik_stream* s, uint64_t count);
/* count[0] + count[1] 2^64 + ... */
orvik_status orvik_stream_skip_long(orvik_stream* s, int32_t n, const uint64_t* count);
/* From now on members k, k + nstreams, k + 2 nstreams ... */
orvik_status orvik_stream_leapfrog(orvik_stream* s, int32_t k, int32_t nstreams);
/* The constant, with the member; ORVIK_ERROR_BAD_STREAM. */
int32_t orvik_stream_generator(const orvik_stream* s);

/* ---- Draws --------------------------------------------------------------------------------------------------------- */

/* `n` numbers to `r`. Parameters outside the domain, NaN or infinite: ORVIK_ERROR_BAD_PARAMETER, the stream untouched.
 * docs/distributions.md has the formulas. `method` of Gaussian and the multivariate normal: ORVIK_GAUSSIAN_...; of lognormal: 0
 * by pairs, 1 by the inverse; of Poisson and the multinomial distribution: ORVIK_POISSON_..., ORVIK_MULTINOMIAL_... Arrays of
 * parameters may not overlap the results. The forms with threads (0: as many as pay) draw the same numbers and leave the same stream: parts
 * of the request skip ahead. They stay on the caller's thread where the generator cannot skip, or where half a pair of
 * normal numbers may be waiting in the stream. */
#define ORVIK_FRONT_DRAWS(d, real)                                                                                      \
  /* From a to b. */                                                                                                    \
  orvik_status orvik_##d##_uniform(orvik_stream* s, int64_t n, real* r, real a, real b);                                \
  orvik_status orvik_##d##_uniform_threads(orvik_stream* s, int64_t n, real* r, real a, real b, int32_t threads);       \
  /* By the inverse of the distribution function, one uniform a number. */                                              \
  orvik_status orvik_##d##_normal(orvik_stream* s, int64_t n, real* r, real mean, real sigma);                          \
  orvik_status orvik_##d##_normal_threads(orvik_stream* s, int64_t n, real* r, real mean, real sigma, int32_t threads); \
  orvik_status orvik_##d##_gaussian(orvik_stream* s, int64_t n, real* r, real mean, real sigma, uint32_t method);       \
  orvik_status orvik_##d##_gaussian_threads(orvik_stream* s, int64_t n, real* r, real mean, real sigma,                 \
                                            uint32_t method, int32_t threads);                                          \
  /* `n` vectors of `dimen` numbers: a + L z, the factor L stored as ORVIK_FACTOR_... says. */                          \
  orvik_status orvik_##d##_multivariate_normal(orvik_stream* s, int64_t n, real* r, int32_t dimen, int32_t storage,     \
                                               const real* a, const real* t, uint32_t method);                          \
  orvik_status orvik_##d##_cauchy(orvik_stream* s, int64_t n, real* r, real a, real beta);                              \
  orvik_status orvik_##d##_cauchy_threads(orvik_stream* s, int64_t n, real* r, real a, real beta, int32_t threads);     \
  orvik_status orvik_##d##_exponential(orvik_stream* s, int64_t n, real* r, real a, real beta);                         \
  orvik_status orvik_##d##_exponential_threads(orvik_stream* s, int64_t n, real* r, real a, real beta, int32_t threads); \
  orvik_status orvik_##d##_gumbel(orvik_stream* s, int64_t n, real* r, real a, real beta);                              \
  orvik_status orvik_##d##_gumbel_threads(orvik_stream* s, int64_t n, real* r, real a, real beta, int32_t threads);     \
  orvik_status orvik_##d##_laplace(orvik_stream* s, int64_t n, real* r, real a, real beta);                             \
  orvik_status orvik_##d##_laplace_threads(orvik_stream* s, int64_t n, real* r, real a, real beta, int32_t threads);    \
  orvik_status orvik_##d##_rayleigh(orvik_stream* s, int64_t n, real* r, real a, real beta);                            \
  orvik_status orvik_##d##_rayleigh_threads(orvik_stream* s, int64_t n, real* r, real a, real beta, int32_t threads);   \
  orvik_status orvik_##d##_weibull(orvik_stream* s, int64_t n, real* r, real alpha, real a, real beta);                 \
  orvik_status orvik_##d##_weibull_threads(orvik_stream* s, int64_t n, real* r, real alpha, real a, real beta,          \
                                           int32_t threads);                                                            \
  orvik_status orvik_##d##_lognormal(orvik_stream* s, int64_t n, real* r, real a, real sigma, real b, real beta,        \
                                     uint32_t method);                                                                  \
  orvik_status orvik_##d##_lognormal_threads(orvik_stream* s, int64_t n, real* r, real a, real sigma, real b,           \
                                             real beta, uint32_t method, int32_t threads);                              \
  orvik_status orvik_##d##_gamma(orvik_stream* s, int64_t n, real* r, real alpha, real a, real beta);                   \
  orvik_status orvik_##d##_beta(orvik_stream* s, int64_t n, real* r, real p, real q, real a, real beta);                \
  orvik_status orvik_##d##_chisquare(orvik_stream* s, int64_t n, real* r, int32_t v);

ORVIK_FRONT_DRAWS(d, double)
ORVIK_FRONT_DRAWS(s, float)
#undef ORVIK_FRONT_DRAWS

/* Words of 32 good bits; from the high bits of two numbers a word where those of a generator are no good (MCG31M1, WH,
 * MRG32K3A), of one where they are long (MCG59). */
orvik_status orvik_i_words(orvik_stream* s, int64_t n, uint32_t* r);
orvik_status orvik_i_words_threads(orvik_stream* s, int64_t n, uint32_t* r, int32_t threads);
/* a to b - 1. */
orvik_status orvik_i_uniform(orvik_stream* s, int64_t n, int32_t* r, int32_t a, int32_t b);
orvik_status orvik_i_uniform_threads(orvik_stream* s, int64_t n, int32_t* r, int32_t a, int32_t b, int32_t threads);
orvik_status orvik_i_bernoulli(orvik_stream* s, int64_t n, int32_t* r, double p);
orvik_status orvik_i_bernoulli_threads(orvik_stream* s, int64_t n, int32_t* r, double p, int32_t threads);
orvik_status orvik_i_geometric(orvik_stream* s, int64_t n, int32_t* r, double p);
orvik_status orvik_i_geometric_threads(orvik_stream* s, int64_t n, int32_t* r, double p, int32_t threads);
orvik_status orvik_i_binomial(orvik_stream* s, int64_t n, int32_t* r, int32_t ntrial, double p);
orvik_status orvik_i_hypergeometric(orvik_stream* s, int64_t n, int32_t* r, int32_t l, int32_t sample, int32_t marked);
/* a > 0, 2^-54 < p <= 1, the mean a (1 - p) / p finite. */
orvik_status orvik_i_negbinomial(orvik_stream* s, int64_t n, int32_t* r, double a, double p);
/* Means above 0, below 2^31: one for all, one for each number. */
orvik_status orvik_i_poisson(orvik_stream* s, int64_t n, int32_t* r, double lambda, uint32_t method);
orvik_status orvik_i_poissonv(orvik_stream* s, int64_t n, int32_t* r, const double* lambda);
/* `n` rows of `k` counts that sum to `ntrial`; probabilities whose sum is 1 to three digits. */
orvik_status orvik_i_multinomial(orvik_stream* s, int64_t n, int32_t* r, int32_t ntrial, int32_t k, const double* p,
                                 uint32_t method);

/* ---- Statistics ---------------------------------------------------------------------------------------------------- */

/* Variable j of p, observation i of n: x[j * n + i]; x[i * p + j]. */
enum { ORVIK_ROWS = 0, ORVIK_COLUMNS = 1 };

/* Variance and covariance are the unbiased ones; skewness and kurtosis as in docs/statistics.md. Results hold p values, matrices
 * p * p, those of m orders p * m, variable by variable. */
#define ORVIK_FRONT_STATISTICS(d, real)                                                                                 \
  /* Moments, extremes, covariance of all that was fed, over any number of blocks; mergeable. */                        \
  typedef struct orvik_##d##_summary orvik_##d##_summary;                                                               \
  orvik_status orvik_##d##_summary_new(orvik_##d##_summary** s, int64_t p);                                             \
  /* Weights, n or null, are not negative. */                                                                           \
  orvik_status orvik_##d##_summary_update(orvik_##d##_summary* s, int64_t n, const real* x, int32_t layout,             \
                                          const real* weights);                                                         \
  /* Adds what `other` saw, which stays as it is. */                                                                    \
  orvik_status orvik_##d##_summary_merge(orvik_##d##_summary* s, const orvik_##d##_summary* other);                     \
  orvik_status orvik_##d##_summary_count(const orvik_##d##_summary* s, int64_t* n);                                     \
  orvik_status orvik_##d##_summary_mean(const orvik_##d##_summary* s, real* r);                                         \
  orvik_status orvik_##d##_summary_variance(const orvik_##d##_summary* s, real* r);                                     \
  orvik_status orvik_##d##_summary_skewness(const orvik_##d##_summary* s, real* r);                                     \
  orvik_status orvik_##d##_summary_kurtosis(const orvik_##d##_summary* s, real* r);                                     \
  orvik_status orvik_##d##_summary_min(const orvik_##d##_summary* s, real* r);                                          \
  orvik_status orvik_##d##_summary_max(const orvik_##d##_summary* s, real* r);                                          \
  orvik_status orvik_##d##_summary_covariance(const orvik_##d##_summary* s, real* r);                                   \
  orvik_status orvik_##d##_summary_correlation(const orvik_##d##_summary* s, real* r);                                  \
  /* As with streams. */                                                                                                \
  orvik_status orvik_##d##_summary_save(const orvik_##d##_summary* s, void* memory, int64_t* size);                     \
  orvik_status orvik_##d##_summary_load(orvik_##d##_summary** s, const void* memory, int64_t size);                     \
  void orvik_##d##_summary_delete(orvik_##d##_summary* s);                                                              \
  /* The number of variables. */                                                                                        \
  orvik_status orvik_##d##_summary_dimension(const orvik_##d##_summary* s, int64_t* p);                                 \
                                                                                                                        \
  /* Quantiles of orders 0 to 1. */                                                                                     \
  orvik_status orvik_##d##_quantiles(int64_t n, int64_t p, const real* x, int32_t layout, int64_t m,                    \
                                     const real* orders, real* r);                                                      \
  /* Quantiles of what is fed block by block, ranks off by epsilon n at most, 1e-8 <= epsilon <= 1. */                   \
  typedef struct orvik_##d##_stream_quantiles orvik_##d##_stream_quantiles;                                             \
  orvik_status orvik_##d##_stream_quantiles_new(orvik_##d##_stream_quantiles** s, int64_t p, real epsilon);             \
  orvik_status orvik_##d##_stream_quantiles_update(orvik_##d##_stream_quantiles* s, int64_t n, const real* x,           \
                                                   int32_t layout);                                                     \
  orvik_status orvik_##d##_stream_quantiles_query(orvik_##d##_stream_quantiles* s, int64_t m, const real* orders,       \
                                                  real* r);                                                             \
  orvik_status orvik_##d##_stream_quantiles_dimension(const orvik_##d##_stream_quantiles* s, int64_t* p);               \
  /* As with streams: what comes after a load is what comes without. */                                                 \
  orvik_status orvik_##d##_stream_quantiles_save(const orvik_##d##_stream_quantiles* s, void* memory, int64_t* size);   \
  orvik_status orvik_##d##_stream_quantiles_load(orvik_##d##_stream_quantiles** s, const void* memory, int64_t size);   \
  void orvik_##d##_stream_quantiles_delete(orvik_##d##_stream_quantiles* s);                                            \
  /* Each variable in ascending order, NaN last, to r of the same layout, which may be x. */                            \
  orvik_status orvik_##d##_sort(int64_t n, int64_t p, const real* x, int32_t layout, real* r);                          \
  orvik_status orvik_##d##_weighted_median(int64_t n, int64_t p, const real* x, int32_t layout, const real* weights,    \
                                           real* r);                                                                    \
  /* Median of the absolute deviations from the median. */                                                              \
  orvik_status orvik_##d##_mad(int64_t n, int64_t p, const real* x, int32_t layout, real* r);                           \
  /* Flags of the n observations, 1 for an outlier, else 0. `alpha`, 0 to 1: the probability that a clean sample has one. At \
   * least 5 p observations; a NaN or an infinity makes an outlier. */                                                  \
  orvik_status orvik_##d##_outliers(int64_t n, int64_t p, const real* x, int32_t layout, real alpha, int8_t* r);        \
  /* Mean and covariance that outliers do not move, of more than 2 p observations. */                                   \
  orvik_status orvik_##d##_robust_covariance(int64_t n, int64_t p, const real* x, int32_t layout, real* mean,           \
                                             real* covariance);                                                         \
  /* m completed data sets to r, each in the layout of x: NaN is missing, and what stands for it is drawn, differently in each \
   * set. The draws are fixed: set k is the same in each call, whatever m is. r may be x where m is 1. */               \
  orvik_status orvik_##d##_impute(int64_t n, int64_t p, const real* x, int32_t layout, int64_t m, real* r);

ORVIK_FRONT_STATISTICS(d, double)
ORVIK_FRONT_STATISTICS(s, float)
#undef ORVIK_FRONT_STATISTICS

/* ---- Data fitting -------------------------------------------------------------------------------------------------- */

/* Kinds of splines. */
enum {
  ORVIK_LINEAR = 0,
  ORVIK_HERMITE = 1, /* internal: the nx - 2 inner first derivatives, the same for all functions */
  ORVIK_BESSEL = 2,
  ORVIK_AKIMA = 3,
  ORVIK_HYMAN = 4,
  ORVIK_NATURAL = 5,
  ORVIK_DEFAULT = 6, /* internal: the nx - 2 inner second derivatives, the same for all functions */
  ORVIK_QUADRATIC = 7 /* knots of its own between the breakpoints: nx pieces, one about each; ends free, first, second */
};

/* Kinds of ends. */
enum { ORVIK_ENDS_FREE = 0, ORVIK_ENDS_NOT_A_KNOT = 1, ORVIK_ENDS_PERIODIC = 2, ORVIK_ENDS_FIRST = 3, ORVIK_ENDS_SECOND = 4 };

/* What holds at the two ends; the derivatives of that order for the last two kinds. */
typedef struct orvik_spline_ends {
  int32_t kind;        /* ORVIK_ENDS_... */
  double left, right;  /* the derivatives */
} orvik_spline_ends;

#define ORVIK_FRONT_FITTING(d, real)                                                                                    \
  /* A spline over one partition, of one or several functions. */                                                       \
  typedef struct orvik_##d##_spline orvik_##d##_spline;                                                                 \
  /* A spline through ny functions y[f * nx + i] at x[0] < ... < x[nx - 1]. Copies what it needs. `ends` null: free. */ \
  orvik_status orvik_##d##_spline_new(orvik_##d##_spline** s, int64_t nx, const real* x, int64_t ny, const real* y,     \
                                      int32_t kind, const orvik_spline_ends* ends, const real* internal);               \
  /* Breakpoints evenly from x0 to x1. */                                                                               \
  orvik_status orvik_##d##_spline_new_uniform(orvik_##d##_spline** s, real x0, real x1, int64_t nx, int64_t ny,         \
                                              const real* y, int32_t kind, const orvik_spline_ends* ends,               \
                                              const real* internal);                                                    \
  /* Function f at t[i], or its derivative of that order, to r[f * n + i]. The end pieces go on outside. */             \
  orvik_status orvik_##d##_spline_evaluate(const orvik_##d##_spline* s, int64_t n, const real* t, real* r,              \
                                           int32_t derivative);                                                         \
  /* Integrals from a[i] to b[i] to r[f * n + i]. */                                                                    \
  orvik_status orvik_##d##_spline_integrate(const orvik_##d##_spline* s, int64_t n, const real* a, const real* b,       \
                                            real* r);                                                                   \
  /* Writes the coefficients, function by function, piece by piece, lowest power first about the left end: *count of them    \
   * at most; stores how many there are. With a null `r` only that. */                                                  \
  orvik_status orvik_##d##_spline_coefficients(const orvik_##d##_spline* s, real* r, int64_t* count);                   \
  /* nx, ny, and the coefficients of a piece; null for what is not wanted. */                                           \
  orvik_status orvik_##d##_spline_shape(const orvik_##d##_spline* s, int64_t* nx, int64_t* ny, int64_t* order);         \
  void orvik_##d##_spline_delete(orvik_##d##_spline* s);                                                                \
  /* How many of x[0] < ... < x[nx - 1] are not above t[i]; nx for a NaN. */                                            \
  orvik_status orvik_##d##_search(int64_t nx, const real* x, int64_t n, const real* t, int64_t* cell);

ORVIK_FRONT_FITTING(d, double)
ORVIK_FRONT_FITTING(s, float)
#undef ORVIK_FRONT_FITTING

#ifdef __cplusplus
}
#endif
#pragma GCC visibility pop

/* ---- Vector mathematics -------------------------------------------------------------------------------------------- */

/* n elements; element i of a strided form lies at base + i * increment. A result may be an argument (the same start,
 * increment and type); any other overlap of a result is ORVIK_ERROR_OVERLAP. `options` null: high accuracy, as many threads as
 * pay, no reports. */
#include "orvik/front_functions.h"

#endif
