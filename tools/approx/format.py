"""How the numbers of a table or a polynomial are written: the one formatter of tools/approx."""

import re

COLUMNS = 120


def packed(items, indent, last=""):
    """Items with commas between them, as many a line as fit."""
    lines, line = [], indent
    for k, item in enumerate(items):
        word = item + ("," if k + 1 < len(items) else last)
        if line != indent and len(line) + 1 + len(word) > COLUMNS:
            lines.append(line)
            line = indent
        line += ("" if line == indent else " ") + word
    return lines + [line]


def nested(values, sizes, indent):
    """The lines between the outer braces of an array."""
    if len(sizes) == 1:
        return packed(values, indent)
    width = len(values) // sizes[0]
    rows = [values[k : k + width] for k in range(0, len(values), width)]
    if len(sizes) == 2:
        whole = ["{" + ", ".join(row) + "}" for row in rows]
        if max(map(len, whole)) < COLUMNS - len(indent):
            return packed(whole, indent)
    lines = []
    for row in rows:
        lines += [indent + "{"] + nested(row, sizes[1:], indent + "    ") + [indent + "},"]
    return lines


def initializer(head, values, sizes):
    """`head` is all before the equals sign."""
    if not sizes:
        return f"{head} = {values[0]};"
    if len(sizes) == 1:
        line = f"{head} = {{{', '.join(values)}}};"
        if len(line) <= COLUMNS:
            return line
    return "\n".join([head + " = {"] + nested(values, sizes, "    ") + ["};"])


def source(header, name, type_name, name_space, values, sizes):
    """The text of the file that holds one extern table."""
    head = f"alignas(64) const {type_name} {name}{''.join(f'[{n}]' for n in sizes)}"
    space = name_space.removesuffix("::")
    return (
        f"// Written by tools/approx from the rule in {header}; do not edit.\n"
        f'#include "{header}"\n\n// clang-format off\nnamespace {space} {{\n\n'
        f"{initializer(head, values, sizes)}\n\n}}  // namespace {space}\n"
    )


def fill_header(text, name, values, sizes, outside, errors):
    """The header with the numbers of one declaration and the worst errors of its claims."""
    pattern = re.compile(
        r"(?P<rule>(?:^//:.*\n)*)(?P<head>^[^\n/]*\b" + name + r"(?:\[[^\]]*\])*)\s*(?:[={][^;]*)?;", re.MULTILINE
    )
    found = pattern.search(text)
    if found is None:
        raise ValueError(f"no declaration of {name}")
    remaining = iter(errors)
    rule = re.sub(r"(, (?:relative|absolute) error) \S+$", lambda m: f"{m[1]} {next(remaining)}", found["rule"], flags=re.M)
    if outside:
        made = rule + found["head"] + ";"
    else:
        head = re.sub(r"\[\]", f"[{sizes[0]}]" if sizes else "", found["head"])
        made = rule + initializer(head, values, sizes)
    return text[: found.start()] + made + text[found.end() :]
