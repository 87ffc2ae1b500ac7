// Inputs where functions are hard to get right: arguments next to multiples of pi/2, to integers and poles, to zeros of
// Bessel functions and LGamma, powers next to overflow.
#pragma once

#include <string_view>
#include <vector>

namespace orvik::accuracy {

// Appends the function's cases; to both arrays where it has two arguments.
template <class E>
void add_hard_cases(std::string_view function, std::vector<E>& a, std::vector<E>& b);

// Numbers of each binade (doubles: of every 16th) that lie next to a multiple of pi/2: denominators of the convergents
// of 2^e / (pi/2), scaled into the binade (Kahan 1983).
template <class E>
const std::vector<E>& nearest_to_half_pi();

}  // namespace orvik::accuracy
