"""The reference of the public headers: Doxygen makes it without a warning, and every exported name stands in it with a text.
Without Doxygen only the filter that it reads the headers through is tried, and the test counts as skipped.

    reference_test.py --filter FILTER --configuration DOXYFILE --scratch FOLDER --maps MAP..."""

import argparse
import pathlib
import re
import shutil
import subprocess
import sys

# Routines of the core services behind statistics and fitting, whose callers know them by their BLAS-like names.
NOT_IN_HEADERS = re.compile(r"[sd]dt(trfb|trsb|svb)_4dfl")

HEADER = """/* What the file is about. */
#ifndef SAMPLE_H
#define SAMPLE_H

/* Two of a kind: a < b. */
int32_t __one(int32_t n, const float* a);
int32_t __two(int32_t n, const float* a);

/* ---- A section --- */

/* Codes. */
enum {
  CODE_A = 1, /* the first */
  /* Others. */
  CODE_B = 2,
  CODE_C = 3
};

/* A pair. */
typedef struct Pair {
  float re, im; /* a part */
} Pair;

/* Squares. */
#define DECLARE(d, real) \\
  real square_##d(real x, real n);
DECLARE(f, float)
DECLARE(d, double)
#undef DECLARE

int undocumented(void);

#endif
"""
CXX_HEADER = """// What a header in C++ is about: more of it.
//
// And more.
#ifndef SAMPLE_HPP
#define SAMPLE_HPP
namespace sample {

namespace detail {
inline int hidden() { return 1; }
}  // namespace detail

// A thing.
template <class T, void (*Delete)(T*)>
class Thing {
 public:
  // Makes and counts.
  explicit Thing(T* t) : t_(t) {}
  int count() const noexcept { return {1}; }  // how many
  T at = T{};                                 // where

 private:
  T* t_;
};

// ---- Draws -----------------------------------------------------------------

#define DRAW(name, parameters, ...) \\
  template <class R> \\
  int name(R& r, LIST parameters) { return detail::name(r, __VA_ARGS__); }
#define LIST(...) __VA_ARGS__
// Fill r.
DRAW(uniform, (int a = 0, int b = 1), a, b)
DRAW(beta, (int p), p)
#undef LIST
#undef DRAW

}  // namespace sample
#endif
"""
CXX_WANTED = ["/** What a header in C++ is about: more of it. */\nnamespace sample {",
              "/** A thing. */\ntemplate <class T, void (*Delete)(T*)> class Thing {",
              "/** Makes and counts. */\nexplicit Thing(T* t)", "{ return {1}; } /**< how many */", "T at = T{}; /**< where */",
              "private:\nT* t_;\n};",
              "/** Fill r. */\ntemplate <class R>   int uniform(R& r, int a = 0, int b = 1) { return detail::uniform(r, a, b); }",
              "int beta(R& r, int p) { return detail::beta(r, p); }\n\n/**@}*/\n}"]
WANTED = ["/** \\file\nWhat the file is about. */", "/** Two of a kind: a \\< b. */\nint32_t __one(int32_t n, const float* a);",
          "/** Two of a kind: a \\< b. */\nint32_t __two(int32_t n, const float* a);", "/** \\name A section */",
          "CODE_A = 1, /**< the first */", "/** Others. */\nCODE_B = 2,", "/** Others. */\nCODE_C = 3",
          "float re; /**< a part */\nfloat im; /**< a part */", "/** Squares. */\nfloat square_f(float x, float n);",
          "/** Squares. */\ndouble square_d(double x, double n);", "\n\nint undocumented(void);"]


def run_filter(program, header):
    done = subprocess.run([sys.executable, program, header], check=True, capture_output=True, text=True)
    return done.stdout


def run_doxygen(configuration, folder, **changes):
    """Exit status and what it said, with settings of the file changed."""
    text = pathlib.Path(configuration).read_text(encoding="utf-8")
    changes = {"OUTPUT_DIRECTORY": folder, "GENERATE_TAGFILE": folder / "sample.tag", **changes}
    text += "".join(f'{name} = "{value}"\n' for name, value in changes.items())
    done = subprocess.run(["doxygen", "-"], input=text, check=False, capture_output=True, text=True)
    return done.returncode, done.stderr


def main():
    parser = argparse.ArgumentParser()
    for name in ("filter", "configuration", "scratch"):
        parser.add_argument(f"--{name}", required=True)
    parser.add_argument("--maps", nargs="+", required=True)
    options = parser.parse_args()
    scratch = pathlib.Path(options.scratch)
    shutil.rmtree(scratch, ignore_errors=True)
    (scratch / "sample").mkdir(parents=True)

    header = scratch / "sample" / "sample.h"
    for text, wanted_pieces, path in ((CXX_HEADER, CXX_WANTED, header.with_suffix(".hpp")), (HEADER, WANTED, header)):
        path.write_text(text, encoding="utf-8")
        made = run_filter(options.filter, path)
        for wanted in wanted_pieces:
            if wanted not in made:
                sys.exit(f"the filter does not make\n{wanted}\nbut\n{made}")
    if not shutil.which("doxygen"):
        print("doxygen is not installed: the reference was not made")
        sys.exit(77)

    status, said = run_doxygen(options.configuration, scratch / "sample", INPUT=header)
    if status == 0 or said.count("not documented") != 1 or "undocumented" not in said:
        sys.exit(f"one function without a text, and Doxygen ends with {status}: {said}")

    status, said = run_doxygen(options.configuration, scratch)
    if status != 0 or said:
        sys.exit(f"Doxygen ends with {status}:\n{said}")
    tags = (scratch / "sample.tag").read_text(encoding="utf-8")
    there = set(re.findall(r"<name>([^<]+)</name>", tags))
    exported = set()
    for name in options.maps:
        exported |= set(re.findall(r"^    (\w+);$", pathlib.Path(name).read_text(encoding="utf-8"), re.MULTILINE))
    missing = sorted(name for name in exported - there if not NOT_IN_HEADERS.fullmatch(name))
    if missing or len(exported) < 1000:
        sys.exit(f"not in the reference: {' '.join(missing)} of {len(exported)} names")
    print(f"{len(exported)} exported names, all in the reference")


main()
