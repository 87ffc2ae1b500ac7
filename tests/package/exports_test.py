"""The shared library exports exactly the names of the generated list, no more and no fewer, and bears its soname."""

import argparse
import re
import subprocess
import sys


def listed(path):
    with open(path, encoding="utf-8") as file:
        body = re.search(r"global:(.*?)local:", file.read(), re.DOTALL).group(1)
    names = [name for name in (part.strip() for part in body.split(";")) if name]
    for name in names:
        if not re.fullmatch(r"\w+", name):
            sys.exit(f"{path}: '{name}' is a pattern, not a name")
    return names


def exported(nm, library):
    output = subprocess.run([nm, "-D", "--defined-only", library], check=True, capture_output=True, text=True).stdout
    names, version = [], None
    for line in output.splitlines():
        kind, name = line.split()[-2:]
        if kind == "A":  # the version's own symbol
            version = name.partition("@@")[0]
            continue
        name, _, tag = name.partition("@@")
        names.append(name)
        if tag != "ORVIK_2":
            sys.exit(f"{name} has the version '{tag}'")
    if version != "ORVIK_2":
        sys.exit(f"the version of the library is '{version}'")
    return names


def soname(readelf, library):
    output = subprocess.run([readelf, "-dW", library], check=True, capture_output=True, text=True).stdout
    return re.search(r"\(SONAME\).*\[(.*)\]", output).group(1)


def runpath(readelf, library):
    output = subprocess.run([readelf, "-dW", library], check=True, capture_output=True, text=True).stdout
    found = re.search(r"\(RUNPATH\).*\[(.*)\]", output)
    return found.group(1) if found else None


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--nm", required=True)
    parser.add_argument("--readelf", required=True)
    parser.add_argument("--soname", required=True)
    parser.add_argument("--binary", required=True)
    parser.add_argument("--map", required=True)
    parser.add_argument("--runpath")  # where it says that it looks for its libraries
    parser.add_argument("--prefix", default="")  # of all names
    arguments = parser.parse_args()
    want, got = listed(arguments.map), exported(arguments.nm, arguments.binary)
    seen = set()
    faults = [f"listed twice: {name}" for name in want if name in seen or seen.add(name)]
    faults += [f"listed, not exported: {name}" for name in sorted(seen - set(got))]
    faults += [f"exported, not listed: {name}" for name in sorted(set(got) - seen)]
    if soname(arguments.readelf, arguments.binary) != arguments.soname:
        faults.append(f"soname {soname(arguments.readelf, arguments.binary)} instead of {arguments.soname}")
    faults += [f"does not begin with {arguments.prefix}: {name}" for name in got if not name.startswith(arguments.prefix)]
    if arguments.runpath and arguments.runpath != runpath(arguments.readelf, arguments.binary):
        faults.append(f"runpath {runpath(arguments.readelf, arguments.binary)} instead of {arguments.runpath}")
    print("\n".join(faults) if faults else f"{len(got)} names, all as listed")
    sys.exit(1 if faults or not got else 0)


main()
