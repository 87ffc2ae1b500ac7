/* Summary statistics: moments, extremes, covariance, quantiles, deviations, sorting.
 *
 * A task is a record of pointers into the caller's memory: the data matrix, its shape and the arrays of results. Nothing
 * is copied, and a value behind a pointer is read when an estimator runs, so that data and results may change between
 * two calls. One task is used by one thread at a time.
 *
 * A function of this header exists twice: `d` in its name takes double arrays, `s` float arrays. Counts, flags and
 * storage codes are integers of 32 bits (`integerWidth` 0) or 64 bits (any other) and passed as `const void*`; the flags
 * of `variableIndices` are always of 32 bits. Every function returns a status: 0 is success, a negative number names
 * what is missing or wrong (docs/statistics.md has the list). */
#ifndef ORVIK_SS_H
#define ORVIK_SS_H

#include <stdint.h>

/* Exported also where the library itself is built with hidden visibility. */
#pragma GCC visibility push(default)

#ifdef __cplusplus
extern "C" {
#endif

/* A task, made by SSNewTask and freed by SSDeleteTask. */
typedef void* OrvikSSTask;

/* A caller's threads. `run` calls routine(thread, 0, threads, context) once for each thread from 0 to threads - 1 and
 * returns when all have finished. A null table means one thread. */
typedef struct OrvikThreading {
  int32_t (*max_threads)(void); /* how many may be used */
  int32_t (*run)(int32_t threads, void* context,
                 void (*routine)(int32_t thread, int32_t zero, int32_t threads, void* context)); /* runs it on each */
} OrvikThreading;

/* Fields of a task, by their parameter ids. */
enum OrvikSSField {
  OrvikSS_dimension = 1,
  OrvikSS_observationCount = 2,
  OrvikSS_observations = 3,
  OrvikSS_observationStorage = 4,
  OrvikSS_variableIndices = 5,
  OrvikSS_weights = 6,
  OrvikSS_mean = 7,
  OrvikSS_rawMoment2 = 8,
  OrvikSS_rawMoment3 = 9,
  OrvikSS_rawMoment4 = 10,
  OrvikSS_centralMoment2 = 11,
  OrvikSS_centralMoment3 = 12,
  OrvikSS_centralMoment4 = 13,
  OrvikSS_kurtosis = 14,
  OrvikSS_skewness = 15,
  OrvikSS_minimum = 16,
  OrvikSS_maximum = 17,
  OrvikSS_variation = 18,
  OrvikSS_covariance = 19,
  OrvikSS_covarianceStorage = 20,
  OrvikSS_correlation = 21,
  OrvikSS_correlationStorage = 22,
  OrvikSS_accumulatedWeights = 23,
  OrvikSS_quantileOrderCount = 24,
  OrvikSS_quantileOrders = 25,
  OrvikSS_quantiles = 26,
  OrvikSS_orderStatistics = 27,
  OrvikSS_groupIndices = 28,
  OrvikSS_pooledCovarianceStorage = 29,
  OrvikSS_pooledMean = 30,
  OrvikSS_pooledCovariance = 31,
  OrvikSS_groupCovarianceIndices = 32,
  OrvikSS_groupMeans = 33,
  OrvikSS_groupCovarianceStorage = 34,
  OrvikSS_groupCovariances = 35,
  OrvikSS_robustCovarianceStorage = 36,
  OrvikSS_robustParameterCount = 37,
  OrvikSS_robustParameters = 38,
  OrvikSS_robustMean = 39,
  OrvikSS_robustCovariance = 40,
  OrvikSS_outlierParameterCount = 41,
  OrvikSS_outlierParameters = 42,
  OrvikSS_outlierWeights = 43,
  OrvikSS_orderStatisticsStorage = 44,
  OrvikSS_partialCovarianceIndices = 45,
  OrvikSS_partialCovariance = 46,
  OrvikSS_partialCovarianceStorage = 47,
  OrvikSS_partialCorrelation = 48,
  OrvikSS_partialCorrelationStorage = 49,
  OrvikSS_imputationParameterCount = 50,
  OrvikSS_imputationParameters = 51,
  OrvikSS_initialEstimateCount = 52,
  OrvikSS_initialEstimates = 53,
  OrvikSS_simulatedValueCount = 54,
  OrvikSS_simulatedValues = 55,
  OrvikSS_estimateCount = 56,
  OrvikSS_estimates = 57,
  OrvikSS_priorCount = 58,
  OrvikSS_prior = 59,
  OrvikSS_parametrizedCorrelation = 60,
  OrvikSS_parametrizedCorrelationStorage = 61,
  OrvikSS_streamParameterCount = 62,
  OrvikSS_streamParameters = 63,
  OrvikSS_streamOrderCount = 64,
  OrvikSS_streamOrders = 65,
  OrvikSS_streamQuantiles = 66,
  OrvikSS_sum = 67,
  OrvikSS_rawSum2 = 68,
  OrvikSS_rawSum3 = 69,
  OrvikSS_rawSum4 = 70,
  OrvikSS_centralSum2 = 71,
  OrvikSS_centralSum3 = 72,
  OrvikSS_centralSum4 = 73,
  OrvikSS_crossProduct = 74,
  OrvikSS_crossProductStorage = 75,
  OrvikSS_medianAbsDeviation = 76,
  OrvikSS_meanAbsDeviation = 77,
  OrvikSS_sortedObservations = 78,
  OrvikSS_sortedStorage = 79
};

/* Observation storage: each variable is contiguous, x[j * n + i]; or each observation is, x[i * p + j]. */
#define ORVIK_SS_STORAGE_ROWS 0x10000
#define ORVIK_SS_STORAGE_COLUMNS 0x20000

/* Matrix storage: full p by p; lower, upper triangle packed row by row. */
#define ORVIK_SS_MATRIX_FULL 0
#define ORVIK_SS_MATRIX_LOWER 1
#define ORVIK_SS_MATRIX_UPPER 2

/* Estimates, the bits of the `estimates` argument. */
#define ORVIK_SS_MEAN UINT64_C(0x1)
#define ORVIK_SS_RAW_MOMENT2 UINT64_C(0x2)
#define ORVIK_SS_RAW_MOMENT3 UINT64_C(0x4)
#define ORVIK_SS_RAW_MOMENT4 UINT64_C(0x8)
#define ORVIK_SS_CENTRAL_MOMENT2 UINT64_C(0x10)
#define ORVIK_SS_CENTRAL_MOMENT3 UINT64_C(0x20)
#define ORVIK_SS_CENTRAL_MOMENT4 UINT64_C(0x40)
#define ORVIK_SS_KURTOSIS UINT64_C(0x80)
#define ORVIK_SS_SKEWNESS UINT64_C(0x100)
#define ORVIK_SS_VARIATION UINT64_C(0x200)
#define ORVIK_SS_MINIMUM UINT64_C(0x400)
#define ORVIK_SS_MAXIMUM UINT64_C(0x800)
#define ORVIK_SS_COVARIANCE UINT64_C(0x1000)
#define ORVIK_SS_CORRELATION UINT64_C(0x2000)
#define ORVIK_SS_QUANTILES UINT64_C(0x10000)
#define ORVIK_SS_ORDER_STATISTICS UINT64_C(0x20000)
#define ORVIK_SS_PARTIAL_COVARIANCE UINT64_C(0x100000)
#define ORVIK_SS_PARTIAL_CORRELATION UINT64_C(0x200000)
#define ORVIK_SS_SUM UINT64_C(0x2000000)
#define ORVIK_SS_RAW_SUM2 UINT64_C(0x4000000)
#define ORVIK_SS_RAW_SUM3 UINT64_C(0x8000000)
#define ORVIK_SS_RAW_SUM4 UINT64_C(0x10000000)
#define ORVIK_SS_CENTRAL_SUM2 UINT64_C(0x20000000)
#define ORVIK_SS_CENTRAL_SUM3 UINT64_C(0x40000000)
#define ORVIK_SS_CENTRAL_SUM4 UINT64_C(0x80000000)
#define ORVIK_SS_CROSS_PRODUCT UINT64_C(0x100000000)
#define ORVIK_SS_MEDIAN_ABS_DEVIATION UINT64_C(0x200000000)
#define ORVIK_SS_MEAN_ABS_DEVIATION UINT64_C(0x400000000)

/* Methods. */
#define ORVIK_SS_METHOD_FAST UINT64_C(0x1)
#define ORVIK_SS_METHOD_ONE_PASS UINT64_C(0x2)
#define ORVIK_SS_METHOD_PARAMETRIZATION UINT64_C(0x4)
#define ORVIK_SS_METHOD_ROBUST UINT64_C(0x8)
#define ORVIK_SS_METHOD_IMPUTATION UINT64_C(0x10)
#define ORVIK_SS_METHOD_BACON UINT64_C(0x20)
#define ORVIK_SS_METHOD_USER_MEAN UINT64_C(0x100)
#define ORVIK_SS_METHOD_FROM_CROSS_PRODUCT UINT64_C(0x200)
#define ORVIK_SS_METHOD_FROM_SUMS UINT64_C(0x400)
#define ORVIK_SS_METHOD_SORT UINT64_C(0x100000)

/* Sets an integer field, releases a task (and nulls the caller's pointer), releases the state of stream quantiles. */
int32_t __qoriSSEditTask(OrvikSSTask task, int32_t id, const void* value);
int32_t __qorSSDeleteTask(OrvikSSTask* task);
int32_t __qorSQuantilesFreeBuffers(OrvikSSTask task);

/* What a task keeps of its streams, as an image in memory. Null memory stores the size needed; too little room is -4002. An image goes to
 * a task of as many variables and the same precision, with the bits that follow; what is damaged is
 * ORVIK_QOR_IMAGE_BAD_FORMAT, and the task stays as it was. The image has no checksum: that is its keeper's. */
int32_t orvik_ss_d_save_streams(OrvikSSTask task, void* memory, int64_t* size);
int32_t orvik_ss_s_save_streams(OrvikSSTask task, void* memory, int64_t* size);
int32_t orvik_ss_d_load_streams(OrvikSSTask task, const void* memory, int64_t size);
int32_t orvik_ss_s_load_streams(OrvikSSTask task, const void* memory, int64_t size);

#define ORVIK_SS_DECLARE(d, real)                                                                                      \
  /* A task over `p` variables and `n` observations `x` in `storage`; `weights` and `indices` may be null. */          \
  int32_t __qor##d##SSNewTask(OrvikSSTask* task, const void* p, const void* n, const void* storage, const real* x,    \
                              const real* weights, const void* indices, int32_t integerWidth);                        \
  /* Sets a real field. A null value is refused. */                                                                    \
  int32_t __qor##d##SSEditTask(OrvikSSTask task, int32_t id, const real* value);                                       \
  /* Group setters: several fields at once, in the order of the arguments. A null argument leaves its field alone. */  \
  int32_t __qor##d##SSEditMoments(OrvikSSTask task, real* mean, real* rawMoment2, real* rawMoment3, real* rawMoment4,  \
                                  real* centralMoment2, real* centralMoment3, real* centralMoment4);                   \
  int32_t __qor##d##SSEditSums(OrvikSSTask task, real* sum, real* rawSum2, real* rawSum3, real* rawSum4,               \
                               real* centralSum2, real* centralSum3, real* centralSum4);                               \
  int32_t __qor##d##SSEditCovCor(OrvikSSTask task, real* mean, real* covariance, const void* covarianceStorage,        \
                                 real* correlation, const void* correlationStorage);                                   \
  int32_t __qor##d##SSEditCP(OrvikSSTask task, real* mean, real* sum, real* crossProduct,                              \
                             const void* crossProductStorage);                                                         \
  int32_t __qor##d##SSEditPartialCovCor(                                                                               \
      OrvikSSTask task, const void* partialCovarianceIndices, real* covariance, const void* covarianceStorage,         \
      real* correlation, const void* correlationStorage, real* partialCovariance,                                      \
      const void* partialCovarianceStorage, real* partialCorrelation, const void* partialCorrelationStorage);          \
  int32_t __qor##d##SSEditQuantiles(OrvikSSTask task, const void* quantileOrderCount, const real* quantileOrders,      \
                                    real* quantiles, real* orderStatistics, const void* orderStatisticsStorage);       \
  int32_t __qor##d##SSEditStreamQuantiles(OrvikSSTask task, const void* streamOrderCount, const real* streamOrders,    \
                                          real* streamQuantiles, const void* streamParameterCount,                     \
                                          const real* streamParameters);                                               \
  int32_t __qor##d##SSEditPooledCovariance(OrvikSSTask task, const void* groupIndices, real* pooledMean,               \
                                           real* pooledCovariance, const void* groupCovarianceIndices,                 \
                                           real* groupMeans, real* groupCovariances);                                  \
  int32_t __qor##d##SSEditMissingVals(OrvikSSTask task, const void* imputationParameterCount,                          \
                                      const real* imputationParameters, const void* initialEstimateCount,              \
                                      const real* initialEstimates, const void* priorCount, const real* prior,         \
                                      const void* simulatedValueCount, real* simulatedValues,                          \
                                      const void* estimateCount, real* estimates);                                     \
  int32_t __qor##d##SSEditOutDetect(OrvikSSTask task, const void* outlierParameterCount,                               \
                                    const real* outlierParameters, real* outlierWeights);                              \
  int32_t __qor##d##SSEditRCov(OrvikSSTask task, const void* robustCovarianceStorage,                                  \
                               const void* robustParameterCount, const real* robustParameters, real* robustMean,       \
                               real* robustCovariance);                                                                \
  int32_t __qor##d##SSEditMtxParametrz(OrvikSSTask task, real* correlation, const void* correlationStorage,            \
                                       real* parametrizedCorrelation, const void* parametrizedCorrelationStorage);     \
                                                                                                                       \
  /* Moments, sums, skewness, kurtosis, variation, covariance, correlation, cross-product: running results, seeded    \
   * from the arrays of the task and its `accumulatedWeights`. A run starts where those are zero or not set. */        \
  int32_t _qor##d##SSBasic(OrvikSSTask task, uint64_t estimates, uint64_t method, const OrvikThreading* threading);    \
  /* Extremes. The arrays hold the starting values. A NaN among the data makes both NaN. */                            \
  int32_t _qor##d##SSMinmax(OrvikSSTask task, uint64_t estimates, uint64_t method);                                    \
  /* Quantiles by linear interpolation between order statistics, q (n - 1) counted from 0; order statistics. */        \
  int32_t _qor##d##SSQuantiles(OrvikSSTask task, uint64_t estimates, uint64_t method,                                  \
                               const OrvikThreading* threading);                                                       \
  /* Quantiles of a stream fed block by block, rank error at most epsilon n (Zhang, Wang 2007). */                     \
  int32_t _qor##d##SSStreamQuantiles(OrvikSSTask task, uint64_t estimates, uint64_t method,                            \
                                     const OrvikThreading* threading);                                                 \
  /* Median of the absolute deviations from the median, mean of those from the mean. Weights are not used. */          \
  int32_t _qor##d##SSMAD(OrvikSSTask task, uint64_t estimates, uint64_t method, const OrvikThreading* threading);      \
  /* Weighted median of each variable, to `quantiles`. */                                                              \
  int32_t _qor##d##SSWMedian(OrvikSSTask task, uint64_t estimates, uint64_t method, const OrvikThreading* threading);  \
  /* Sorts each variable into `sortedObservations`. */                                                                 \
  int32_t _qor##d##SSSort(OrvikSSTask task, uint64_t estimates, uint64_t method, const OrvikThreading* threading);     \
  /* Mahalanobis distances of the task's `n` observations from its `mean` under `inverse`, a full symmetric p by p     \
   * matrix, to `distances`. */                                                                                        \
  int32_t _qor##d##SSMahDistance(OrvikSSTask task, int64_t p, const real* inverse, real* distances,                    \
                                 const OrvikThreading* threading);                                                     \
  /* Outliers (Billor, Hadi, Velleman 2000): `outlierWeights` gets 1 for a good observation, 0 for an outlier. */        \
  int32_t _qor##d##SSOutliersDetection(OrvikSSTask task, uint64_t estimates, uint64_t method,                          \
                                       const OrvikThreading* threading);                                               \
  /* Mean and covariance that outliers do not move (Maronna, Zamar 2002; Rocke 1996). */                               \
  int32_t _qor##d##SSRobustCovariance(OrvikSSTask task, uint64_t estimates, uint64_t method,                           \
                                      const OrvikThreading* threading);                                                \
  /* Multiple imputation of missing values under the normal model (Schafer 1997). */                                   \
  int32_t _qor##d##SSMissingValues(OrvikSSTask task, uint64_t estimates, uint64_t method,                              \
                                   const OrvikThreading* threading);                                                   \
  /* Means and covariances of groups, and pooled within groups. */                                                     \
  int32_t _qor##d##SSPooledCovariance(OrvikSSTask task, uint64_t estimates, uint64_t method,                           \
                                      const OrvikThreading* threading);                                                \
  /* Partial covariance and correlation from `covariance`. */                                                          \
  int32_t _qor##d##SSPartialCovariance(OrvikSSTask task, uint64_t estimates, uint64_t method,                          \
                                       const OrvikThreading* threading);                                               \
  /* Makes `correlation` positive semi-definite: `parametrizedCorrelation`. */                                         \
  int32_t _qor##d##SSCorParametrization(OrvikSSTask task, uint64_t estimates, uint64_t method,                         \
                                        const OrvikThreading* threading);                                              \
  /* 0, or -5041 where a full p by p covariance matrix has not full rank; its inverse in place. */                     \
  int32_t __qor##d##TestCovRank(int64_t p, const real* matrix);                                                        \
  int32_t __qor##d##InvCov(int64_t p, real* matrix);                                                                   \
  /* Sorts `n` values in place, ascending, NaNs last: O(n log n) for any input. The second form sorts a[i * stride]. */\
  void __qor##d##QSort(int64_t n, real* a);                                                                            \
  void __qor##d##QSortStep(int64_t n, real* a, int64_t stride);                                                        \
  /* Puts the value of rank `k` (from 0) at a[k], smaller ones before it, larger ones behind it; returns it. */        \
  real __qor##d##QSortSelect(int64_t n, real* a, int64_t k);                                                           \
  /* Square root and natural logarithm of one number by the vector kernels, high accuracy. */                          \
  real __qor##d##Sqrt(real x);                                                                                         \
  real __qor##d##Ln(real x);

ORVIK_SS_DECLARE(d, double)
ORVIK_SS_DECLARE(s, float)

#undef ORVIK_SS_DECLARE

/* Chi-square distribution of `k` degrees of freedom: P(X < x), the density, the x with P(X < x) = p. Logarithm of the
 * gamma function. */
double __qordChi2CDF(int32_t k, double x);
double __qordChi2PDF(int32_t k, double x);
double __qordChi2ICDF(double p, int32_t k);
double __qordLGamma(double x);

#ifdef __cplusplus
}
#endif

#pragma GCC visibility pop

#endif
