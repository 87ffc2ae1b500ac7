#include "random/words.h"

#include <Python.h>

namespace orvik::python {

Words::~Words() {
  drop();
  orvik_stream_delete(stream_);
}

void Words::drop() {
  orvik_stream_delete(before_);
  before_ = nullptr;
  next_ = end_ = 0;
}

// Blocks grow, so that the copy costs little of a long run and the block little of a short one.
void Words::refill() {
  drop();
  int32_t size = size_;
  const bool repeatable = orvik_stream_generator(stream_) != ORVIK_TRNG;
  if (repeatable && orvik_stream_copy(&before_, stream_) < 0) size = 1;
  orvik_status status = orvik_i_words(stream_, size, block_);
  if (status < 0 && size > 1) {  // one word may be left where a block is not
    size = 1;
    status = orvik_i_words(stream_, size, block_);
  }
  if (status < 0) return fail(status);
  end_ = size;
  if (size == size_ && size_ < kMost) size_ *= 2;
}

// NumPy's callers cannot be told: they get numbers of a mixed counter (Steele, Lea, Flood 2014), on which no rejection
// loops for ever, and the user a warning.
void Words::fail(orvik_status status) {
  end_ = 1;
  uint64_t z = stand_in_ += 0x9E3779B97F4A7C15;
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EB;
  block_[0] = static_cast<uint32_t>(z >> 32);
  if (failure_ != 0) return;
  failure_ = status;
  const PyGILState_STATE gil = PyGILState_Ensure();
  PyObject *type, *value, *trace;
  PyErr_Fetch(&type, &value, &trace);
  if (PyErr_WarnFormat(PyExc_RuntimeWarning, 1, "%s What a Generator draws from it is no longer the sequence.",
                       orvik_status_text(status)) != 0) {
    PyErr_WriteUnraisable(nullptr);
  }
  PyErr_Restore(type, value, trace);
  PyGILState_Release(gil);
}

orvik_stream* Words::settle() {
  if (before_ != nullptr && next_ < end_) {
    orvik_i_words(before_, next_, block_);  // as they were
    orvik_stream_delete(stream_);
    stream_ = before_;
    before_ = nullptr;
  }
  drop();
  size_ = kFirst;
  return stream_;
}

orvik_stream* Words::release() {
  orvik_stream* const stream = settle();
  stream_ = nullptr;
  return stream;
}

void Words::replace(orvik_stream* stream) {
  drop();
  orvik_stream_delete(stream_);
  stream_ = stream;
  size_ = kFirst;
  failure_ = 0;
  stand_in_ = 0;
}

}  // namespace orvik::python
