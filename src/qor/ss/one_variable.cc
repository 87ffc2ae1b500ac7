#include "qor/ss/one_variable.h"

#include "qor/ss/call.h"

namespace orvik::ss {
namespace {

// Each kind is a function without calls but for those of sums, from the accumulators to the results. (Not under a
// sanitizer, whose checks in functions of this size take the compiler minutes.)
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define ORVIK_ONE_FUNCTION gnu::noinline
#else
#define ORVIK_ONE_FUNCTION gnu::noinline, gnu::flatten
#endif
template <class S, class T>
[[ORVIK_ONE_FUNCTION]] Weights run(const Task& task, const Data<T>& data, const Plan& plan, const Weights& old,
                                   const T* user_mean, const T* old_mean) {
  Data<T> d = data;
  d.p = 1;
  d.contiguous_variables = true;
  d.flags = nullptr;
  Accumulators<T, S> acc;
  for (int k = 0; k < S::kOrder; ++k) acc.power[k][0] = acc.central[k][0] = 0;
  T point = 0;
  acc.shift = user_mean;
  if constexpr (S::kStates) {
    find_point(task, d, old, &point);
    acc.shift = &point;
  }
  seed(task, d, plan, old, old_mean, &acc);
  run_pass(d, plan, 0, d.n, &acc);
  finish(task, d, plan, old, old_mean, acc);
  return acc.weights;
}

template <int K, class T>
Weights run(const Task& task, const Data<T>& d, const Plan& plan, const Weights& old, const T* user_mean,
            const T* old_mean) {
  return plan.central != 0 ? run<One<K, true>>(task, d, plan, old, user_mean, old_mean)
                           : run<One<K, false>>(task, d, plan, old, user_mean, old_mean);
}

}  // namespace

template <class T>
Weights run_one(const Task& task, const Data<T>& d, const Plan& plan, const Weights& old, const T* user_mean,
                const T* old_mean) {
  switch (plan.order()) {
    case 1:
      return run<1>(task, d, plan, old, user_mean, old_mean);
    case 2:
      return run<2>(task, d, plan, old, user_mean, old_mean);
    case 3:
      return run<3>(task, d, plan, old, user_mean, old_mean);
    default:
      return run<4>(task, d, plan, old, user_mean, old_mean);
  }
}

#define ORVIK_INSTANTIATE(T) \
  template Weights run_one(const Task&, const Data<T>&, const Plan&, const Weights&, const T*, const T*);
ORVIK_INSTANTIATE(float)
ORVIK_INSTANTIATE(double)
#undef ORVIK_INSTANTIATE

}  // namespace orvik::ss
