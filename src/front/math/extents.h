// Where the arrays of a call lie: their address ranges, and which of them meet.
#pragma once

#include <cstdint>

namespace orvik::front {

// No array is longer: addresses of processes have 47 bits.
inline constexpr int64_t kAddressSpace = int64_t{1} << 47;

struct Extent {
  uint64_t low, high;  // bytes, from the first to behind the last

  bool meets(const Extent& other) const { return low < other.high && other.low < high; }
};

inline bool meet(const void* x, int64_t x_bytes, const void* r, int64_t r_bytes) {
  const auto a = reinterpret_cast<uint64_t>(x), b = reinterpret_cast<uint64_t>(r);
  return Extent{a, a + static_cast<uint64_t>(x_bytes)}.meets({b, b + static_cast<uint64_t>(r_bytes)});
}

// False where n elements of that size and step fit in no memory. n > 0.
inline bool find_extent(const void* start, int64_t step, int32_t size, int64_t n, Extent* extent) {
  if (n > kAddressSpace || step > kAddressSpace || step < -kAddressSpace) {
    if (n > 1 || n > kAddressSpace) return false;
    step = 0;
  }
  const bool small = n < int64_t{1} << 31 && step < 1 << 16 && step > -(1 << 16);
  const __int128 reach = small ? (n - 1) * step * size : static_cast<__int128>(n - 1) * step * size;
  if (reach >= kAddressSpace || reach <= -kAddressSpace) return false;
  const auto address = reinterpret_cast<uint64_t>(start);
  const auto bytes = static_cast<int64_t>(reach);
  extent->low = bytes < 0 ? address - static_cast<uint64_t>(-bytes) : address;
  extent->high = (bytes < 0 ? address : address + static_cast<uint64_t>(bytes)) + static_cast<uint64_t>(size);
  return extent->low < extent->high && extent->low <= address;
}

}  // namespace orvik::front
