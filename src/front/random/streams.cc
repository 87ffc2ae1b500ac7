// Streams as objects of the front: handles around the kernels' streams.
#include <climits>
#include <new>

#include "front/handles.h"
#include "front/image.h"
#include "front/modes.h"
#include "front/processor.h"
#include "front/random/stream.h"
#include "orvik/qor.h"

namespace orvik::front {
namespace {

constexpr char kMagic[] = "ORVKSTM1";
constexpr int32_t kFamilyStep = 0x100000;  // ids of generators: a row each, members below
constexpr uint64_t kMostSobol = 40, kMostNiederreiter = 318;

bool is_abstract(int32_t generator) {
  const int32_t row = generator & ~(kFamilyStep - 1);
  return row == ORVIK_BRNG_IABSTRACT || row == ORVIK_BRNG_DABSTRACT || row == ORVIK_BRNG_SABSTRACT;
}

orvik_status check_generator(int32_t generator) {
  if (generator < kFamilyStep) return ORVIK_QOR_BAD_BRNG;
  if (is_abstract(generator)) return ORVIK_ERROR_UNSUPPORTED;
  uint32_t index, sub;
  const void* const table = __qorGetBrngBaseOffset(generator, &index, &sub);
  return __qorIsBrngValid(table, static_cast<int32_t>(index), static_cast<int32_t>(sub));
}

// Hands a kernel's stream to the caller, or deletes it.
orvik_status hand_out(orvik_stream** s, OrvikStream stream, orvik_status status) {
  Handle* handle = nullptr;
  if (status >= 0) {
    handle = new_handle(Kind::kStream, stream);
    if (handle == nullptr) status = ORVIK_ERROR_NO_MEMORY;
  }
  if (handle == nullptr && stream != nullptr) __qorDeleteStream(&stream);
  *s = reinterpret_cast<orvik_stream*>(handle);
  return status;
}

orvik_status make(orvik_stream** s, int32_t generator, int32_t n, const uint32_t* seeds) {
  const KeepErrno keep;
  OrvikStream stream = nullptr;
  const orvik_status status = __qorNewStreamEx(&stream, generator, n, seeds);
  return hand_out(s, stream, status);
}

}  // namespace
}  // namespace orvik::front

using namespace orvik::front;

extern "C" {

orvik_status orvik_stream_new(orvik_stream** s, int32_t generator, uint64_t seed) {
  if (s == nullptr) return ORVIK_ERROR_NULL_POINTER;
  *s = nullptr;
  if (!cpu_serves()) return ORVIK_ERROR_CPU;
  if (const orvik_status status = check_generator(generator); status != ORVIK_SUCCESS) return status;
  const bool sobol = generator == ORVIK_SOBOL, points = sobol || generator == ORVIK_NIEDERREITER;
  if (points && (seed < 1 || seed > (sobol ? kMostSobol : kMostNiederreiter))) return ORVIK_ERROR_BAD_PARAMETER;
  const uint32_t words[] = {static_cast<uint32_t>(seed), static_cast<uint32_t>(seed >> 32)};
  return make(s, generator, points ? 1 : 2, words);
}

orvik_status orvik_stream_new_seeds(orvik_stream** s, int32_t generator, int32_t n, const uint32_t* seeds) {
  if (s == nullptr) return ORVIK_ERROR_NULL_POINTER;
  *s = nullptr;
  if (!cpu_serves()) return ORVIK_ERROR_CPU;
  if (const orvik_status status = check_generator(generator); status != ORVIK_SUCCESS) return status;
  if (n < 0) return ORVIK_ERROR_BAD_LENGTH;
  if (n > 0 && seeds == nullptr) return ORVIK_ERROR_NULL_POINTER;
  const uint32_t none = 0;
  return make(s, generator, n, n > 0 ? seeds : &none);
}

orvik_status orvik_stream_copy(orvik_stream** copy, const orvik_stream* s) {
  if (copy == nullptr) return ORVIK_ERROR_NULL_POINTER;
  const OrvikStream source = stream_of(s);
  *copy = nullptr;
  if (source == nullptr) return ORVIK_ERROR_BAD_STREAM;
  OrvikStream made = nullptr;
  const orvik_status status = __qorCopyStream(&made, source);
  return hand_out(copy, made, status);
}

void orvik_stream_delete(orvik_stream* s) {
  OrvikStream stream = stream_of(s);
  if (stream == nullptr) return;
  free_handle(reinterpret_cast<Handle*>(s));
  __qorDeleteStream(&stream);
}

orvik_status orvik_stream_save(const orvik_stream* s, void* memory, int64_t* size) {
  const OrvikStream stream = stream_of(s);
  if (stream == nullptr) return ORVIK_ERROR_BAD_STREAM;
  const int32_t body = __qorGetStreamSize(stream);
  if (body < 0) return body;
  return save_image(kMagic, static_cast<uint64_t>(body), memory, size,
                    [&](char* behind) { return __qorSaveStreamM(stream, behind); });
}

orvik_status orvik_stream_load(orvik_stream** s, const void* memory, int64_t size) {
  if (s == nullptr) return ORVIK_ERROR_NULL_POINTER;
  *s = nullptr;
  if (!cpu_serves()) return ORVIK_ERROR_CPU;
  if (memory == nullptr) return ORVIK_ERROR_NULL_POINTER;
  if (size < 0) return ORVIK_ERROR_BAD_LENGTH;
  uint64_t body = 0;
  const char* const image = read_image(kMagic, memory, size, &body);
  if (image == nullptr) return ORVIK_ERROR_BAD_IMAGE;
  OrvikStream stream = nullptr;
  const int32_t loaded = __qorLoadStreamM(&stream, image);
  if (loaded == ORVIK_QOR_IMAGE_BAD_FORMAT ||
      (loaded <= ORVIK_QOR_FILE_CLOSE && loaded >= ORVIK_QOR_FILE_BAD_VERSION)) {
    return ORVIK_ERROR_BAD_IMAGE;
  }
  const bool usable = loaded != 0 || check_generator(__qorGetStreamStateBrng(stream)) == ORVIK_SUCCESS;
  return hand_out(s, stream, usable ? loaded : ORVIK_ERROR_BAD_IMAGE);
}

orvik_status orvik_stream_skip(orvik_stream* s, uint64_t count) {
  const OrvikStream stream = stream_of(s);
  return stream == nullptr ? ORVIK_ERROR_BAD_STREAM : __qorSkipAheadStream(stream, count);
}

orvik_status orvik_stream_skip_long(orvik_stream* s, int32_t n, const uint64_t* count) {
  const OrvikStream stream = stream_of(s);
  if (stream == nullptr) return ORVIK_ERROR_BAD_STREAM;
  if (n < 0) return ORVIK_ERROR_BAD_LENGTH;
  if (n == 0) return ORVIK_SUCCESS;
  if (count == nullptr) return ORVIK_ERROR_NULL_POINTER;
  return __qorSkipAheadStreamEx(stream, n, count);
}

orvik_status orvik_stream_leapfrog(orvik_stream* s, int32_t k, int32_t nstreams) {
  const OrvikStream stream = stream_of(s);
  if (stream == nullptr) return ORVIK_ERROR_BAD_STREAM;
  if (nstreams < 1 || k < 0 || k >= nstreams) return ORVIK_ERROR_BAD_PARAMETER;
  return __qorLeapfrogStream(stream, k, nstreams);
}

int32_t orvik_stream_generator(const orvik_stream* s) {
  const OrvikStream stream = stream_of(s);
  return stream == nullptr ? ORVIK_ERROR_BAD_STREAM : __qorGetStreamStateBrng(stream);
}

const char* orvik_generator_name(int32_t generator) {
  if (check_generator(generator) != ORVIK_SUCCESS) return nullptr;
  switch (generator & ~(kFamilyStep - 1)) {
#define NAME(name)   \
  case ORVIK_##name: \
    return #name
    NAME(MCG31M1);
    NAME(R250);
    NAME(MRG32K3A);
    NAME(MCG59);
    NAME(WH);
    NAME(SOBOL);
    NAME(NIEDERREITER);
    NAME(MT19937);
    NAME(MT2203);
    NAME(SFMT19937);
    NAME(TRNG);
    NAME(ARS5);
    NAME(PHILOX4X32X10);
#undef NAME
    default:
      return nullptr;  // one that the program registered
  }
}

}  // extern "C"
