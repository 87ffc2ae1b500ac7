// Statuses of the estimators. Those of a missing field follow from the list of fields: missing_field.h.
#pragma once

#include <cstdint>

namespace orvik::ss {

enum Status : int32_t {
  kDone = 0,
  kUnknownField = -3,
  kNoMemory = -4000,
  kBadDimension = -4001,
  kBadCount = -4002,
  kBadStorage = -4003,
  kBadQuantileOrders = -4022,
  kBadMethod = -4029,
  kNoTask = -4031,
  kNoStreamParameterCount = -4064,  // at compute time; the setter refuses null as it were a bad count
  kBadStreamParameterCount = -4066,
  kBadEpsilon = -4067,
  kBadStreamOrders = -4069,
  kNoSum = -4074,  // at compute time; the setter refuses null as it were the mean
  kAmbiguousSorted = -4085,
  kMatrixFailed = -4001,  // of LAPACK: a block that is not positive definite, no convergence
  kSingular = -5041,      // a covariance without full rank
  kBadImputationParameterCount = -4050,
  kBadImputationParameters = -4051,
  kBadSimulatedValueCount = -4058,
  kBadEstimateCount = -4059,
  kNoImputationResult = -4060,
  kBadMissingCount = -4063,
  kBlockSingular = -5021,        // covariance of present values, or a value that is no number
  kConditionalSingular = -5023,  // covariance of missing values given the present ones
  kPosteriorSingular = -5024,    // too few observations for the parameters, or dependent variables
  kNoSpread = -5025,             // a variable without a value, or of equal ones
};

}  // namespace orvik::ss
