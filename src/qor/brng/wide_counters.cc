// Whole blocks of counter-based generators in registers of 512 bits. Compiled for these; serv/registers.h tells whether
// they may be called.
#include "qor/brng/ars5_rounds.h"
#include "qor/brng/counter_runs.h"
#include "qor/brng/philox_rounds.h"

namespace orvik::qor {
namespace {

template <class Run>
ptrdiff_t to_form(Form form, const uint32_t* key, uint64_t low, uint64_t high, ptrdiff_t i, ptrdiff_t n,
                  const Target& target) {
  const typename Run::Keys keys(key);
  switch (form) {
    case Form::raw:
      return deliver_runs<Run>(keys, low, high, i, n, RawSink(target));
    case Form::floats:
      return deliver_runs<Run>(keys, low, high, i, n, CounterFloats(target));
    case Form::doubles:
      return deliver_runs<Run>(keys, low, high, i, n, CounterDoubles(target));
  }
  return i;
}

}  // namespace

extern "C" ptrdiff_t orvik_qor_wide_philox(Form form, const uint32_t* key, uint64_t low, uint64_t high, ptrdiff_t i,
                                           ptrdiff_t n, const Target& target) {
  return to_form<PhiloxRun>(form, key, low, high, i, n, target);
}
extern "C" ptrdiff_t orvik_qor_wide_ars5(Form form, const uint32_t* key, uint64_t low, uint64_t high, ptrdiff_t i,
                                         ptrdiff_t n, const Target& target) {
  return to_form<Ars5Run>(form, key, low, high, i, n, target);
}

}  // namespace orvik::qor
