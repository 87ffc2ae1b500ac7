"""The Debian packages: made of what is built, and with the fields and files that they must have; unpacked into a root of their own,
which further tests build programs on; read by lintian.

    packages_test.py make    BUILD FOLDER    makes them in FOLDER/packages, looks at them, unpacks them into FOLDER/unpacked
    packages_test.py lintian FOLDER          lintian has no error to tell; 77, skipped, where it is not installed"""

import pathlib
import re
import shutil
import subprocess
import sys

RUNTIME, DEVELOPMENT, PYTHON = r"liborvik(\d+)", r"liborvik-dev", "python3-orvik"
PYTHONDIR = "usr/lib/python3/dist-packages/orvik"
LIBDIR = r"usr/lib/[\w-]+-linux-gnu"
# What a package must have; nothing but the directories of those may be in it.
FILES = {
    "runtime": [rf"{LIBDIR}/liborvik_kernel\.so\.\d+", rf"{LIBDIR}/liborvik_kernel\.so\.\d+\.\d+\.\d+",
                r"usr/share/doc/liborvik\d+/copyright", r"usr/share/doc/liborvik\d+/changelog\.gz",
                r"usr/share/doc/liborvik\d+/changelog\.Debian\.gz"],
    "development": [r"usr/include/orvik/orvik\.h", r"usr/include/orvik/version\.h", rf"{LIBDIR}/liborvik_kernel\.so",
                    rf"{LIBDIR}/pkgconfig/orvik\.pc", rf"{LIBDIR}/cmake/orvik/orvikConfig\.cmake",
                    rf"{LIBDIR}/cmake/orvik/orvikTargets\.cmake", r"usr/share/doc/liborvik-dev/copyright",
                    r"usr/share/doc/liborvik-dev/changelog\.Debian\.gz", r"usr/share/doc/liborvik-dev/README\.md",
                    r"usr/share/doc/liborvik-dev/docs/install\.md"],
    "python": [rf"{PYTHONDIR}/__init__\.py", rf"{PYTHONDIR}/__init__\.pyi", rf"{PYTHONDIR}/py\.typed",
               rf"{PYTHONDIR}/_math\.cpython-\d+-[\w-]+\.so", r"usr/share/doc/python3-orvik/copyright",
               r"usr/share/doc/python3-orvik/changelog\.gz", r"usr/share/doc/python3-orvik/changelog\.Debian\.gz"],
}
ALLOWED = {
    "runtime": rf"{LIBDIR}/liborvik_\w+\.so\.[\d.]+|usr/share/doc/liborvik\d+/.*|usr/share/lintian/overrides/.*",
    "development": rf"usr/include/orvik/\w+\.(h|hpp)|{LIBDIR}/(liborvik_\w+\.(so|a)|pkgconfig/orvik[\w-]*\.pc|cmake/orvik/.*)|"
                   r"usr/share/doc/liborvik-dev/.*|usr/share/lintian/overrides/.*",
    "python": rf"{PYTHONDIR}/(\w+/)*(\w+\.pyi?|py\.typed|_\w+\.cpython-\d+-[\w-]+\.so)|usr/share/doc/python3-orvik/.*|"
              r"usr/share/lintian/overrides/.*",
}


# Where the layer above the kernels is built.
FRONT = {"runtime": [rf"{LIBDIR}/liborvik_front\.so\.\d+"],
         "development": [r"usr/include/orvik/front\.h", r"usr/include/orvik/front\.hpp", rf"{LIBDIR}/liborvik_front\.so",
                         rf"{LIBDIR}/pkgconfig/orvik-front\.pc"]}


def run(*command):
    return subprocess.run([str(word) for word in command], check=True, capture_output=True, text=True).stdout


def fields(package):
    return dict(re.findall(r"^([\w-]+): (.*)$", run("dpkg-deb", "-f", package), re.MULTILINE))


def control(package, name):
    tar = subprocess.run(["dpkg-deb", "--ctrl-tarfile", package], check=True, capture_output=True).stdout
    return subprocess.run(["tar", "-xO", f"./{name}"], input=tar, check=True, capture_output=True).stdout.decode()


def expect(what, holds):
    if not holds:
        sys.exit(f"wrong: {what}")


def make(build, folder):
    shutil.rmtree(folder, ignore_errors=True)
    packages, root = folder / "packages", folder / "unpacked"
    made = subprocess.run(["cpack", "--config", build / "CPackConfig.cmake", "-G", "DEB", "-B", packages], check=True, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True).stdout
    expect(f"cpack warns: {made}", "Warning" not in made)
    found = {file.name.split("_")[0]: file for file in packages.glob("*.deb")}
    runtime = next((name for name in found if re.fullmatch(RUNTIME, name)), None)
    expect(f"the packages are {sorted(found)}", runtime and "liborvik-dev" in found)
    by_kind = {"runtime": found[runtime], "development": found["liborvik-dev"]}
    if (build / "python" / "orvik").exists():
        expect("there is a Python package", PYTHON in found)
        by_kind["python"] = found[PYTHON]

    about = {kind: fields(package) for kind, package in by_kind.items()}
    version = about["runtime"]["Version"]
    for kind, text in about.items():
        expect(f"version of {kind}: {text['Version']}", re.fullmatch(r"\d+\.\d+\.\d+-\d+", version) and text["Version"] == version)
        expect(f"architecture of {kind}", text["Architecture"] == run("dpkg", "--print-architecture").strip())
        expect(f"maintainer of {kind}", re.fullmatch(r".+ <\S+@\S+>", text["Maintainer"]))
        expect(f"description of {kind}", 20 < len(text["Description"]) <= 80)
        sums = control(by_kind[kind], "md5sums")
        files = [line for line in run("dpkg-deb", "-c", by_kind[kind]).splitlines() if line.startswith("-")]
        expect(f"checksums of {kind}: {len(sums.splitlines())} of {len(files)} files", len(sums.splitlines()) == len(files))
    soname = re.fullmatch(RUNTIME, runtime)[1]
    expect("sections", (about["runtime"]["Section"], about["development"]["Section"]) == ("libs", "libdevel"))
    expect("the library needs the runtimes of C, C++ and OpenMP",
           all(name in about["runtime"]["Depends"] for name in ("libc6", "libstdc++6", "libgomp1")))
    expect("the headers need the library of their version", about["development"]["Depends"] == f"{runtime} (= {version})")
    if "python" in by_kind:
        expect("section of the Python package", about["python"]["Section"] == "python")
        needed = re.split(r", ", about["python"]["Depends"])
        expect(f"the Python package needs {needed}", {f"{runtime} (= {version})", "python3-numpy-abi9"} <= set(needed))
        for script, command in (("postinst", "py3compile"), ("prerm", "py3clean")):
            expect(f"the Python package's {script} has {command}", f"{command} -p python3-orvik" in control(by_kind["python"], script))
        expect("and one series of Python", sum(bool(re.fullmatch(r"python3 \((>=|<<) 3\.\d+~?\)", one)) for one in needed) == 2)
    expect("shlibs", re.search(rf"^liborvik_kernel {soname} {runtime} \(>= \S+\)$", control(by_kind["runtime"], "shlibs"), re.MULTILINE))
    expect("trigger of the loader's cache", control(by_kind["runtime"], "triggers").strip() == "activate-noawait ldconfig")

    for kind, package in by_kind.items():
        (root / kind).mkdir(parents=True)
        run("dpkg", "-x", package, root / kind)
        have = {str(path.relative_to(root / kind)) for path in (root / kind).rglob("*") if not path.is_dir()}
        front = (build / "lib" / "liborvik_front.so").exists()
        for wanted in FILES[kind] + (FRONT.get(kind, []) if front else []):
            expect(f"{wanted} is not in the package {kind}", any(re.fullmatch(wanted, name) for name in have))
        for name in have:
            expect(f"{name} in the package {kind}", re.fullmatch(ALLOWED[kind], name))
        run("dpkg", "-x", package, root)
        shutil.rmtree(root / kind)
    for package in by_kind.values():
        print(package.name)


def lintian(folder):
    if not shutil.which("lintian"):
        print("lintian is not installed: the packages were not read")
        sys.exit(77)
    done = subprocess.run(["lintian", "--allow-root", "--fail-on", "error,warning", *sorted((folder / "packages").glob("*.deb"))],
                          check=False, capture_output=True, text=True)
    print(done.stdout + done.stderr)
    sys.exit(done.returncode)


if len(sys.argv) == 4 and sys.argv[1] == "make":
    make(pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3]))
elif len(sys.argv) == 3 and sys.argv[1] == "lintian":
    lintian(pathlib.Path(sys.argv[2]))
else:
    sys.exit(__doc__)
