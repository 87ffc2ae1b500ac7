// The source of uniforms of one call of a distribution: the stream's generator, and how it fared.
#pragma once

#include <cstdint>
#include <type_traits>

#include "orvik/qor.h"

namespace orvik::qor {

// The registry row of a stream's generator.
struct GeneratorRow {
  const RegBrngRow* table;
  uint32_t index;
  const RegBrngRow* operator->() const { return table + index; }
};
inline GeneratorRow generator_of(OrvikStream stream) {
  uint32_t index, sub;
  const void* const table = __qorGetBrngBaseOffset(__qorGetStreamStateBrng(stream), &index, &sub);
  return {static_cast<const RegBrngRow*>(table), index};
}

template <class T>
int32_t fill_uniform(OrvikStream stream, int32_t n, T* r, T a, T b) {
  if constexpr (sizeof(T) == 4)
    return generator_of(stream)->sBRng(stream, n, r, a, b);
  else
    return generator_of(stream)->dBRng(stream, n, r, a, b);
}

// A negative status ends the work: whoever gets false draws no more. Any other one is carried, the last counts.
template <class T>
class Uniforms {
 public:
  explicit Uniforms(OrvikStream stream) : stream_(stream) {}

  [[nodiscard]] bool draw(int32_t n, T* r, std::type_identity_t<T> a = 0, std::type_identity_t<T> b = 1) {
    return took(fill_uniform(stream_, n, r, a, b));
  }
  // The status of another entry that drew from the stream.
  [[nodiscard]] bool took(int32_t status) {
    status_ = status;
    return status >= 0;
  }

  int32_t status() const { return status_; }
  OrvikStream stream() const { return stream_; }

 private:
  OrvikStream stream_;
  int32_t status_ = ORVIK_QOR_OK;
};

}  // namespace orvik::qor
