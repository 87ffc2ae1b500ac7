// The caller's thread table behind one small wrapper: a null table is one thread, and one thread runs the same bodies.
#ifndef ORVIK_DF_SERVICES_H
#define ORVIK_DF_SERVICES_H

#include <algorithm>
#include <cstdint>

#include "orvik/df.h"

namespace orvik::df {

class Services {
 public:
  explicit Services(const OrvikDFServices* table) : table_(table) {}

  int64_t max_threads() const { return table_ == nullptr ? 1 : std::max<int64_t>(table_->max_threads(), 1); }

  // body(index, thread) -> status, for every index below count. The first negative status, or 0.
  template <class Body>
  int32_t run(int64_t count, int64_t threads, Body& body) const {
    if (table_ == nullptr) {
      for (int64_t i = 0; i < count; ++i) {
        const int32_t status = body(i, 0);
        if (status < 0) return status;
      }
      return 0;
    }
    return table_->parallel_run(count, threads, &body, [](int64_t index, int64_t thread, int64_t, void* arguments) {
      return static_cast<int32_t>((*static_cast<Body*>(arguments))(index, thread));
    });
  }

 private:
  const OrvikDFServices* table_;
};

// Division of items among tasks in whole blocks: all tasks alike, or all whole blocks as evenly as they go.
enum class Division { kAlike, kEven };

// body(task, begin, end) -> status, on the services' threads, and then, as task number `tasks`, for what is left on the
// calling thread.
template <class Body>
int32_t run_shares(const Services& services, int64_t items, int64_t block, int64_t tasks, Division division,
                   Body body) {
  const int64_t blocks = items / block;
  const auto begin_of = [=](int64_t task) {
    return block * (division == Division::kAlike ? blocks / tasks * task : blocks * task / tasks);
  };
  auto share = [&](int64_t task, int64_t) { return body(task, begin_of(task), begin_of(task + 1)); };
  const int32_t status = services.run(tasks, tasks, share);
  return status < 0 ? status : body(tasks, begin_of(tasks), items);
}

}  // namespace orvik::df

#endif
