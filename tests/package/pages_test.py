"""The pages: every relative link leads to a file and, where it names one, to a heading; the index names every page; the figures
of plots are all shown; versions of header and change log agree. Of pages that are installed, the links.

    pages_test.py PROJECT
    pages_test.py --installed FOLDER"""

import pathlib
import re
import sys
import tempfile

LINK = re.compile(r"!?\[[^\]]*\]\(([^)\s]+)\)")


def text_of(path):
    """A page without its blocks and spans of code, which may look like links."""
    text = path.read_text(encoding="utf-8")
    text = re.sub(r"^```.*?^```", "", text, flags=re.MULTILINE | re.DOTALL)
    return re.sub(r"`[^`\n]*`", lambda m: re.sub(r"[\[\]()]", "", m[0]), text)


def anchors(path):
    titles = re.findall(r"^#+ +(.*?) *$", path.read_text(encoding="utf-8"), re.MULTILINE)
    return {re.sub(r"[^\w\- ]", "", title.lower()).replace(" ", "-") for title in titles}


def pages_of(root):
    return sorted([*root.glob("*.md"), *(root / "docs").glob("**/*.md")])


def links(page):
    """Relative links: the file that each leads to, and the heading or nothing."""
    for target in LINK.findall(text_of(page)):
        if not re.match(r"\w+:", target):
            file, _, heading = target.partition("#")
            yield target, (page.parent / file).resolve() if file else page, heading


def linked(root):
    """Links that lead nowhere, and what the others lead to."""
    found = []
    shown = set()
    for page in pages_of(root):
        for target, file, heading in links(page):
            shown.add(file)
            if not file.exists():
                found.append(f"{page.relative_to(root)}: {target} leads nowhere")
            elif heading and heading not in anchors(file):
                found.append(f"{page.relative_to(root)}: {target} has no such heading")
    return found, shown


def faults(root):
    found, shown = linked(root)
    index = root / "docs" / "README.md"
    indexed = {file for _, file, _ in links(index)} | {index}
    found += [f"docs/README.md does not name {page.relative_to(root)}" for page in pages_of(root) if page.resolve() not in indexed]
    found += [f"no page shows {plot.relative_to(root)}" for plot in (root / "docs").glob("**/*.svg") if plot.resolve() not in shown]
    header = (root / "include/orvik/version.h").read_text(encoding="utf-8")
    version = ".".join(re.search(rf"^#define ORVIK_VERSION_{part} (\d+)$", header, re.MULTILINE)[1] for part in ("MAJOR", "MINOR", "PATCH"))
    releases = re.findall(r"^## (\d+\.\d+\.\d+)", (root / "CHANGELOG.md").read_text(encoding="utf-8"), re.MULTILINE)
    if releases[:1] != [version]:
        found.append(f"the change log begins with {releases[:1]}, the header says {version}")
    return found


def self_test():
    """That each kind of fault is seen."""
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder).resolve()
        (root / "docs").mkdir()
        (root / "include/orvik").mkdir(parents=True)
        (root / "include/orvik/version.h").write_text("".join(f"#define ORVIK_VERSION_{part} 1\n" for part in ("MAJOR", "MINOR", "PATCH")))
        (root / "CHANGELOG.md").write_text("# Changes\n\n## 1.1.0\n")
        (root / "docs/README.md").write_text("[a](a.md#no-such) [b](b.md) [c](../CHANGELOG.md)\n")
        (root / "docs/a.md").write_text("# A title\n")
        (root / "docs/c.md").write_text("# C\n```\n[code](nowhere)\n```\n")
        (root / "docs/c.svg").write_text("")
        seen = "\n".join(faults(root))
        for fault in ("b.md leads nowhere", "a.md#no-such has no such heading", "does not name docs/c.md", "no page shows docs/c.svg",
                      "the header says 1.1.1"):
            if fault not in seen:
                sys.exit(f"a fault was not seen: {fault} in\n{seen}")
        if "nowhere)" in seen or len(seen.splitlines()) != 5:
            sys.exit(f"faults that are none:\n{seen}")


def main():
    self_test()
    installed = sys.argv[1] == "--installed"
    root = pathlib.Path(sys.argv[-1]).resolve()
    found = (linked(root)[0] if pages_of(root) else ["no pages"]) if installed else faults(root)
    if found:
        sys.exit("\n".join(found))
    print(f"{len(pages_of(root))} pages")


main()
