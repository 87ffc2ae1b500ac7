"""What runs while the library is loaded runs on any x86-64 processor: only the file that looks at the processor, and that which
chooses kernels for it, have start-up code, nothing is resolved by a function at load, and these files hold no instruction of a
later level.

    load_time_code_test.py --readelf R --objdump O --archive LIBRARY.a --first OBJECT..."""

import argparse
import os
import re
import subprocess
import sys

START = re.compile(r"\.(preinit_array|init_array|ctors)\b")
# Every encoding that needs AVX has a mnemonic in v (verr and verw are older); the others are the bit instructions of the level.
LATER = re.compile(r"^(v(?!err$|erw$)\w+|andn|bextr|blsi|blsmsk|blsr|tzcnt|lzcnt|popcnt|bzhi|mulx|pdep|pext|rorx|sarx|shlx|shrx)$")


def run(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def by_member(text):
    """(member, line) of what readelf prints for an archive."""
    member = None
    for line in text.splitlines():
        if line.startswith("File: "):
            member = re.search(r"\(([^()]+)\)$", line).group(1)
        elif member:
            yield member, line


def mnemonics(disassembly):
    for line in disassembly.splitlines():
        fields = line.split("\t")
        if len(fields) >= 2 and fields[1].split():
            yield fields[1].split()[0]


def main():
    parser = argparse.ArgumentParser()
    for name in ("--readelf", "--objdump", "--archive"):
        parser.add_argument(name, required=True)
    parser.add_argument("--first", required=True, nargs="+")  # that which looks at the processor before the others
    arguments = parser.parse_args()
    first = {os.path.basename(path) for path in arguments.first}

    starting = {member for member, line in by_member(run(arguments.readelf, "-SW", arguments.archive)) if START.search(line)}
    resolved = {member for member, line in by_member(run(arguments.readelf, "-sW", arguments.archive)) if " IFUNC " in line}
    faults = [f"{member} has start-up code" for member in sorted(starting - first)]
    faults += [f"{member} is resolved by a function at load" for member in sorted(resolved)]
    faults += [f"{member} has no start-up code" for member in sorted(first - starting)]
    counts = []
    for path in arguments.first:
        found = list(mnemonics(run(arguments.objdump, "-d", "--no-show-raw-insn", path)))
        counts.append(len(found))
        faults += [f"{os.path.basename(path)} uses {name}" for name in sorted(set(filter(LATER.match, found)))]
        for needed in ("cpuid", "xgetbv") if path == arguments.first[0] else ():
            if needed not in found:
                faults.append(f"{os.path.basename(path)} has no {needed} among its {len(found)} instructions")
    print("\n".join(faults) if faults else f"{', '.join(sorted(first))}: {counts} instructions, none of a later level")
    sys.exit(1 if faults else 0)


main()
