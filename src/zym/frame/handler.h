// The standard handling of a reported element: errno, text, floating-point exception.
#pragma once

#include "orvik/zym_types.h"

namespace orvik::zym {

void handle_report(const ZymErrorContext& context);

}  // namespace orvik::zym
