"""Tries Quillmarsh with the applications of known.py, each on a desktop of its own, prints a line for
each cell, and writes the table to matrix.md:  matrix.py RELEASE [APPLICATION ...]
A cell that did not come out as known.py expects is an error."""

import pathlib
import sys
import traceback

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE.parent / "support")]
from known import APPLICATIONS, COLUMNS  # noqa: E402
from trial import Trial  # noqa: E402

GOOD = "✓"
HEAD = """# With every application

What `tests/applications/run` saw on {release}. ✓: as it should be, read back from the program. –: the
program has no such thing. Anything else is what a person meets, and the notes say why.

"""


def attempt(application, column):
    """What the cell says, and whether that is as it should be."""
    trial = getattr(application, column, None)
    if trial is None:
        return "–", True
    try:
        with Trial(application) as desk:
            try:
                return trial(desk) or GOOD, True
            except BaseException:
                desk.picture(f"{application.name}-{column}")
                raise
    except KeyboardInterrupt:
        raise
    except Exception as problem:  # any way to fail is a cell of the table
        traceback.print_exc()
        return f"✗ {problem}".splitlines()[0], False


def main():
    release, *wanted = sys.argv[1:]
    rows, failures = [], 0
    for application in APPLICATIONS:
        if wanted and application.name not in wanted:
            continue
        cells = []
        for column in COLUMNS:
            cell, is_good = attempt(application, column)
            print(f"{application.name}: {column.replace('_', ' ')}: {cell}", flush=True)
            failures += not is_good
            cells.append(cell)
        rows.append([application.name, *cells])
    heads = ["application", *(column.replace("_", " ") for column in COLUMNS)]
    lines = [heads, ["---"] * len(heads), *rows]
    notes = [f"- **{a.name}**: {a.note}" for a in APPLICATIONS if a.note]
    pathlib.Path("matrix.md").write_text(
        HEAD.format(release=release.replace("-", " "))
        + "\n".join("| " + " | ".join(line) + " |" for line in lines)
        + "\n\n## Notes\n\n" + "\n".join(notes) + "\n", encoding="utf-8")
    print(f"{sum(len(row) - 1 for row in rows) - failures} passed, {failures} failed")
    return failures != 0


if __name__ == "__main__":
    sys.exit(main())
