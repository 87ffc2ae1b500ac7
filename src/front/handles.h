// Handles: what a caller's pointer to a stream, a summary, a spline points to. They live in tables that are never
// released while the library is loaded, so that a pointer to a deleted object is recognised instead of followed. Places
// are used again in the order in which they were freed.
#pragma once

#include <cstdint>

namespace orvik::front {

enum class Kind : uint32_t {
  kNone,
  kStream,
  kSummary32,
  kSummary64,
  kStreamQuantiles32,
  kStreamQuantiles64,
  kSpline32,
  kSpline64
};

struct Handle {
  Kind kind;
  void* object;
  Handle* next;  // free places
};

// Null where memory is missing.
Handle* new_handle(Kind kind, void* object);
void free_handle(Handle* handle);

// The object of a caller's pointer, null if it is null, deleted or of another kind.
template <class Object>
Object* object_of(const void* pointer, Kind kind) {
  const auto* const handle = static_cast<const Handle*>(pointer);
  return handle != nullptr && handle->kind == kind ? static_cast<Object*>(handle->object) : nullptr;
}

// An object of a kind in its block, made and unmade with its handle.
void* new_block(uint64_t size);
void free_block(void* block);

}  // namespace orvik::front
