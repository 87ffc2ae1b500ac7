// Robust estimators of 10 variables beside what they are built on: so many plain covariances of the same data.
// Imputation beside itself at a tenth of the observations. Units: one value.
#include <cmath>

#include "ss/rounds.h"
#include "ss/task.h"
#include "support/threading.h"

namespace orvik::bench {
namespace {

constexpr int64_t kP = 10, kN = 100'000;

// Every tenth observation lies far off.
std::vector<double> contaminated(int64_t storage) {
  auto x = normal_values(kP * kN);
  for (int64_t i = 0; i < kN; i += 10) {
    for (int64_t j = 0; j < kP; ++j) x[storage == ORVIK_SS_STORAGE_ROWS ? j * kN + i : i * kP + j] += 8;
  }
  return x;
}

// Two variables in five miss a tenth of their values.
class Imputation {
 public:
  explicit Imputation(int64_t n) : n_(n), x_(normal_values(kVariables * n)) {
    for (int64_t i = 0; i < n; ++i) {
      if (i % 10 == 3) x_[i * kVariables + 1] = -std::nan(""), ++missing_;
      if (i % 10 == 7) x_[i * kVariables + 4] = -std::nan(""), ++missing_;
    }
    parameters_[4] = static_cast<double>(missing_);
    simulated_.resize(kSets * missing_);
    count_ = static_cast<int64_t>(simulated_.size());
    __qordSSNewTask(&task_, &p_, &n_, &storage_, x_.data(), nullptr, nullptr, 1);
    __qordSSEditMissingVals(task_, &five_, parameters_, nullptr, nullptr, nullptr, nullptr, &count_, simulated_.data(),
                            nullptr, nullptr);
  }
  ~Imputation() { __qorSSDeleteTask(&task_); }
  Imputation(const Imputation&) = delete;
  Imputation& operator=(const Imputation&) = delete;
  void run(const OrvikThreading* threading = nullptr) {
    _qordSSMissingValues(task_, 0, ORVIK_SS_METHOD_IMPUTATION, threading);
  }
  double cells() const { return static_cast<double>(kVariables * n_); }

 private:
  static constexpr int64_t kVariables = 5, kSets = 4;
  int64_t p_ = kVariables, n_, storage_ = ORVIK_SS_STORAGE_COLUMNS, five_ = 5, missing_ = 0, count_ = 0;
  std::vector<double> x_, simulated_;
  double parameters_[5] = {20, 10, 0, kSets, 0};
  OrvikSSTask task_ = nullptr;
};

}  // namespace

void robust() {
  for (int64_t storage : {ORVIK_SS_STORAGE_ROWS, ORVIK_SS_STORAGE_COLUMNS}) {
    const char* form = storage == ORVIK_SS_STORAGE_ROWS ? ", rows" : ", columns";
    const auto x = contaminated(storage);
    Task plain(kP, kN, storage, x.data());
    auto covariances = [&](int count) {
      return [&plain, count] {
        for (int k = 0; k < count; ++k) plain.basic(ORVIK_SS_COVARIANCE, ORVIK_SS_METHOD_FAST);
      };
    };
    std::vector<double> good(kN), mean(kP), matrix(kP * kP);
    const int64_t full = 0;
    __qordSSEditOutDetect(plain.get(), nullptr, nullptr, good.data());
    __qordSSEditRCov(plain.get(), &full, nullptr, nullptr, mean.data(), matrix.data());
    auto detect = [&](const OrvikThreading* threads) {
      return [&plain, threads] { _qordSSOutliersDetection(plain.get(), 0, ORVIK_SS_METHOD_BACON, threads); };
    };
    auto estimate = [&](const OrvikThreading* threads) {
      return [&plain, threads] { _qordSSRobustCovariance(plain.get(), 0, ORVIK_SS_METHOD_ROBUST, threads); };
    };
    constexpr double kCells = static_cast<double>(kP * kN);
    compare(std::string("outlier detection, p = 10") + form, kCells,
            {{"", detect(nullptr)}, {"10 covariances", covariances(10)}}, 5);
    compare(std::string("robust covariance, p = 10") + form, kCells,
            {{"", estimate(nullptr)}, {"30 covariances", covariances(30)}}, 5);
    const OrvikThreading* two = test::threads<2>();
    compare(std::string("outlier detection, p = 10, two threads") + form, kCells,
            {{"", detect(two)}, {"one thread", detect(nullptr)}}, 5);
    compare(std::string("robust covariance, p = 10, two threads") + form, kCells,
            {{"", estimate(two)}, {"one thread", estimate(nullptr)}}, 5);
  }
  Imputation large(100'000), small(10'000);
  compare("imputation, 10^5 observations of 5", large.cells(),
          {{"", [&] { large.run(); }},
           {"ten times 10^4",
            [&] {
              for (int k = 0; k < 10; ++k) small.run();
            }}},
          5);
  compare("imputation, two threads", large.cells(),
          {{"", [&] { large.run(test::threads<2>()); }}, {"one thread", [&] { large.run(); }}}, 5);
}

}  // namespace orvik::bench
