// Making, copying, measuring and deleting stream records.
#include <string.h>

#include "orvik/serv.h"
#include "qor/stream/record.h"
#include "qor/stream/registry.h"

using namespace orvik::qor;

namespace {

// Zeroed to the end, so that images hold no bytes of other blocks.
OrvikStream allocate_record(const RegBrngRow& row, int32_t brng) {
  const uint64_t size = static_cast<uint32_t>(row.StreamStateSize);
  auto* const block = static_cast<uint8_t*>(orvik_serv_allocate(size + kSpareSize, kAlignment));
  if (!block) return nullptr;
  memset(block, 0, size + kSpareSize);
  const StreamHeader head = {brng, 1, nullptr};
  memcpy(block, &head, sizeof head);
  return block;
}

// Some ids are valid although their rows are empty; streams of them come out of images.
int32_t init_stream(const RegBrngRow& row, uint32_t method, OrvikStream stream, int32_t n, const void* params) {
  return row.InitStream ? row.InitStream(method, stream, n, params) : ORVIK_QOR_BAD_BRNG;
}

bool is_abstract(int32_t brng) {
  return brng == ORVIK_BRNG_IABSTRACT || brng == ORVIK_BRNG_DABSTRACT || brng == ORVIK_BRNG_SABSTRACT;
}

// The argument block of an abstract generator's seeding: the pointers, as the constructors of all three types give
// them, and the count that goes with it.
int32_t new_abstract(OrvikStream* stream, int32_t brng, int32_t count, const void* const* block) {
  const BrngPlace place = find_brng(brng);
  if (const int32_t status = place.check(); status < 0) return status;
  *stream = allocate_record(place.row(), brng);
  if (!*stream) return ORVIK_QOR_NO_MEMORY;
  return place.row().InitStream(0, *stream, count, block);
}

template <class T, class Refill>
int32_t new_abstract_real(OrvikStream* stream, int32_t brng, int32_t n, const T* buffer, T a, T b, Refill refill) {
  if (n == 0 || !buffer || a >= b || !refill) return ORVIK_QOR_BAD_ABSTRACT_ARGUMENT;
  const void* const block[] = {&n, buffer, &a, &b, reinterpret_cast<const void*>(refill)};
  return new_abstract(stream, brng, 10, block);
}

}  // namespace

extern "C" {

int32_t __qorNewStreamEx(OrvikStream* stream, int32_t brng, int32_t n, const void* params) {
  if (is_abstract(brng)) return ORVIK_QOR_BAD_BRNG;
  const BrngPlace place = find_brng(brng);
  const int32_t status = __qorAllocateStream(stream, place.table, brng, place.index, place.sub);
  if (status < 0) return status;
  return init_stream(place.row(), 0, *stream, n, params);
}

int32_t __qorAllocateStream(OrvikStream* stream, const void* table, int32_t brng, int32_t index, int32_t sub) {
  const BrngPlace place = {static_cast<const RegBrngRow*>(table), index, sub};
  if (const int32_t status = place.check(); status < 0) return status;
  *stream = allocate_record(place.row(), brng);
  return *stream ? ORVIK_QOR_OK : ORVIK_QOR_NO_MEMORY;
}

int32_t __qoriNewAbstractStream(OrvikStream* stream, int32_t n, const uint32_t* ibuf, OrvikQorIRefill ibrng) {
  if (n == 0 || !ibuf || !ibrng) return ORVIK_QOR_BAD_ABSTRACT_ARGUMENT;
  const void* const block[] = {&n, ibuf, reinterpret_cast<const void*>(ibrng)};
  return new_abstract(stream, ORVIK_BRNG_IABSTRACT, 6, block);
}

int32_t __qordNewAbstractStream(OrvikStream* stream, int32_t n, const double* dbuf, double a, double b,
                                OrvikQorDRefill dbrng) {
  return new_abstract_real(stream, ORVIK_BRNG_DABSTRACT, n, dbuf, a, b, dbrng);
}

int32_t __qorsNewAbstractStream(OrvikStream* stream, int32_t n, const float* sbuf, float a, float b,
                                OrvikQorSRefill sbrng) {
  return new_abstract_real(stream, ORVIK_BRNG_SABSTRACT, n, sbuf, a, b, sbrng);
}

int32_t __qorDeleteStream(OrvikStream* stream) {
  __qorDeleteChunks(*stream);
  orvik_serv_deallocate(*stream);
  *stream = nullptr;
  return ORVIK_QOR_OK;
}

int32_t __qorCopyStream(OrvikStream* stream, OrvikStream source) {
  const BrngPlace place = find_brng(header(source)->brng);
  const int32_t status = __qorAllocateStream(stream, place.table, header(source)->brng, place.index, place.sub);
  if (status < 0) return status;
  const uint64_t size = static_cast<uint32_t>(place.row().StreamStateSize);
  orvik_serv_memcpy_s(*stream, size, source, size);
  header(*stream)->chunks = nullptr;
  return __qorCopyChunks(*stream, source);
}

// Moves the 16 bytes behind the state as well: a row's size counts the header, and records have that much to spare.
int32_t __qorCopyStreamState(OrvikStream destination, OrvikStream source) {
  if (destination == source) return ORVIK_QOR_OK;
  const uint64_t size = static_cast<uint32_t>(row_of(header(source)->brng).StreamStateSize);
  orvik_serv_memcpy_s(state_bytes(destination), size, state_bytes(source), size);
  __qorDeleteChunks(destination);
  return __qorCopyChunks(destination, source);
}

int32_t __qorGetStreamStateBrng(OrvikStream stream) { return header(stream)->brng; }

int32_t __qorGetStreamSize(OrvikStream stream) {
  uint64_t size = state_size(row_of(header(stream)->brng)) + 24;
  for (const ChunkNode* node = header(stream)->chunks; node; node = node->next)
    size += static_cast<uint64_t>(static_cast<uint32_t>(node->size)) + 24;
  return size <= INT32_MAX ? static_cast<int32_t>(size) : ORVIK_QOR_NO_MEMORY;
}

int32_t __qorLeapfrogStream(OrvikStream stream, int32_t k, int32_t nstreams) {
  if (nstreams < 0) return ORVIK_QOR_BAD_NSTREAMS;
  return init_stream(row_of(header(stream)->brng), 1, stream, nstreams, &k);
}

int32_t __qorSkipAheadStream(OrvikStream stream, uint64_t nskip) {
  return init_stream(row_of(header(stream)->brng), 2, stream, 2, &nskip);
}

int32_t __qorSkipAheadStreamEx(OrvikStream stream, int32_t n, const uint64_t* nskip) {
  return init_stream(row_of(header(stream)->brng), 3, stream, n, nskip);
}

}  // extern "C"
