#include "zym/skeleton/body.h"

#include <cstring>

#include "lanes/memory.h"
#include "zym/frame/report.h"
#include "zym/frame/thread_state.h"
#include "zym/skeleton/control.h"

namespace orvik::zym {
namespace {

constexpr int kMaxElement = 16;
struct alignas(64) Row {  // a block's elements side by side
  char bytes[kMaxBlock * kMaxElement];
};

// By whole vectors as they are read next: smaller stores would have to reach the cache before.
void copy_bytes(char* to, const void* from, int bytes) {
  constexpr int kVector = 32;
  const char* at = static_cast<const char*>(from);
  for (; bytes >= kVector; bytes -= kVector, at += kVector, to += kVector) {
    store(reinterpret_cast<float*>(to), load<F32>(reinterpret_cast<const float*>(at)));
  }
  std::memcpy(to, at, static_cast<size_t>(bytes));
}

template <int Size>
void copy_elements(const char* from, int64_t from_step, char* to, int64_t to_step, int count) {
  for (int i = 0; i < count; ++i) std::memcpy(to + i * to_step, from + i * from_step, Size);
}
void copy_elements(const char* from, int64_t from_step, char* to, int64_t to_step, int size, int count) {
  if (size == 4) return copy_elements<4>(from, from_step, to, to_step, count);
  if (size == 8) return copy_elements<8>(from, from_step, to, to_step, count);
  copy_elements<16>(from, from_step, to, to_step, count);
}

}  // namespace

bool independent(const Call& call, int64_t n) {
  const Operands& o = call.operands;
  const auto low = [&](const char* base, int64_t step) { return base + (step < 0 ? (n - 1) * step : 0); };
  const auto high = [&](const char* base, int64_t step, int bytes) { return base + (step > 0 ? (n - 1) * step : 0) + bytes; };
  for (int k = 0; k < 2 && k < call.body.outputs; ++k) {
    const char* out = o.out[k];
    const char* out_low = low(out, o.out_step[k]);
    const char* out_high = high(out, o.out_step[k], call.body.out_bytes[k]);
    for (int j = 0; j < 2 && j < call.body.inputs; ++j) {
      const char* in = o.in[j];
      if (in == out && o.in_step[j] == o.out_step[k] && o.in_step[j] != 0) continue;
      if (low(in, o.in_step[j]) < out_high && out_low < high(in, o.in_step[j], call.body.in_bytes[j])) {
        return false;
      }
    }
  }
  return true;
}

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
  Row in[2];  // saved: the arrays may be the same
  for (int j = 0; j < 2 && j < body.inputs; ++j) {
    if (j == 1 && body.scalar) continue;
    copy_bytes(in[j].bytes, call.input(j, i), count * body.in_bytes[j]);
  }
  const void* a = in[0].bytes;
  const void* b = body.scalar ? call.operands.in[1] : in[1].bytes;
  void* r1 = call.output(0, i);
  void* r2 = body.outputs == 2 ? call.output(1, i) : nullptr;
  const uint32_t bits = body.run(a, b, r1, r2, count, call.params);
  if (bits != 0) body.redo(call, i, a, b, r1, r2, count, bits);
}

void run_special_strided(const Call& call, int64_t i, int count) {
  const Body& body = call.body;
  const Operands& o = call.operands;
  Row in[2], out[2];
  for (int j = 0; j < 2 && j < body.inputs; ++j) {
    if (j == 1 && body.scalar) continue;
    copy_elements(o.in[j] + i * o.in_step[j], o.in_step[j], in[j].bytes, body.in_bytes[j], body.in_bytes[j], count);
  }
  const void* b = body.scalar ? o.in[1] : in[1].bytes;
  const uint32_t bits = body.run(in[0].bytes, b, out[0].bytes, out[1].bytes, count, call.params);
  if (bits != 0) body.redo(call, i, in[0].bytes, b, out[0].bytes, out[1].bytes, count, bits);
  for (int j = 0; j < 2 && j < body.outputs; ++j) {
    copy_elements(out[j].bytes, body.out_bytes[j], o.out[j] + i * o.out_step[j], o.out_step[j], body.out_bytes[j], count);
  }
}

void run_overlapping(const Call& call, int64_t n) {
  int64_t i = 0;
  for (; i + call.body.block <= n; i += call.body.block) run_special_strided(call, i, call.body.block);
  for (; i < n; ++i) run_special_strided(call, i, 1);
}

void run_element_loop(const Body& body, int64_t n, const Operands& operands, const void* params) {
  const uint32_t mode = current_mode();
  const ControlRegisters registers(mode, body.stray_underflow);
  body.elements({body, mode, operands, params}, n);
}

}  // namespace orvik::zym
