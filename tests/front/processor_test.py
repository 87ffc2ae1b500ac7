"""On emulated processors without what the kernels need every call of the front answers ORVIK_ERROR_CPU; on others it works.

    processor_test.py QEMU PROGRAM      exit status 77 (skipped) without an emulator that knows AVX2"""

import re
import subprocess
import sys


def main():
    qemu, program = sys.argv[1:3]
    version = "" if qemu.endswith("NOTFOUND") else subprocess.run([qemu, "--version"], capture_output=True, text=True, check=True).stdout
    found = re.search(r"version (\d+)\.(\d+)", version)
    if not found or tuple(map(int, found.groups())) < (7, 2):
        print("skipped: no qemu-x86_64 that emulates AVX2")
        sys.exit(77)
    faults = []
    for processor, want in (("Nehalem", "supported 0, refused 8 of 8, results untouched\n"),
                            ("SandyBridge", "supported 0, refused 8 of 8, results untouched\n"),
                            ("Haswell", "supported 1, refused 0 of 8, results written\n")):
        done = subprocess.run([qemu, "-cpu", processor, program], capture_output=True, text=True, check=False)
        if (done.returncode, done.stdout) != (0, want):
            faults.append(f"{processor}: {done.returncode} {done.stdout!r} instead of {want!r}")
    print("\n".join(faults) if faults else "3 processors")
    sys.exit(1 if faults else 0)


main()
