// Group and pooled covariance, partial covariance, parametrized correlation.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "qor/ss/exhausted.h"
#include "qor/ss/support.h"
#include "serv/blas.h"

namespace orvik::ss::test {
namespace {

// Where element (i, j), i <= j, of a p by p matrix stands in a storage.
int64_t place(int64_t storage, int64_t p, int64_t i, int64_t j) {
  return storage == 0 ? j * p + i : storage == 1 ? j * (j + 1) / 2 + i : i * p - i * (i - 1) / 2 + j - i;
}
int64_t length(int64_t storage, int64_t p) { return storage == 0 ? p * p : p * (p + 1) / 2; }

template <class T>
bool all_are(const std::vector<T>& values, T v) {
  return std::all_of(values.begin(), values.end(), [v](T x) { return x == v; });
}

// Groups of 60, 40, 1 and 99 observations among 200, in no order.
template <class T, class I>
struct Pooled {
  static constexpr int64_t p = 3, n = 200, groups = 4;
  Sample<T> sample = random_sample<T>(p, n, 3, 100);
  std::vector<I> group = std::vector<I>(n), wanted = {1, 0, 1, 1};
  std::vector<T> mean = std::vector<T>(p, -77), covariance = std::vector<T>(p * p, -77),
                 means = std::vector<T>(groups * p, -77), covariances = std::vector<T>(groups * p * p, -77);
  TaskOver<T> task = TaskOver<T>(sizeof(I) == 8);

  explicit Pooled(int64_t observation_storage, int64_t storage, bool weighted = false) {
    for (int64_t i = 0; i < n; ++i) {
      const int64_t k = i * 73 % n;
      group[i] = static_cast<I>(k < 60 ? 0 : k < 100 ? 1 : k < 101 ? 2 : 3);
    }
    const bool rows = observation_storage == 0x10000;
    EXPECT_EQ(task.make(p, n, observation_storage, rows ? sample.rows.data() : sample.columns.data(),
                        weighted ? sample.weights.data() : nullptr),
              0);
    __qoriSSEditTask(task.get(), OrvikSS_groupIndices, group.data());
    __qoriSSEditTask(task.get(), OrvikSS_groupCovarianceIndices, wanted.data());
    task.set(OrvikSS_pooledMean, mean);
    task.set(OrvikSS_pooledCovariance, covariance);
    task.set(OrvikSS_groupMeans, means);
    task.set(OrvikSS_groupCovariances, covariances);
    task.set_integer(OrvikSS_pooledCovarianceStorage, storage);
    task.set_integer(OrvikSS_groupCovarianceStorage, storage);
  }
  int32_t run(uint64_t method, int count = 0) { return Entries<T>::pooled(task.get(), 0, method, threads(count)); }
  bool untouched() const {
    return all_are(mean, T(-77)) && all_are(covariance, T(-77)) && all_are(means, T(-77)) &&
           all_are(covariances, T(-77));
  }
};

template <class T, class I>
void expect_pooled(bool weighted, int64_t observation_storage, int64_t storage, uint64_t method, int count) {
  using P = Pooled<T, I>;
  P t(observation_storage, storage, weighted);
  ASSERT_EQ(t.run(method, count), 0);
  constexpr int64_t p = P::p;
  long double total = 0, common[p] = {}, products[p][p] = {};
  const double tolerance = sizeof(T) == 8 ? 1e-12 : 1e-4;
  for (int64_t g = 0; g < P::groups; ++g) {
    long double w = 0, m[p] = {}, c[p][p] = {};
    for (int64_t i = 0; i < P::n; ++i) {
      if (t.group[i] != g) continue;
      const long double weight = weighted ? t.sample.weights[i] : 1;
      w += weight;
      for (int64_t j = 0; j < p; ++j) m[j] += weight * t.sample.at(i, j);
    }
    total += w;
    for (int64_t j = 0; j < p; ++j) common[j] += m[j], m[j] /= w;
    for (int64_t i = 0; i < P::n; ++i) {
      if (t.group[i] != g) continue;
      const long double weight = weighted ? t.sample.weights[i] : 1;
      for (int64_t j = 0; j < p * p; ++j) {
        c[j / p][j % p] += weight * (t.sample.at(i, j / p) - m[j / p]) * (t.sample.at(i, j % p) - m[j % p]);
      }
    }
    const int64_t size = length(storage, p);
    for (int64_t j = 0; j < p; ++j) {
      EXPECT_NEAR(t.means[g * p + j] / static_cast<double>(m[j]), 1, tolerance);
      for (int64_t i = 0; i <= j; ++i) {
        products[i][j] += c[i][j];
        const double got = t.covariances[g * size + place(storage, p, i, j)];
        if (t.wanted[g] == 0) {
          EXPECT_EQ(got, -77) << "not asked for";
        } else {
          // Nothing is left of a group of one.
          EXPECT_NEAR(got, static_cast<double>(w > 1 ? c[i][j] / (w - 1) : c[i][j] / w), 100 * tolerance) << g;
        }
      }
    }
  }
  for (int64_t j = 0; j < p; ++j) {
    EXPECT_NEAR(t.mean[j] / static_cast<double>(common[j] / total), 1, tolerance);
    for (int64_t i = 0; i <= j; ++i) {
      EXPECT_NEAR(t.covariance[place(storage, p, i, j)], static_cast<double>(products[i][j] / (total - P::groups)),
                  100 * tolerance);
    }
  }
}

TEST(PooledCovariance, IsThatWithinGroups) {
  for (int64_t observation_storage : {0x10000, 0x20000}) {
    for (int64_t storage : {0, 1, 2}) {
      for (uint64_t method : {1, 2}) {
        for (bool weighted : {false, true}) {
          expect_pooled<double, int32_t>(weighted, observation_storage, storage, method, storage == 1 ? 3 : 0);
          expect_pooled<double, int64_t>(weighted, observation_storage, storage, method, 0);
          expect_pooled<float, int32_t>(weighted, observation_storage, storage, method, 2);
        }
      }
    }
  }
}

TEST(PooledCovariance, AGroupOfOneHasTheCovarianceZero) {
  Pooled<double, int32_t> t(0x10000, 0);
  ASSERT_EQ(t.run(2), 0);
  for (int k = 0; k < 9; ++k) EXPECT_EQ(t.covariances[2 * 9 + k], 0);
}

TEST(PooledCovariance, GroupsOfOneAloneHaveNone) {
  Pooled<double, int32_t> t(0x10000, 0);
  for (int i = 0; i < 200; ++i) t.group[i] = i;
  EXPECT_EQ(t.run(2), -4002);
  EXPECT_TRUE(t.untouched());
}

TEST(PooledCovariance, AGroupWithoutObservationsTakesNothing) {
  Pooled<double, int32_t> t(0x10000, 0), without(0x10000, 0);
  for (int i = 0; i < 200; ++i) {
    if (t.group[i] == 2) t.group[i] = 3;
    without.group[i] = t.group[i] == 3 ? 2 : t.group[i];
  }
  ASSERT_EQ(t.run(2), 0);
  ASSERT_EQ(without.run(2), 0);
  for (int k = 0; k < 9; ++k) EXPECT_NEAR(t.covariance[k], without.covariance[k], 1e-12);
  for (int j = 0; j < 3; ++j) EXPECT_TRUE(std::isnan(t.means[2 * 3 + j]));
}

TEST(PooledCovariance, ChecksInOrder) {
  const auto sample = random_sample<double>(2, 10);
  std::vector<double> mean(2), covariance(4), means(4), covariances(8);
  int32_t p = 2, n = 10, storage = 0x10000, matrix = 3, group_matrix = 3;
  std::vector<int32_t> group = {0, 1, 0, 1, 0, 1, 0, 1, 0, -1}, wanted = {1, 1};
  auto run = [](OrvikSSTask t, uint64_t method = 2) { return _qordSSPooledCovariance(t, 0, method, nullptr); };
  EXPECT_EQ(run(nullptr), -4031);
  OrvikSSTask task;
  ASSERT_EQ(__qordSSNewTask(&task, &p, &n, &storage, sample.rows.data(), nullptr, nullptr, 0), 0);
  EXPECT_EQ(run(task, 0), -4029);
  EXPECT_EQ(run(task, 4), -4029);
  storage = 1;
  EXPECT_EQ(run(task), -4003);
  storage = 0x10000;
  EXPECT_EQ(run(task), -4038);
  __qoriSSEditTask(task, OrvikSS_groupIndices, group.data());
  EXPECT_EQ(run(task), -4035);
  __qordSSEditTask(task, OrvikSS_pooledMean, mean.data());
  EXPECT_EQ(run(task), -4034);
  __qordSSEditTask(task, OrvikSS_pooledCovariance, covariance.data());
  EXPECT_EQ(run(task), -4044);
  __qoriSSEditTask(task, OrvikSS_pooledCovarianceStorage, &matrix);
  EXPECT_EQ(run(task), -4003);
  matrix = 0;
  EXPECT_EQ(run(task), -4038) << "a negative group";
  group[9] = 1;
  EXPECT_EQ(run(task), 0);
  __qordSSEditTask(task, OrvikSS_groupCovariances, covariances.data());
  EXPECT_EQ(run(task), -4037);
  __qordSSEditTask(task, OrvikSS_groupMeans, means.data());
  EXPECT_EQ(run(task), -4038);
  __qoriSSEditTask(task, OrvikSS_groupCovarianceIndices, wanted.data());
  EXPECT_EQ(run(task), -4044);
  __qoriSSEditTask(task, OrvikSS_groupCovarianceStorage, &group_matrix);
  EXPECT_EQ(run(task), -4003);
  group_matrix = 1;
  EXPECT_EQ(run(task), 0);
  __qorSSDeleteTask(&task);
  // Group results alone.
  ASSERT_EQ(__qordSSNewTask(&task, &p, &n, &storage, sample.rows.data(), nullptr, nullptr, 0), 0);
  __qordSSEditPooledCovariance(task, group.data(), nullptr, nullptr, wanted.data(), means.data(), nullptr);
  EXPECT_EQ(run(task), -4036);
  __qordSSEditTask(task, OrvikSS_groupCovariances, covariances.data());
  __qoriSSEditTask(task, OrvikSS_groupCovarianceStorage, &group_matrix);
  EXPECT_EQ(run(task), 0);
  __qorSSDeleteTask(&task);
}

TEST(PooledCovariance, ExhaustedMemoryAtEveryAllocation) {
  for (int count : {0, 3}) {
    Pooled<double, int32_t> t(0x10000, 0);
    EXPECT_GE(fail_every_allocation([&] { return t.run(2, count); }, [&] { return t.untouched(); }), 6);
  }
}

// Covariance of five variables; 1, 4 are kept, 0, 3 conditioned on, 2 left out.
template <class T, class I>
struct Partial {
  static constexpr int64_t p = 5;
  std::vector<I> roles = {-1, 1, 0, -1, 1};
  std::vector<T> matrix, covariance = std::vector<T>(p * p, -77), correlation = std::vector<T>(p * p, -77);
  TaskOver<T> task = TaskOver<T>(sizeof(I) == 8);

  Partial(int64_t in, int64_t out) : matrix(length(in, p)) {
    for (int64_t j = 0; j < p; ++j) {
      for (int64_t i = 0; i <= j; ++i) matrix[place(in, p, i, j)] = static_cast<T>(value(i, j));
    }
    if (in == 0) {
      for (int64_t j = 0; j < p; ++j) {
        for (int64_t i = 0; i < j; ++i) matrix[i * p + j] = matrix[j * p + i];
      }
    }
    EXPECT_EQ(task.make(p, 10, 0x10000, matrix.data()), 0);
    __qoriSSEditTask(task.get(), OrvikSS_partialCovarianceIndices, roles.data());
    task.set(OrvikSS_covariance, matrix);
    task.set(OrvikSS_partialCovariance, covariance);
    task.set(OrvikSS_partialCorrelation, correlation);
    task.set_integer(OrvikSS_covarianceStorage, in);
    task.set_integer(OrvikSS_partialCovarianceStorage, out);
    task.set_integer(OrvikSS_partialCorrelationStorage, out);
  }
  static double value(int64_t i, int64_t j) {
    return i == j ? 4 + static_cast<double>(j) : std::cos(3.0 * static_cast<double>(i + j));
  }
  int32_t run(uint64_t estimates = 0x300000) { return Entries<T>::partial(task.get(), estimates, 1, nullptr); }
  bool untouched() const { return all_are(covariance, T(-77)) && all_are(correlation, T(-77)); }
};

template <class T, class I>
void expect_partial(int64_t in, int64_t out) {
  using P = Partial<T, I>;
  P t(in, out);
  ASSERT_EQ(t.run(), 0);
  // The two conditioned on by Cramer's rule.
  const double a = P::value(0, 0), b = P::value(0, 3), c = P::value(3, 3), det = a * c - b * b;
  const int64_t kept[2] = {1, 4};
  double wanted[2][2];
  for (int i = 0; i < 2; ++i) {
    for (int j = 0; j < 2; ++j) {
      const double xi = P::value(0, kept[i]), yi = P::value(3, kept[i]), xj = P::value(0, kept[j]),
                   yj = P::value(3, kept[j]);
      wanted[i][j] = P::value(kept[i], kept[j]) - (xi * (c * xj - b * yj) + yi * (a * yj - b * xj)) / det;
    }
  }
  const double tolerance = sizeof(T) == 8 ? 1e-14 : 1e-6;
  for (int64_t j = 0; j < 2; ++j) {
    for (int64_t i = 0; i <= j; ++i) {
      EXPECT_NEAR(t.covariance[place(out, 2, i, j)], wanted[i][j], 10 * tolerance);
      EXPECT_NEAR(t.correlation[place(out, 2, i, j)], wanted[i][j] / std::sqrt(wanted[i][i] * wanted[j][j]), tolerance);
    }
  }
  if (out == 0) {
    EXPECT_EQ(t.covariance[1], t.covariance[2]);
  }
  EXPECT_EQ(t.covariance[length(out, 2)], -77) << "the result is kept by kept";
}

TEST(PartialCovariance, TakesTheEffectOfTheOthersOut) {
  for (int64_t in : {0, 1, 2}) {
    for (int64_t out : {0, 1, 2}) {
      expect_partial<double, int32_t>(in, out);
      expect_partial<double, int64_t>(in, out);
      expect_partial<float, int32_t>(in, out);
    }
  }
}

TEST(PartialCovariance, ConditionedOnNothingIsTheCovariance) {
  Partial<double, int32_t> t(0, 0);
  t.roles = {0, 1, 0, 0, 1};
  __qoriSSEditTask(t.task.get(), OrvikSS_partialCovarianceIndices, t.roles.data());
  ASSERT_EQ(t.run(), 0);
  EXPECT_EQ(t.covariance[0], t.value(1, 1));
  EXPECT_EQ(t.covariance[1], t.value(1, 4));
}

TEST(PartialCovariance, WritesOnlyWhatIsAskedFor) {
  Partial<double, int32_t> t(0, 0);
  ASSERT_EQ(t.run(ORVIK_SS_PARTIAL_CORRELATION), 0);
  EXPECT_TRUE(all_are(t.covariance, -77.0));
  EXPECT_EQ(t.correlation[0], 1);
  Partial<double, int32_t> u(0, 0);
  ASSERT_EQ(u.run(ORVIK_SS_PARTIAL_COVARIANCE), 0);
  EXPECT_TRUE(all_are(u.correlation, -77.0));
}

TEST(PartialCovariance, ABlockThatIsNotPositiveDefiniteIsRefused) {
  for (double value : {0.0, -1.0, std::nan("")}) {
    Partial<double, int32_t> t(0, 0);
    t.matrix[3 * 5 + 3] = value;
    EXPECT_EQ(t.run(), -4001) << value;
    EXPECT_TRUE(t.untouched());
  }
}

TEST(PartialCovariance, NothingKeptIsRefused) {
  Partial<double, int32_t> t(0, 0);
  t.roles = {-1, 0, 0, -1, 0};
  __qoriSSEditTask(t.task.get(), OrvikSS_partialCovarianceIndices, t.roles.data());
  EXPECT_EQ(t.run(), -4045);
}

TEST(PartialCovariance, AVariableThatTheOthersDetermineHasNoPartialCorrelation) {
  // The second is kept and twice the first, which is conditioned on.
  std::vector<double> matrix = {1, 2, 0.5, 2, 4, 1, 0.5, 1, 3}, correlation(4);
  std::vector<int32_t> roles = {-1, 1, 1};
  int32_t p = 3, full = 0;
  OrvikSSTask task;
  ASSERT_EQ(__qordSSNewTask(&task, &p, nullptr, nullptr, nullptr, nullptr, nullptr, 0), 0);
  __qordSSEditPartialCovCor(task, roles.data(), matrix.data(), &full, nullptr, nullptr, nullptr, nullptr,
                            correlation.data(), &full);
  ASSERT_EQ(_qordSSPartialCovariance(task, ORVIK_SS_PARTIAL_CORRELATION, 1, nullptr), 0);
  EXPECT_TRUE(std::isnan(correlation[0]) && std::isnan(correlation[1]) && std::isnan(correlation[2]));
  EXPECT_EQ(correlation[3], 1);
  __qorSSDeleteTask(&task);
}

TEST(PartialCovariance, ChecksInOrder) {
  std::vector<double> matrix = {2, 1, 1, 2}, result(4), other(4);
  std::vector<int32_t> roles = {1, -1};
  int32_t p = 2, in = 3, out = 3, correlation_storage = 3;
  auto run = [](OrvikSSTask t, uint64_t estimates = 0x300000, uint64_t method = 1) {
    return _qordSSPartialCovariance(t, estimates, method, nullptr);
  };
  EXPECT_EQ(run(nullptr), -4031);
  OrvikSSTask task;
  ASSERT_EQ(__qordSSNewTask(&task, &p, nullptr, nullptr, nullptr, nullptr, nullptr, 0), 0);
  EXPECT_EQ(run(task, 0x300000, 2), -4029);
  EXPECT_EQ(run(task, 0), -4029);
  EXPECT_EQ(run(task), -4018);
  __qordSSEditTask(task, OrvikSS_covariance, matrix.data());
  EXPECT_EQ(run(task), -4045);
  __qoriSSEditTask(task, OrvikSS_partialCovarianceIndices, roles.data());
  EXPECT_EQ(run(task), -4044);
  __qoriSSEditTask(task, OrvikSS_covarianceStorage, &in);
  EXPECT_EQ(run(task), -4003);
  in = 0;
  EXPECT_EQ(run(task), -4046);
  __qordSSEditTask(task, OrvikSS_partialCovariance, result.data());
  EXPECT_EQ(run(task), -4044);
  __qoriSSEditTask(task, OrvikSS_partialCovarianceStorage, &out);
  EXPECT_EQ(run(task), -4003);
  out = 0;
  EXPECT_EQ(run(task), -4047);
  __qordSSEditTask(task, OrvikSS_partialCorrelation, other.data());
  EXPECT_EQ(run(task), -4044);
  __qoriSSEditTask(task, OrvikSS_partialCorrelationStorage, &correlation_storage);
  EXPECT_EQ(run(task), -4003);
  correlation_storage = 1;
  EXPECT_EQ(run(task), 0);
  EXPECT_EQ(result[0], 1.5);
  serv::blas::pretend_missing(true);
  EXPECT_EQ(run(task), -4000);
  serv::blas::pretend_missing(false);
  __qorSSDeleteTask(&task);
}

TEST(PartialCovariance, ExhaustedMemoryAtEveryAllocation) {
  Partial<double, int32_t> t(1, 2);
  EXPECT_EQ(fail_every_allocation([&] { return t.run(); }, [&] { return t.untouched(); }), 2);
}

template <class T>
struct Parametrized {
  int64_t p;
  std::vector<T> correlation, result;
  TaskOver<T> task;

  template <class F>
  Parametrized(int64_t p, int64_t in, int64_t out, F&& r) : p(p), correlation(length(in, p)), result(p * p, -77) {
    for (int64_t j = 0; j < p; ++j) {
      for (int64_t i = 0; i <= j; ++i) {
        correlation[place(in, p, i, j)] = static_cast<T>(i == j ? 1 : r(i, j));
        if (in == 0) correlation[i * p + j] = correlation[j * p + i];
      }
    }
    EXPECT_EQ(task.make(p, 1, 0x10000, correlation.data()), 0);
    task.set(OrvikSS_correlation, correlation);
    task.set(OrvikSS_parametrizedCorrelation, result);
    task.set_integer(OrvikSS_correlationStorage, in);
    task.set_integer(OrvikSS_parametrizedCorrelationStorage, out);
  }
  int32_t run() { return Entries<T>::parametrize(task.get(), 0, ORVIK_SS_METHOD_PARAMETRIZATION, nullptr); }
};

// Rebonato and Jäckel's way worked out by hand for three variables with pairwise correlation -0.9: the eigenvalue -0.8
// of (1, 1, 1) becomes 0, the other two, 1.9, are left, and -1/2 follows.
TEST(ParametrizedCorrelation, OfAnImpossibleMatrixIsTheNearbyPossibleOne) {
  for (int64_t in : {0, 1, 2}) {
    for (int64_t out : {0, 1, 2}) {
      Parametrized<double> t(3, in, out, [](int64_t, int64_t) { return -0.9; });
      Parametrized<float> u(3, in, out, [](int64_t, int64_t) { return -0.9; });
      ASSERT_EQ(t.run(), 0);
      ASSERT_EQ(u.run(), 0);
      for (int64_t j = 0; j < 3; ++j) {
        for (int64_t i = 0; i <= j; ++i) {
          EXPECT_NEAR(t.result[place(out, 3, i, j)], i == j ? 1 : -0.5, 1e-14);
          EXPECT_NEAR(u.result[place(out, 3, i, j)], i == j ? 1 : -0.5, 1e-6);
        }
        EXPECT_EQ(t.result[place(out, 3, j, j)], 1) << "exactly";
      }
      EXPECT_EQ(t.result[length(out, 3) % 9], out == 0 ? 1 : -77) << "nothing beyond";
    }
  }
}

TEST(ParametrizedCorrelation, IsPositiveSemidefiniteWithUnitDiagonal) {
  for (int64_t p : {2, 4, 10, 30}) {
    Parametrized<double> t(p, 1, 0,
                           [](int64_t i, int64_t j) { return std::cos(7.0 * static_cast<double>(i * i + 3 * j)); });
    ASSERT_EQ(t.run(), 0);
    // x' R x of many x.
    std::mt19937_64 engine(2);
    std::normal_distribution<double> normal;
    for (int k = 0; k < 200; ++k) {
      std::vector<double> x(p);
      for (double& v : x) v = normal(engine);
      double sum = 0, size = 0;
      for (int64_t i = 0; i < p; ++i) {
        size += x[i] * x[i];
        for (int64_t j = 0; j < p; ++j) sum += x[i] * x[j] * t.result[i * p + j];
      }
      EXPECT_GE(sum, -1e-13 * size);
    }
    for (int64_t i = 0; i < p; ++i) {
      EXPECT_EQ(t.result[i * p + i], 1);
      for (int64_t j = 0; j < p; ++j) EXPECT_LE(std::fabs(t.result[i * p + j]), 1);
    }
  }
}

// Three correlations of r have the eigenvalue 1 + 2 r.
TEST(ParametrizedCorrelation, AnyNegativeEigenvalueIsMendedAndNoneOfAPossibleMatrixIs) {
  for (double beyond : {1e-2, 1e-4, 1e-8, 1e-12}) {
    Parametrized<double> t(3, 0, 0, [&](int64_t, int64_t) { return -0.5 - beyond; });
    Parametrized<double> u(3, 0, 0, [&](int64_t, int64_t) { return -0.5 + beyond; });
    ASSERT_EQ(t.run(), 0);
    ASSERT_EQ(u.run(), 0);
    for (int64_t k : {1, 2, 3, 5, 6, 7}) {
      EXPECT_NEAR(t.result[k], -0.5, 1e-14) << beyond;
      EXPECT_EQ(u.result[k], -0.5 + beyond);
    }
  }
}

TEST(ParametrizedCorrelation, APossibleMatrixIsCopied) {
  Parametrized<double> t(4, 2, 1, [](int64_t i, int64_t j) { return 1.0 / (3 + static_cast<double>(i + j)); });
  ASSERT_EQ(t.run(), 0);
  for (int64_t j = 0; j < 4; ++j) {
    for (int64_t i = 0; i <= j; ++i) EXPECT_EQ(t.result[place(1, 4, i, j)], t.correlation[place(2, 4, i, j)]);
  }
}

TEST(ParametrizedCorrelation, ValuesThatAreNoNumbersAreRefused) {
  Parametrized<double> t(3, 0, 0, [](int64_t, int64_t) { return std::nan(""); });
  EXPECT_EQ(t.run(), -4001);
  EXPECT_TRUE(all_are(t.result, -77.0));
}

TEST(ParametrizedCorrelation, ChecksInOrder) {
  std::vector<double> r = {1, 0, 0, 1}, result(4);
  int32_t p = 2, in = 3, out = 3;
  auto run = [](OrvikSSTask t, uint64_t method = 4) { return _qordSSCorParametrization(t, 0, method, nullptr); };
  EXPECT_EQ(run(nullptr), -4031);
  OrvikSSTask task;
  ASSERT_EQ(__qordSSNewTask(&task, &p, nullptr, nullptr, nullptr, nullptr, nullptr, 0), 0);
  EXPECT_EQ(run(task, 1), -4029);
  EXPECT_EQ(run(task), -4019);
  __qordSSEditTask(task, OrvikSS_correlation, r.data());
  EXPECT_EQ(run(task), -4044);
  __qoriSSEditTask(task, OrvikSS_correlationStorage, &in);
  EXPECT_EQ(run(task), -4003);
  in = 0;
  EXPECT_EQ(run(task), -4071);
  __qordSSEditTask(task, OrvikSS_parametrizedCorrelation, result.data());
  EXPECT_EQ(run(task), -4044);
  __qoriSSEditTask(task, OrvikSS_parametrizedCorrelationStorage, &out);
  EXPECT_EQ(run(task), -4003);
  out = 0;
  EXPECT_EQ(run(task), 0);
  EXPECT_EQ(result, r);
  serv::blas::pretend_missing(true);
  EXPECT_EQ(run(task), -4000);
  serv::blas::pretend_missing(false);
  __qorSSDeleteTask(&task);
}

TEST(ParametrizedCorrelation, ExhaustedMemoryAtEveryAllocation) {
  Parametrized<double> t(3, 1, 0, [](int64_t, int64_t) { return -0.9; });
  EXPECT_EQ(fail_every_allocation([&] { return t.run(); }, [&] { return all_are(t.result, -77.0); }), 2);
}

}  // namespace
}  // namespace orvik::ss::test
