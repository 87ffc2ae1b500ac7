// Statistics of data that come in blocks, on two machines whose results are put together.
#include <cstdio>
#include <orvik/front.hpp>

int main() {
  orvik::Stream stream(orvik::Generator::PHILOX4X32X10, 1);
  const auto work = [&](int blocks) {  // three variables, observation after observation
    orvik::Summary<double> s(3);
    std::vector<double> x(3 * 1000);
    for (int k = 0; k < blocks; ++k) {
      orvik::normal(stream, x, 10, 2);
      for (std::size_t i = 0; i < x.size(); i += 3) x[i + 2] = x[i] + x[i + 1];
      s.update(x, 1000, orvik::Layout::Columns);
    }
    return s;
  };
  orvik::Summary<double> here = work(30);
  const std::vector<std::byte> sent = work(50).save();  // over the network
  here.merge(orvik::Summary<double>::load(sent));

  const auto mean = here.mean(), variance = here.variance(), correlation = here.correlation();
  std::printf("%lld observations\n", static_cast<long long>(here.count()));
  for (std::size_t j = 0; j < 3; ++j) {
    std::printf("mean %8.4f  variance %7.4f  correlations %6.3f %6.3f %6.3f\n", mean[j], variance[j],
                correlation[3 * j], correlation[3 * j + 1], correlation[3 * j + 2]);
  }
  return here.count() == 80000 ? 0 : 1;
}
