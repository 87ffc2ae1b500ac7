#include "qor/ss/finish.h"
#include "qor/ss/results.h"

namespace orvik::ss {

template <class T>
void finish_held(const Task& task, const Data<T>& d, const Plan& plan, const Weights& total) {
  const Results<T> rows(task, plan);
  const double factor = unbiased(total);
  for (int64_t j = 0; j < d.p; ++j) {
    if (!d.selected(j)) continue;
    if (rows.has(kSum)) rows.set(kMean, j, rows.get(kSum, j) / total.sum);
    double c[5] = {};
    for (int k = 2; k <= 4; ++k) {
      const int raw_sum = kRawSum2 + k - 2, central_sum = kCentralSum2 + k - 2;
      if (rows.has(raw_sum)) rows.set(kRaw2 + k - 2, j, rows.get(raw_sum, j) / total.sum);
      if (rows.has(central_sum)) {
        rows.set(kCentral2 + k - 2, j, rows.get(central_sum, j) / total.sum * (k == 2 ? factor : 1.0));
      }
      c[k] = rows.get(kCentral2 + k - 2, j);
    }
    rows.put_ratios(j, rows.get(kMean, j), c);
  }
}

template void finish_held(const Task&, const Data<float>&, const Plan&, const Weights&);
template void finish_held(const Task&, const Data<double>&, const Plan&, const Weights&);

}  // namespace orvik::ss
