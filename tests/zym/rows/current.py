#!/usr/bin/env python3
"""current.py ROWS_TOOL WHAT FILE: FILE is what the generator makes now."""
import difflib
import subprocess
import sys
import tempfile
from pathlib import Path

tool, what, file = sys.argv[1:]
with tempfile.TemporaryDirectory() as directory:
    made = Path(directory) / "made"
    subprocess.run([sys.executable, tool, what, made], check=True)
    difference = list(difflib.unified_diff(Path(file).read_text().splitlines(), made.read_text().splitlines(),
                                           "checked in", "generated", lineterm="", n=0))
if difference:
    sys.exit("\n".join([f"{file} is not current; run: {tool} {what} {file}"] + difference[:20]))
