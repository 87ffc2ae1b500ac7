// orvik._random: streams for the bit generators of orvik.random, which hold the lock.
#include "random/short_draw.h"
#include "random/stream.h"

namespace py = pybind11;
using orvik::python::Stream;

PYBIND11_MODULE(_random, module) {
  module.doc() = "Streams behind orvik.random.";
  py::class_<Stream> stream(module, "Stream");
  stream.def_static("make", &Stream::make)
      .def_static("make_seeds", &Stream::make_seeds)
      .def("copy", &Stream::copy)
      .def("become", &Stream::become)
      .def("serve", &Stream::serve)
      .def("place", &Stream::place)
      .def("image", &Stream::image)
      .def("restore", &Stream::restore)
      .def("generator", &Stream::generator)
      .def("skip", &Stream::skip)
      .def("skip_long", &Stream::skip_long)
      .def("leapfrog", &Stream::leapfrog)
      .def("raw", &Stream::raw, py::arg().noconvert());
  orvik::python::define_real_draws(stream);
  orvik::python::define_integer_draws(stream);
  orvik::python::define_short_draw(module);
#define GENERATOR(name) module.attr(#name) = int32_t{ORVIK_##name}
  GENERATOR(MCG31M1);
  GENERATOR(R250);
  GENERATOR(MRG32K3A);
  GENERATOR(MCG59);
  GENERATOR(WH);
  GENERATOR(SOBOL);
  GENERATOR(NIEDERREITER);
  GENERATOR(MT19937);
  GENERATOR(MT2203);
  GENERATOR(SFMT19937);
  GENERATOR(TRNG);
  GENERATOR(ARS5);
  GENERATOR(PHILOX4X32X10);
#undef GENERATOR
}
