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

// Its data is the caller's to set, after which it goes to the front.
ChunkNode* make_node(uint32_t id, const uint64_t* key, uint32_t size) {
  auto* node = static_cast<ChunkNode*>(orvik_serv_allocate(sizeof(ChunkNode), kAlignment));
  if (!node) return nullptr;
  *node = {id, static_cast<int32_t>(size), nullptr, nullptr, {}};
  if (key) {
    node->key[0] = key[0];
    node->key[1] = key[1];
  }
  return node;
}
void push(OrvikStream stream, ChunkNode* node) {
  node->next = header(stream)->chunks;
  header(stream)->chunks = node;
}

int32_t copy_node(OrvikStream destination, const ChunkNode& from) {
  const uint32_t size = static_cast<uint32_t>(from.size);
  ChunkNode* const node = make_node(from.id, from.key, size);
  if (!node) return ORVIK_QOR_NO_MEMORY;
  if (!refer_to_block(node->key, &node->data)) {
    void* const data = allocate_data(size);
    if (!data) {
      orvik_serv_deallocate(node);
      return ORVIK_QOR_NO_MEMORY;
    }
    orvik_serv_memcpy_s(data, size, from.data, size);
    node->data = share_block(node->key, data, size);
    if (node->data != data) orvik_serv_deallocate(data);  // another thread was first
  }
  push(destination, node);
  return ORVIK_QOR_OK;
}

}  // namespace

namespace orvik::qor {

void* find_chunk(OrvikStream stream, uint32_t id, uint64_t size) {
  for (const ChunkNode* node = header(stream)->chunks; node; node = node->next)
    if (node->id == id) return static_cast<uint32_t>(node->size) < size ? nullptr : node->data;
  return nullptr;
}

void remove_chunks(OrvikStream stream, uint32_t id) {
  for (ChunkNode** link = &header(stream)->chunks; *link;) {
    ChunkNode* const node = *link;
    if (node->id != id) {
      link = &node->next;
      continue;
    }
    *link = node->next;
    release(node);
  }
}

int32_t add_loaded_chunk(OrvikStream stream, uint32_t id, const uint64_t* key, void* data, uint32_t size) {
  ChunkNode* const node = make_node(id, keys_count(id) ? key : nullptr, size);
  if (!node) return ORVIK_QOR_NO_MEMORY;
  node->data = share_loaded_block(node->key, data, size);
  if (node->data != data) orvik_serv_deallocate(data);
  push(stream, node);
  return ORVIK_QOR_OK;
}

}  // namespace orvik::qor

extern "C" {

int32_t __qorAddChunk(OrvikStream stream, int32_t id, const uint64_t* key, void* data, uint32_t size) {
  ChunkNode* const node = make_node(static_cast<uint32_t>(id), key, size);
  if (!node) return ORVIK_QOR_NO_MEMORY;
  node->data = share_block(node->key, data, size);
  push(stream, node);
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

// The list afterwards begins at the last node that stays: survivors before it leave the list and are lost. So it is
// required; code of the library does not use it on streams that may hold other chunks.
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
  for (const ChunkNode* node = header(source)->chunks; node; node = node->next)
    if (const int32_t status = copy_node(destination, *node); status < 0) {
      __qorDeleteChunks(destination);
      return status;
    }
  return ORVIK_QOR_OK;
}

}  // extern "C"
