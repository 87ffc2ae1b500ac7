// What a user's C++ program does with the installed front.
#include <algorithm>
#include <cstdio>
#include <orvik/front.hpp>

int main() {
  std::vector<double> x = {3, 1, 2}, r(3);
  orvik::Stream stream(orvik::Generator::MT19937, 1);
  std::shuffle(x.begin(), x.end(), stream);
  orvik::exp(x, r);
  orvik::Summary<double> summary(1);
  summary.update(x, 3, orvik::Layout::Rows);
  try {
    orvik::exp(x, std::span(r).first(2));
  } catch (const orvik::Error& error) {
    std::printf("C++ program over the front: %s\n", error.what());
    return summary.count() == 3 && error.status() == ORVIK_ERROR_BAD_LENGTH ? 0 : 1;
  }
  return 1;
}
