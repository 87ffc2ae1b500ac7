// Statuses of the estimators. Those of a missing field stand beside the field, in fields.inc.
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
  kNoMean = -4006,
  kNoMinimum = -4015,
  kNoMaximum = -4016,
  kNoAccumulatedWeights = -4020,
  kNoWeights = -4005,
  kNoQuantileOrders = -4021,
  kBadQuantileOrders = -4022,
  kNoQuantiles = -4023,
  kNoOrderStatistics = -4024,
  kBadMethod = -4029,
  kNoTask = -4031,
  kNoObservations = -4032,
  kNoStorage = -4044,
  kNoStreamParameterCount = -4064,
  kNoStreamParameters = -4065,
  kBadStreamParameterCount = -4066,
  kBadEpsilon = -4067,
  kNoStreamOrders = -4068,
  kBadStreamOrders = -4069,
  kNoStreamQuantiles = -4070,
  kNoMedianAbsDeviation = -4082,
  kNoMeanAbsDeviation = -4083,
  kNoSorted = -4084,
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
