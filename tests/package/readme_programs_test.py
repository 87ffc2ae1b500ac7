"""The programs of README.md compile, run, and print what they say.

    readme_programs_test.py --cc CC --cxx CXX --libraries FOLDER [--python PYTHON --package FOLDER] PROJECT"""

import argparse
import os
import pathlib
import re
import subprocess
import sys
import tempfile

SUFFIX = {"c": ".c", "c++": ".cc", "python": ".py"}


def programs(text):
    """(language, source, what it prints) of the blocks that are whole programs."""
    for language, source in re.findall(r"^```(c|c\+\+|python)\n(.*?)^```$", text, re.MULTILINE | re.DOTALL):
        prints = re.search(r"(?://|#) prints (.*)$", source, re.MULTILINE)
        yield language, source, prints and prints.group(1)


def main():
    parser = argparse.ArgumentParser()
    for name in ("--cc", "--cxx", "--libraries"):
        parser.add_argument(name, required=True)
    parser.add_argument("--python")
    parser.add_argument("--package")
    parser.add_argument("project", type=pathlib.Path)
    arguments = parser.parse_args()
    ran, faults = [], []
    with tempfile.TemporaryDirectory() as folder:
        for language, source, prints in programs((arguments.project / "README.md").read_text(encoding="utf-8")):
            if language == "python" and not arguments.python:
                continue
            path = pathlib.Path(folder) / ("program" + SUFFIX[language])
            path.write_text(source, encoding="utf-8")
            environment = dict(os.environ)
            if language == "python":
                command = [arguments.python, str(path)]
                environment["PYTHONPATH"] = arguments.package
            else:
                compiler = [arguments.cc, "-std=c11"] if language == "c" else [arguments.cxx, "-std=c++20"]
                command = [str(path.with_suffix(""))]
                subprocess.run([*compiler, "-Wall", "-Wextra", "-Werror", f"-I{arguments.project / 'include'}", str(path), "-o", *command,
                                f"-L{arguments.libraries}", "-lorvik_front", "-lorvik_kernel", f"-Wl,-rpath,{arguments.libraries}"], check=True)
            printed = subprocess.run(command, env=environment, check=True, stdout=subprocess.PIPE, text=True).stdout.strip()
            ran.append(language)
            if printed != prints:
                faults.append(f"the program in {language} prints {printed!r}, and says {prints!r}")
    wanted = {"c", "c++"} | ({"python"} if arguments.python else set())
    faults += [f"no program in {language}" for language in sorted(wanted - set(ran))]
    print("\n".join(faults) if faults else f"programs in {', '.join(ran)}")
    sys.exit(1 if faults else 0)


main()
