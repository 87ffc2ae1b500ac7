// The estimators as other estimators call them: on observations of an index list, weighted or not, results in working
// memory. All return a status; -4000 is memory (or BLAS) that is missing.
#pragma once

#include "qor/ss/observations.h"
#include "qor/ss/plan.h"

namespace orvik::ss {

// Means and the sum of outer products of deviations from them, p by p, both triangles. `total` gets the sums of
// weights. An observation of weight 0 counts for nothing, whatever it is.
template <class T>
int32_t scatter(const Observations<T>& o, const OrvikThreading* threading, T* mean, T* products, Weights* total);

// The same with the products scaled to the unbiased covariance, of reliability weights.
template <class T>
int32_t covariance(const Observations<T>& o, const OrvikThreading* threading, T* mean, T* matrix);

// Quantiles of the variables: results[j * count + k]. Weights are not used.
template <class T>
int32_t quantiles(const Observations<T>& o, int64_t count, const T* orders, const OrvikThreading* threading,
                  T* results);

// The same for the variables whose flag is set; null: all.
template <class T>
int32_t quantiles(const Observations<T>& o, const int32_t* flags, int64_t count, const T* orders,
                  const OrvikThreading* threading, T* results);
// A NaN that has a weight stands last or is the result.
template <class T>
int32_t weighted_medians(const Observations<T>& o, const int32_t* flags, bool nans_last,
                         const OrvikThreading* threading, T* results);

// Medians of the variables: weighted where there are weights. NaNs stand last.
template <class T>
int32_t medians(const Observations<T>& o, const OrvikThreading* threading, T* results);

// sqrt((x - mean)' M (x - mean)) of each observation; M is p by p, both triangles.
template <class T>
int32_t mahalanobis(const Observations<T>& o, const T* mean, const T* matrix, const OrvikThreading* threading,
                    T* results);

// Median and median absolute deviation from it, of an array that is reordered (the deviations replace it).
template <class T>
T median_of(int64_t n, T* a);
template <class T>
T median_deviation_of(int64_t n, T* a, T* median);

}  // namespace orvik::ss
