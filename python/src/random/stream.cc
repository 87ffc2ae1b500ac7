#include "random/stream.h"

#include <numpy/random/bitgen.h>

#include "random/short_draw.h"
#include "support/images.h"

namespace py = pybind11;

namespace orvik::python {
namespace {

constexpr int32_t kMember = 0xFFFFF;
constexpr double kUnit = 1.0 / (1LL << 53);

Words& words_at(void* state) { return *static_cast<Words*>(state); }
uint32_t next_uint32(void* state) { return words_at(state).next(); }
uint64_t next_uint64(void* state) {
  const uint64_t high = words_at(state).next();
  return high << 32 | words_at(state).next();
}
// 53 bits of two words, as NumPy's generators of 32-bit words have it.
double next_double(void* state) {
  const uint32_t a = words_at(state).next() >> 5, b = words_at(state).next() >> 6;
  return (a * 67108864.0 + b) * kUnit;
}
uint64_t next_raw(void* state) { return words_at(state).next(); }

Stream* taken(orvik_status status, orvik_stream* stream) {
  check(status);
  return new Stream(stream);
}

[[noreturn]] void cannot(orvik_status status, int32_t generator) {
  const int32_t family = generator & ~kMember;
  const bool points = family == ORVIK_SOBOL || family == ORVIK_NIEDERREITER;  // which can, but not that far
  const bool jump = status == -1002 || status == -1003 || status == -1004;
  raise(jump && !points ? PyExc_NotImplementedError : exception_of(status), text_of(status, false).c_str());
}

}  // namespace

Stream* Stream::make(int32_t generator, uint64_t seed) {
  orvik_stream* s = nullptr;
  const orvik_status status = orvik_stream_new(&s, generator, seed);
  return taken(status, s);
}

Stream* Stream::make_seeds(int32_t generator, const py::array_t<uint32_t>& seeds) {
  if (seeds.size() > INT32_MAX) raise(PyExc_ValueError, "too many seeds");
  orvik_stream* s = nullptr;
  const orvik_status status = orvik_stream_new_seeds(&s, generator, static_cast<int32_t>(seeds.size()), seeds.data());
  return taken(status, s);
}

Stream* Stream::copy() {
  orvik_stream* s = nullptr;
  const orvik_status status = orvik_stream_copy(&s, words_.settle());
  return taken(status, s);
}

void Stream::become(Stream& other) {
  if (&other != this) words_.replace(other.words_.release());
}

void Stream::serve(const py::capsule& capsule) {
  auto* const bitgen = static_cast<bitgen_t*>(PyCapsule_GetPointer(capsule.ptr(), "BitGenerator"));
  if (bitgen == nullptr) throw py::error_already_set();
  *bitgen = {&words_, next_uint64, next_uint32, next_double, next_raw};
}

py::capsule Stream::place() { return py::capsule(this, kPlace); }

py::bytes Stream::image() {
  const orvik_stream* const s = words_.settle();
  return image_of([&](void* memory, int64_t* size) { return orvik_stream_save(s, memory, size); });
}

void Stream::restore(const py::bytes& image) {
  orvik_stream* s = nullptr;
  check(orvik_stream_load(&s, PyBytes_AS_STRING(image.ptr()), PyBytes_GET_SIZE(image.ptr())));
  if ((orvik_stream_generator(s) & ~kMember) != (generator() & ~kMember)) {
    orvik_stream_delete(s);
    raise(PyExc_ValueError, "the state is of another generator");
  }
  words_.replace(s);
}

void Stream::skip(uint64_t count) {
  orvik_status status;
  {
    const py::gil_scoped_release released;
    status = orvik_stream_skip(words_.settle(), count);
  }
  if (status < 0) cannot(status, generator());
}

void Stream::skip_long(const py::array_t<uint64_t>& count) {
  const orvik_status status = orvik_stream_skip_long(words_.settle(), static_cast<int32_t>(count.size()), count.data());
  if (status < 0) cannot(status, generator());
}

void Stream::leapfrog(int32_t k, int32_t nstreams) {
  const orvik_status status = orvik_stream_leapfrog(words_.settle(), k, nstreams);
  if (status < 0) cannot(status, generator());
}

void Stream::raw(py::array_t<uint64_t> out) {
  uint64_t* const r = out.mutable_data();
  const py::ssize_t n = out.size();
  constexpr py::ssize_t kPiece = 1 << 24;
  for (py::ssize_t done = 0; done < n;) {
    const py::ssize_t end = n - done < kPiece ? n : done + kPiece;
    {
      const py::gil_scoped_release released;
      for (; done < end; ++done) r[done] = words_.next();
    }
    if (PyErr_CheckSignals() != 0) throw py::error_already_set();
  }
  if (words_.failure() != 0) check(words_.failure());
}

orvik_stream* Stream::exact() {
  if (words_.failure() != 0) check(words_.failure());
  return words_.settle();
}

}  // namespace orvik::python
