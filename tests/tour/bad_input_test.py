"""Input that the tour cannot use: one clear line on standard error, nothing on standard output, exit status 2; and odd
input that it can use: status 0."""

import pathlib
import subprocess
import sys
import tempfile

# Name, content (None: no such file), words of the message behind "tour: FILE".
BAD = [
    ("absent.csv", None, ": cannot be read"),
    ("empty.csv", b"", ": empty file, no header row"),
    ("blank.csv", b"\n\r\n\n", ": empty file, no header row"),
    ("header.csv", b"a,b\n", ": no row behind the header"),
    ("short.csv", b"a,b,c\n1,2,3\n4,5\n", ":3: 2 fields where the header has 3"),
    ("long.csv", b"a,b\n1,2\n\n1,2,3\n", ":4: 3 fields where the header has 2"),
    ("word.csv", b"a,b\r\n1,2\r\n3,x\r\n", ":3: 'x' is not a number (column b)"),
    ("half.csv", b"a\n1\n2e\n", ":3: '2e' is not a number (column a)"),
    ("nan.csv", b"a\n1\nnan\n", ":3: 'nan' is not a number (column a)"),
    ("comma.csv", b'a,b\n"1,5",2\n', ":2: '1,5' is not a number (column a)"),
    ("open.csv", b'a,b\n1,2\n3,"4\n', ":3: a quoted field has no end"),
    ("behind.csv", b'a,b\n"1"2,3\n', ":2: text behind the closing quote of a field"),
    ("nameless.csv", b"a,,c\n1,2,3\n", ":1: a column without a name in the header row"),
    ("binary.csv", b"a\n\x00\x01\n", ":2: '??' is not a number (column a)"),
    ("lines.csv", b'a\n"1\n2"\nx\n', ":2: '1?2' is not a number (column a)"),
]
# Missing values everywhere, a single row, one column, infinities: sections must cope.
ODD = [
    ("missing.csv", b"a,b\n,NA\nNA,\n"),
    ("row.csv", b"a,b\n1,2\n"),
    ("column.csv", b"a\n1\n2\n2\n"),
    ("constant.csv", b"a,b\n5,5\n5,5\n5,5\n"),
    ("quoted.csv", b'\xef\xbb\xbf"a, with ""quotes""",b\r\n"1",  2 \r\n3,+4e1'),
]


def main():
    program, faults = sys.argv[1], []
    with tempfile.TemporaryDirectory() as name:
        directory = pathlib.Path(name)

        def run(*arguments):
            return subprocess.run([program, *arguments], capture_output=True, text=True, check=False)

        def expect(what, result, message):
            if (result.returncode, result.stdout, result.stderr) != (2, "", message):
                faults.append(f"{what}: status {result.returncode}, out '{result.stdout}', error '{result.stderr}'")

        for file, content, words in BAD:
            path = directory / file
            if content is not None:
                path.write_bytes(content)
            expect(file, run(path), f"tour: {path}{words}\n")
        expect("a directory", run(directory), f"tour: {directory}: cannot be read\n")
        expect("no argument", run(), "usage: tour file.csv\n")
        expect("two arguments", run("a", "b"), "usage: tour file.csv\n")
        for file, content in ODD:
            path = directory / file
            path.write_bytes(content)
            result = run(path)
            if result.returncode != 0 or result.stderr:
                faults.append(f"{file}: status {result.returncode}, error '{result.stderr}'")
    print("\n".join(faults) if faults else f"{len(BAD) + 3} faults found, {len(ODD)} odd files read")
    sys.exit(1 if faults else 0)


main()
