// Quantiles of a stream: rank error, bounded memory, a state that survives a failed allocation.
#include <gtest/gtest.h>

#include <sys/resource.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <fstream>
#include <limits>

#include "orvik/qor.h"
#include "qor/ss/stream_summary.h"
#include "qor/ss/support.h"
#include "serv/memory.h"

namespace orvik::ss::test {
namespace {

template <class T>
struct Stream {
  Stream(int64_t p, double epsilon, std::vector<T> orders)
      : p(p), epsilon(static_cast<T>(epsilon)), orders(std::move(orders)), results(p * this->orders.size(), T{-77}) {}

  // Feeds n observations; the task lives on between the blocks.
  int32_t feed(int64_t n, const T* x, int64_t storage, const OrvikThreading* threading = nullptr) {
    if (task.get() == nullptr) {
      EXPECT_EQ(task.make(p, 1, 0x10000, orders.data()), 0);
      task.set_integer(OrvikSS_streamOrderCount, static_cast<int64_t>(orders.size()));
      task.set(OrvikSS_streamOrders, orders);
      task.set(OrvikSS_streamQuantiles, results);
      task.set_integer(OrvikSS_streamParameterCount, 1);
      task.set(OrvikSS_streamParameters, &epsilon);
    }
    count = static_cast<int32_t>(n);
    form = static_cast<int32_t>(storage);
    __qoriSSEditTask(task.get(), OrvikSS_observationCount, &count);
    __qoriSSEditTask(task.get(), OrvikSS_observationStorage, &form);
    if (x != nullptr) task.set(OrvikSS_observations, x);
    return Entries<T>::stream(task.get(), 0, 0, threading);
  }

  int64_t p;
  T epsilon;
  std::vector<T> orders, results;
  int32_t count, form;
  TaskOver<T> task;
};

// Bytes that the process has mapped.
[[maybe_unused]] uint64_t address_space() {
  uint64_t pages = 0;
  std::ifstream("/proc/self/statm") >> pages;
  return pages * 4096;
}

// The distance of a result's ranks from the wanted one, in parts of n.
template <class T>
double rank_error(const std::vector<T>& sorted, T value, double order) {
  const auto n = static_cast<double>(sorted.size());
  const auto low = static_cast<double>(std::lower_bound(sorted.begin(), sorted.end(), value) - sorted.begin()) + 1;
  const auto high = static_cast<double>(std::upper_bound(sorted.begin(), sorted.end(), value) - sorted.begin());
  if (high < low) return 1e9;  // a value that never came
  const double rank = std::clamp(order * n, 1.0, n);
  return std::max({low - rank, rank - high, 0.0}) / n;
}

template <class T>
class StreamQuantiles : public testing::Test {};
using Types = testing::Types<double, float>;
TYPED_TEST_SUITE(StreamQuantiles, Types);

TYPED_TEST(StreamQuantiles, RankErrorStaysWithinEpsilonUnderEveryFeeding) {
  using T = TypeParam;
  const std::vector<T> orders = {0, T(0.001), T(0.1), T(0.25), T(0.5), T(0.75), T(0.9), T(0.999), 1};
  for (double epsilon : {0.1, 0.02, 0.003}) {
    for (int64_t n : {1, 7, 100, 5000, 120000}) {
      for (int kind = 0; kind < 6; ++kind) {
        std::mt19937_64 engine(n);
        std::vector<T> x(n);
        for (int64_t i = 0; i < n; ++i) {
          const double values[] = {static_cast<double>(i),
                                   static_cast<double>(n - i),
                                   3.0,
                                   static_cast<double>(engine() % 1000000),
                                   static_cast<double>(engine() % 5),
                                   static_cast<double>(i % 2 == 0 ? i : -i)};
          x[i] = static_cast<T>(values[kind]);
        }
        Stream<T> stream(1, epsilon, orders);
        // Blocks of growing size.
        for (int64_t i = 0, m = 1; i < n; i += m, m = m * 3 + 1) {
          ASSERT_EQ(stream.feed(std::min(m, n - i), x.data() + i, 0x10000), 0);
          std::vector<T> sorted(x.begin(), x.begin() + std::min(n, i + m));
          std::sort(sorted.begin(), sorted.end());
          for (size_t k = 0; k < orders.size(); ++k) {
            ASSERT_LE(rank_error(sorted, stream.results[k], orders[k]),
                      epsilon * (1 + 1e-6) + 0.5 / static_cast<double>(sorted.size()))  // ranks are whole
                << "epsilon " << epsilon << " n " << n << " kind " << kind << " seen " << sorted.size() << " order "
                << orders[k];
          }
        }
      }
    }
  }
}

TYPED_TEST(StreamQuantiles, OfSeveralVariablesInBothStoragesByThreads) {
  using T = TypeParam;
  const std::vector<T> orders = {T(0.25), T(0.5), T(0.9)};
  const auto sample = random_sample<T>(5, 9000);
  for (bool columns : {false, true}) {
    for (int threads : {0, 2, 5}) {
      Stream<T> stream(5, 0.01, orders);
      ASSERT_EQ(stream.feed(9000, (columns ? sample.columns : sample.rows).data(), columns ? 0x20000 : 0x10000,
                            ss::test::threads(threads)),
                0);
      for (int64_t j = 0; j < 5; ++j) {
        std::vector<T> sorted(sample.rows.begin() + j * 9000, sample.rows.begin() + (j + 1) * 9000);
        std::sort(sorted.begin(), sorted.end());
        for (int k = 0; k < 3; ++k) EXPECT_LE(rank_error(sorted, stream.results[j * 3 + k], orders[k]), 0.0101);
      }
    }
  }
}

TYPED_TEST(StreamQuantiles, WithoutObservationsQueryWhatHasCome) {
  using T = TypeParam;
  Stream<T> stream(1, 0.1, {0, 1});
  EXPECT_EQ(stream.feed(0, nullptr, 0), 0) << "an empty stream";
  EXPECT_TRUE(std::isnan(stream.results[0]));
  const std::vector<T> x = {3, 1, 2};
  EXPECT_EQ(stream.feed(3, x.data(), 0x10000), 0);
  stream.results = {0, 0};
  stream.task.set(OrvikSS_streamQuantiles, stream.results);
  EXPECT_EQ(stream.feed(0, nullptr, 0), 0);
  EXPECT_EQ(stream.results, (std::vector<T>{1, 3}));
}

TEST(StreamLevels, UnderAnEpsilonOfOneStartWithABlockOfOneValueAndDouble) {
  int64_t begin = 0;
  for (int64_t level = 0; level < 20; ++level) {
    const LevelShape shape(1.0, level);
    EXPECT_EQ(shape.begin, begin);
    EXPECT_EQ(shape.end - shape.begin, int64_t{1} << level);
    EXPECT_EQ(level_of(1.0, begin), level);
    EXPECT_EQ(level_of(1.0, shape.end - 1), level);
    begin = shape.end;
  }
}

TYPED_TEST(StreamQuantiles, EpsilonOfOneStillAnswersWithAValueThatCame) {
  using T = TypeParam;
  Stream<T> stream(1, 1.0, {0, T(0.5), 1});
  std::vector<T> x(1000);
  for (int i = 0; i < 1000; ++i) x[i] = static_cast<T>((i * 7919) % 1000);
  for (int i = 0; i < 1000; ++i) ASSERT_EQ(stream.feed(1, x.data() + i, 0x10000), 0);
  EXPECT_EQ(stream.results[0], 0);
  EXPECT_EQ(stream.results[2], 999);
  EXPECT_GE(stream.results[1], 0);
  EXPECT_LE(stream.results[1], 999);
}

TYPED_TEST(StreamQuantiles, NansAreTheLargestValues) {
  using T = TypeParam;
  const T nan = std::numeric_limits<T>::quiet_NaN();
  Stream<T> stream(1, 0.05, {0, T(0.25), 1});
  std::vector<T> x(3000);
  for (int i = 0; i < 3000; ++i) x[i] = i % 2 == 0 ? nan : static_cast<T>(i);
  ASSERT_EQ(stream.feed(3000, x.data(), 0x10000), 0);
  EXPECT_EQ(stream.results[0], 1);
  EXPECT_NEAR(stream.results[1], 1500, 0.05 * 6000);
  EXPECT_TRUE(std::isnan(stream.results[2]));
}

TYPED_TEST(StreamQuantiles, AFailedAllocationLeavesTheStreamAsItWas) {
  using T = TypeParam;
  const std::vector<T> orders = {T(0.1), T(0.5), T(0.9)};
  const auto sample = random_sample<T>(3, 4000);
  for (int64_t prefix : {0, 1000}) {
    bool succeeded = false;
    for (int64_t fail = 1; !succeeded; ++fail) {
      const int64_t live = serv::live_allocations();
      {
        Stream<T> stream(3, 0.05, orders);
        if (prefix != 0) {
          ASSERT_EQ(stream.feed(prefix, sample.columns.data(), 0x20000), 0);
        }
        const auto before = stream.results;
        serv::fail_allocation_after(stream.task.get() == nullptr ? fail + 1 : fail);
        const int32_t status = stream.feed(3000, sample.columns.data() + 3 * prefix, 0x20000);
        serv::fail_allocation_after(0);
        succeeded = status == 0;
        if (!succeeded) {
          ASSERT_EQ(status, -4000);
          ASSERT_EQ(stream.results, before);
          // The same stream without the failure.
          ASSERT_EQ(stream.feed(3000, sample.columns.data() + 3 * prefix, 0x20000), 0);
        }
        Stream<T> calm(3, 0.05, orders);
        if (prefix != 0) {
          ASSERT_EQ(calm.feed(prefix, sample.columns.data(), 0x20000), 0);
        }
        ASSERT_EQ(calm.feed(3000, sample.columns.data() + 3 * prefix, 0x20000), 0);
        ASSERT_EQ(stream.results, calm.results);
      }
      ASSERT_EQ(serv::live_allocations(), live);
      ASSERT_LT(fail, 100);
    }
  }
}

// What is reserved follows the values that came, not epsilon alone.
TYPED_TEST(StreamQuantiles, FewValuesUnderASmallEpsilonTakeLittleMemoryAndAreExact) {
  using T = TypeParam;
  Stream<T> stream(1, 1e-8, {0, T(0.5), 1});
  std::vector<T> x = {5, 3, 8, 1, 9, 2, 7, 4, 6, 0};
  const LevelShape shape(static_cast<double>(static_cast<T>(1e-8)), 0);
  EXPECT_GT(shape.capacity, 50'000'000);
  EXPECT_LT(LevelRoom(shape, 10).bytes(shape, sizeof(T)), 1000u);
  // No block of the call is as large as what the level could hold: there is not that much address space.
  rlimit old;
  ASSERT_EQ(getrlimit(RLIMIT_AS, &old), 0);
#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
  rlimit tight = old;
  tight.rlim_cur = address_space() + (64 << 20);
  ASSERT_EQ(setrlimit(RLIMIT_AS, &tight), 0);
#endif
  const int32_t status = stream.feed(10, x.data(), 0x10000);
  ASSERT_EQ(setrlimit(RLIMIT_AS, &old), 0);
  ASSERT_EQ(status, 0);
  EXPECT_EQ(stream.results[0], 0);
  EXPECT_EQ(stream.results[2], 9);
  EXPECT_EQ(stream.results[1], 4);
}

// Its inverse is infinite.
TYPED_TEST(StreamQuantiles, TheLeastEpsilonIsExact) {
  using T = TypeParam;
  Stream<T> stream(1, static_cast<double>(std::numeric_limits<T>::denorm_min()), {0, T(0.5), 1});
  const std::vector<T> x = {5, 3, 8, 1, 9, 2, 7, 4, 6, 0};
  for (int block = 0; block < 2; ++block) ASSERT_EQ(stream.feed(10, x.data(), 0x10000), 0);
  EXPECT_EQ(stream.results, (std::vector<T>{0, 4, 9}));
}

// Variables that join have streams of their own from there on; those that leave keep theirs.
TYPED_TEST(StreamQuantiles, TheNumberOfVariablesMayChange) {
  using T = TypeParam;
  constexpr int64_t kMany = 100000;
  std::vector<T> x(2 * kMany), results(kMany);
  for (int64_t j = 0; j < kMany; ++j) x[2 * j] = static_cast<T>(j), x[2 * j + 1] = static_cast<T>(j + 1);
  Stream<T> stream(1, 0.1, {1});
  ASSERT_EQ(stream.feed(2, std::vector<T>{7, 5}.data(), 0x10000), 0);
  EXPECT_EQ(stream.results[0], 7);
  stream.task.set(OrvikSS_streamQuantiles, results);
  for (const int64_t p : {kMany, int64_t{3}, kMany}) {
    stream.task.set_integer(OrvikSS_dimension, p);
    ASSERT_EQ(stream.feed(2, x.data(), 0x10000), 0);
    EXPECT_EQ(results[0], 7);
    for (int64_t j = 1; j < p; ++j) ASSERT_EQ(results[static_cast<size_t>(j)], static_cast<T>(j + 1));
  }
  stream.task.set_integer(OrvikSS_dimension, 3);  // all are given back nevertheless
}

// The room of a level grows with many short blocks; the summary is that of one long block.
TYPED_TEST(StreamQuantiles, ManyShortBlocksGiveWhatOneLongBlockGives) {
  using T = TypeParam;
  const std::vector<T> orders = {0, T(0.1), T(0.5), T(0.9), 1};
  const auto sample = random_sample<T>(2, 30000);
  for (double epsilon : {0.5, 0.05, 0.001, 1e-7}) {
    Stream<T> at_once(2, epsilon, orders), in_turn(2, epsilon, orders);
    ASSERT_EQ(at_once.feed(30000, sample.columns.data(), 0x20000), 0);
    for (int64_t i = 0, m = 1; i < 30000; i += m, m = 1 + (m * 7 + 3) % 900) {
      ASSERT_EQ(in_turn.feed(std::min<int64_t>(m, 30000 - i), sample.columns.data() + 2 * i, 0x20000), 0);
    }
    EXPECT_EQ(at_once.results, in_turn.results) << epsilon;
  }
}

// Bytes of all levels of a stream of n values against (1 / epsilon) log2(epsilon n)^2 entries.
TEST(StreamMemory, GrowsWithTheSquareOfTheLogarithm) {
  for (double epsilon : {0.1, 0.01, 0.001}) {
    for (double n : {1e4, 1e6, 1e8, 1e12}) {
      const int64_t last = level_of(epsilon, static_cast<int64_t>(n) - 1);
      const LevelShape shape(epsilon, last);
      uint64_t bytes = LevelRoom(shape, shape.end - shape.begin).bytes(shape, sizeof(double));
      for (int64_t k = 0; k < last; ++k) bytes += sizeof(Ranked<double>) * LevelShape(epsilon, k).keep;
      const double logarithm = std::log2(epsilon * n) + 2;
      EXPECT_LT(static_cast<double>(bytes), 3 * sizeof(Ranked<double>) * logarithm * logarithm / epsilon)
          << epsilon << " " << n;
    }
  }
}

template <class T>
auto save_streams(OrvikSSTask task, void* memory, int64_t* size) {
  if constexpr (sizeof(T) == 8)
    return orvik_ss_d_save_streams(task, memory, size);
  else
    return orvik_ss_s_save_streams(task, memory, size);
}
template <class T>
auto load_streams(OrvikSSTask task, const std::vector<char>& image, size_t size) {
  if constexpr (sizeof(T) == 8)
    return orvik_ss_d_load_streams(task, image.data(), static_cast<int64_t>(size));
  else
    return orvik_ss_s_load_streams(task, image.data(), static_cast<int64_t>(size));
}
template <class T>
std::vector<char> image_of(OrvikSSTask task) {
  int64_t size = 0;
  EXPECT_EQ(save_streams<T>(task, nullptr, &size), 0);
  std::vector<char> image(static_cast<size_t>(size));
  --size;
  EXPECT_EQ(save_streams<T>(task, image.data(), &size), -4002);
  ++size;
  EXPECT_EQ(save_streams<T>(task, image.data(), &size), 0);
  return image;
}

template <class T>
void images_go_on(double epsilon, int64_t n) {
  constexpr int64_t kMore = 700;
  std::vector<T> x(static_cast<size_t>(2 * (n + kMore)));
  uint64_t state = 7;
  for (size_t i = 0; i < x.size(); ++i) {
    state = state * 6364136223846793005 + 1442695040888963407;
    x[i] = i % 13 == 5 ? T(3) : i % 101 == 7 ? std::numeric_limits<T>::quiet_NaN() : static_cast<T>(state >> 40);
  }
  const std::vector<T> orders = {0, T(0.1), T(0.5), T(0.75), 1};
  Stream<T> a(2, epsilon, orders), b(2, epsilon, orders);
  EXPECT_EQ(a.feed(n, x.data(), ORVIK_SS_STORAGE_COLUMNS), 0);
  EXPECT_EQ(b.feed(0, nullptr, ORVIK_SS_STORAGE_COLUMNS), 0);
  const auto image = image_of<T>(a.task.get());
  ASSERT_EQ(load_streams<T>(b.task.get(), image, image.size()), 0);
  EXPECT_EQ(image_of<T>(b.task.get()), image);
  for (const int64_t more : {int64_t{0}, int64_t{1}, kMore - 1}) {
    EXPECT_EQ(a.feed(more, x.data() + 2 * n, ORVIK_SS_STORAGE_COLUMNS), 0);
    EXPECT_EQ(b.feed(more, x.data() + 2 * n, ORVIK_SS_STORAGE_COLUMNS), 0);
    EXPECT_EQ(std::memcmp(a.results.data(), b.results.data(), a.results.size() * sizeof(T)), 0) << epsilon << " " << n;
  }
  for (size_t less = 0; less < image.size(); less += less < 200 || image.size() - less < 200 ? 1 : 97) {
    ASSERT_EQ(load_streams<T>(b.task.get(), image, less), ORVIK_QOR_IMAGE_BAD_FORMAT) << less;
  }
  auto longer = image;
  longer.push_back(0);
  EXPECT_EQ(load_streams<T>(b.task.get(), longer, longer.size()), ORVIK_QOR_IMAGE_BAD_FORMAT);
  EXPECT_EQ(image_of<T>(b.task.get()), image_of<T>(a.task.get()));  // refused images left it
}

TEST(StreamImage, GoesOnWithTheSameBitsAndIsRefusedInParts) {
  for (const double epsilon : {1.0, 0.5, 0.1, 0.03, 0.001}) {
    for (const int64_t n : {1, 2, 3, 10, 32, 33, 34, 99, 100, 101, 1000, 5000, 40000}) {
      images_go_on<double>(epsilon, n);
      images_go_on<float>(epsilon, n);
    }
  }
}

TEST(StreamImage, OfAnotherNumberOfVariablesIsRefused) {
  const std::vector<double> x = {1, 2, 3, 4, 5, 6};
  Stream<double> two(2, 0.1, {0.5}), three(3, 0.1, {0.5});
  ASSERT_EQ(two.feed(3, x.data(), ORVIK_SS_STORAGE_COLUMNS), 0);
  ASSERT_EQ(three.feed(2, x.data(), ORVIK_SS_STORAGE_COLUMNS), 0);
  const auto image = image_of<double>(two.task.get());
  EXPECT_EQ(load_streams<double>(three.task.get(), image, image.size()), ORVIK_QOR_IMAGE_BAD_FORMAT);
  EXPECT_EQ(orvik_ss_d_load_streams(nullptr, image.data(), 8), -4031);
  EXPECT_EQ(orvik_ss_d_load_streams(two.task.get(), nullptr, 8), ORVIK_QOR_IMAGE_BAD_FORMAT);
  int64_t size = 0;
  EXPECT_EQ(orvik_ss_d_save_streams(nullptr, nullptr, &size), -4031);
  EXPECT_EQ(orvik_ss_d_save_streams(two.task.get(), nullptr, nullptr), -4002);
}

}  // namespace
}  // namespace orvik::ss::test
