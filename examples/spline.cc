// A spline through measured points, its derivative and its integral.
#include <cmath>
#include <cstdio>
#include <orvik/front.hpp>

int main() {
  const std::vector<double> x = {0, 0.4, 1, 1.5, 2.2, 3}, y = {1, 1.38, 1.84, 2, 1.81, 1.14};
  const orvik::Spline<double> spline(x, y, orvik::Kind::Natural, orvik::Ends::not_a_knot());
  const std::vector<double> t = {0.2, 0.7, 1.3, 1.8, 2.6};
  const auto value = spline.evaluate(t), slope = spline.evaluate(t, 1);
  const auto cell = orvik::search(x, t);
  for (std::size_t i = 0; i < t.size(); ++i) {
    std::printf("t = %.1f  piece %d  value %.4f  slope %7.4f\n", t[i], static_cast<int>(cell[i]), value[i], slope[i]);
  }
  const double area = spline.integrate(0, 3);
  std::printf("integral %.4f\n", area);
  try {
    orvik::Spline<double>(y, x);  // breakpoints that do not ascend
  } catch (const orvik::Error& error) {
    std::printf("refused: %s\n", error.what());
  }
  return std::fabs(area - 4.99) < 0.05 ? 0 : 1;
}
