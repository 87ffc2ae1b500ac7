#include "zym/skeleton/body.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "lanes/control.h"
#include "lanes/memory.h"
#include "lanes/strided.h"
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
  constexpr int kVector = sizeof(F32);
  const char* at = static_cast<const char*>(from);
  for (; bytes >= kVector; bytes -= kVector, at += kVector, to += kVector) {
    store(reinterpret_cast<float*>(to), load<F32>(reinterpret_cast<const float*>(at)));
  }
  std::memcpy(to, at, static_cast<size_t>(bytes));
}

// Whether an array of results shares memory with one of inputs, but for being the same array.
inline bool meet(const char* in, int64_t in_step, int in_bytes, const char* out, int64_t out_step, int out_bytes,
                 int64_t n) {
  if (in == out && in_step == out_step && in_step != 0) return false;
  const auto i = reinterpret_cast<intptr_t>(in), o = reinterpret_cast<intptr_t>(out);
  const int64_t to_in = (n - 1) * in_step, to_out = (n - 1) * out_step;
  return std::min(i, i + to_in) < std::max(o, o + to_out) + out_bytes &&
         std::min(o, o + to_out) < std::max(i, i + to_in) + in_bytes;
}

bool side_by_side(const Body& body, const Operands& o) {
  if (o.in_step[0] != body.in_bytes[0] || o.out_step[0] != body.out_bytes[0]) return false;
  if (body.inputs == 2 && !body.scalar && o.in_step[1] != body.in_bytes[1]) return false;
  return body.outputs == 1 || o.out_step[1] == body.out_bytes[1];
}

bool is_row(int64_t step, int bytes) { return step == bytes || step == 0; }

struct alignas(64) Rows {
  char in[2][kRowBytes], out[2][kRowBytes];
};

void gather(const Body& body, const Operands& o, int64_t i, int count, Rows& rows) {
  gather_row(o.in[0] + i * o.in_step[0], o.in_step[0], rows.in[0], body.in_bytes[0], count);
  if (body.inputs == 2 && !body.scalar) {
    gather_row(o.in[1] + i * o.in_step[1], o.in_step[1], rows.in[1], body.in_bytes[1], count);
  }
}

// Results from the first that is not stored yet, but for those that have been written to their places.
void spread(const Body& body, const Operands& o, int64_t i, int64_t stored, int count, const char* const* rows) {
  for (int j = 0; j < body.outputs; ++j) {
    if (rows[j] == o.out[j] + i * o.out_step[j]) continue;
    spread_row(rows[j] + stored * body.out_bytes[j], o.out[j] + (i + stored) * o.out_step[j], o.out_step[j],
               body.out_bytes[j], static_cast<int>(count - stored));
  }
}

// Around element routines: errno leaves as it came, but for what reports set.
class ReportsErrno {
 public:
  explicit ReportsErrno(const Call& call) : call_(call) { call.error_number = errno; }
  ~ReportsErrno() { errno = call_.error_number; }
  ReportsErrno(const ReportsErrno&) = delete;
  ReportsErrno& operator=(const ReportsErrno&) = delete;

 private:
  const Call& call_;
};

// Special elements, with the stray flags of the lanes out of the way, those of earlier special elements apart.
void redo(const Call& call, int64_t i, const void* a, const void* b, void* r1, void* r2, int count, uint32_t bits) {
  const uint32_t stray = call.body.stray;
  if (stray != 0) clear_stray(stray & ~*call.kept);
  const ReportsErrno only(call);
  call.body.redo(call, i, a, b, r1, r2, count, bits);
  keep_stray(stray, call.kept);
}

}  // namespace

void report_element(const Call& call, int32_t code, int64_t index, void* r1, void* r2) {
  if (code == call.unheard) return;
  if (call.body.name == nullptr || (current_mode() & kErrorField) == ZYM_ERRMODE_NOERR)
    return;  // may change on the way
  if (reports_unheard()) {
    report_unheard(code, call.error_number);
    call.unheard = code;
    return;
  }
  const Body& body = call.body;
  if (call.piece != nullptr) {
    const char* const rows[2] = {call.operands.out[0], call.operands.out[1]};
    Piece& piece = *call.piece;
    spread(body, piece.operands, piece.first, piece.stored, static_cast<int>(index), rows);
    piece.stored = index;
    index += piece.first;
  }
  const Operands& o = call.piece != nullptr ? call.piece->operands : call.operands;
  void* const results[2] = {r1, r2};
  const auto seen = [&](int j) { return o.out[j] + index * o.out_step[j]; };
  for (int j = 0; j < body.outputs; ++j) {
    if (results[j] != seen(j)) std::memcpy(seen(j), results[j], static_cast<size_t>(body.out_bytes[j]));
  }
  errno = call.error_number;
  const auto report = [&]<class E>(const E*) {
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
  call.error_number = errno;
  for (int j = 0; j < body.outputs; ++j) {
    if (results[j] != seen(j)) std::memcpy(results[j], seen(j), static_cast<size_t>(body.out_bytes[j]));
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
  if (bits != 0) redo(call, i, a, b, r1, r2, count, bits);
}

namespace {

// One block at a time: read whole, results stored at its end. (So it sees arrays that meet as the caller has them.)
[[gnu::noinline]] void run_overlapping(const Body& body, int64_t n, const Operands& o, const void* params) {
  const uint32_t mode = current_mode();
  ControlRegisters<kSevereFlags | kUnderflowFlag> registers(mode);
  *registers.kept() = ~uint32_t{body.stray};
  const Call call{body, mode, o, params, registers.kept(), nullptr};
  Rows rows;
  const char* const out[2] = {rows.out[0], rows.out[1]};
  for (int64_t i = 0; i < n;) {
    const int count = n - i < body.block ? 1 : body.block;
    gather(body, o, i, count, rows);
    const void* b = body.scalar ? o.in[1] : rows.in[1];
    const uint32_t bits = body.run(rows.in[0], b, rows.out[0], rows.out[1], count, params);
    if (bits != 0) redo(call, i, rows.in[0], b, rows.out[0], rows.out[1], count, bits);
    spread(body, o, i, 0, count, out);
    i += count;
  }
}

[[gnu::always_inline]] inline bool arrays_apart(const Body& body, const Operands& o, int64_t n, int in_bytes,
                                                int out_bytes) {
  if (meet(o.in[0], o.in_step[0], in_bytes, o.out[0], o.out_step[0], out_bytes, n)) return false;
  if (body.inputs == 2 && meet(o.in[1], o.in_step[1], in_bytes, o.out[0], o.out_step[0], out_bytes, n)) return false;
  if (body.outputs == 1) return true;
  return !meet(o.in[0], o.in_step[0], in_bytes, o.out[1], o.out_step[1], out_bytes, n);
}

}  // namespace

bool apart(const Body& body, const Operands& o, int64_t n) {
  return arrays_apart(body, o, n, body.in_bytes[0], body.out_bytes[0]);
}

bool scattered(const Body& body, const Operands& o) {
  if (is_row(o.in_step[0], body.in_bytes[0]) || is_row(o.out_step[0], body.out_bytes[0])) return false;
  if (body.inputs == 2 && !body.scalar && is_row(o.in_step[1], body.in_bytes[1])) return false;
  return body.outputs == 1 || !is_row(o.out_step[1], body.out_bytes[1]);
}

int64_t run_to_aligned(const Call& call, int64_t n, int bytes) {
  const Body& body = call.body;
  const Operands& o = call.operands;
  const auto before = static_cast<int>(-reinterpret_cast<uintptr_t>(o.out[0]) % static_cast<uintptr_t>(bytes));
  if (before == 0 || before % body.out_bytes[0] != 0 || !apart(body, o, n)) return 0;
  const int count = before / body.out_bytes[0];
  if (body.redo != nullptr) {
    run_special_block(call, 0, count);
  } else {
    body.run(o.in[0], o.in[1], o.out[0], o.out[1], count, call.params);
  }
  return count;
}

void run_strided(const Body& body, int64_t n, const Operands& o, const void* params) {
  if (!apart(body, o, n)) return run_overlapping(body, n, o, params);
  if (side_by_side(body, o)) return body.unit(body, n, o.in[0], o.in[1], o.out[0], o.out[1], params, nullptr);
  // Only what does not lie side by side goes through rows, the fewer the longer; one element for all fills its row once.
  alignas(64) char memory[4 * kRowBytes];
  const int inputs = body.scalar ? 1 : body.inputs;
  int rows = 0;
  for (int j = 0; j < inputs; ++j) rows += o.in_step[j] != body.in_bytes[j];
  for (int j = 0; j < body.outputs; ++j) rows += o.out_step[j] != body.out_bytes[j];
  const int parts = 4 / rows;  // of kRowBytes in a row
  const int64_t piece_size = int64_t{parts} * body.piece;
  const char* in[2] = {nullptr, o.in[1]};
  char* out[2] = {nullptr, nullptr};
  for (int64_t i = 0; i < n; i += piece_size) {
    const int count = static_cast<int>(n - i < piece_size ? n - i : piece_size);
    char* row = memory;
    for (int j = 0; j < inputs; ++j) {
      const int64_t step = o.in_step[j];
      const char* const from = o.in[j] + i * step;
      in[j] = from;
      if (step == body.in_bytes[j]) continue;
      if (i == 0 || step != 0) gather_row(from, step, row, body.in_bytes[j], count);
      in[j] = row;
      row += parts * kRowBytes;
    }
    for (int j = 0; j < body.outputs; ++j) {
      out[j] = o.out[j] + i * o.out_step[j];
      if (o.out_step[j] == body.out_bytes[j]) continue;
      out[j] = row;
      row += parts * kRowBytes;
    }
    Piece piece{o, i, 0};
    body.unit(body, count, in[0], in[1], out[0], out[1], params, &piece);
    spread(body, o, i, piece.stored, count, out);
  }
}

template <int In, int Out>
void run_strided_short(const Body& body, int64_t first, int64_t n, const Operands& o, const void* params) {
  if (first == 0 && !arrays_apart(body, o, n, In, Out)) return run_overlapping(body, n, o, params);
  alignas(64) char in[2][kMaxBlock * In], out[2][kMaxBlock * Out];
  const int count = static_cast<int>(n - first);
  gather_row<In>(o.in[0] + first * o.in_step[0], o.in_step[0], in[0], count);
  const void* b = o.in[1];
  if (body.inputs == 2 && !body.scalar) {
    gather_row<In>(o.in[1] + first * o.in_step[1], o.in_step[1], in[1], count);
    b = in[1];
  }
  Piece piece{o, first, 0};
  body.unit(body, count, in[0], b, out[0], out[1], params, &piece);
  const int64_t i = piece.stored;  // the first that no report has stored
  for (int j = 0; j < body.outputs; ++j) {
    spread_row<Out>(out[j] + i * Out, o.out[j] + (first + i) * o.out_step[j], o.out_step[j],
                    static_cast<int>(count - i));
  }
}
template void run_strided_short<4, 4>(const Body&, int64_t, int64_t, const Operands&, const void*);
template void run_strided_short<4, 8>(const Body&, int64_t, int64_t, const Operands&, const void*);
template void run_strided_short<8, 4>(const Body&, int64_t, int64_t, const Operands&, const void*);
template void run_strided_short<8, 8>(const Body&, int64_t, int64_t, const Operands&, const void*);
template void run_strided_short<8, 16>(const Body&, int64_t, int64_t, const Operands&, const void*);
template void run_strided_short<16, 8>(const Body&, int64_t, int64_t, const Operands&, const void*);
template void run_strided_short<16, 16>(const Body&, int64_t, int64_t, const Operands&, const void*);

void run_element_loop(const Body& body, int64_t n, const Operands& operands, const void* params) {
  const uint32_t mode = current_mode();
  // What a family's routine raises on the way counts for nothing here.
  ControlRegisters<kSevereFlags | kUnderflowFlag> registers(mode);
  *registers.kept() = ~uint32_t{body.stray};
  const Call call{body, mode, operands, params, nullptr, nullptr};
  const ReportsErrno only(call);
  body.elements(call, n);
}

}  // namespace orvik::zym
