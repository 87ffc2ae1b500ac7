// The file loader on any bytes.
#include <sys/mman.h>
#include <unistd.h>

#include <string>

#include "qor/fuzz/use_stream.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const int file = memfd_create("image", 0);
  static const std::string name = "/proc/self/fd/" + std::to_string(file);
  orvik::fuzz::require(ftruncate(file, 0) == 0 && pwrite(file, data, size, 0) == static_cast<ssize_t>(size));
  OrvikStream stream = nullptr;
  const int32_t status = __qorLoadStreamF(&stream, name.c_str(), -1);
  orvik::fuzz::require((status == 0) == (stream != nullptr));
  if (stream) orvik::fuzz::use(stream);
  return 0;
}
