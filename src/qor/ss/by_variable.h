// Estimators that handle each variable apart: a contiguous copy, threads over the variables.
#pragma once

#include "qor/ss/task.h"
#include "qor/ss/threads.h"
#include "serv/memory.h"

namespace orvik::ss {

// Copies variable j to contiguous memory.
template <class T>
void copy_variable(const Data<T>& d, int64_t j, T* to) {
  const T* x = d.x + j * d.variable_step();
  if (d.contiguous_variables) {
    for (int64_t i = 0; i < d.n; ++i) to[i] = x[i];
  } else {
    for (int64_t i = 0; i < d.n; ++i) to[i] = x[i * d.p];
  }
}

// Calls body(j, buffer) for each selected variable, with `values` values of scratch that are the thread's own.
template <class T, class Body>
int32_t for_each_variable(const Data<T>& d, const OrvikThreading* threading, int64_t values, Body&& body) {
  const int32_t threads = threads_by_variable(threading, d.p, d.n);
  const serv::Block<T> scratch(static_cast<uint64_t>(threads * values));
  if (!scratch) return kNoMemory;
  return run_threads(threading, threads, [&](int32_t thread) {
    for (int64_t j = d.p * thread / threads; j < d.p * (thread + 1) / threads; ++j) {
      if (d.selected(j)) body(j, scratch.get() + thread * values);
    }
    return int32_t{kDone};
  });
}

}  // namespace orvik::ss
