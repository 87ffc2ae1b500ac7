// A stream as Python has it: what NumPy's generators call, its image, its jumps.
#pragma once

#include <pybind11/numpy.h>
#include <pybind11/pybind11.h>

#include "random/words.h"
#include "support/status.h"

namespace orvik::python {

class Stream {
 public:
  explicit Stream(orvik_stream* stream) : words_(stream) {}

  static Stream* make(int32_t generator, uint64_t seed);
  static Stream* make_seeds(int32_t generator, const pybind11::array_t<uint32_t>& seeds);
  Stream* copy();
  // Goes on as another stream, which is left without one. Whoever draws from here keeps the same object.
  void become(Stream& other);

  // Lets NumPy's bit generator, whose capsule this is, draw from here; this object must live as long.
  void serve(const pybind11::capsule& capsule);

  pybind11::bytes image();
  // Goes on where the stream of an image was, which must be of the same generator.
  void restore(const pybind11::bytes& image);
  int32_t generator() { return orvik_stream_generator(words_.settle()); }
  void skip(uint64_t count);
  void skip_long(const pybind11::array_t<uint64_t>& count);
  void leapfrog(int32_t k, int32_t nstreams);
  void raw(pybind11::array_t<uint64_t> out);

  // This object for short draws (short_draw.h), which must live as long.
  pybind11::capsule place();

  // The front's stream for a draw, or the failure that a draw by NumPy met: an exception, or null.
  orvik_stream* exact();
  orvik_stream* exact_or_null() { return words_.failure() == 0 ? words_.settle() : nullptr; }

 private:
  Words words_;
};

// Adds the distributions to the class.
void define_real_draws(pybind11::class_<Stream>& stream);
void define_integer_draws(pybind11::class_<Stream>& stream);

}  // namespace orvik::python
