"""The programs of README.md compile, run, and print what they say.

    readme_programs_test.py --cc CC --cxx CXX --libraries FOLDER --include FOLDER [--python PYTHON --package FOLDER] README"""

import pathlib
import sys
import tempfile

from page_programs_test import arguments_with, fault, pieces


def main():
    arguments = arguments_with("readme")
    ran, faults = set(), []
    for language, source in pieces(arguments.readme):
        if language == "python" and not arguments.python:
            continue
        ran.add(language)
        with tempfile.TemporaryDirectory() as folder:
            wrong = fault(arguments, pathlib.Path(folder), language, source, None)
        if wrong or "prints" not in source:
            faults.append(f"the program in {language} {wrong or 'does not say what it prints'}")
    wanted = {"c", "c++"} | ({"python"} if arguments.python else set())
    faults += [f"no program in {language}" for language in sorted(wanted - ran)]
    print("\n".join(faults) if faults else f"programs in {', '.join(sorted(ran))}")
    sys.exit(1 if faults else 0)


main()
