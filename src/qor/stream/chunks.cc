// Side blocks of streams. A new node goes to the front; look-ups take the first match.
#include "orvik/serv.h"
#include "qor/stream/record.h"
#include "qor/stream/shared_table.h"

using namespace orvik::qor;

namespace {

void release(ChunkNode* node) {
  if (!unshare_block(node->key)) orvik_serv_deallocate(node->data);
  orvik_serv_deallocate(node);
}

}  // namespace

extern "C" {

int32_t __qorAddChunk(OrvikStream stream, int32_t id, const uint64_t* key, void* data, uint32_t size) {
  auto* node = static_cast<ChunkNode*>(orvik_serv_allocate(sizeof(ChunkNode), kAlignment));
  if (!node) return ORVIK_QOR_NO_MEMORY;
  StreamHeader* const head = header(stream);
  *node = {static_cast<uint32_t>(id), static_cast<int32_t>(size), nullptr, head->chunks, {}};
  if (key) {
    node->key[0] = key[0];
    node->key[1] = key[1];
  }
  node->data = share_block(node->key, data, size);
  head->chunks = node;
  return ORVIK_QOR_OK;
}

void* __qorSearchChunk(OrvikStream stream, uint32_t id) {
  for (const ChunkNode* node = header(stream)->chunks; node; node = node->next)
    if (node->id == id) return node->data;
  return nullptr;
}

int32_t __qorGetNumChunks(OrvikStream stream) {
  int32_t count = 0;
  for (const ChunkNode* node = header(stream)->chunks; node; node = node->next) ++count;
  return count;
}

// The list afterwards begins at the last node that stays: survivors before it leave the list. Callers rely on there
// being at most one node of an id and no other survivor they would miss.
int32_t __qorDeleteChunksById(OrvikStream stream, uint32_t id) {
  ChunkNode* survivor = nullptr;
  for (ChunkNode* node = header(stream)->chunks; node;) {
    ChunkNode* const next = node->next;
    if (node->id == id) {
      if (survivor) survivor->next = next;
      release(node);
    } else {
      survivor = node;
    }
    node = next;
  }
  header(stream)->chunks = survivor;
  return ORVIK_QOR_OK;
}

int32_t __qorDeleteChunks(OrvikStream stream) {
  for (ChunkNode* node = header(stream)->chunks; node;) {
    ChunkNode* const next = node->next;
    release(node);
    node = next;
  }
  header(stream)->chunks = nullptr;
  return ORVIK_QOR_OK;
}

int32_t __qorCopyChunks(OrvikStream destination, OrvikStream source) {
  for (const ChunkNode* node = header(source)->chunks; node; node = node->next) {
    const uint32_t size = static_cast<uint32_t>(node->size);
    void* data = node->data;
    const bool shared = is_shared(node->key);
    if (!shared) {
      data = allocate_data(size);
      if (!data) {
        __qorDeleteChunks(destination);
        return ORVIK_QOR_NO_MEMORY;
      }
      orvik_serv_memcpy_s(data, size, node->data, size);
    }
    const int32_t status = __qorAddChunk(destination, static_cast<int32_t>(node->id), node->key, data, size);
    if (status < 0) {
      if (!shared) orvik_serv_deallocate(data);
      __qorDeleteChunks(destination);
      return status;
    }
  }
  return ORVIK_QOR_OK;
}

}  // extern "C"
