// Statuses of fields that an estimator needs and that are not set, by their names: missing_field::covariance is -4018.
#pragma once

#include <cstdint>

namespace orvik::ss::missing_field {

#define ORVIK_SS_FIELD(name, id, kind, status) inline constexpr int32_t name = status;
#define ORVIK_SS_PRIVATE(type, name)
#include "qor/ss/fields.inc"

}  // namespace orvik::ss::missing_field
