// What an option pays, on any number of machines: every rank draws its part of one stream. mpirun --oversubscribe -n 4 example_option
#include <bit>
#include <cmath>
#include <cstdio>

#include "reduction.h"

int main(int argc, char** argv) {
  MPI_Init(&argc, &argv);
  int rank, ranks;
  MPI_Comm_rank(MPI_COMM_WORLD, &rank);
  MPI_Comm_size(MPI_COMM_WORLD, &ranks);
  const std::int64_t paths = 1000000, first = paths * rank / ranks, n = paths * (rank + 1) / ranks - first;
  orvik::Stream stream(orvik::Generator::PHILOX4X32X10, 2026);
  stream.skip(static_cast<std::uint64_t>(first));  // one uniform a path

  std::vector<double> x(static_cast<std::size_t>(2 * n));  // of each path the price at its end, and what is paid
  const std::span<double> price(x.data(), x.size() / 2), paid(x.data() + n, x.size() / 2);
  orvik::normal(stream, price, 0.01, 0.2);
  std::uint64_t bits = 0, place = 2 * static_cast<std::uint64_t>(first) + 1;  // no bit of any draw may differ
  for (const double z : price) bits += std::bit_cast<std::uint64_t>(z) * place, place += 2;
  orvik::exp(price, price);
  for (std::size_t i = 0; i < price.size(); ++i) paid[i] = std::fmax(100 * price[i] - 105, 0);
  orvik::Summary<double> summary(2);
  summary.update(x, n, orvik::Layout::Rows);

  const auto all = reduced(summary);
  std::uint64_t draws = 0;
  MPI_Reduce(&bits, &draws, 1, MPI_UINT64_T, MPI_SUM, 0, MPI_COMM_WORLD);
  if (rank == 0) {
    std::printf("draws %llu of %lld paths\nmoments", static_cast<unsigned long long>(draws),
                static_cast<long long>(all.count()));
    for (const auto& m : {all.mean(), all.variance(), all.skewness(), all.covariance(), all.min(), all.max()})
      for (const double v : m) std::printf(" %.17g", v);
    std::printf("\n");
  }
  return MPI_Finalize();
}
