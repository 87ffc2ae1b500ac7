// One draw into an array: in pieces, between which Python looks for signals, with the numbers of one call of the front.
#pragma once

#include <algorithm>
#include <type_traits>

#include "random/stream.h"

namespace orvik::python {

// Numbers of a piece. All are multiples of every block of the distributions, so that cuts do not change numbers.
inline constexpr int64_t kSplitPiece = int64_t{1} << 24;  // what threads share
inline constexpr int64_t kPlainPiece = int64_t{1} << 20;
inline constexpr int64_t kWhole = INT64_MAX;  // where any cut would

// draw(stream, n, r); `room` numbers a draw.
template <class T, class Draw>
void draw_pieces(Stream& s, pybind11::array& out, int64_t room, int64_t piece, const Draw& draw) {
  if ((out.flags() & (pybind11::array::c_style | pybind11::array::f_style)) == 0) {
    raise(PyExc_ValueError, "the array is not contiguous");
  }
  T* r = static_cast<T*>(out.mutable_data());
  int64_t left = out.size() / room;
  orvik_stream* const stream = s.exact();
  do {  // also once without numbers, for the parameters
    const int64_t n = left < piece ? left : piece;
    orvik_status status;
    {
      const pybind11::gil_scoped_release released;
      status = draw(stream, n, r);
    }
    check(status);
    if (PyErr_CheckSignals() != 0) throw pybind11::error_already_set();
    r += n * room;
    left -= n;
  } while (left > 0);
}

// Draws of n numbers or rows each for sets of parameters, side by side: counts[i] for row i of the table. All sets are
// checked before the first number is drawn.
struct Sets {
  const pybind11::array_t<int64_t>& counts;
  const pybind11::array_t<double>& table;

  // draw(stream, n, r, parameters)
  template <class T, class Draw>
  void draw(Stream& s, pybind11::array& out, int64_t room, int64_t piece, const Draw& draw) const {
    const int64_t sets = counts.size(), width = sets > 0 ? table.size() / sets : 0;
    const auto* const count = counts.data();
    const double* const rows = table.data();
    int64_t numbers = 0;
    for (int64_t i = 0; i < sets; ++i) numbers += count[i] * room;
    if (numbers != out.size() || width * sets != table.size() || (out.flags() & pybind11::array::c_style) == 0) {
      raise(PyExc_ValueError, "the sets are not those of the array");
    }
    T* r = static_cast<T*>(out.mutable_data());
    orvik_stream* const stream = s.exact();
    orvik_status status = ORVIK_SUCCESS;
    {
      const pybind11::gil_scoped_release released;
      for (int64_t i = 0; i < sets && status >= 0; ++i) status = draw(stream, 0, r, rows + i * width);
    }
    check(status);
    int64_t left = sets > 0 ? count[0] : 0;
    for (int64_t i = 0; i < sets;) {
      {
        const pybind11::gil_scoped_release released;
        for (int64_t budget = std::min(piece, kPlainPiece); budget > 0 && i < sets;) {
          const int64_t n = left < piece ? left : piece;
          status = draw(stream, n, r, rows + i * width);
          if (status < 0) break;
          r += n * room;
          left -= n;
          budget -= n + kSet;
          if (left == 0 && ++i < sets) left = count[i];
        }
      }
      check(status);
      if (PyErr_CheckSignals() != 0) throw pybind11::error_already_set();
    }
  }

 private:
  static constexpr int64_t kSet = 64;  // numbers that take as long as what is prepared for a set
};

// By the type of the array: of doubles or floats.
template <class Draw>
void draw_real(Stream& s, pybind11::array& out, int64_t room, int64_t piece, const Draw& draw) {
  if (pybind11::isinstance<pybind11::array_t<double>>(out)) return draw_pieces<double>(s, out, room, piece, draw);
  if (pybind11::isinstance<pybind11::array_t<float>>(out)) return draw_pieces<float>(s, out, room, piece, draw);
  raise(PyExc_TypeError, "the array is neither of float64 nor of float32");
}

// The front's integers have 32 bits; an array of 64 holds them in its upper half first.
template <class Draw>
void draw_integers(Stream& s, pybind11::array& out, int64_t room, int64_t piece, const Draw& draw) {
  if (pybind11::isinstance<pybind11::array_t<int32_t>>(out)) return draw_pieces<int32_t>(s, out, room, piece, draw);
  if (!pybind11::isinstance<pybind11::array_t<int64_t>>(out)) {
    raise(PyExc_TypeError, "the array is neither of int32 nor of int64");
  }
  draw_pieces<int64_t>(s, out, room, piece, [&](orvik_stream* stream, int64_t n, int64_t* r) {
    const int64_t numbers = n * room;
    auto* const bytes = reinterpret_cast<char*>(r);
    char* const narrow = bytes + numbers * int64_t{sizeof(int32_t)};
    const orvik_status status = draw(stream, n, reinterpret_cast<int32_t*>(narrow));
    for (int64_t i = 0; status >= 0 && i < numbers; ++i) {
      int32_t x;
      __builtin_memcpy(&x, narrow + i * int64_t{sizeof x}, sizeof x);
      const int64_t wide = x;
      __builtin_memcpy(bytes + i * int64_t{sizeof wide}, &wide, sizeof wide);
    }
    return status;
  });
}

}  // namespace orvik::python
