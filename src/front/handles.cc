#include "front/handles.h"

#include <pthread.h>

#include "orvik/serv.h"

namespace orvik::front {
namespace {

constexpr int kPlaces = 126;  // of a table: about three kilobytes

struct Table {
  Table* next;
  Handle places[kPlaces];
};

pthread_mutex_t lock = PTHREAD_MUTEX_INITIALIZER;
Table* tables = nullptr;
Handle *first_free = nullptr, *last_free = nullptr;
bool watching_forks = false;

void take_lock() { pthread_mutex_lock(&lock); }
void drop_lock() { pthread_mutex_unlock(&lock); }

void append(Handle* place) {
  *place = {Kind::kNone, nullptr, nullptr};
  if (last_free != nullptr) {
    last_free->next = place;
  } else {
    first_free = place;
  }
  last_free = place;
}

bool add_table() {
  if (!watching_forks && pthread_atfork(take_lock, drop_lock, drop_lock) != 0) return false;
  watching_forks = true;
  auto* const table = static_cast<Table*>(orvik_serv_allocate(sizeof(Table), 128));
  if (table == nullptr) return false;
  table->next = tables;
  tables = table;
  for (Handle& place : table->places) append(&place);
  return true;
}

[[gnu::destructor]] void release_tables() {
  while (tables != nullptr) {
    Table* const next = tables->next;
    orvik_serv_deallocate(tables);
    tables = next;
  }
  first_free = last_free = nullptr;
}

}  // namespace

Handle* new_handle(Kind kind, void* object) {
  take_lock();
  Handle* place = nullptr;
  if (first_free != nullptr || add_table()) {
    place = first_free;
    first_free = place->next;
    if (first_free == nullptr) last_free = nullptr;
    *place = {kind, object, nullptr};
  }
  drop_lock();
  return place;
}

void free_handle(Handle* handle) {
  take_lock();
  append(handle);
  drop_lock();
}

void* new_block(uint64_t size) { return orvik_serv_allocate(size, 128); }
void free_block(void* block) { orvik_serv_deallocate(block); }

}  // namespace orvik::front
