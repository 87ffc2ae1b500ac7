"""Every status of the kernels and of the front has a sentence of its own: statuses.def against the headers, the statistics'
list of statuses and the table of their fields."""

import pathlib
import re
import sys


def main():
    root = pathlib.Path(sys.argv[1])

    def read(name):
        return (root / name).read_text(encoding="utf-8")

    texts = {}
    for number, text in re.findall(r'^(?:STATUS|SHARED)\((-?\d+), (".*)\)$', read("src/front/statuses.def"), re.MULTILINE):
        texts[int(number)] = text
    shared = {int(n) for n in re.findall(r"^SHARED\((-?\d+),", read("src/front/statuses.def"), re.MULTILINE)}
    streams = {int(n) for n in re.findall(r"ORVIK_QOR_\w+ = (-\d+)", read("include/orvik/qor.h"))}
    fitting = {int(n) for n in re.findall(r"DFS_\w+ = (-\d+)", read("include/orvik/df.h"))}
    front = {int(n) for n in re.findall(r"ORVIK_(?:ERROR_\w+|SUCCESS|DOMAIN|SINGULARITY|OVERFLOW|UNDERFLOW) = (-?\d+)",
                                        read("include/orvik/front.h"))}
    vectors = {int(n) for n in re.findall(r"zymError\w+ = (-?\d+)", read("include/orvik/zym_types.h"))}
    statistics = {int(n) for n in re.findall(r"= (-?\d+),", read("src/qor/ss/status.h"))}
    statistics |= {int(n) for n in re.findall(r"-4\d\d\d", read("docs/statistics.md"))}
    faults = []
    for name, numbers, least in (("streams", streams, 30), ("fitting", fitting, 25), ("front", front, 15),
                                 ("vectors", vectors, 6), ("statistics", statistics, 60)):
        if len(numbers) < least:
            faults.append(f"{name}: only {len(numbers)} statuses were found; has the header changed its form?")
        faults += [f"{name}: {n} has no sentence" for n in sorted(numbers - set(texts))]
    faults += [f"{n} is shared by streams and fitting, and its sentence names one" for n in sorted(streams & fitting - shared)]
    faults += [f"{n} is not shared" for n in sorted(shared - (streams & fitting))]
    said = {}
    for number, text in texts.items():
        if text in said:
            faults.append(f"{number} has the sentence of {said[text]}")
        said[text] = number
    print("\n".join(faults) if faults else f"{len(texts)} sentences")
    sys.exit(1 if faults else 0)


main()
