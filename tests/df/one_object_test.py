"""The routines that search blocks of sites are large templates: they are compiled in one object, so that a change of one
is a change of one, and so that the library holds them once."""

import pathlib
import sys

root = pathlib.Path(sys.argv[1]) / "src"
users = {str(file.relative_to(root)) for file in root.rglob("*.[hc]*") if '"df/search/blocks.h"' in file.read_text()}
if users != {"df/search/finder.cc"}:
    sys.exit(f"df/search/blocks.h is included by {sorted(users)}, not by df/search/finder.cc alone")
