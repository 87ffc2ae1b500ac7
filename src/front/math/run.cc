// One call of a vector function: checks, then the kernel on the caller's thread or on blocks over several.
#include "front/math/shapes.h"

#include <bit>
#include <climits>
#include <cstring>
#include <new>

#include "front/math/extents.h"
#include "front/modes.h"
#include "front/pool.h"
#include "front/processor.h"
#include "orvik/serv.h"

namespace orvik::front {

constinit thread_local Collector* collector = nullptr;

int32_t collect(ZymErrorContext* context) {
  Collector& c = *collector;
  const int64_t place = c.count++;
  if (c.least == 0 || context->code < c.least) c.least = context->code;
  if (place < c.capacity) {
    orvik_report& report = c.reports[place];
    report = {c.base + context->index, context->code, {context->arg1, 0}, {0, 0}, {context->result1, 0}};
    if (c.complex) report.a[1] = context->arg1Imag, report.r[1] = context->result1Imag;
    if (c.second_argument) report.b[0] = context->arg2;
    if (c.second_argument && c.complex) report.b[1] = context->arg2Imag;
    if (c.second_result) report.r[1] = context->result2;
  }
  return 1;
}

namespace {

// Kernels count on 32 bits. A multiple of every block and cache line.
constexpr int64_t kMostElements = int64_t{1} << 30;

// The cost 1 of a dispatch table is about a fifth of a nanosecond: the float exponential of lower accuracy has 1.046 in
// registers of 256 bits. (The table has the costs of the kernels in use.)
constexpr int64_t kCostOfNanosecond = 5 * 64;  // in 64ths
// Below this a second thread does not pay; each is worth that much work.
constexpr int64_t kAloneNanoseconds = 20000, kNanosecondsOfThread = 15000;
constexpr int64_t kSurelyShort = 16;               // whatever the cost: no element takes a microsecond
constexpr int64_t kSurelyLong = int64_t{1} << 24;  // the same; below it products fit in 64 bits
constexpr int32_t kBlocksOfThread = 16;            // so that one that comes late, or is held up, keeps nobody waiting
constexpr int32_t kMostBlocks = kMostThreads;

// A cost in 64ths, from the bits of the float: arithmetic in floating point would raise flags that are the caller's.
int64_t cost_in_64ths(float cost) {
  const auto bits = std::bit_cast<uint32_t>(cost);
  const int32_t exponent = static_cast<int32_t>(bits >> 23 & 0xFF) - 127;
  const int64_t mantissa = (bits & 0x7FFFFF) | 0x800000;
  const int32_t shift = 17 - exponent;
  return shift >= 24 ? 1 : shift >= 0 ? mantissa >> shift : mantissa << (-shift < 12 ? -shift : 12);
}

// About how long n elements take one thread, at most some hours.
int64_t nanoseconds_of(int64_t n, float cost) {
  constexpr __int128 kLongest = int64_t{1} << 44;
  const __int128 time = static_cast<__int128>(n) * cost_in_64ths(cost) / kCostOfNanosecond;
  return static_cast<int64_t>(time < kLongest ? time : kLongest);
}

// Kernels that memory alone limits write large results past the caches; a block must be large for that, too.
constexpr int64_t kPastCaches = int64_t{8} << 20;  // bytes
constexpr int64_t kRounding = 4096;                // bytes that the ends of blocks are rounded by
constexpr int64_t kCheapByte = 10;                 // cost of a byte of results in 64ths, where memory limits

int64_t bytes_past_caches(const Row& row) {
  const int64_t read = row.input_bytes * (row.second_array ? 2 : 1);
  const int64_t kept = read <= row.result_bytes ? orvik_serv_kept_result_bytes() : 0;
  return (kept < kPastCaches ? kPastCaches : kept) + kRounding;
}

int32_t whole_streams(const Row& row, const Operands& o, int64_t n, int level, int32_t blocks) {
  if (blocks <= 1 || o.strided || n > kMostElements) return blocks;
  const int64_t most = n * row.result_bytes / bytes_past_caches(row);
  if (most == 0 || cost_in_64ths(row.costs[level]) >= kCheapByte * row.result_bytes) return blocks;
  return most < blocks ? static_cast<int32_t>(most) : blocks;
}

bool fits_kernel(int64_t step) { return step >= INT32_MIN && step <= INT32_MAX; }

bool all_fit(const Operands& o) {
  return fits_kernel(o.a.step) && fits_kernel(o.b.step) && fits_kernel(o.r1.step) && fits_kernel(o.r2.step);
}

void run_block(const Row& row, const Operands& o, int level, int64_t first, int64_t n, Collector* c) {
  if (!o.strided || all_fit(o)) {
    void* const kernel = o.strided ? row.strided[level] : row.unit[level];
    while (n > 0) {
      const int64_t part = n < kMostElements ? n : kMostElements;
      c->base = first;
      row.invoke(kernel, o, o.strided, first, static_cast<int32_t>(part));
      first += part;
      n -= part;
    }
    return;
  }
  for (; n > 0; ++first, --n) {  // increments of many gigabytes: there cannot be many
    c->base = first;
    row.invoke(row.unit[level], o, false, first, 1);
  }
}

// Whether a result may lie where the array `x` lies.
bool same_array(const Result& r, const void* x, int64_t x_step, bool same_type) {
  return same_type && r.start == x && r.step == x_step;
}

// Arrays of unit stride: the same in fewer steps, since most calls are of this kind and many are short.
constexpr int64_t kMostOfUnitStride = int64_t{1} << 40;

orvik_status check_unit_arrays(const Row& row, const Operands& o, int64_t n) {
  const uint64_t in = static_cast<uint64_t>(n * row.input_bytes), out = static_cast<uint64_t>(n * row.result_bytes);
  const auto at = [](const void* x) { return reinterpret_cast<uint64_t>(x); };
  const auto meets = [&](const Result& r, const void* x, uint64_t bytes) {
    return at(x) < at(r.start) + out && at(r.start) < at(x) + bytes;
  };
  const auto clash = [&](const Result& r, const Input& x) {
    return meets(r, x.start, in) && !(r.start == x.start && row.same_type);
  };
  const auto wraps = [&](const void* x, uint64_t bytes) { return at(x) + bytes < bytes; };
  if (wraps(o.a.start, in) || wraps(o.r1.start, out)) return ORVIK_ERROR_BAD_LENGTH;
  if (clash(o.r1, o.a)) return ORVIK_ERROR_OVERLAP;
  if (row.second_array) {
    if (wraps(o.b.start, in)) return ORVIK_ERROR_BAD_LENGTH;
    if (clash(o.r1, o.b)) return ORVIK_ERROR_OVERLAP;
  }
  if (row.second_result) {
    if (wraps(o.r2.start, out)) return ORVIK_ERROR_BAD_LENGTH;
    if (clash(o.r2, o.a) || meets(o.r2, o.r1.start, out) || (row.second_array && clash(o.r2, o.b))) {
      return ORVIK_ERROR_OVERLAP;
    }
  }
  return ORVIK_SUCCESS;
}

orvik_status check_arrays(const Row& row, const Operands& o, int64_t n) {
  const bool has_b = row.second_array;
  if (o.a.start == nullptr || o.r1.start == nullptr || (has_b && o.b.start == nullptr) ||
      (row.second_result && o.r2.start == nullptr)) {
    return ORVIK_ERROR_NULL_POINTER;
  }
  if (!o.strided && n <= kMostOfUnitStride) return check_unit_arrays(row, o, n);
  Extent a, b{}, r1, r2{};
  if (!find_extent(o.a.start, o.a.step, row.input_bytes, n, &a) ||
      !find_extent(o.r1.start, o.r1.step, row.result_bytes, n, &r1) ||
      (has_b && !find_extent(o.b.start, o.b.step, row.input_bytes, n, &b)) ||
      (row.second_result && !find_extent(o.r2.start, o.r2.step, row.result_bytes, n, &r2))) {
    return ORVIK_ERROR_BAD_LENGTH;
  }
  if (n > 1 && (o.r1.step == 0 || (row.second_result && o.r2.step == 0))) return ORVIK_ERROR_OVERLAP;
  const auto clash = [&](const Result& r, const Extent& at) {
    return (at.meets(a) && !same_array(r, o.a.start, o.a.step, row.same_type)) ||
           (has_b && at.meets(b) && !same_array(r, o.b.start, o.b.step, row.same_type));
  };
  if (clash(o.r1, r1)) return ORVIK_ERROR_OVERLAP;
  if (row.second_result && (clash(o.r2, r2) || r1.meets(r2))) return ORVIK_ERROR_OVERLAP;
  return ORVIK_SUCCESS;
}

// A part of a call for one thread at a time.
struct alignas(64) Block {
  int64_t first, count;
  uint32_t flags;
  Collector found;
};

// Cuts n elements into at most `wanted` blocks that end where a cache line of the first result ends; returns how many.
// The flags of a block are those of its elements, so that a cut changes none.
int32_t cut(const Row& row, const Operands& o, int64_t n, int32_t wanted, Block* blocks) {
  const int64_t line = 64 / row.result_bytes;
  int64_t lead = 0;  // elements before the first whole line
  if (o.r1.step == 1) {
    const auto beyond = static_cast<int64_t>(reinterpret_cast<uint64_t>(o.r1.start) % 64);
    if (beyond % row.result_bytes == 0) lead = (64 - beyond) % 64 / row.result_bytes;
  }
  if (lead > n) lead = n;
  const int64_t lines = (n - lead) / line;
  if (lines < wanted) wanted = static_cast<int32_t>(lines);
  if (wanted < 1) wanted = 1;
  int32_t made = 0;
  int64_t first = 0;
  for (int32_t k = 1; k <= wanted; ++k) {
    const int64_t end = k == wanted ? n : lead + static_cast<int64_t>(static_cast<__int128>(lines) * k / wanted) * line;
    if (end == first) continue;
    new (&blocks[made++]) Block{first, end - first, 0, {}};
    first = end;
  }
  return made;
}

// Room for the reports of all blocks but the first, which writes to the caller's array. Null where there is none.
orvik_report* make_room(Block* blocks, int32_t count, int64_t capacity) {
  uint64_t total = 0;
  for (int32_t k = 1; k < count; ++k) {
    blocks[k].found.capacity = capacity < blocks[k].count ? capacity : blocks[k].count;
    total += static_cast<uint64_t>(blocks[k].found.capacity);
  }
  auto* const room = static_cast<orvik_report*>(orvik_serv_allocate(total * sizeof(orvik_report), 128));
  orvik_report* next = room;
  for (int32_t k = 1; room != nullptr && k < count; ++k) {
    blocks[k].found.reports = next;
    next += blocks[k].found.capacity;
  }
  return room;
}

// Puts what the blocks found into the caller's order.
void gather(const Block* blocks, int32_t count, Collector* whole) {
  for (int32_t k = 0; k < count; ++k) {
    const Collector& part = blocks[k].found;
    int64_t kept = part.count < part.capacity ? part.count : part.capacity;
    if (kept > whole->capacity - whole->count) kept = whole->capacity - whole->count;
    if (k > 0 && kept > 0)
      std::memcpy(whole->reports + whole->count, part.reports, size_t(kept) * sizeof(orvik_report));
    whole->count += part.count;
    if (part.least != 0 && (whole->least == 0 || part.least < whole->least)) whole->least = part.least;
  }
}

// False where memory for reports is missing, with nothing done.
bool run_blocks(const Row& row, const Operands& o, int level, int64_t n, int32_t threads, int32_t wanted,
                Collector* whole) {
  alignas(Block) unsigned char storage[sizeof(Block) * kMostBlocks];  // filled as far as it is used
  Block* const blocks = reinterpret_cast<Block*>(storage);
  const int32_t count = cut(row, o, n, wanted, blocks);
  for (int32_t k = 0; k < count; ++k) {
    Collector& c = blocks[k].found = *whole;
    if (k > 0) c.reports = nullptr, c.capacity = 0;
  }
  orvik_report* room = nullptr;
  if (row.reports && whole->capacity > 0 && count > 1) {
    room = make_room(blocks, count, whole->capacity);
    if (room == nullptr) return false;
  }
  const int saved_errno = errno;
  const uint32_t before = read_control();
  for_each_item(count, threads, [&](int32_t k) {
    Block& block = blocks[k];
    const KernelState state(&block.found, row.reports);
    const uint32_t own = read_control();
    write_control(kDefaultControl);
    run_block(row, o, level, block.first, block.count, &block.found);
    block.flags = read_control() & kFlags;
    write_control(own);
  });
  uint32_t flags = 0;
  for (int32_t k = 0; k < count; ++k) flags |= blocks[k].flags;
  write_control(before | flags);
  gather(blocks, count, whole);
  orvik_serv_deallocate(room);
  errno = saved_errno;
  return true;
}

}  // namespace

orvik_status run(const Row& row, const Operands& o, int64_t n, orvik_math_options* options) {
  if (!cpu_serves()) return ORVIK_ERROR_CPU;
  int level = 1;
  int32_t threads = 0;
  Collector found;
  if (options != nullptr) {
    static constexpr int kLevels[] = {1, 0, 2};  // HA, LA, EP in a table
    if (options->accuracy < ORVIK_HA || options->accuracy > ORVIK_EP) return ORVIK_ERROR_BAD_ACCURACY;
    level = kLevels[options->accuracy];
    threads = options->threads;
    if (threads < 0) return ORVIK_ERROR_BAD_PARAMETER;
    if (options->report_capacity < 0) return ORVIK_ERROR_BAD_LENGTH;
    found.reports = options->reports;
    found.capacity = options->reports != nullptr ? options->report_capacity : 0;
  }
  if (n < 0) return ORVIK_ERROR_BAD_LENGTH;
  if (n > 0) {
    if (const orvik_status status = check_arrays(row, o, n); status != ORVIK_SUCCESS) return status;
    found.complex = row.complex;
    found.second_argument = row.second_argument;
    found.second_result = row.second_result;
    int32_t blocks = 1;
    if (threads != 1 && n > kSurelyShort &&
        (n >= kSurelyLong || n * cost_in_64ths(row.costs[level]) >= kAloneNanoseconds * kCostOfNanosecond)) {
      const int64_t work = nanoseconds_of(n, row.costs[level]);
      const int64_t limit = thread_limit(), worth = work / kNanosecondsOfThread;
      if (threads == 0) threads = static_cast<int32_t>(worth < limit ? worth : limit);
      const int64_t most = work / kAloneNanoseconds, wanted = int64_t{kBlocksOfThread} * threads;
      blocks = most < 1 ? 1 : static_cast<int32_t>(most < wanted ? most : wanted);
    }
    if (blocks < threads) blocks = threads;
    blocks = whole_streams(row, o, n, level, blocks);
    if (threads > kMostThreads) threads = kMostThreads;
    if (blocks > kMostBlocks) blocks = kMostBlocks;
    if (threads <= 1 || !run_blocks(row, o, level, n, threads, blocks, &found)) {
      const KernelState state(&found, row.reports);
      if (!o.strided && n <= kMostElements) {
        row.invoke(row.unit[level], o, false, 0, static_cast<int32_t>(n));
      } else {
        run_block(row, o, level, 0, n, &found);
      }
    }
  }
  if (options != nullptr) options->report_count = found.count;
  return found.least;
}

}  // namespace orvik::front
