// Tables of the complex element loops. Numbers by tools/approx from the lines marked //:.
#pragma once

namespace orvik::zym::complex_loops {

// Angles by their tangent.
//: head = atan(i/128)
//: tail = atan(i/128) - head
extern const double kArcTangents128[129][2];

}  // namespace orvik::zym::complex_loops
