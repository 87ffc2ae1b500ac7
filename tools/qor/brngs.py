#!/usr/bin/env python3
"""Makes what enumerates generators outside C++ from the one list, src/qor/stream/brngs.def.

    brngs.py exports OUT   names that the shared library exports
    brngs.py header  OUT   include/orvik/qor_generators.h
    brngs.py status  OUT   docs/status-streams.md
    brngs.py check         whether the header and the page are what the list makes
"""
import re
import sys
from collections import namedtuple
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
LIST = ROOT / "src/qor/stream/brngs.def"
MADE = {"header": ROOT / "include/orvik/qor_generators.h", "status": ROOT / "docs/status-streams.md"}

Brng = namedtuple("Brng", "constant functions name members record seeds zero bytes bits leapfrog skip skip_long restore")


def brngs():
    lines = re.findall(r"^ORVIK_BRNG\((.*)\)$", LIST.read_text(encoding="utf-8"), re.MULTILINE)
    return [Brng(*(field.strip().strip('"') for field in line.split(","))) for line in lines]


def exports(generators):
    names = [f"__qor{kind}BRng{g.functions}{tail}" for g in generators
             for kind, tail in (("", "InitStream"), ("s", ""), ("d", ""), ("i", ""))]
    return "\n".join(names) + "\n"


def header(generators):
    width = max(len(g.constant) for g in generators)
    ids = ",\n".join(f"  ORVIK_BRNG_{g.constant:<{width}} = 0x{k + 1 << 20:X}" for k, g in enumerate(generators))
    declared = "\n".join(f"ORVIK_QOR_DECLARE_BRNG({g.functions});" for g in generators)
    families = " and ".join(g.name for g in generators if g.members != "1")
    ranges = " and ".join(f"0 to {int(g.members) - 1}" for g in generators if g.members != "1")
    return f"""/* Ids and functions of the generators. Written by tools/qor/brngs.py. */
#ifndef ORVIK_QOR_GENERATORS_H
#define ORVIK_QOR_GENERATORS_H

#include <stdint.h>

#pragma GCC visibility push(default)

#ifdef __cplusplus
extern "C" {{
#endif

/* A stream: what all generators and distributions draw from. */
typedef void* OrvikStream;

/* Generator ids. {families} are families: add the member, {ranges}. */
typedef enum OrvikQorBrng {{
{ids}
}} OrvikQorBrng;

/* The functions of a generator's row: the forms that OrvikQorInitStream and its neighbours describe. */
#define ORVIK_QOR_DECLARE_BRNG(G)                                                                       \\
  int32_t __qorBRng##G##InitStream(uint32_t method, OrvikStream stream, int32_t n, const void* params); \\
  int32_t __qorsBRng##G(OrvikStream stream, int32_t n, float* r, float a, float b);                     \\
  int32_t __qordBRng##G(OrvikStream stream, int32_t n, double* r, double a, double b);                  \\
  int32_t __qoriBRng##G(OrvikStream stream, int32_t n, void* r)

{declared}

#undef ORVIK_QOR_DECLARE_BRNG

#ifdef __cplusplus
}}
#endif

#pragma GCC visibility pop

#endif
"""


def status(generators):
    rows = "\n".join(
        f"| {g.name} | 0x{k + 1 << 20:X} | {g.members} | {g.record} | {g.seeds} | {g.bytes} | {g.bits} | "
        + " | ".join({"yes": "yes", "one": "one dimension", "no": refusal}[jump]
                     for jump, refusal in ((g.leapfrog, "-1002"), (g.skip, "-1003"), (g.skip_long, "-1004"))) + " |"
        for k, g in enumerate(generators))
    return f"""# Generators

Written by `tools/qor/brngs.py status`. All are built. Record: bytes of a stream, its 16-byte header included. Seeds: 32-bit
words that a generator can take in. Output: bytes of an element of the integer form, and how many of its bits are random.
Jumps that a generator lacks answer with the status shown. Abstract generators have the form of their own type only; the
other two answer with -1122. The first seven have a second id, from before the present ones: 0, 1, 2, 3, 4 to 276 (the
members of WH), 277, 278.

| generator | id | members | record | seeds | output | bits | leapfrog | skip | long skip |
|---|---|---|---|---|---|---|---|---|---|
{rows}
"""


def main():
    makers = {"exports": exports, "header": header, "status": status}
    if len(sys.argv) == 3 and sys.argv[1] in makers:
        Path(sys.argv[2]).write_text(makers[sys.argv[1]](brngs()), encoding="utf-8")
    elif sys.argv[1:] == ["check"]:
        old = [path for what, path in MADE.items() if path.read_text(encoding="utf-8") != makers[what](brngs())]
        print("\n".join(f"{path} is not what {LIST.name} makes: run tools/qor/brngs.py" for path in old))
        sys.exit(1 if old else 0)
    else:
        sys.exit(__doc__)


main()
