"""What Doxygen reads of a public header, to standard output: the header's plain comments as documentation; of a page, all but the
links that lead out of its folder.

    doxygen_filter.py HEADER-OR-PAGE

The headers are written for people who read them: a comment stands above a run of declarations without a blank line between and
holds for all of them; one behind a declaration or value holds for that one alone; `/* ---- Title --- */` begins a section, and the
first comment of a file is about the file. Macros that declare functions and are undefined at the end of the file are expanded
here, comments included, which no preprocessor would do."""

import re
import sys

TITLE = re.compile(r"^-{3,} (.*?) -{3,}$", re.DOTALL)
OPENS = re.compile(r"^(typedef )?(struct|class|union|enum|namespace|extern \"C\"|inline namespace)(?!\w)[^()=]*$")
TOKEN = re.compile(r"""
    (?P<comment>/\*.*?\*/|(?://[^\n]*(?:\n[ \t]*//[^\n]*)*)) |
    (?P<string>"(?:\\.|[^"\\\n])*"|'(?:\\.|[^'\\\n])*') |
    (?P<hash>^[ \t]*\#(?:\\\n|/\*.*?\*/|[^\n])*) |
    (?P<blank>\n[ \t]*\n) | (?P<open>[({\[]) | (?P<close>[)}\]]) | (?P<end>;) | (?P<comma>,) | (?P<line>\n) |
    (?P<other>\\.|[^\n])""", re.VERBOSE | re.DOTALL | re.MULTILINE)


def plain(comment):
    """The text of a comment, lines kept."""
    if comment.startswith("//"):
        return "\n".join(re.sub(r"^\s*///?<? ?", "", line) for line in comment.split("\n")).rstrip()
    first, *others = comment[2:-2].rstrip(" \\").split("\n")
    others = [re.sub(r"^\s*\* ?|^\s*", "", line, count=1).rstrip(" \\") for line in others]
    return "\n".join([first.strip(), *others]).strip("\n ")


def marked_up(text):
    """A comment's text for Doxygen: no character commands, indented lines as they stand."""
    out, shown = [], False
    for line in text.split("\n"):
        indented = line.startswith("  ")
        if indented and not shown:
            out.append("\\verbatim")
        elif shown and not indented:
            out.append("\\endverbatim")
        shown = indented
        if not indented:
            pieces = re.split(r"(`[^`]*`)", line)
            pieces[::2] = [re.sub(r"([\\@<>&#%*|~$])", r"\\\1", piece) for piece in pieces[::2]]
            # Names with leading underscores are no emphasis, a minus before a digit begins no list.
            pieces[::2] = [re.sub(r"(?<![\w.])(__?\w+)", r"`\1`", piece) for piece in pieces[::2]]
            line = re.sub(r"^-(?=\d)", "&minus;", "".join(pieces))
        out.append(line)
    return "\n".join(out + ["\\endverbatim"] * shown)


def doc(text, head="", mark="/**"):
    return f"{mark} {head}{marked_up(text)} */"


def arguments(text, start):
    """The arguments of the call whose parenthesis opens at start, and where it ends."""
    depth, begin, found = 0, start + 1, []
    for at in range(start, len(text)):
        depth += (text[at] == "(") - (text[at] == ")")
        if depth == 0 or (depth == 1 and text[at] == ","):
            found.append(text[begin:at].strip())
            begin = at + 1
        if depth == 0:
            return found, at + 1
    raise ValueError("no end of a macro's arguments")


def expand(text):
    """The text with the macros that it undefines expanded and gone."""
    macros = {}
    for name in re.findall(r"^#undef (\w+)$", text, re.MULTILINE):
        found = re.search(rf"((?:^/\*(?:[^*]|\*(?!/))*\*/\n)?)^#define {name}\(([^)]*)\)((?:.*\\\n)*.*\n)", text, re.MULTILINE)
        if found:
            body = re.sub(r"\s*\\\n", "\n", found[3]).strip()
            if ";" in body and "/*" not in body:  # the comment above it is about what it declares
                body = found[1] + body
            macros[name] = [p.strip() for p in found[2].split(",")], body
            text = text.replace(found[0], found[1] if found[1] not in body else "")
        text = text.replace(f"#undef {name}\n", "")
    while macros:
        call = re.search(rf"\b({'|'.join(macros)})[ ]?\(", text)
        if not call:
            break
        names, body = macros[call[1]]
        values, end = arguments(text, call.end() - 1)
        parts = re.split(r"(/\*.*?\*/|//[^\n]*)", body, flags=re.DOTALL)
        if names[-1:] == ["..."]:
            names = names[:-1] + ["__VA_ARGS__"]
            values = values[:len(names) - 1] + [", ".join(values[len(names) - 1:])]
        for name, value in zip(names, values):
            parts[::2] = [re.sub(rf"(?:\s*##\s*)?\b{name}\b(?:\s*##\s*)?", lambda _, v=value: v, part) for part in parts[::2]]
        own_line = text.rfind("\n", 0, call.start()) + 1 == call.start() and ";" in body
        if own_line and text[end:end + 1] == ";" and body.endswith(";"):
            end += 1
        text = text[:call.start()] + "".join(parts) + text[end:]
    return text


def apart(declaration):
    """The fields that a declaration has, each with its own, so that what is said of them is said of each."""
    found = re.fullmatch(r"\s*((?:\w+\s+)*\w+) (\w+(?:\[\w+\])?(?:, \w+(?:\[\w+\])?)+);", declaration)
    return [f"{found[1]} {name};" for name in found[2].split(", ")] if found else [declaration]


def without_template(declaration):
    """A declaration without template<...> in front."""
    text = " ".join(declaration.split())
    while text.startswith("template"):
        depth = 0
        for at, character in enumerate(text):
            depth += (character == "<") - (character == ">")
            if character == ">" and depth == 0:
                break
        text = text[at + 1:].strip()
    return text


class Writer:
    """Statements with their documentation, item by item."""

    def __init__(self):
        self.out, self.scopes = [], []
        self.pending = None  # the comment above that holds for what comes next
        self.section, self.section_depth, self.first, self.about = False, 0, True, ""

    def end_section(self):
        if self.section:
            self.out.append("/**@}*/")
        self.section = False

    def comment(self, text, detached):
        title = TITLE.match(text)
        if title:
            self.end_section()
            self.out.append(f"/** \\name {title[1]} */\n/**@{{*/")
            self.section, self.pending, self.section_depth = True, None, len(self.scopes)
        elif self.first:
            self.out.append(doc(text, "\\file\n"))
            self.about, self.first = text, False
        else:
            if detached and self.out and self.out[-1].startswith("/** \\name "):
                self.out[-1] = self.out[-1].replace(" */", "\n" + marked_up(text) + " */", 1)
            self.pending = None if detached else text

    def item(self, text, trailing=None):
        text = text.strip()
        if text and self.pending is not None:
            self.out.append(doc(self.pending))
        self.out.append(text + (doc(trailing, mark=" /**<") if trailing else ""))


def filtered(text):
    w, item, depth, above = Writer(), "", 0, []
    text = expand(text)
    tokens = list(TOKEN.finditer(text))
    at = 0

    def trailing():
        """The comment on the rest of the line behind the token at `at`, taken."""
        nonlocal at
        ahead = at + 1
        while ahead < len(tokens) and tokens[ahead][0] in " \t":
            ahead += 1
        if ahead < len(tokens) and tokens[ahead].lastgroup == "comment":
            at = ahead
            return plain(tokens[ahead][0])
        return None

    while at < len(tokens):
        kind, t = tokens[at].lastgroup, tokens[at][0]
        fresh = not item.strip() and depth == 0
        if kind == "comment":
            if fresh:
                detached = at + 1 < len(tokens) and tokens[at + 1].lastgroup == "blank"
                w.comment(plain(t), detached)
            elif depth == 0 and w.scopes and w.scopes[-1] == "enum":
                w.item(item, plain(t))
                item = ""
        elif kind == "hash" and fresh:
            note = re.search(r"/\*(.*?)\*/\s*$", t)
            if re.match(r"#define \w+(\(|\s+\S)", t):
                w.item(t[:note.start()] if note else t, plain(note[0]) if note else None)
            else:
                w.pending = None
                w.out.append(t[:note.start()] if note else t)
        elif kind == "blank" and fresh:
            w.pending = None
            w.out.append("")
        elif kind == "open":
            if t == "{" and depth == 0 and OPENS.match(without_template(item)):
                scope = next((word for word in ("enum", "extern") if re.match(rf"\s*(typedef )?{word}\b", item)), "block")
                if re.match(r"extern", item.strip()):
                    w.pending = None
                elif re.match(r"(inline )?namespace", item.strip()):  # whose members Doxygen passes over if it has no text
                    w.pending = w.pending or w.about.split("\n\n")[0]
                w.item(item + "{")
                above.append(w.pending)
                w.pending, item = None, ""
                w.scopes.append(scope)
            else:
                depth += 1
                item += t
        elif kind == "close":
            if depth == 0 and t == "}":
                if item.strip():
                    w.item(item)
                if w.scopes[-1] != "extern" and w.section_depth >= len(w.scopes):
                    w.end_section()
                w.scopes.pop()
                w.pending = above.pop()  # holds for a neighbour without a blank line between
                tail = re.match(r"[ \t]*(\w[\w ]*)?;", text[tokens[at].end():])
                w.out.append("}" + (tail[0] if tail else ""))
                item = ""
                if tail:
                    end = tokens[at].end() + tail.end()
                    while at + 1 < len(tokens) and tokens[at + 1].start() < end:
                        at += 1
                    note = trailing()
                    if note:
                        w.out[-1] += doc(note, mark=" /**<")
            else:
                depth -= 1
                item += t
                if depth == 0 and t == "}":  # a function's body, or a value in braces
                    rest = text[tokens[at].end():].lstrip(" ")
                    if rest[:1] == "\n" or rest[:2] in ("//", "/*"):
                        w.item(item, trailing())
                        item = ""
        elif kind == "end" and depth == 0:
            item += t
            note = trailing()
            for one in apart(item) if w.scopes[-1:] == ["block"] else [item]:
                w.item(one, note)
            item = ""
        elif kind == "comma" and depth == 0 and w.scopes and w.scopes[-1] == "enum":
            w.item(item + t, trailing())
            item = ""
        elif depth == 0 and re.fullmatch(r"\s*(public|private|protected)", item) and t == ":":
            w.out.append(item.strip() + ":")
            w.pending, item = None, ""
        else:
            item += " " if t == "\n" and kind == "line" and not item.strip().startswith("#") else t
        at += 1
    w.end_section()
    return "\n".join(w.out) + "\n"


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    with open(sys.argv[1], encoding="utf-8") as file:
        text = file.read()
    sys.stdout.write(re.sub(r"(?<!!)\[([^\]]*)\]\(\.\./[^)]*\)", r"\1", text) if sys.argv[1].endswith(".md") else filtered(text))


if __name__ == "__main__":
    main()
