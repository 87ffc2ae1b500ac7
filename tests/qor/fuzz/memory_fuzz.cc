// The memory loader on any bytes.
#include "qor/fuzz/pad_image.h"
#include "qor/fuzz/use_stream.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::vector<uint8_t> image(data, data + size);
  if (!orvik::fuzz::pad(image)) return 0;
  OrvikStream stream = nullptr;
  const int32_t status = __qorLoadStreamM(&stream, image.data());
  orvik::fuzz::require((status == 0) == (stream != nullptr));
  if (stream) orvik::fuzz::use(stream);
  return 0;
}
