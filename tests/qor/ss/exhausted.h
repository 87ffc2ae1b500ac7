// Every allocation of a call fails in turn.
#pragma once

#include <gtest/gtest.h>

#include <functional>

#include "serv/memory.h"

namespace orvik::ss::test {

// Fails the first, second, third ... allocation of `call` until it succeeds. Returns how many failed. `untouched` is
// asked after each failure.
inline int fail_every_allocation(const std::function<int32_t()>& call, const std::function<bool()>& untouched) {
  for (int fail = 1; fail < 1000; ++fail) {
    const int64_t live = serv::live_allocations();
    serv::fail_allocation_after(fail);
    const int32_t status = call();
    serv::fail_allocation_after(0);
    EXPECT_EQ(serv::live_allocations(), live) << "allocation " << fail;
    if (status == 0) return fail - 1;
    EXPECT_EQ(status, -4000) << "allocation " << fail;
    EXPECT_TRUE(untouched()) << "allocation " << fail;
  }
  ADD_FAILURE() << "never succeeded";
  return -1;
}

}  // namespace orvik::ss::test
