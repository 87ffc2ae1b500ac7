// Every number that has a rule, as it is built.
#pragma once

#include <cstddef>

namespace orvik::approx {

struct Symbol {
  const char* header;
  const char* name;
  const void* address;
  size_t size;
};
extern const Symbol kSymbols[];
extern const size_t kSymbolCount;

}  // namespace orvik::approx
