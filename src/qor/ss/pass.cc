#include "qor/ss/pass.h"

namespace orvik::ss {

int double_rows(const Plan& plan) {
  const int mean = plan.matrix() && plan.method == Method::Fast ? 1 : 0;
  return plan.power + plan.central + (plan.central != 0 ? plan.order() : 0) + mean;
}

int real_rows(const Plan& plan) { return (plan.central != 0 ? 1 : 0) + (plan.matrix() ? 1 : 0); }

template <class T>
void clear(int64_t p, const Plan& plan, Accumulators<T>* acc) {
  acc->weights = {};
  for (int k = 0; k < plan.power; ++k) std::fill(acc->power[k], acc->power[k] + p, 0.0);
  for (int k = 0; k < plan.central; ++k) std::fill(acc->central[k], acc->central[k] + p, 0.0);
  if (T* c = acc->cross.matrix(); c != nullptr) std::fill(c, c + p * p, T{0});
}

template <class T>
void merge(int64_t p, const Plan& plan, Accumulators<T>* into, const Accumulators<T>& from) {
  const double a = into->weights.sum, b = from.weights.sum;
  if (from.weights.observations == 0) return;
  for (int k = 0; k < plan.power; ++k) {
    for (int64_t j = 0; j < p; ++j) into->power[k][j] += from.power[k][j];
  }
  if (T* c = into->cross.matrix(); c != nullptr) {
    for (int64_t k = 0; k < p * p; ++k) c[k] += from.cross.matrix()[k];
    if (plan.method == Method::OnePass && a != 0) {
      for (int64_t j = 0; j < p; ++j) into->outer[j] = static_cast<T>(from.central[0][j] - into->central[0][j]);
      into->cross.add_outer(a * (b / (a + b)), into->outer);
    }
  }
  if (plan.central != 0) pass::join<Many>(p, plan.central, a, b, into->central, from.central);
  into->weights.add(from.weights);
}

#define ORVIK_INSTANTIATE(T)                                                               \
  template void run_pass(const Data<T>&, const Plan&, int64_t, int64_t, Accumulators<T>*); \
  template void clear(int64_t, const Plan&, Accumulators<T>*);                             \
  template void merge(int64_t, const Plan&, Accumulators<T>*, const Accumulators<T>&);
ORVIK_INSTANTIATE(float)
ORVIK_INSTANTIATE(double)
#undef ORVIK_INSTANTIATE
}  // namespace orvik::ss
