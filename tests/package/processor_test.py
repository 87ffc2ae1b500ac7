"""On emulated processors: one line at load where something is missing, the process left alone, an illegal instruction only
when the library is called; no line where nothing is missing.

    processor_test.py QEMU PROGRAM...      exit status 77 (skipped) without an emulator that knows AVX2"""

import re
import resource
import signal
import subprocess
import sys

# Emulated processor, what the line names (None: no line).
PROCESSORS = [
    ("Nehalem", "AVX, AVX2, FMA, BMI1, BMI2, LZCNT"),
    ("SandyBridge", "AVX2, FMA, BMI1, BMI2, LZCNT"),
    ("Haswell,-fma", "FMA"),
    ("Haswell,-xsave", "an operating system that saves the AVX state"),
    ("Haswell", None),
    ("EPYC", None),
]
SKIPPED = 77


def skip(why):
    print(f"skipped: {why}")
    sys.exit(SKIPPED)


def emulate(qemu, processor, *command):
    """Status, output, lines of the error output without the emulator's own."""
    done = subprocess.run([qemu, "-cpu", processor, *command], capture_output=True, text=True, check=False)
    return done.returncode, done.stdout, [line for line in done.stderr.splitlines() if not line.startswith("qemu")]


def main():
    qemu, programs = sys.argv[1], sys.argv[2:]
    if qemu.endswith("NOTFOUND"):
        skip("there is no qemu-x86_64")
    version = re.search(r"version (\d+)\.(\d+)", subprocess.run([qemu, "--version"], capture_output=True, text=True,
                                                                check=True).stdout)
    if tuple(map(int, version.groups())) < (7, 2):
        skip(f"qemu-x86_64 {version.group(0)} does not emulate AVX2")
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
    faults = []
    for program in programs:
        for processor, lacking in PROCESSORS:
            line = f"orvik_kernel: this machine lacks {lacking}; calls of the library may end in an illegal instruction"
            want = (0, "supported 1\nsum 15\n", []) if lacking is None else (0, "supported 0\n", [line])
            got = emulate(qemu, processor, program)
            if got != want:
                faults.append(f"{program} on {processor}: {got} instead of {want}")
        status, output, lines = emulate(qemu, "Nehalem", program, "call")
        if status != -signal.SIGILL or output != "supported 0\n" or len(lines) != 1:
            faults.append(f"{program} calls on Nehalem: {status} {output!r} {lines}")
    print("\n".join(faults) if faults else f"{len(programs)} programs on {len(PROCESSORS)} processors")
    sys.exit(1 if faults or not programs else 0)


main()
