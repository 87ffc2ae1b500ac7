"""The figures of README.md are those of docs/performance-vector.md and, beside NumPy, of its twin of another processor, its
count of rows that of docs/status.md; and a figure that differs on either side is seen.

    readme_test.py PROJECT"""

import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

FILES = ["README.md", "docs/performance-vector.md", "docs/performance-vector-zen4.md", "docs/status.md"]


def readme(project, *arguments):
    return subprocess.run([sys.executable, project / "bench" / "zym" / "readme.py", *arguments], check=False,
                          capture_output=True, text=True)


def changed(text, pattern):
    """The text with the last digit that the pattern's group ends in changed."""
    place = re.search(pattern, text).end(1) - 1
    return text[:place] + str((int(text[place]) + 1) % 10) + text[place + 1:]


def main():
    project = pathlib.Path(sys.argv[1])
    done = readme(project, "--check")
    if done.returncode != 0:
        sys.exit(done.stderr)
    # Independently of the script: each figure of the block stands in the page's line of that row.
    text = (project / "README.md").read_text(encoding="utf-8")
    page = (project / "docs/performance-vector.md").read_text(encoding="utf-8")
    block = text.split("<!-- figures: ")[1].split("<!-- end of figures -->")[0]
    count = 0
    for line in re.findall(r"^\| `.*", block, re.MULTILINE):
        name = line.split("|")[1].strip()
        where = "\n".join(found for found in page.splitlines() if found.startswith(f"| {name} |"))
        for figure in re.findall(r"\d+\.\d+", line):
            count += 1
            if figure not in re.findall(r"\d+\.\d+", where):
                sys.exit(f"{name}: {figure} does not stand in docs/performance-vector.md")
    if count < 20:
        sys.exit(f"only {count} figures in README.md")

    # Faults that the check must see, each in a copy of its own.
    faults = [("README.md", r"\| `sExp` \| (\d\.\d+)"), ("README.md", r"\| `sAdd` \| \d\.\d+ \| (\d\.\d+) \| \d\.\d+ \|$"),
              ("docs/performance-vector.md", r"\| `sExp` \| HA \| [\d.]+ \| ([\d.]+)"), ("docs/performance-vector-zen4.md", r"\| LA \| of 512 bits \| 10,000 \| \d+ \| (\d+\.\d+)"),
              ("docs/status.md", r"(\d+) of \d+ table")]
    for file, pattern in faults:
        with tempfile.TemporaryDirectory() as directory:
            root = pathlib.Path(directory)
            (root / "docs").mkdir()
            for name in FILES:
                shutil.copy(project / name, root / name)
            fault = changed((root / file).read_text(encoding="utf-8"), re.compile(pattern, re.MULTILINE))
            (root / file).write_text(fault, encoding="utf-8")
            if readme(project, "--check", root).returncode == 0:
                sys.exit(f"a fault in {file} ({pattern}) was not seen")
            if readme(project, root).returncode != 0 or readme(project, "--check", root).returncode != 0:
                sys.exit(f"a fault in {file} was not mended")
    print(f"{count} figures, {len(faults)} faults seen")


main()
