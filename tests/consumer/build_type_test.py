"""With which options the kernels are compiled, by the build type that was given: alone, and in a project that has the library
as a subdirectory. Configures only.

    build_type_test.py SOURCE SCRATCH GENERATOR C_COMPILER CXX_COMPILER"""

import json
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys

PARENT = """cmake_minimum_required(VERSION 3.25)
project(parent LANGUAGES C CXX)
add_subdirectory({source} orvik)
add_executable(parent parent.cc)
"""
KERNELS = "/src/zym/kernels/"
LIBRARY = "/src/(zym|qor|df|serv)/"


class Build:
    def __init__(self, source, build, generator, compilers):
        self.build = build
        self.first = ["cmake", "-S", source, "-B", build, "-G", generator, f"-DCMAKE_C_COMPILER={compilers[0]}",
                      f"-DCMAKE_CXX_COMPILER={compilers[1]}", "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON",
                      "-DORVIK_BUILD_TESTS=OFF", "-DORVIK_BUILD_BENCH=OFF", "-DORVIK_BUILD_EXAMPLES=OFF"]

    def configure(self, *options):
        environment = {k: v for k, v in os.environ.items() if k not in ("CFLAGS", "CXXFLAGS", "CMAKE_BUILD_TYPE")}
        subprocess.run([*self.first, *options], check=True, stdout=subprocess.DEVNULL, env=environment)
        commands = json.loads((self.build / "compile_commands.json").read_text(encoding="utf-8"))
        self.options = {entry["file"]: shlex.split(entry["command"]) for entry in commands}

    def build_type(self):
        cache = (self.build / "CMakeCache.txt").read_text(encoding="utf-8")
        found = re.search(r"^CMAKE_BUILD_TYPE:\w+=(.*)$", cache, re.MULTILINE)
        return found.group(1) if found else ""

    def of(self, pattern):
        found = [options for file, options in self.options.items() if re.search(pattern, file) and file.endswith(".cc")]
        if not found:
            sys.exit(f"no file of {pattern} in {self.build}")
        return found

    def levels(self, pattern):
        """What of -O and -DNDEBUG the files get: the level that holds, and whether assertions are off."""
        return {(next((o for o in reversed(options) if re.fullmatch(r"-O.*", o)), ""), "-DNDEBUG" in options)
                for options in self.of(pattern)}


def check(what, got, want):
    print(f"{what}: {got}")
    if got != want:
        sys.exit(f"{what}: {want} was wanted")


def main():
    source, scratch = sys.argv[1], pathlib.Path(sys.argv[2])
    shutil.rmtree(scratch, ignore_errors=True)
    (scratch / "source").mkdir(parents=True)
    (scratch / "source" / "CMakeLists.txt").write_text(PARENT.format(source=source), encoding="utf-8")
    (scratch / "source" / "parent.cc").write_text("int main() {}\n", encoding="utf-8")

    alone = Build(source, scratch / "alone", sys.argv[3], sys.argv[4:6])
    alone.configure()
    check("alone, none given: build type", alone.build_type(), "Release")
    check("alone, none given: library", alone.levels(LIBRARY), {("-O3", True)})
    alone.configure("-DCMAKE_BUILD_TYPE=Debug")
    check("alone, Debug: build type", alone.build_type(), "Debug")
    check("alone, Debug: kernels", alone.levels(KERNELS), {("", False)})

    inside = Build(scratch / "source", scratch / "inside", sys.argv[3], sys.argv[4:6])
    inside.configure()
    check("inside, none given: build type", inside.build_type(), "")
    check("inside, none given: library", inside.levels(LIBRARY), {("-O3", True)})
    check("inside, none given: the parent's own file", inside.levels("/parent.cc$"), {("", False)})
    inside.configure("-DCMAKE_CXX_FLAGS=-O1 -mavx2")
    check("inside, flags name a level: kernels", inside.levels(KERNELS), {("-O1", False)})
    for options in inside.of("/src/serv/processor.cc$"):
        check("inside, flags name instructions: the file for any processor has the last word",
              options.index("-mavx2") < options.index("-mno-avx2"), True)
    inside.configure("-DCMAKE_CXX_FLAGS=", "-DCMAKE_BUILD_TYPE=Debug")
    check("inside, Debug: kernels", inside.levels(KERNELS), {("", False)})
    inside.configure("-DCMAKE_BUILD_TYPE=RelWithDebInfo")
    check("inside, RelWithDebInfo: kernels", inside.levels(KERNELS), {("-O2", True)})


main()
