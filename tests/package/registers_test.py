"""ORVIK_REGISTERS chooses the kernels when the library is loaded: 256 the narrow ones, 512 or nothing what the processor has;
anything else is said in one line and ignored. Results do not depend on it. A processor without such registers has narrow ones.

    registers_test.py QEMU WIDE PROGRAM...      WIDE: where the library holds wide kernels, the program that runs others on
                                                them (with_wide_registers); it says where it cannot. Empty: it holds none"""

import os
import re
import subprocess
import sys

FLAGS = {"avx512f", "avx512dq", "avx512bw", "avx512vl"}
LINE = "orvik_kernel: ORVIK_REGISTERS is neither 256 nor 512 and is ignored"


def run(asked, *command):
    """Width, sum, lines of the error output without the emulator's own."""
    environment = {name: value for name, value in os.environ.items() if name != "ORVIK_REGISTERS"}
    if asked is not None:
        environment["ORVIK_REGISTERS"] = asked
    done = subprocess.run(command, capture_output=True, text=True, check=True, env=environment)
    bits, total = re.fullmatch(r"(\d+) bits\nsum (\w+)\n", done.stdout).groups()
    return int(bits), total, [line for line in done.stderr.splitlines() if not line.startswith("qemu")]


def main():
    qemu, launcher, programs = sys.argv[1], sys.argv[2], sys.argv[3:]
    built = launcher != ""
    flags = re.search(r"^flags\s*:(.*)$", open("/proc/cpuinfo", encoding="ascii").read(), re.MULTILINE).group(1).split()
    wide = 512 if built and FLAGS <= set(flags) else 256
    faults = []
    for program in programs:
        _, total, _ = run("256", program)
        for asked, bits in ((None, wide), ("256", 256), ("512", wide), ("", wide), ("128", wide), ("2560", wide), ("51", wide)):
            lines = [LINE] if built and asked not in (None, "256", "512") else []
            got = run(asked, program)
            if got != (bits, total, lines):
                faults.append(f"{program} with ORVIK_REGISTERS={asked}: {got} instead of {(bits, total, lines)}")
        if not qemu.endswith("NOTFOUND"):
            for asked in (None, "512"):
                got = run(asked, qemu, "-cpu", "Haswell", program)
                if got != (256, total, []):
                    faults.append(f"{program} on an emulated Haswell, ORVIK_REGISTERS={asked}: {got}")
    if built and not qemu.endswith("NOTFOUND"):
        done = subprocess.run([qemu, "-cpu", "Haswell", launcher, "/bin/true"], capture_output=True, text=True, check=False)
        if (done.returncode, done.stdout) != (77, "no registers of 512 bits here: /bin/true was not run\n"):
            faults.append(f"{launcher} on an emulated Haswell: {done.returncode} {done.stdout!r}")
    if wide == 256:
        print("no registers of 512 bits here: the wide kernels were not run")
    print("\n".join(faults) if faults else f"{len(programs)} programs, {wide} bits")
    sys.exit(1 if faults or not programs else 0)


main()
