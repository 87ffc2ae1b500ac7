"""front.hpp under strict warnings with each compiler that is given, and the seconds of processor that a program of ten calls takes
to compile: the fastest of some tries, since a busy machine is no fault of the header."""

import pathlib
import resource
import subprocess
import sys

WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Wconversion", "-Wshadow", "-Werror"]
LIMIT = 1.5


def spent():
    usage = resource.getrusage(resource.RUSAGE_CHILDREN)
    return usage.ru_utime + usage.ru_stime


def main():
    include, *compilers = sys.argv[1:]
    program = pathlib.Path(__file__).with_name("ten_calls.cc")
    failed = not compilers
    for compiler in compilers:
        best = float("inf")
        for _ in range(8):
            start = spent()
            run = subprocess.run([compiler, "-std=c++20", *WARNINGS, f"-I{include}", "-c", program, "-o", "ten_calls.o"], check=False)
            best = min(best, spent() - start)
            if run.returncode != 0 or best < LIMIT:
                break
        print(f"{compiler}: {best:.2f} s")
        failed |= run.returncode != 0 or best >= LIMIT
    sys.exit(1 if failed else 0)


main()
