// Covariance of 100 variables over 10^5 observations, against the matrix product alone and Eigen. Units: one value.
#include <dlfcn.h>

#include <string>

#include "ss/rounds.h"
#include "ss/task.h"

#ifdef ORVIK_HAVE_EIGEN
#include <Eigen/Dense>
#endif

namespace orvik::bench {

void covariance() {
  constexpr int64_t kP = 100, kN = 100'000;
  const auto x = normal_values(kP * kN);
  std::vector<double> product(kP * kP);
  // The package that the library itself binds.
  using Syrk = void (*)(const char*, const char*, const int32_t*, const int32_t*, const double*, const double*,
                        const int32_t*, const double*, double*, const int32_t*);
  void* package = dlopen("libblas.so.3", RTLD_NOW);
  const auto syrk = package == nullptr ? nullptr : reinterpret_cast<Syrk>(dlsym(package, "dsyrk_"));
  for (int64_t storage : {ORVIK_SS_STORAGE_ROWS, ORVIK_SS_STORAGE_COLUMNS}) {
    const bool rows = storage == ORVIK_SS_STORAGE_ROWS;
    Task task(kP, kN, storage, x.data());
    for (const auto& [method, name] : {std::pair<uint64_t, const char*>{1, "fast"}, {2, "one pass"}}) {
      std::vector<Candidate> candidates = {{"", [&, method = method] { task.basic(ORVIK_SS_COVARIANCE, method); }}};
      if (syrk != nullptr) {
        candidates.push_back({"dsyrk", [&] {
                                const int32_t p = kP, n = kN, leading = rows ? n : p;
                                const double one = 1, zero = 0;
                                syrk("U", rows ? "T" : "N", &p, &n, &one, x.data(), &leading, &zero, product.data(), &p);
                              }});
      }
#ifdef ORVIK_HAVE_EIGEN
      candidates.push_back({"Eigen, centred product", [&] {
                              using Matrix = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic>;
                              Eigen::Map<Matrix> c(product.data(), kP, kP);
                              if (rows) {
                                const Eigen::Map<const Matrix> a(x.data(), kN, kP);
                                const Matrix d = a.rowwise() - a.colwise().mean();
                                c.noalias() = d.transpose() * d / (kN - 1);
                              } else {
                                const Eigen::Map<const Matrix> a(x.data(), kP, kN);
                                const Matrix d = a.colwise() - a.rowwise().mean();
                                c.noalias() = d * d.transpose() / (kN - 1);
                              }
                            }});
#endif
      compare(std::string("covariance, p = 100, ") + name + (rows ? ", rows" : ", columns"), kP * kN, candidates, 9);
    }
  }
}

}  // namespace orvik::bench
