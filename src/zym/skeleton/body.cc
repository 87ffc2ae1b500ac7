#include "zym/skeleton/body.h"

#include <cstring>

#include "lanes/memory.h"
#include "zym/frame/report.h"
#include "zym/frame/thread_state.h"
#include "zym/skeleton/control.h"

namespace orvik::zym {
namespace {

constexpr int kMaxElement = 16;
struct alignas(64) Block {  // elements side by side
  char bytes[kMaxBlock * kMaxElement];
};

// Elements of `size` bytes, `step` bytes apart, to a row of them and back. Vectors on the way in, since a vector load
// could not be served from single stores that are still on their way to the cache.
template <class V>
void gather_elements(const char* from, int64_t step, int count, char* to) {
  using E = Element<V>;
  int i = 0;
  const auto* p = reinterpret_cast<const E*>(from);
  if (step % static_cast<int64_t>(sizeof(E)) == 0) {
    const int64_t items = step / static_cast<int64_t>(sizeof(E));
    for (; i + kWidth<V> <= count; i += kWidth<V>) {
      store(reinterpret_cast<E*>(to) + i, load_strided<V>(p + i * items, items));
    }
  }
  for (; i < count; ++i) std::memcpy(to + i * sizeof(E), from + i * step, sizeof(E));
}

void gather_elements(const char* from, int64_t step, int size, int count, char* to) {
  if (size == 4) return gather_elements<F32>(from, step, count, to);
  if (size == 8) return gather_elements<F64>(from, step, count, to);
  for (int i = 0; i < count; ++i) std::memcpy(to + i * 16, from + i * step, 16);
}

template <int Size>
void scatter_elements(const char* from, int count, char* to, int64_t step) {
  for (int i = 0; i < count; ++i) std::memcpy(to + i * step, from + i * Size, Size);
}
void scatter_elements(const char* from, int size, int count, char* to, int64_t step) {
  if (size == 4) return scatter_elements<4>(from, count, to, step);
  if (size == 8) return scatter_elements<8>(from, count, to, step);
  scatter_elements<16>(from, count, to, step);
}

const void* saved_input(const Call& call, int j, Block* blocks) {
  return j == 1 && call.body.scalar ? static_cast<const void*>(call.operands.in[1]) : blocks[j].bytes;
}

// A block is read whole before any of it is stored.
void strided_block(const Call& call, int64_t i, int count) {
  const Body& body = call.body;
  const Operands& o = call.operands;
  Block in[2], out[2];
  for (int j = 0; j < 2 && j < body.inputs; ++j) {
    if (j == 1 && body.scalar) continue;
    gather_elements(static_cast<const char*>(call.input(j, i)), o.in_step[j], body.in_bytes[j], count, in[j].bytes);
  }
  const void* a = saved_input(call, 0, in);
  const void* b = saved_input(call, 1, in);
  const auto bits = static_cast<uint32_t>(body.run(a, b, out[0].bytes, out[1].bytes, -count, call.params) >> 32);
  if (bits != 0) [[unlikely]]
    body.redo(call, i, a, b, out[0].bytes, out[1].bytes, count, bits);
  for (int j = 0; j < 2 && j < body.outputs; ++j) {
    scatter_elements(out[j].bytes, body.out_bytes[j], count, static_cast<char*>(call.output(j, i)), o.out_step[j]);
  }
}

// Whether `count` elements from i on may be read at once and then stored, as if one by one: no result lies where a
// later element is read.
bool independent(const Call& call, int64_t i, int64_t count) {
  const Operands& o = call.operands;
  const auto range = [&](const void* first, int64_t step, int bytes, intptr_t& low, intptr_t& high) {
    const auto start = reinterpret_cast<intptr_t>(first);
    const intptr_t last = start + (count - 1) * step;
    low = start < last ? start : last;
    high = (start < last ? last : start) + bytes;
  };
  for (int k = 0; k < call.body.outputs; ++k) {
    intptr_t out_low, out_high;
    range(call.output(k, i), o.out_step[k], call.body.out_bytes[k], out_low, out_high);
    for (int j = 0; j < call.body.inputs; ++j) {
      if (call.input(j, i) == call.output(k, i) && o.in_step[j] == o.out_step[k] && o.in_step[j] != 0) continue;
      intptr_t in_low, in_high;
      range(call.input(j, i), o.in_step[j], call.body.in_bytes[j], in_low, in_high);
      if (in_low < out_high && out_low < in_high) return false;
    }
  }
  return true;
}

}  // namespace

void report_element(const Call& call, int32_t code, int64_t index, void* r1, void* r2) {
  if (call.body.name == nullptr || (current_mode() & kErrorField) == ZYM_ERRMODE_NOERR)
    return;  // may change on the way
  const Body& body = call.body;
  void* const results[2] = {r1, r2};
  for (int j = 0; j < 2 && j < body.outputs; ++j) {
    if (results[j] != call.output(j, index)) {
      std::memcpy(call.output(j, index), results[j], static_cast<size_t>(body.out_bytes[j]));
    }
  }
  const auto report = [&]<class E>(const E*) {
    const Operands& o = call.operands;
    const auto step = [](int64_t bytes) { return static_cast<int32_t>(bytes / static_cast<int64_t>(sizeof(E))); };
    const int b = body.inputs - 1, r = body.outputs - 1;
    report_strided(static_cast<const E*>(nullptr))(
        code, static_cast<int32_t>(index), reinterpret_cast<const E*>(o.in[0]), step(o.in_step[0]),
        reinterpret_cast<const E*>(o.in[b]), step(o.in_step[b]), reinterpret_cast<E*>(o.out[0]), step(o.out_step[0]),
        reinterpret_cast<E*>(o.out[r]), step(o.out_step[r]), body.name);
  };
  if (body.complex) {
    body.single ? report(static_cast<const ZymComplexFloat*>(nullptr))
                : report(static_cast<const ZymComplexDouble*>(nullptr));
  } else {
    body.single ? report(static_cast<const float*>(nullptr)) : report(static_cast<const double*>(nullptr));
  }
  for (int j = 0; j < 2 && j < body.outputs; ++j) {
    if (results[j] != call.output(j, index)) {
      std::memcpy(results[j], call.output(j, index), static_cast<size_t>(body.out_bytes[j]));
    }
  }
}

void run_special_block(const Call& call, int64_t i, int count) {
  const Body& body = call.body;
  Block in[2];
  for (int j = 0; j < 2 && j < body.inputs; ++j) {
    if (j == 1 && body.scalar) continue;
    const int bytes = count * body.in_bytes[j];
    if (bytes == kMaxBlock * 4) {
      std::memcpy(in[j].bytes, call.input(j, i), kMaxBlock * 4);
    } else {
      std::memcpy(in[j].bytes, call.input(j, i), static_cast<size_t>(bytes));
    }
  }
  const void* a = saved_input(call, 0, in);
  const void* b = saved_input(call, 1, in);
  void* r1 = call.output(0, i);
  void* r2 = body.outputs == 2 ? call.output(1, i) : nullptr;
  const auto bits = static_cast<uint32_t>(body.run(a, b, r1, r2, -count, call.params) >> 32);
  if (bits != 0) body.redo(call, i, a, b, r1, r2, count, bits);
}

void run_strided(const Body& body, int64_t n, const Operands& operands, const void* params) {
  const uint32_t mode = current_mode();
  const ControlRegisters registers(mode);
  const Call call{body, mode, operands, params};
  int64_t i = 0;
  for (; i + body.block <= n; i += body.block) strided_block(call, i, body.block);
  if (i >= n) return;
  // The rest goes one element a round; where none can meet another, they go together.
  if (independent(call, i, n - i)) {
    strided_block(call, i, static_cast<int>(n - i));
  } else {
    for (; i < n; ++i) strided_block(call, i, 1);
  }
}

void run_element_loop(const Body& body, int64_t n, const Operands& operands, const void* params) {
  const uint32_t mode = current_mode();
  const ControlRegisters registers(mode);
  const Call call{body, mode, operands, params};
  alignas(kMaxElement) char in[2][kMaxElement], out[2][kMaxElement];
  for (int64_t i = 0; i < n; ++i) {
    for (int j = 0; j < 2 && j < body.inputs; ++j) {
      std::memcpy(in[j], call.input(j, i), static_cast<size_t>(body.in_bytes[j]));
    }
    const int32_t code = body.element(in[0], in[1], out[0], out[1], params);
    if (code != 0) [[unlikely]]
      report_element(call, code, i, out[0], out[1]);
    for (int j = 0; j < 2 && j < body.outputs; ++j) {
      std::memcpy(call.output(j, i), out[j], static_cast<size_t>(body.out_bytes[j]));
    }
  }
}

}  // namespace orvik::zym
