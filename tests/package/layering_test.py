"""Calls go downward only: which folder of src/ may include from which. A folder may always include from itself. And vector
instructions stand in src/lanes alone."""

import pathlib
import re
import sys
import tempfile

# Folder: what it may include from. Subfolders count as the folder unless they have a line of their own.
ALLOWED = {
    "lanes": set(),
    "serv": set(),
    "zym": {"lanes", "serv"},
    "qor": {"lanes", "serv", "zym"},
    "qor/stream": {"lanes", "serv", "zym", "qor"},
    "qor/brng": {"lanes", "serv", "zym", "qor", "qor/stream"},
    "qor/rng": {"lanes", "serv", "zym", "qor", "qor/stream", "qor/brng"},
    "qor/ss": {"lanes", "serv", "zym", "qor", "qor/stream", "qor/brng", "qor/rng"},
    "df": {"lanes", "serv"},
    "front": {"lanes", "serv"},
}
# Folders above the kernels, which see all of them through the public headers and nothing else of them.
ABOVE = {"front"}
# Folder that owns a public header, where the header's first word is not the folder's name.
HEADERS = {"ss": "qor/ss"}
SOURCES = {".h", ".hpp", ".c", ".cc", ".cpp", ".inc", ".def", ".S"}
INTRINSIC = re.compile(r"\b_mm\w*_\w+\s*\(|\b__m(?:64|128|256|512)[id]?\b|[<\"]\w*intrin\.h[>\"]")
INCLUDE = re.compile(r'^\s*#\s*include\s*["<]([^">]+)[">]', re.MULTILINE)


def folder_of(path):
    """The longest line of the table that a path relative to src/ lies in."""
    for length in range(len(path.parts) - 1, 0, -1):
        folder = "/".join(path.parts[:length])
        if folder in ALLOWED:
            return folder
    return None


def target_of(source, source_folder, included, root):
    """The folder that an include leads to; None outside the library."""
    path = pathlib.PurePosixPath(included)
    if path.parts[0] == "orvik":
        word = re.split(r"[_.]", path.name)[0]
        if word != "front" and source_folder in ABOVE:
            return None
        return "every folder" if word == "orvik" else HEADERS.get(word, word)
    for file in (source.parent / path, root / path):
        file = file.resolve()
        if file.is_file() and file.is_relative_to(root):
            return folder_of(file.relative_to(root))
    return None


def faults(root):
    root = root.resolve()
    found, files = [], 0
    for source in sorted(root.rglob("*")):
        if source.suffix not in SOURCES or not source.is_file():
            continue
        files += 1
        relative = source.relative_to(root)
        folder = folder_of(relative)
        if folder is None:
            found.append(f"{relative}: a folder without a line in the table")
            continue
        text = source.read_text(encoding="utf-8")
        if folder != "lanes":
            found += [f"{relative}: vector instruction outside src/lanes: {name.strip()}" for name in
                      sorted({m.group(0) for m in INTRINSIC.finditer(text)})]
        for included in INCLUDE.findall(text):
            target = target_of(source, folder, included, root)
            if target is not None and target != folder and target not in ALLOWED[folder]:
                found.append(f"{relative}: {folder} includes {included} of {target}")
    return found, files


def self_test():
    """The files named bad and worse must be found, and no other."""
    files = {
        "serv/memory.h": "",
        "serv/bad.cc": '#include "zym/frame/mode.h"\n',
        "zym/frame/mode.h": '#include "serv/memory.h"\n#include <vector>\n',
        "zym/frame/bad.h": '#include "orvik/ss.h"\n',
        "qor/stream/stream.h": '#include "orvik/serv.h"\n#include "zym/frame/mode.h"\n',
        "qor/stream/bad.cc": '#  include "qor/ss/task.h"\n',
        "qor/ss/task.h": '#include "qor/stream/stream.h"\n#include "orvik/ss.h"\n',
        "df/task.h": '#include "serv/memory.h"\n',
        "df/bad.cc": '#include "../zym/frame/mode.h"\n',
        "df/worse.cc": '#include "orvik/orvik.h"\n',
        "new/bad.cc": "",
        "lanes/vectors.h": '#include <immintrin.h>\ninline __m256 f(__m256 a) { return _mm256_add_ps(a, a); }\n',
        "zym/kernels/lanes.h": '#include "lanes/vectors.h"\n',
        "zym/kernels/bad.h": "inline __m256d g();\n",
        "df/search/bad.cc": "int x = _mm_cvtsi128_si32(y);\n",
        "qor/stream/worse.cc": "#include <wmmintrin.h>\n",
        "front/front.cc": '#include "orvik/zym.h"\n#include "orvik/front.h"\n#include "lanes/vectors.h"\n',
        "front/bad.cc": '#include "zym/frame/mode.h"\n',
        "qor/rng/bad.cc": '#include "orvik/front.h"\n',
        "zym/kernels/worse.h": '#include "front/front.h"\n',
        "front/front.h": "",
        "lanes/bad.h": '#include "serv/memory.h"\n',
    }
    with tempfile.TemporaryDirectory() as directory:
        root = pathlib.Path(directory)
        for name, text in files.items():
            (root / name).parent.mkdir(parents=True, exist_ok=True)
            (root / name).write_text(text, encoding="utf-8")
        found, _ = faults(root)
    print(*found, sep="\n")
    return sorted(line.split(":")[0] for line in found) == sorted(
        name for name in files if pathlib.PurePosixPath(name).stem in ("bad", "worse"))


def main():
    if sys.argv[1] == "--self-test":
        sys.exit(0 if self_test() else 1)
    found, files = faults(pathlib.Path(sys.argv[1]))
    print("\n".join(found) if found else f"{files} files, no include against the layers")
    sys.exit(1 if found or files == 0 else 0)


main()
