// Robust estimators of 10 variables beside what they are built on: so many plain covariances of the same data.
// Imputation beside itself at a tenth of the observations. Units: one value.
#include <cmath>

#include "ss/rounds.h"
#include "ss/task.h"
#include "ss/two_threads.h"

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

// One sample in one storage with the calls that are timed.
class Calls {
 public:
  explicit Calls(int64_t storage) : x_(contaminated(storage)), plain_(kP, kN, storage, x_.data()) {
    __qordSSEditOutDetect(plain_.get(), nullptr, nullptr, good_.data());
    __qordSSEditRCov(plain_.get(), &full_, nullptr, nullptr, mean_.data(), matrix_.data());
  }
  std::function<void()> covariances(int count) {
    return [this, count] {
      for (int k = 0; k < count; ++k) plain_.basic(ORVIK_SS_COVARIANCE, ORVIK_SS_METHOD_FAST);
    };
  }
  std::function<void()> detect(const OrvikThreading* threads = nullptr) {
    return [this, threads] { _qordSSOutliersDetection(plain_.get(), 0, ORVIK_SS_METHOD_BACON, threads); };
  }
  std::function<void()> estimate(const OrvikThreading* threads = nullptr) {
    return [this, threads] { _qordSSRobustCovariance(plain_.get(), 0, ORVIK_SS_METHOD_ROBUST, threads); };
  }

 private:
  std::vector<double> x_, good_ = std::vector<double>(kN), mean_ = std::vector<double>(kP),
                          matrix_ = std::vector<double>(kP * kP);
  int64_t full_ = 0;
  Task plain_;
};

constexpr double kCells = static_cast<double>(kP * kN);
constexpr std::pair<int64_t, const char*> kStorages[] = {{ORVIK_SS_STORAGE_ROWS, ", rows"},
                                                         {ORVIK_SS_STORAGE_COLUMNS, ", columns"}};

}  // namespace

void robust() {
  for (const auto& [storage, form] : kStorages) {
    Calls calls(storage);
    compare(std::string("outlier detection, p = 10") + form, kCells,
            {{"", calls.detect()}, {"10 covariances", calls.covariances(10)}}, 5);
    compare(std::string("robust covariance, p = 10") + form, kCells,
            {{"", calls.estimate()}, {"30 covariances", calls.covariances(30)}}, 5);
  }
  Imputation large(100'000), small(10'000);
  auto ten_small = [&] {
    for (int k = 0; k < 10; ++k) small.run();
  };
  compare("imputation, 10^5 observations of 5", large.cells(), {{"", [&] { large.run(); }}, {"ten of 10^4", ten_small}},
          5);
}

void robust_threads() {
  const OrvikThreading* two = pair_of_threads();
  for (const auto& [storage, form] : kStorages) {
    Calls calls(storage);
    compare(std::string("two threads, outlier detection, p = 10") + form, kCells,
            {{"", calls.detect(two)}, {"one thread", calls.detect()}}, 5);
    compare(std::string("two threads, robust covariance, p = 10") + form, kCells,
            {{"", calls.estimate(two)}, {"one thread", calls.estimate()}}, 5);
  }
  Imputation large(100'000);
  compare("two threads, imputation", large.cells(),
          {{"", [&] { large.run(pair_of_threads()); }}, {"one thread", [&] { large.run(); }}}, 5);
}

}  // namespace orvik::bench
