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

// Whether a chunk of `size` bytes fits what stands under `key` (an unknown key fits).
bool fits_shared(const uint64_t* key, uint32_t size);

int32_t shared_count();

}  // namespace orvik::qor
