// What a distribution keeps with a stream between calls, in side blocks.
#pragma once

#include <cstdint>

#include "orvik/serv.h"
#include "qor/stream/record.h"

namespace orvik::qor {

// The side block of that id as a T, or null and its status. A block that is missing, or too small for a T, is made and
// filled by fill(T&).
template <class T, class Fill>
T* side_block(OrvikStream stream, int32_t id, int32_t* status, Fill fill) {
  if (void* const found = find_chunk(stream, static_cast<uint32_t>(id), sizeof(T))) return static_cast<T*>(found);
  remove_chunks(stream, static_cast<uint32_t>(id));
  T* const made = static_cast<T*>(orvik_serv_allocate(sizeof(T), kAlignment));
  *status = ORVIK_QOR_NO_MEMORY;
  if (!made) return nullptr;
  fill(*made);
  *status = __qorAddChunk(stream, id, nullptr, made, sizeof(T));
  if (*status >= 0) return made;
  orvik_serv_deallocate(made);
  return nullptr;
}

// Two uniforms of which one result has been delivered and the other has not. Empty: the first is below 0.
template <class T>
struct PendingPair {
  T first, second;
};

template <class T>
PendingPair<T>* pending_pair(OrvikStream stream, int32_t id, int32_t* status) {
  return side_block<PendingPair<T>>(stream, id, status, [](PendingPair<T>& pair) { pair = {-1, -1}; });
}

// The set-up of a distribution for its parameters `key`; build(Setup&, key) runs only when they are not those of the
// last call. The block keeps its place. Null and the status when memory is exhausted.
template <class Setup, class Build>
const Setup* cached(OrvikStream stream, int32_t id, const typename Setup::Key& key, int32_t* status, Build build) {
  bool fresh = false;
  const auto fill = [&](Setup& setup) {
    build(setup, key);
    setup.key = key;
    fresh = true;
  };
  Setup* const setup = side_block<Setup>(stream, id, status, fill);
  if (setup && !fresh && !(setup->key == key)) fill(*setup);
  return setup;
}

// After a load that brought a side block of that id: what an image says of a set-up is made anew from its parameters,
// if they are such that build(Setup&) may be called with them.
template <class Setup, class Build>
void rebuild(OrvikStream stream, int32_t id, Build build) {
  void* const found = find_chunk(stream, static_cast<uint32_t>(id), sizeof(Setup));
  if (!found) return;
  Setup& setup = *static_cast<Setup*>(found);
  const typename Setup::Key key = setup.key;
  if (key.is_sane()) {
    build(setup, key);
    setup.key = key;
  } else {
    setup.key = Setup::Key::never();
  }
}

}  // namespace orvik::qor
