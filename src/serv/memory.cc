#include <stdlib.h>

#include "orvik/serv.h"

extern "C" void* orvik_serv_allocate(uint64_t size, int32_t alignment) {
  void* block = nullptr;
  if (posix_memalign(&block, static_cast<size_t>(alignment), size) != 0) return nullptr;
  return block;
}

extern "C" void orvik_serv_deallocate(void* block) { free(block); }
