// Hooks of generators and side blocks on streams that come out of an image. The list of generators names them.
#pragma once

#include <stdint.h>

#include "orvik/qor.h"

namespace orvik::qor {

// 0, or the status of the load. Makes the state such that every call on the stream is safe and follows one sequence.
using RestoreHook = int32_t (*)(OrvikStream stream);

inline int32_t restore_nothing(OrvikStream) { return ORVIK_QOR_OK; }

#define ORVIK_BRNG(constant, functions, name, members, record, seeds, zero, bytes, bits, leap, skip, skip_long, hook) \
  int32_t restore_##hook(OrvikStream stream);
#define ORVIK_CHUNK(id, hook) int32_t restore_##hook(OrvikStream stream);
#include "qor/stream/brngs.def"

// The generator's hook; nothing for registered ones.
RestoreHook restore_hook(int32_t brng);
// The hook of a side block's id.
RestoreHook chunk_restore_hook(uint32_t id);

}  // namespace orvik::qor
