"""Instructions of 512-bit registers stay where the load puts them into use: the one object of wide kernels shows nothing but
kernels, so that no other file can come to use what it shares with others by name, and no other object holds such
instructions.

    wide_object_test.py --nm NM --objdump O --archive LIBRARY.a --wide OBJECT.o"""

import argparse
import os
import re
import subprocess
import sys

KERNEL = re.compile(r"orvik_zym_wide_[sdcz]\w+_(LA|HA|EP)$")
# Registers that only AVX-512 has: 512-bit ones, the second sixteen of any width, masks.
LATER = re.compile(r"%(zmm\d|[xy]mm(1[6-9]|2\d|3[01])|k[0-7])\b")


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def shown(nm, path):
    """Names that an object defines for others, weak ones and those of common sections among them."""
    return [line.split()[0] for line in run(nm, "--extern-only", "--defined-only", "--format=posix", path).splitlines()]


def users(objdump, path):
    """Members of an archive, or the object, that hold instructions of AVX-512, with their numbers."""
    member, found = os.path.basename(path), {}
    for line in run(objdump, "-d", "--no-show-raw-insn", path).splitlines():
        header = re.match(r"(\S+):\s+file format", line)
        if header:
            member = header.group(1)
        elif LATER.search(line):
            found[member] = found.get(member, 0) + 1
    return found


def main():
    parser = argparse.ArgumentParser()
    for name in ("--nm", "--objdump", "--archive", "--wide"):
        parser.add_argument(name, required=True)
    arguments = parser.parse_args()
    names = shown(arguments.nm, arguments.wide)
    faults = [f"{arguments.wide} shows {name}" for name in names if not KERNEL.match(name)]
    if len(names) < 500:
        faults.append(f"{arguments.wide} shows {len(names)} names only")
    wide = os.path.basename(arguments.wide)
    found = users(arguments.objdump, arguments.archive)
    faults += [f"{member} holds {count} instructions of AVX-512" for member, count in sorted(found.items()) if member != wide]
    if found.get(wide, 0) < 10000:
        faults.append(f"{wide} holds {found.get(wide, 0)} instructions of AVX-512 only")
    print("\n".join(faults) if faults else f"{wide}: {len(names)} kernels, {found[wide]} instructions of AVX-512")
    sys.exit(1 if faults else 0)


main()
