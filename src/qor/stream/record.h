// The layouts of a stream record and of its side blocks.
#pragma once

#include <stddef.h>
#include <stdint.h>

#include "orvik/qor.h"
#include "serv/memory.h"

namespace orvik::qor {

struct ChunkNode {
  uint32_t id;
  int32_t size;  // bytes of data, read as unsigned
  void* data;
  ChunkNode* next;
  uint64_t key[2];  // both zero: private
};
static_assert(sizeof(ChunkNode) == 40);
static_assert(offsetof(ChunkNode, data) == offsetof(OrvikSharedHolder, Data));
static_assert(sizeof(OrvikSharedEntry) == 32);

// Every stream begins with this; the generator's state follows.
struct StreamHeader {
  int32_t brng;
  uint32_t live;
  ChunkNode* chunks;
};
constexpr int32_t kHeaderSize = sizeof(StreamHeader);
static_assert(kHeaderSize == 16);
static_assert(sizeof(RegBrngRow) == 56);

// Bytes behind a record: __qorCopyStreamState moves that much more than the state holds.
constexpr int32_t kSpareSize = kHeaderSize;

using serv::kAlignment;

// A chunk's data; a chunk of no bytes has a block as well.
inline void* allocate_data(uint64_t size) { return orvik_serv_allocate(size == 0 ? 1 : size, kAlignment); }

inline StreamHeader* header(OrvikStream stream) { return static_cast<StreamHeader*>(stream); }
inline uint8_t* state_bytes(OrvikStream stream) { return static_cast<uint8_t*>(stream) + kHeaderSize; }

// Bytes of a state, whose row counts the header. Registered rows may be smaller than a header.
inline uint64_t state_size(const RegBrngRow& row) {
  return row.StreamStateSize > kHeaderSize ? static_cast<uint64_t>(row.StreamStateSize - kHeaderSize) : 0;
}

// The data of the first chunk of that id if it has at least the bytes that its reader needs, else null.
void* find_chunk(OrvikStream stream, uint32_t id, uint64_t size);

// Releases the chunks of that id; the others stay as they are.
void remove_chunks(OrvikStream stream, uint32_t id);

// Of the library's own side blocks only Sobol's user table is shared; ids above these are the callers'.
constexpr uint32_t kSharedChunk = 9, kLastOwnChunk = 14;
constexpr bool keys_count(uint32_t id) { return id == kSharedChunk || id == 0 || id > kLastOwnChunk; }

// Hangs a block that an image brought on the stream and takes it over, whether it is bound to a shared one or not. -4:
// it stays the caller's.
int32_t add_loaded_chunk(OrvikStream stream, uint32_t id, const uint64_t* key, void* data, uint32_t size);

inline bool is_private(const uint64_t* key) { return key == nullptr || (key[0] == 0 && key[1] == 0); }

}  // namespace orvik::qor
