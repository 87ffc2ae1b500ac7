"""Instructions of 512-bit registers stay where the load puts them into use: the objects of wide kernels show nothing but
kernels, so that no other file can come to use what it shares with others by name, and no other object holds such
instructions.

    wide_object_test.py --nm NM --objdump O --archive LIBRARY.a --wide OBJECT.o..."""

import argparse
import os
import re
import subprocess
import sys

KERNEL = re.compile(r"orvik_(zym_wide_[sdcz]\w+_(LA|HA|EP)|(qor|ss|df)_wide_\w+)$")
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
    for name in ("--nm", "--objdump", "--archive"):
        parser.add_argument(name, required=True)
    parser.add_argument("--wide", required=True, nargs="+")
    arguments = parser.parse_args()
    faults, count = [], 0
    for path in arguments.wide:
        names = shown(arguments.nm, path)
        count += len(names)
        faults += [f"{path} shows {name}" for name in names if not KERNEL.match(name)]
    if count < 500:
        faults.append(f"the wide objects show {count} names only")
    wide = {os.path.basename(path) for path in arguments.wide}
    found = users(arguments.objdump, arguments.archive)
    faults += [f"{member} holds {n} instructions of AVX-512" for member, n in sorted(found.items()) if member not in wide]
    faults += [f"{member} holds {found.get(member, 0)} instructions of AVX-512 only" for member in sorted(wide)
               if found.get(member, 0) < 500]
    total = sum(found.get(member, 0) for member in wide)
    print("\n".join(faults) if faults else f"{count} kernels, {total} instructions of AVX-512")
    sys.exit(1 if faults else 0)


main()
