#include "qor/stream/image.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <string>

#include "orvik/serv.h"
#include "qor/brng/mcg_lanes.h"
#include "qor/stream/cpu.h"
#include "qor/stream/record.h"
#include "qor/stream/shared_table.h"
#include "qor/support/models.h"
#include "qor/support/stream.h"
#include "serv/memory.h"

namespace {

using namespace orvik;
using orvik::testing::Generator;
using orvik::testing::Stream;

using Bytes = std::vector<uint8_t>;

Bytes save(const Stream& s) {
  Bytes image(static_cast<size_t>(__qorGetStreamSize(s.get())), 0xEE);
  EXPECT_EQ(__qorSaveStreamM(s.get(), image.data()), 0);
  return image;
}

template <class T>
void put(Bytes& image, size_t at, T value) {
  std::memcpy(image.data() + at, &value, sizeof value);
}
template <class T>
T get(const Bytes& image, size_t at) {
  T value;
  std::memcpy(&value, image.data() + at, sizeof value);
  return value;
}
template <class T>
void append(Bytes& image, T value) {
  image.resize(image.size() + sizeof value);
  put(image, image.size() - sizeof value, value);
}

std::string file_name(const char* tag) {
  return ::testing::TempDir() + "orvik_image_" + std::to_string(getpid()) + "_" + tag;
}

void write_file(const std::string& name, const Bytes& bytes) {
  FILE* f = std::fopen(name.c_str(), "wb");
  ASSERT_NE(f, nullptr);
  if (!bytes.empty()) std::fwrite(bytes.data(), 1, bytes.size(), f);
  std::fclose(f);
}
Bytes read_file(const std::string& name) {
  Bytes bytes(1 << 20);
  FILE* f = std::fopen(name.c_str(), "rb");
  bytes.resize(f ? std::fread(bytes.data(), 1, bytes.size(), f) : 0);
  if (f) std::fclose(f);
  return bytes;
}

// Both loaders on one image: the statuses, with the pointer null and nothing left behind after a failure.
struct Loaded {
  int32_t file, memory;
  bool operator==(const Loaded&) const = default;
};
void PrintTo(const Loaded& l, std::ostream* out) { *out << "file " << l.file << ", memory " << l.memory; }

Loaded load_both(const Bytes& image, Stream* from_file = nullptr, Stream* from_memory = nullptr) {
  const std::string name = file_name("both");
  write_file(name, image);
  const int64_t live = serv::live_allocations();
  Loaded status;
  int mark;
  Stream f, m;
  *f.out() = &mark;
  *m.out() = &mark;
  status.file = __qorLoadStreamF(f.out(), name.c_str(), -1);
  status.memory = __qorLoadStreamM(m.out(), image.data());
  unlink(name.c_str());
  if (status.file < 0) {
    EXPECT_EQ(f.get(), nullptr);
  }
  if (status.memory < 0) {
    EXPECT_EQ(m.get(), nullptr);
  }
  if (status.file < 0 && status.memory < 0) {
    EXPECT_EQ(serv::live_allocations(), live);
  }
  if (from_file) *from_file = std::move(f);
  if (from_memory) *from_memory = std::move(m);
  return status;
}

constexpr Loaded kFine = {0, 0}, kBad = {ORVIK_QOR_FILE_BAD_FORMAT, ORVIK_QOR_IMAGE_BAD_FORMAT},
                 kNew = {ORVIK_QOR_FILE_BAD_VERSION, ORVIK_QOR_IMAGE_BAD_FORMAT};

class ImageTest : public ::testing::TestWithParam<Generator> {};

TEST_P(ImageTest, RestoredStreamContinuesInAllForms) {
  const Stream s(GetParam().brng, {9, 8, 7});
  s.floats(77);
  const Bytes image = save(s);
  const std::string name = file_name(GetParam().name);
  ASSERT_EQ(__qorSaveStreamF(s.get(), name.c_str(), -1), 0);
  EXPECT_EQ(read_file(name), image);
  Stream f, m;
  ASSERT_EQ(__qorLoadStreamF(f.out(), name.c_str(), -1), 0);
  ASSERT_EQ(__qorLoadStreamM(m.out(), image.data()), 0);
  unlink(name.c_str());
  EXPECT_EQ(save(f), image);
  for (const Stream* restored : {&f, &m}) {
    const Stream original = s.copy();
    EXPECT_EQ(__qorGetStreamStateBrng(restored->get()), GetParam().brng);
    EXPECT_EQ(restored->outputs(100), original.outputs(100));
    EXPECT_EQ(restored->doubles(100), original.doubles(100));
    EXPECT_EQ(restored->floats(100), original.floats(100));
  }
}

TEST_P(ImageTest, HeaderHasTheFieldsOfVersionTwo) {
  const Stream s(GetParam().brng);
  const Bytes image = save(s);
  EXPECT_EQ(image[0], 2);
  EXPECT_EQ(std::memcmp(image.data() + 4, "RNG", 4), 0);
  EXPECT_EQ(get<uint16_t>(image, 8), 24);
  EXPECT_EQ(get<uint32_t>(image, 12), static_cast<uint32_t>(s.row().StreamStateSize - 16));
  EXPECT_EQ(get<uint16_t>(image, 16), __qorGetNumChunks(s.get()));
  EXPECT_EQ(get<int32_t>(image, 20), GetParam().brng);
  EXPECT_EQ(std::memcmp(image.data() + 24, s.state<uint8_t>(), static_cast<size_t>(s.row().StreamStateSize) - 16), 0);
}

TEST_P(ImageTest, ShorterImagesOfAFileAreRefused) {
  const Bytes image = save(Stream(GetParam().brng));
  const std::string name = file_name(GetParam().name);
  for (size_t size = 0; size < image.size(); size += size < 500 ? 1 : image.size() / 40 + 1) {
    write_file(name, Bytes(image.begin(), image.begin() + static_cast<ptrdiff_t>(size)));
    Stream s;
    const int64_t live = serv::live_allocations();
    ASSERT_EQ(__qorLoadStreamF(s.out(), name.c_str(), -1), ORVIK_QOR_FILE_READ) << size;
    ASSERT_EQ(s.get(), nullptr);
    ASSERT_EQ(serv::live_allocations(), live);
  }
  unlink(name.c_str());
}

TEST_P(ImageTest, FilesFlippedInAnyByteOrGrownLoadOrFailAndLeakNothing) {
  const Stream s(GetParam().brng, GetParam().seeds);
  s.floats(5);
  Bytes image = save(s);
  const std::string name = file_name(GetParam().name);
  const int64_t live = serv::live_allocations();
  const auto expect_harmless = [&] {
    write_file(name, image);
    Stream t;
    const int32_t status = __qorLoadStreamF(t.out(), name.c_str(), -1);
    ASSERT_EQ(status == 0, t.get() != nullptr);
    if (status != 0) return;
    RegBrngRow row;
    ASSERT_EQ(__qorGetBrngProperties(__qorGetStreamStateBrng(t.get()), &row), 0);
    std::vector<double> r(100);
    if (row.dBRng) {
      row.dBRng(t.get(), 45, r.data(), 0, 1);
      row.iBRng(t.get(), 45, r.data());
    }
    t.skip(1000);
    t.leapfrog(1, 3);
    const Stream copy = t.copy();
    if (row.sBRng) row.sBRng(copy.get(), 45, reinterpret_cast<float*>(r.data()), 0, 1);
  };
  for (size_t at = 0; at < image.size(); at += at < 300 ? 1 : image.size() / 60 + 1) {
    for (uint8_t flip : {0x01, 0x80, 0xFF}) {
      image[at] ^= flip;
      expect_harmless();
      image[at] ^= flip;
      ASSERT_EQ(serv::live_allocations(), live) << "byte " << at;
    }
  }
  image.insert(image.end(), 100, 0xA5);
  expect_harmless();
  EXPECT_EQ(serv::live_allocations(), live);
  unlink(name.c_str());
}

TEST_P(ImageTest, EveryFailedAllocationOfALoadLeaksNothing) {
  const Stream s(GetParam().brng);
  const Bytes image = save(s);
  const std::string name = file_name(GetParam().name);
  write_file(name, image);
  const int64_t live = serv::live_allocations();
  for (const bool from_file : {false, true})
    for (int64_t n = 1;; ++n) {
      Stream t;
      serv::fail_allocation_after(n);
      const int32_t status = from_file ? __qorLoadStreamF(t.out(), name.data(), static_cast<int32_t>(name.size()))
                                       : __qorLoadStreamM(t.out(), image.data());
      serv::fail_allocation_after(0);
      if (status == 0) {
        EXPECT_EQ(n, 2 + 2 * __qorGetNumChunks(s.get()) + from_file);
        break;
      }
      EXPECT_EQ(status, ORVIK_QOR_NO_MEMORY);
      EXPECT_EQ(t.get(), nullptr);
      EXPECT_EQ(serv::live_allocations(), live);
    }
  unlink(name.c_str());
}

INSTANTIATE_TEST_SUITE_P(Image, ImageTest, ::testing::ValuesIn(orvik::testing::seeded_generators()),
                         orvik::testing::name_of);

TEST(Image, NamesWithALengthNeedNoTerminator) {
  const Stream s(ORVIK_BRNG_MT19937);
  const std::string name = file_name("length"), longer = name + "trailing";
  const int64_t live = serv::live_allocations();
  ASSERT_EQ(__qorSaveStreamF(s.get(), longer.data(), static_cast<int32_t>(name.size())), 0);
  EXPECT_EQ(serv::live_allocations(), live);
  Stream t;
  EXPECT_EQ(__qorLoadStreamF(t.out(), name.c_str(), -1), 0);
  unlink(name.c_str());
  serv::fail_allocation_after(1);
  EXPECT_EQ(__qorSaveStreamF(s.get(), name.data(), static_cast<int32_t>(name.size())), ORVIK_QOR_NO_MEMORY);
  serv::fail_allocation_after(0);
  EXPECT_EQ(access(name.c_str(), F_OK), -1);
}

TEST(Image, FilesThatCannotBeOpened) {
  const Stream s(ORVIK_BRNG_MT19937);
  EXPECT_EQ(__qorSaveStreamF(s.get(), "/nonexistent/stream", -1), ORVIK_QOR_FILE_OPEN);
  Stream t;
  EXPECT_EQ(__qorLoadStreamF(t.out(), "/nonexistent/stream", -1), ORVIK_QOR_FILE_OPEN);
  EXPECT_EQ(t.get(), nullptr);
}

// A device without room: a short image waits in the buffer, so that closing fails; a long one fails to be written.
TEST(Image, FullDeviceIsReported) {
  if (access("/dev/full", W_OK) != 0) GTEST_SKIP() << "no full device";
  EXPECT_EQ(__qorSaveStreamF(Stream(ORVIK_BRNG_MCG59).get(), "/dev/full", -1), ORVIK_QOR_FILE_CLOSE);
  const Stream s(ORVIK_BRNG_MT19937);
  ASSERT_EQ(__qorAddChunk(s.get(), 5, nullptr, orvik_serv_allocate(1 << 20, 128), 1 << 20), 0);
  std::memset(__qorSearchChunk(s.get(), 5), 0, 1 << 20);
  EXPECT_EQ(__qorSaveStreamF(s.get(), "/dev/full", -1), ORVIK_QOR_FILE_WRITE);
}

TEST(Image, DirectoryCannotBeRead) {
  Stream t;
  EXPECT_EQ(__qorLoadStreamF(t.out(), "/", -1), ORVIK_QOR_FILE_READ);
}

TEST(Image, UnknownGeneratorIsNotSavedToAFile) {
  const Stream s(ORVIK_BRNG_MT19937);
  const std::string name = file_name("unknown");
  *static_cast<int32_t*>(s.get()) = 0x901788;
  EXPECT_EQ(__qorSaveStreamF(s.get(), name.c_str(), -1), ORVIK_QOR_BAD_BRNG);
  EXPECT_EQ(access(name.c_str(), F_OK), -1);
}

// ---- header faults -------------------------------------------------------------------------------------------------

TEST(Image, WrongMagicIsRefused) {
  Bytes image = save(Stream(ORVIK_BRNG_MT19937));
  image[5] = 'n';
  EXPECT_EQ(load_both(image), kBad);
}

TEST(Image, FourthByteOfTheMagicDoesNotCount) {
  Bytes image = save(Stream(ORVIK_BRNG_MT19937));
  image[7] = 0xFF;
  EXPECT_EQ(load_both(image), kFine);
}

TEST(Image, VersionThreeWithTheMagicInPlaceIsTooNew) {
  Bytes image = save(Stream(ORVIK_BRNG_MT19937));
  for (int version : {3, 4, 255}) {
    image[0] = static_cast<uint8_t>(version);
    EXPECT_EQ(load_both(image), kNew) << version;
  }
}

TEST(Image, GeneratorOrSizeThatDoesNotFitIsRefused) {
  const Bytes good = save(Stream(ORVIK_BRNG_MT19937));
  Bytes image = good;
  put(image, 20, 0x901788);
  EXPECT_EQ(load_both(image), kBad);
  image = good;
  put(image, 20, ORVIK_BRNG_PHILOX4X32X10);
  EXPECT_EQ(load_both(image), kBad);
  image = good;
  put(image, 12, 2503);
  EXPECT_EQ(load_both(image), kBad);
  image = good;
  put<uint16_t>(image, 8, 23);
  EXPECT_EQ(load_both(image), kBad);
  put<uint16_t>(image, 8, 999);  // larger is accepted, and the state still follows at 24
  EXPECT_EQ(load_both(image), kFine);
}

TEST(Image, BytesWithoutMeaningDoNotCount) {
  const Stream s(ORVIK_BRNG_MT19937);
  Bytes image = save(s);
  for (size_t at : {1, 2, 3, 10, 11, 18, 19}) image[at] = 0xA5;
  Stream f, m;
  ASSERT_EQ(load_both(image, &f, &m), kFine);
  EXPECT_EQ(f.words(10), s.copy().words(10));
  EXPECT_EQ(m.words(10), s.copy().words(10));
}

// ---- older forms ---------------------------------------------------------------------------------------------------

Bytes old_image(const Stream& s, uint8_t version) {
  const size_t body = static_cast<size_t>(s.row().StreamStateSize) - 16;
  Bytes image = {version, 0, 0, 0, 'R', 'N', 'G', 0};
  append<uint16_t>(image, 20);
  append(image, static_cast<uint16_t>(body));
  append(image, static_cast<uint16_t>(__qorGetNumChunks(s.get())));
  append<uint16_t>(image, 0);
  append(image, __qorGetStreamStateBrng(s.get()));
  image.insert(image.end(), s.state<uint8_t>(), s.state<uint8_t>() + body);
  for (const qor::ChunkNode* node = qor::header(s.get())->chunks; node; node = node->next) {
    append(image, node->id);
    if (version >= 1) {
      append(image, node->key[0]);
      append(image, node->key[1]);
    }
    append(image, node->size);
    const auto* data = static_cast<const uint8_t*>(node->data);
    image.insert(image.end(), data, data + node->size);
  }
  return image;
}

TEST(Image, OlderVersionsAreRead) {
  for (uint8_t version : {0, 1})
    for (const Generator& g : orvik::testing::seeded_generators()) {
      if (g.brng == ORVIK_BRNG_NIEDERREITER) continue;  // larger than the 16 bits of its size field
      const Stream s(g.brng, {6});
      s.floats(5);
      Stream f, m;
      ASSERT_EQ(load_both(old_image(s, version), &f, &m), kFine) << g.name;
      const std::vector<float> want = s.floats(100);
      EXPECT_EQ(f.floats(100), want) << g.name;
      EXPECT_EQ(m.floats(100), want) << g.name;
    }
}

TEST(Image, MagicAtTheStartWithASmallFifthByteIsReadAsTheShortHeader) {
  const Stream s(ORVIK_BRNG_MT19937);
  Bytes image = old_image(s, 'R');
  std::memcpy(image.data(), "RNG", 3);
  image[4] = 2;
  Stream f, m;
  ASSERT_EQ(load_both(image, &f, &m), kFine);
  EXPECT_EQ(f.words(10), m.words(10));
  image[4] = 3;
  EXPECT_EQ(load_both(image), kNew);
}

TEST(Image, ChunksOfAnUnknownVersionStopTheLoad) {
  const Stream s(ORVIK_BRNG_MCG59);
  Bytes image = old_image(s, 1);
  std::memcpy(image.data(), "RNG", 3);
  image[4] = 0;
  EXPECT_EQ(load_both(image), (Loaded{ORVIK_QOR_FILE_READ, ORVIK_QOR_FILE_READ}));
}

// ---- chunks --------------------------------------------------------------------------------------------------------

void add_chunk(const Stream& s, int32_t id, const uint64_t* key, const Bytes& bytes) {
  void* data = orvik_serv_allocate(bytes.size(), 128);
  if (!bytes.empty()) std::memcpy(data, bytes.data(), bytes.size());
  ASSERT_EQ(__qorAddChunk(s.get(), id, key, data, static_cast<uint32_t>(bytes.size())), 0);
}

TEST(Image, ChunkCountOfZeroHasNothingBehindTheState) {
  const Stream s(ORVIK_BRNG_MCG31M1);
  Bytes image = save(s);
  put<uint16_t>(image, 16, 0);
  image.resize(24 + 8);
  Stream f, m;
  ASSERT_EQ(load_both(image, &f, &m), kFine);
  EXPECT_EQ(__qorGetNumChunks(f.get()), 0);
  EXPECT_EQ(f.words(10), s.words(10));  // the integer form needs no side block
  double d;
  EXPECT_EQ(m.row().dBRng(m.get(), 1, &d, 0, 1), ORVIK_QOR_NO_MEMORY);
}

TEST(Image, PrivateChunksComeBackByValueInReverseOrder) {
  const Stream s(ORVIK_BRNG_MT19937);
  add_chunk(s, 3, nullptr, Bytes(10, 0x33));
  add_chunk(s, 4, nullptr, Bytes());
  add_chunk(s, 5, nullptr, Bytes(7, 0x55));
  const Bytes image = save(s);
  EXPECT_EQ(image.size(), 24u + 2504 + 34 + 24 + 31);
  EXPECT_EQ(get<uint32_t>(image, 24 + 2504), 5u);  // the head first
  Stream f, m;
  ASSERT_EQ(load_both(image, &f, &m), kFine);
  for (const Stream* r : {&f, &m}) {
    EXPECT_EQ(__qorGetNumChunks(r->get()), 3);
    EXPECT_EQ(qor::header(r->get())->chunks->id, 3u);
    EXPECT_EQ(std::memcmp(__qorSearchChunk(r->get(), 5), Bytes(7, 0x55).data(), 7), 0);
    EXPECT_EQ(std::memcmp(__qorSearchChunk(r->get(), 3), Bytes(10, 0x33).data(), 10), 0);
  }
}

TEST(Image, KnownKeysBindToTheProcessesBlock) {
  const uint64_t key[2] = {123, 456};
  const int64_t live = serv::live_allocations();
  {
    Stream s(ORVIK_BRNG_MT19937);
    add_chunk(s, 9, key, Bytes(32, 1));
    const void* shared = __qorSearchChunk(s.get(), 9);
    const Bytes image = save(s);
    Stream f, m;
    ASSERT_EQ(load_both(image, &f, &m), kFine);
    EXPECT_EQ(__qorSearchChunk(f.get(), 9), shared);
    EXPECT_EQ(__qorSearchChunk(m.get(), 9), shared);
    OrvikSharedEntry* entry = nullptr;
    ASSERT_EQ(__qorFindGlobRODataTableEntry(&entry, key), 0);
    EXPECT_EQ(entry->RefCount, 3u);
    f = Stream();
    m = Stream();
    s = Stream();
    EXPECT_EQ(__qorFindGlobRODataTableEntry(&entry, key), ORVIK_QOR_SHARED_NOT_FOUND);
    ASSERT_EQ(load_both(image, &f, &m), kFine);  // an unknown key makes a new entry
    ASSERT_EQ(__qorFindGlobRODataTableEntry(&entry, key), 0);
    EXPECT_EQ(entry->RefCount, 2u);
    EXPECT_EQ(std::memcmp(__qorSearchChunk(m.get(), 9), Bytes(32, 1).data(), 32), 0);
  }
  EXPECT_EQ(serv::live_allocations(), live);
}

TEST(Image, ChunkLargerThanTheBlockOfItsKeyStaysPrivate) {
  const uint64_t key[2] = {123, 456};
  const Stream s(ORVIK_BRNG_MT19937), t(ORVIK_BRNG_MT19937);
  add_chunk(t, 9, nullptr, Bytes(64, 2));
  Bytes image = save(t);
  put(image, 24 + 2504 + 4, key[0]);
  put(image, 24 + 2504 + 12, key[1]);
  add_chunk(s, 9, key, Bytes(32, 1));
  Stream f, m;
  ASSERT_EQ(load_both(image, &f, &m), kFine);
  EXPECT_EQ(std::memcmp(__qorSearchChunk(f.get(), 9), Bytes(64, 2).data(), 64), 0);
  EXPECT_EQ(save(f).size(), image.size());
}

TEST(Image, ChunkOfAnEmptyBlocksKeyStaysPrivate) {
  const uint64_t key[2] = {123, 456};
  const Stream s(ORVIK_BRNG_MT19937);
  add_chunk(s, 9, nullptr, Bytes(64, 2));
  add_chunk(s, 9, nullptr, Bytes());
  Bytes image = save(s);  // the empty chunk first
  for (const size_t chunk : {size_t{24 + 2504}, size_t{24 + 2504 + 24}}) {
    put(image, chunk + 4, key[0]);
    put(image, chunk + 12, key[1]);
  }
  Stream f, m;
  ASSERT_EQ(load_both(image, &f, &m), kFine);
  EXPECT_EQ(std::memcmp(__qorSearchChunk(f.get(), 9), Bytes(64, 2).data(), 64), 0);
  EXPECT_EQ(std::memcmp(__qorSearchChunk(m.get(), 9), Bytes(64, 2).data(), 64), 0);
}

TEST(Image, ClaimOfGigabytesInASmallFileIsARefusedRead) {
  const Stream s(ORVIK_BRNG_MCG59);
  Bytes image = save(s);
  put(image, 24 + 16 + 20, 0xFFFFFFF0u);
  const std::string name = file_name("claim");
  write_file(name, image);
  Stream f;
  EXPECT_EQ(__qorLoadStreamF(f.out(), name.c_str(), -1), ORVIK_QOR_FILE_READ);
  unlink(name.c_str());
}

class McgChunkTest : public ::testing::TestWithParam<int32_t> {
 protected:
  size_t chunk_data() const { return 24 + (GetParam() == ORVIK_BRNG_MCG59 ? 16 : 8) + 24; }
};

TEST_P(McgChunkTest, LanesAndPowersAreRecomputedFromTheFirstLaneAndTheMultiplier) {
  const Stream s(GetParam(), {55});
  ASSERT_EQ(s.leapfrog(1, 3), 0);
  const std::vector<double> want = s.copy().doubles(100);
  Bytes image = save(s);
  for (size_t i = chunk_data() + 40; i < chunk_data() + 352; ++i) image[i] ^= 0x5A;
  Stream f, m;
  ASSERT_EQ(load_both(image, &f, &m), kFine);
  EXPECT_EQ(f.doubles(100), want);
  EXPECT_EQ(m.doubles(100), want);
}

TEST_P(McgChunkTest, MultiplierZeroSelectsTheDefault) {
  const Stream s(GetParam(), {55});
  const std::vector<double> want = s.copy().doubles(100);
  Bytes image = save(s);
  if (GetParam() == ORVIK_BRNG_MCG59)
    put<uint64_t>(image, 32, 0);
  else
    put<uint32_t>(image, 28, 0);
  Stream f, m;
  ASSERT_EQ(load_both(image, &f, &m), kFine);
  EXPECT_EQ(f.doubles(100), want);
}

TEST_P(McgChunkTest, FirstWordThatNamesNoGeneratorLeavesTheBlockAlone) {
  const Stream s(GetParam(), {55});
  Bytes image = save(s);
  put<uint32_t>(image, chunk_data(), 2);
  for (size_t i = chunk_data() + 40; i < chunk_data() + 64; ++i) image[i] = 1;
  Stream f, m;
  ASSERT_EQ(load_both(image, &f, &m), kFine);
  const auto* lanes = static_cast<const qor::McgLanes*>(__qorSearchChunk(m.get(), qor::kMcgChunk));
  EXPECT_EQ(lanes->lane[1], 0x0101010101010101u);
}

TEST_P(McgChunkTest, BlockTooSmallToHoldLanesCountsAsMissing) {
  const Stream s(GetParam(), {55});
  Bytes image = save(s);
  put<uint32_t>(image, chunk_data() - 4, 351);
  image.pop_back();
  Stream f, m;
  ASSERT_EQ(load_both(image, &f, &m), kFine);
  double d;
  EXPECT_EQ(f.row().dBRng(f.get(), 1, &d, 0, 1), ORVIK_QOR_NO_MEMORY);
}

INSTANTIATE_TEST_SUITE_P(Image, McgChunkTest, ::testing::Values(ORVIK_BRNG_MCG31M1, ORVIK_BRNG_MCG59));

TEST(Image, Mcg31m1MembersAboveTheModulusGiveOneSequenceWhateverTheRequests) {
  const Stream s(ORVIK_BRNG_MCG31M1, {55});
  s.doubles(3);
  Bytes image = save(s);
  const size_t lanes = 24 + 8 + 24 + 32;
  for (uint32_t row : {0u, 1u, 7u})  // of the side block: its own, another generator's, none's
    for (const auto& [x, a, lane] : std::vector<std::array<uint64_t, 3>>{{0xFFFFFFFF, 1132489760, 0xFFFFFFFFFFFFFFFF},
                                                                         {0x80000000, 0xFFFFFFF0, 0x7FFFFFFFFFFFFFF1},
                                                                         {0x7FFFFFFF, 0x7FFFFFFF, 0x7FFFFFFF}}) {
      put(image, 24, static_cast<uint32_t>(x));
      put(image, 28, static_cast<uint32_t>(a));
      put(image, 24 + 8 + 24, row);
      for (size_t k = 0; k < 36; ++k) put(image, lanes + 8 * k, lane + k);
      Stream f, m;
      ASSERT_EQ(load_both(image, &f, &m), kFine);
      const Stream once = f.copy(), steps = f.copy();
      const std::vector<uint64_t> words = once.outputs(200);
      std::vector<uint64_t> single;
      for (int i = 0; i < 200; ++i) single.push_back(steps.outputs(1)[0]);
      EXPECT_EQ(single, words);
      for (uint64_t w : words) ASSERT_LT(w, 0x7FFFFFFFu);
      const Stream long_request = m.copy(), short_requests = m.copy();
      const std::vector<double> doubles = long_request.doubles(200);
      std::vector<double> one_by_one;
      for (int i = 0; i < 200; ++i) one_by_one.push_back(short_requests.doubles(1)[0]);
      EXPECT_EQ(one_by_one, doubles) << row;
      for (double d : doubles) ASSERT_TRUE(d >= 0 && d <= 1) << d;
      for (float v : m.copy().floats(200)) ASSERT_TRUE(v >= 0 && v <= 1) << v;
    }
}

TEST(Image, KeysOnTheLibrarysOwnSideBlocksAreCleared) {
  const uint64_t key[2] = {31, 41};
  for (uint32_t id = 1; id <= 14; ++id) {
    const Stream s(ORVIK_BRNG_MT19937);
    add_chunk(s, static_cast<int32_t>(id), key, Bytes(352, 5));
    const Bytes image = save(s);
    Stream f, m;
    ASSERT_EQ(load_both(image, &f, &m), kFine);
    const bool shared = id == 9;
    EXPECT_EQ(__qorSearchChunk(f.get(), id) == __qorSearchChunk(m.get(), id), shared) << id;
    EXPECT_EQ(qor::header(f.get())->chunks->key[0], shared ? 31u : 0u) << id;
  }
}

// Two images that name one key for their lane blocks: the streams must not share them.
TEST(Image, LaneBlocksAreNeverShared) {
  const Stream s(ORVIK_BRNG_MCG59, {55}), t(ORVIK_BRNG_MCG59, {77});
  Bytes first = save(s), second = save(t);
  for (Bytes* image : {&first, &second}) put<uint64_t>(*image, 24 + 16 + 4, 99);
  Stream a, b;
  ASSERT_EQ(__qorLoadStreamM(a.out(), first.data()), 0);
  ASSERT_EQ(__qorLoadStreamM(b.out(), second.data()), 0);
  a.doubles(100);
  EXPECT_EQ(b.doubles(100), t.doubles(100));
}

TEST(Image, BlockOfUnknownSizeFitsNoLoadedChunk) {
  const uint64_t key[2] = {123, 789};
  const Stream t(ORVIK_BRNG_MT19937);
  add_chunk(t, 9, nullptr, Bytes(1 << 16, 2));
  Bytes image = save(t);
  put(image, 24 + 2504 + 4, key[0]);
  put(image, 24 + 2504 + 12, key[1]);
  OrvikSharedEntry* entry = nullptr;
  void* const small = orvik_serv_allocate(16, 128);
  ASSERT_EQ(__qorCreateGlobRODataTableEntry(&entry, key, small), 0);
  {
    Stream f, m;
    ASSERT_EQ(load_both(image, &f, &m), kFine);
    EXPECT_NE(__qorSearchChunk(f.get(), 9), small);
    EXPECT_EQ(std::memcmp(__qorSearchChunk(m.get(), 9), Bytes(1 << 16, 2).data(), 1 << 16), 0);
    EXPECT_EQ(entry->RefCount, 1u);
  }
  __qorUnregisterGlobRODataReference(key);
}

TEST(Image, IdsWithoutFunctionsLoadAndRefuseEveryJump) {
  for (int32_t id : {279, 280, -1, -77}) {
    Bytes image(24);
    image[0] = 2;
    std::memcpy(image.data() + 4, "RNG", 3);
    put<uint16_t>(image, 8, 24);
    put<int32_t>(image, 12, -16);
    put(image, 20, id);
    Stream f, m;
    ASSERT_EQ(load_both(image, &f, &m), kFine) << id;
    EXPECT_EQ(f.skip(1), ORVIK_QOR_BAD_BRNG);
    EXPECT_EQ(f.skip_ex({1}), ORVIK_QOR_BAD_BRNG);
    EXPECT_EQ(f.leapfrog(0, 1), ORVIK_QOR_BAD_BRNG);
    EXPECT_EQ(save(f).size(), 24u);
    EXPECT_EQ(__qorGetStreamStateBrng(f.copy().get()), id);
  }
}

int32_t irefill(OrvikStream, int32_t*, uint32_t*, int32_t*, int32_t*, int32_t*) { return -1; }

TEST(Image, AbstractStreamsComeBackWithoutTheirAddresses) {
  const uint32_t buffer[4] = {1, 2, 3, 4};
  Stream s;
  ASSERT_EQ(__qoriNewAbstractStream(s.out(), 4, buffer, irefill), 0);
  Stream f, m;
  ASSERT_EQ(load_both(save(s), &f, &m), kFine);
  uint32_t word;
  EXPECT_EQ(__qoriBRngiAbstract(f.get(), 1, &word), ORVIK_QOR_NULL_POINTER);
  EXPECT_EQ(__qoriBRngiAbstract(m.get(), 1, &word), ORVIK_QOR_NULL_POINTER);
}

// The loader has no generator's name in it: what an image brings is made sound by the generator's own hook.
TEST(Image, StatesOutsideTheirRangesAreMadeSound) {
  for (const Generator& g : orvik::testing::seeded_generators()) {
    const Stream s(g.brng, g.seeds);
    Bytes image = save(s);
    const size_t state = static_cast<size_t>(s.row().StreamStateSize) - 16;
    for (uint8_t fill : {0x00, 0x7F, 0x80, 0xFF}) {
      std::memset(image.data() + 24, fill, state);
      Stream f, m;
      ASSERT_EQ(load_both(image, &f, &m), kFine) << g.name;
      // Whatever it is, requests of one number and of many are one sequence.
      const Stream once = f.copy(), steps = f.copy();
      std::vector<double> many(300), single(300);
      const int32_t status = once.row().dBRng(once.get(), 300, many.data(), 0, 1);
      for (size_t i = 0; i < 300; ++i) EXPECT_EQ(steps.row().dBRng(steps.get(), 1, &single[i], 0, 1), status);
      if (status == 0) {
        EXPECT_EQ(single, many) << g.name << " filled with " << int{fill};
      }
    }
  }
}

// ---- processor -----------------------------------------------------------------------------------------------------

TEST(Image, Ars5WithoutTheInstructionsIsRefused) {
  const Bytes image = save(Stream(ORVIK_BRNG_ARS5));
  qor::hidden_features.aes = true;
  EXPECT_EQ(load_both(image), (Loaded{ORVIK_QOR_NO_AES, ORVIK_QOR_NO_AES}));
  qor::hidden_features.aes = false;
  EXPECT_EQ(load_both(image), kFine);
}

TEST(Image, TrngWithoutTheInstructionIsRefused) {
  const Bytes image = save(Stream(ORVIK_BRNG_TRNG));
  qor::hidden_features.rdrand = true;
  EXPECT_EQ(load_both(image), (Loaded{ORVIK_QOR_NO_RDRAND, ORVIK_QOR_NO_RDRAND}));
  qor::hidden_features.rdrand = false;
}

}  // namespace
