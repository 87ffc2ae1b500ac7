#include "qor/stream/shared_table.h"

#include <atomic>

#include "orvik/serv.h"
#include "qor/stream/record.h"

namespace orvik::qor {
namespace {

OrvikSharedEntry entries[kSharedEntries];
int64_t sizes[kSharedEntries];  // bytes of a block, kUnknown where a direct call did not say
constexpr int64_t kUnknown = -1;
int32_t count = 0;
std::atomic<uint32_t> lock_word{0};

class Locked {
 public:
  Locked() {
    uint32_t open = 0;
    while (!lock_word.compare_exchange_weak(open, 1, std::memory_order_acquire)) {
      open = 0;
      __builtin_ia32_pause();
    }
  }
  ~Locked() { lock_word.store(0, std::memory_order_release); }
  Locked(const Locked&) = delete;
  Locked& operator=(const Locked&) = delete;
};

// Callers hold the lock.
int32_t find(const uint64_t* key) {
  if (is_private(key)) return -1;
  for (int32_t i = 0; i < count; ++i)
    if (entries[i].Key[0] == key[0] && entries[i].Key[1] == key[1]) return i;
  return -1;
}

int32_t append(const uint64_t* key, void* data, int64_t size) {
  entries[count] = {{key[0], key[1]}, 1, data};
  sizes[count] = size;
  return count++;
}

}  // namespace

namespace {

// `least`: bytes that a known block must be known to have.
void* share(uint64_t* key, void* data, uint32_t size, int64_t least) {
  if (is_private(key)) return data;
  const Locked locked;
  if (const int32_t i = find(key); i >= 0 && sizes[i] >= least) {
    ++entries[i].RefCount;
    return entries[i].Data;
  } else if (i >= 0 || count >= kChunkEntries) {
    key[0] = key[1] = 0;
  } else {
    append(key, data, size);
  }
  return data;
}

}  // namespace

void* share_block(uint64_t* key, void* data, uint32_t size) { return share(key, data, size, kUnknown); }
void* share_loaded_block(uint64_t* key, void* data, uint32_t size) { return share(key, data, size, int64_t{size}); }

bool refer_to_block(const uint64_t* key, void** data) {
  const Locked locked;
  const int32_t i = find(key);
  if (i < 0) return false;
  ++entries[i].RefCount;
  *data = entries[i].Data;
  return true;
}

bool unshare_block(const uint64_t* key) {
  const Locked locked;
  const int32_t i = find(key);
  if (i < 0) return false;
  if (--entries[i].RefCount == 0) {
    orvik_serv_deallocate(entries[i].Data);
    --count;
    entries[i] = entries[count];
    sizes[i] = sizes[count];
  }
  return true;
}

bool is_shared(const uint64_t* key) {
  const Locked locked;
  return find(key) >= 0;
}

int32_t shared_count() {
  const Locked locked;
  return count;
}

}  // namespace orvik::qor

using namespace orvik::qor;

extern "C" {

int32_t __qorFindGlobRODataTableEntry(OrvikSharedEntry** entry, const uint64_t* key) {
  const Locked locked;
  const int32_t i = find(key);
  if (i < 0) return ORVIK_QOR_SHARED_NOT_FOUND;
  *entry = &entries[i];
  return ORVIK_QOR_OK;
}

int32_t __qorCreateGlobRODataTableEntry(OrvikSharedEntry** entry, const uint64_t* key, void* data) {
  const Locked locked;
  if (count >= kSharedEntries) return ORVIK_QOR_SHARED_TABLE_FULL;
  *entry = &entries[append(key, data, kUnknown)];
  return ORVIK_QOR_OK;
}

void __qorRegisterGlobRODataReference(void* holder, const uint64_t* key) {
  const Locked locked;
  const int32_t i = find(key);
  if (i < 0) return;
  ++entries[i].RefCount;
  static_cast<OrvikSharedHolder*>(holder)->Data = entries[i].Data;
}

void __qorUnregisterGlobRODataReference(const uint64_t* key) { unshare_block(key); }

void __qorGenerateNewGlobalRODataTableEntryId(uint64_t* key, uint64_t tag) {
  // The counter makes keys of different processes differ, so that an image never binds to another table's block.
  key[1] = tag;
  do {
    key[0] = __builtin_ia32_rdtsc() * 0x9E3779B97F4A7C15;
  } while (is_private(key) || is_shared(key));
}

}  // extern "C"
