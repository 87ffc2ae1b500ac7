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
};

}  // namespace orvik::ss
