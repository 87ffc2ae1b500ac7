// The process-wide table of shared read-only blocks.
#pragma once

#include <stdint.h>

#include "orvik/qor.h"

namespace orvik::qor {

constexpr int32_t kSharedEntries = 128;
constexpr int32_t kChunkEntries = 127;  // chunks leave the last one to direct calls

// Binds a chunk's block to `key`. Known: raises the count and returns the shared block. Unknown and room: adds `data`
// and returns it. No room: clears the key and returns `data`.
void* share_block(uint64_t* key, void* data, uint32_t size);

// Gives one reference back; false when the key is unknown, so that the block is the caller's alone.
bool unshare_block(const uint64_t* key);

bool is_shared(const uint64_t* key);

// Takes a reference on the block of `key`; false when the key is unknown.
bool refer_to_block(const uint64_t* key, void** data);

// share_block() for a block that an image brought: it binds to a block that is known to have as many bytes, and stays
// private, its key cleared, where the block of that key is smaller or of unknown size.
void* share_loaded_block(uint64_t* key, void* data, uint32_t size);

int32_t shared_count();

}  // namespace orvik::qor
