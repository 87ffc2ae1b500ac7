// Runs a function on a thread of its own, for state that is fresh at thread start.
#pragma once

#include <thread>
#include <utility>

namespace orvik::test {

template <class Function>
void on_fresh_thread(Function&& function) {
  std::thread(std::forward<Function>(function)).join();
}

}  // namespace orvik::test
