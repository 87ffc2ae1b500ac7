// Abstract generators: a caller's ring of numbers and the callback that refills it. Each has the form of its own type.
#include "qor/brng/entries.h"
#include "qor/stream/restore.h"

namespace orvik::qor {
namespace {

// The bounds of the numbers in the ring, and the map from them to the interval that a call asks for.
template <class T>
struct Bounds {
  T low, high;
};
template <>
struct Bounds<uint32_t> {};

template <class T>
struct RingState {
  int32_t n, cur, used;  // n - used elements are unread, from cur on
  [[no_unique_address]] Bounds<T> bounds;
  const T* buffer;
  void (*callback)();
};

struct Copy {
  uint32_t operator()(uint32_t w) const { return w; }
};
template <class T>
class ToInterval {
 public:
  ToInterval(Bounds<T> bounds, T a, T b) : scale_((b - a) / (bounds.high - bounds.low)), low_(bounds.low), a_(a) {}
  T operator()(T x) const {
    if constexpr (sizeof(T) == 8)
      return __builtin_fma(scale_, x - low_, a_);
    else
      return __builtin_fmaf(scale_, x - low_, a_);
  }

 private:
  T scale_, low_, a_;
};

template <class T>
struct Abstract : NoJumps {
  using State = RingState<T>;
  using Refill = int32_t (*)(OrvikStream, int32_t*, T*, int32_t*, int32_t*, int32_t*);

  // An image may hold any numbers: none leads out of the ring.
  static bool is_sound(const State& s) { return s.n > 0 && s.cur >= 0 && s.cur < s.n && s.used >= 0 && s.used <= s.n; }

  template <class Map>
  static int32_t fill(OrvikStream stream, int32_t n, T* r, const Map& map) {
    State& state = state_of<State>(stream);
    if (!state.buffer) return ORVIK_QOR_NULL_POINTER;
    if (n <= 0) return ORVIK_QOR_OK;
    if (!is_sound(state)) return ORVIK_QOR_BAD_ABSTRACT_ARGUMENT;
    int32_t cur = state.cur;
    const auto deliver = [&](int32_t count) {
      for (; count > 0; --count) {
        *r++ = map(state.buffer[cur]);
        cur = cur + 1 == state.n ? 0 : cur + 1;
      }
    };
    const int32_t unread = state.n - state.used;
    if (n <= unread) {
      deliver(n);
      state.cur = cur;
      state.used += n;
      return ORVIK_QOR_OK;
    }
    deliver(unread);
    int32_t left = n - unread, size = state.n, room = state.n, used;
    for (;;) {
      int32_t wanted = left < room ? left : room, position = cur;
      const int32_t count = reinterpret_cast<Refill>(state.callback)(stream, &size, const_cast<T*>(state.buffer),
                                                                     &wanted, &room, &position);
      // The callback may have changed what it was shown: no more than the ring is ever taken.
      if (room < 0 || room > state.n) room = state.n;
      if (count < 0 || count > room) return ORVIK_QOR_ABSTRACT_BAD_COUNT;
      if (count == 0) return ORVIK_QOR_ABSTRACT_NO_DATA;
      if (count >= left) {
        deliver(left);
        used = room - count + left;
        break;
      }
      deliver(count);
      left -= count;
    }
    state.cur = cur;
    state.used = used;
    return ORVIK_QOR_OK;
  }

  // The argument block is an array of pointers, as the constructors build it.
  static int32_t seed(OrvikStream stream, int32_t, const uint32_t* params) {
    const void* const* argument = reinterpret_cast<const void* const*>(params);
    State& state = state_of<State>(stream);
    state.n = *static_cast<const int32_t*>(*argument++);
    state.cur = 0;
    state.used = state.n;
    state.buffer = static_cast<const T*>(*argument++);
    if constexpr (!std::is_same_v<T, uint32_t>) {
      state.bounds.low = *static_cast<const T*>(*argument++);
      state.bounds.high = *static_cast<const T*>(*argument++);
    }
    state.callback = reinterpret_cast<void (*)()>(const_cast<void*>(*argument));
    return ORVIK_QOR_OK;
  }

  // Addresses of another process lead nowhere, or worse.
  static int32_t restore(OrvikStream stream) {
    State& state = state_of<State>(stream);
    state.buffer = nullptr;
    state.callback = nullptr;
    return ORVIK_QOR_OK;
  }
};
static_assert(sizeof(RingState<uint32_t>) == 48 - kHeaderSize && sizeof(RingState<double>) == 64 - kHeaderSize &&
              sizeof(RingState<float>) == 56 - kHeaderSize);

}  // namespace

int32_t restore_iabstract(OrvikStream stream) { return Abstract<uint32_t>::restore(stream); }
int32_t restore_dabstract(OrvikStream stream) { return Abstract<double>::restore(stream); }
int32_t restore_sabstract(OrvikStream stream) { return Abstract<float>::restore(stream); }

}  // namespace orvik::qor

using namespace orvik::qor;

ORVIK_QOR_INIT_STREAM(iAbstract, Abstract<uint32_t>)
ORVIK_QOR_INIT_STREAM(dAbstract, Abstract<double>)
ORVIK_QOR_INIT_STREAM(sAbstract, Abstract<float>)

extern "C" {

int32_t __qoriBRngiAbstract(OrvikStream stream, int32_t n, void* r) {
  return Abstract<uint32_t>::fill(stream, n, static_cast<uint32_t*>(r), Copy());
}
int32_t __qordBRngdAbstract(OrvikStream stream, int32_t n, double* r, double a, double b) {
  return Abstract<double>::fill(stream, n, r, ToInterval<double>(state_of<RingState<double>>(stream).bounds, a, b));
}
int32_t __qorsBRngsAbstract(OrvikStream stream, int32_t n, float* r, float a, float b) {
  return Abstract<float>::fill(stream, n, r, ToInterval<float>(state_of<RingState<float>>(stream).bounds, a, b));
}

// The forms that a type lacks are one function, whatever its arguments.
__attribute__((used)) int32_t orvik_qor_wrong_type(void) { return ORVIK_QOR_ABSTRACT_WRONG_TYPE; }

}  // extern "C"

asm(R"(
  .macro wrong_type name
    .globl \name
    .type \name, @function
    .set \name, orvik_qor_wrong_type
  .endm
  wrong_type __qordBRngiAbstract
  wrong_type __qorsBRngiAbstract
  wrong_type __qoriBRngdAbstract
  wrong_type __qorsBRngdAbstract
  wrong_type __qoriBRngsAbstract
  wrong_type __qordBRngsAbstract
)");
