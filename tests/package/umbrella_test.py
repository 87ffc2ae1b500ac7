"""orvik.h includes every public header, directly or through another."""

import pathlib
import re
import sys


def main():
    folder = pathlib.Path(sys.argv[1])
    reached, todo = set(), ["orvik.h"]
    while todo:
        name = todo.pop()
        if name not in reached:
            reached.add(name)
            todo += re.findall(r'#include "orvik/([^"]+)"', (folder / name).read_text(encoding="utf-8"))
    missing = {path.name for path in folder.glob("*.h")} - reached
    print(f"not reached: {', '.join(sorted(missing))}" if missing else f"{len(reached)} headers")
    sys.exit(1 if missing else 0)


main()
