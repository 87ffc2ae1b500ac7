// Estimators that handle each variable apart: a contiguous copy, threads over the variables.
#pragma once

#include "qor/ss/observations.h"
#include "qor/ss/threads.h"
#include "serv/memory.h"

namespace orvik::ss {

// Calls body(j, buffer) for each selected variable, with `values` values of scratch that are the thread's own.
template <class T, class Body>
int32_t for_each_variable(const Observations<T>& o, const int32_t* flags, const OrvikThreading* threading,
                          int64_t values, Body&& body) {
  const int32_t threads = threads_by_variable(threading, o.p, values);
  const serv::Block<T> scratch(static_cast<uint64_t>(threads * values));
  if (!scratch) return kNoMemory;
  return run_threads(threading, threads, [&](int32_t thread) {
    for (int64_t j = o.p * thread / threads; j < o.p * (thread + 1) / threads; ++j) {
      if (flags == nullptr || flags[j] != 0) body(j, scratch.get() + thread * values);
    }
    return int32_t{kDone};
  });
}

}  // namespace orvik::ss
