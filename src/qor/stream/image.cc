// Streams written to files and memory blocks and read back. One format serves both.
#include "qor/stream/image.h"

#include <stdio.h>
#include <string.h>
#include <sys/stat.h>

#include "orvik/serv.h"
#include "qor/stream/record.h"
#include "qor/stream/registry.h"
#include "qor/stream/restore.h"

using namespace orvik::qor;

namespace {

// ---- where images come from and go to ------------------------------------------------------------------------------

class FileReader {
 public:
  static constexpr int32_t kBadFormat = ORVIK_QOR_FILE_BAD_FORMAT, kBadVersion = ORVIK_QOR_FILE_BAD_VERSION;

  explicit FileReader(FILE* file) : file_(file) {}
  bool read(void* to, uint64_t size) { return size == 0 || fread(to, size, 1, file_) == 1; }
  // False when a regular file ends before `size` more bytes: a few bad bytes must not ask for gigabytes.
  bool holds(uint64_t size) {
    struct stat info;
    const long place = ftell(file_);
    if (place < 0 || fstat(fileno(file_), &info) != 0 || !S_ISREG(info.st_mode)) return true;
    return static_cast<uint64_t>(info.st_size) >= static_cast<uint64_t>(place) + size;
  }

 private:
  FILE* file_;
};

class MemoryReader {
 public:
  static constexpr int32_t kBadFormat = ORVIK_QOR_IMAGE_BAD_FORMAT, kBadVersion = ORVIK_QOR_IMAGE_BAD_FORMAT;

  explicit MemoryReader(const void* memory) : cursor_(static_cast<const uint8_t*>(memory)) {}
  bool read(void* to, uint64_t size) {
    if (size != 0) memcpy(to, cursor_, size);
    cursor_ += size;
    return true;
  }
  bool holds(uint64_t) { return true; }

 private:
  const uint8_t* cursor_;
};

class FileWriter {
 public:
  explicit FileWriter(FILE* file) : file_(file) {}
  bool write(const void* from, uint64_t size) { return size == 0 || fwrite(from, size, 1, file_) == 1; }

 private:
  FILE* file_;
};

class MemoryWriter {
 public:
  explicit MemoryWriter(void* memory) : cursor_(static_cast<uint8_t*>(memory)) {}
  bool write(const void* from, uint64_t size) {
    if (size != 0) memcpy(cursor_, from, size);
    cursor_ += size;
    return true;
  }

 private:
  uint8_t* cursor_;
};

// A file name that ends in a NUL, copied only when the caller's does not.
class FileName {
 public:
  FileName(const char* name, int32_t length) : name_(name) {
    if (length < 0) return;
    const uint64_t size = static_cast<uint64_t>(length);
    name_ = copy_ = static_cast<char*>(orvik_serv_allocate(size + 1, kAlignment));
    if (!copy_) return;
    orvik_serv_memcpy_s(copy_, size, name, size);
    copy_[size] = '\0';
  }
  ~FileName() { orvik_serv_deallocate(copy_); }
  FileName(const FileName&) = delete;
  FileName& operator=(const FileName&) = delete;
  const char* get() const { return name_; }

 private:
  char* copy_ = nullptr;
  const char* name_;
};

// ---- save ----------------------------------------------------------------------------------------------------------

template <class Writer>
int32_t save(OrvikStream stream, Writer writer) {
  RegBrngRow row;
  const int32_t brng = header(stream)->brng;
  if (const int32_t status = __qorGetBrngProperties(brng, &row); status < 0) return status;
  ImageHeader head = {};
  head.version = kImageVersion;
  head.magic = kImageMagic;
  head.header_size = sizeof head;
  head.body_size = static_cast<uint32_t>(row.StreamStateSize - kHeaderSize);
  head.chunk_count = static_cast<uint16_t>(__qorGetNumChunks(stream));
  head.brng = static_cast<uint32_t>(brng);
  if (!writer.write(&head, sizeof head) || !writer.write(state_bytes(stream), state_size(row)))
    return ORVIK_QOR_FILE_WRITE;
  bool written = true;
  for (const ChunkNode* node = header(stream)->chunks; node; node = node->next) {
    const uint32_t size = static_cast<uint32_t>(node->size);
    written = written && writer.write(&node->id, sizeof node->id) && writer.write(node->key, sizeof node->key) &&
              writer.write(&size, sizeof size) && writer.write(node->data, size);
  }
  return written ? ORVIK_QOR_OK : ORVIK_QOR_FILE_WRITE;
}

// ---- load ----------------------------------------------------------------------------------------------------------

template <class Reader>
bool read_header(Reader& reader, ImageHeader& head) {
  if (!reader.read(&head, 8)) return false;
  if (head.version == kImageVersion) return reader.read(reinterpret_cast<uint8_t*>(&head) + 8, sizeof head - 8);
  OldImageTail tail = {};
  if (!reader.read(&tail, sizeof tail)) return false;
  head.header_size = sizeof head;
  head.body_size = tail.body_size;
  head.chunk_count = tail.chunk_count;
  head.brng = tail.brng;
  return true;
}

// The magic is accepted at the very start as well.
template <class Reader>
int32_t check_header(const ImageHeader& head) {
  uint32_t first;
  memcpy(&first, &head, sizeof first);
  if ((head.magic & 0xFFFFFF) != kImageMagic && (first & 0xFFFFFF) != kImageMagic) return Reader::kBadFormat;
  if (head.version >= 3 && (head.magic & 0xFF) > 2) return Reader::kBadVersion;
  const BrngPlace place = find_brng(static_cast<int32_t>(head.brng));
  if (place.check() < 0) return Reader::kBadFormat;
  if (head.body_size != static_cast<uint32_t>(place.row().StreamStateSize - kHeaderSize)) return Reader::kBadFormat;
  return head.header_size >= sizeof head ? ORVIK_QOR_OK : Reader::kBadFormat;
}

template <class Reader>
int32_t load_chunk(Reader& reader, OrvikStream stream, uint8_t version) {
  uint32_t id = 0, size = 0;
  uint64_t key[2] = {0, 0};
  if (version > 2) return ORVIK_QOR_FILE_READ;
  if (!reader.read(&id, sizeof id) || (version >= 1 && !reader.read(key, sizeof key)) ||
      !reader.read(&size, sizeof size) || !reader.holds(size))
    return ORVIK_QOR_FILE_READ;
  void* const data = allocate_data(size);
  if (!data) return ORVIK_QOR_NO_MEMORY;
  int32_t status = ORVIK_QOR_FILE_READ;
  if (reader.read(data, size)) status = add_loaded_chunk(stream, id, key, data, size);
  if (status < 0) {
    orvik_serv_deallocate(data);
    return status;
  }
  return chunk_restore_hook(id)(stream);
}

template <class Reader>
int32_t load(OrvikStream* stream, Reader reader) {
  ImageHeader head = {};
  if (!read_header(reader, head)) return ORVIK_QOR_FILE_READ;
  if (const int32_t status = check_header<Reader>(head); status < 0) return status;
  const BrngPlace place = find_brng(static_cast<int32_t>(head.brng));
  int32_t status = __qorAllocateStream(stream, place.table, static_cast<int32_t>(head.brng), place.index, place.sub);
  if (status < 0) return status;
  if (!reader.read(state_bytes(*stream), state_size(place.row()))) return ORVIK_QOR_FILE_READ;
  for (uint32_t i = 0; i < head.chunk_count; ++i)
    if (status = load_chunk(reader, *stream, head.version); status < 0) return status;
  return restore_hook(static_cast<int32_t>(head.brng))(*stream);
}

int32_t finish(OrvikStream* stream, int32_t status) {
  if (status < 0 && *stream) __qorDeleteStream(stream);
  return status;
}

}  // namespace

extern "C" {

int32_t __qorSaveStreamF(OrvikStream stream, const char* name, int32_t length) {
  const FileName file_name(name, length);
  if (!file_name.get()) return ORVIK_QOR_NO_MEMORY;
  RegBrngRow row;
  if (const int32_t status = __qorGetBrngProperties(header(stream)->brng, &row); status < 0) return status;
  FILE* const file = fopen(file_name.get(), "wb");
  if (!file) return ORVIK_QOR_FILE_OPEN;
  const int32_t status = save(stream, FileWriter(file));
  return fclose(file) == 0 ? status : ORVIK_QOR_FILE_CLOSE;
}

int32_t __qorLoadStreamF(OrvikStream* stream, const char* name, int32_t length) {
  *stream = nullptr;
  const FileName file_name(name, length);
  if (!file_name.get()) return ORVIK_QOR_NO_MEMORY;
  FILE* const file = fopen(file_name.get(), "rb");
  if (!file) return ORVIK_QOR_FILE_OPEN;
  int32_t status = load(stream, FileReader(file));
  if (fclose(file) != 0) status = ORVIK_QOR_FILE_CLOSE;
  return finish(stream, status);
}

int32_t __qorSaveStreamM(OrvikStream stream, void* memory) {
  save(stream, MemoryWriter(memory));
  return ORVIK_QOR_OK;
}

int32_t __qorLoadStreamM(OrvikStream* stream, const void* memory) {
  *stream = nullptr;
  return finish(stream, load(stream, MemoryReader(memory)));
}

}  // extern "C"
