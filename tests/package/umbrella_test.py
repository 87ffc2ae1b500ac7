"""orvik.h and front.h, the layer above, include every public header, directly or through another; orvik.h none of the front's."""

import pathlib
import re
import sys


def main():
    folder = pathlib.Path(sys.argv[1])


    def reach(first):
        reached, todo = set(), [first]
        while todo:
            name = todo.pop()
            if name not in reached:
                reached.add(name)
                todo += re.findall(r'#include "orvik/([^"]+)"', (folder / name).read_text(encoding="utf-8"))
        return reached

    kernels = reach("orvik.h")
    above = sorted(name for name in kernels if name.startswith("front"))
    if above:
        print(f"orvik.h includes {', '.join(above)}")
        sys.exit(1)
    reached = kernels | reach("front.h")
    missing = {path.name for path in folder.glob("*.h")} - reached
    print(f"not reached: {', '.join(sorted(missing))}" if missing else f"{len(reached)} headers")
    sys.exit(1 if missing else 0)


main()
