"""What the pages of figures share: the table rows that a benchmark prints, and which of them miss their goals."""
import subprocess


def rows(command, env=None):
    """Runs a benchmark; the cells of the table rows of its output, header first."""
    printed = subprocess.run(command, env=env, check=True, stdout=subprocess.PIPE, text=True).stdout
    cells = [[c.strip() for c in line.strip("|").split("|")] for line in printed.splitlines() if line.startswith("|")]
    return [row for row in cells if not row[0].startswith("---")]


def markdown(table):
    lines = ["| " + " | ".join(row) + " |" for row in table]
    return [lines[0], "|---" * len(table[0]) + "|"] + lines[1:]


def shortfalls(misses):
    """A paragraph and a list of (what, value, goal), or a line that there is nothing to list."""
    if not misses:
        return ["Every goal is reached."]
    return ["Short of their goals:", ""] + [f"- {what}: {value}, goal {goal}" for what, value, goal in misses]
