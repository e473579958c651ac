"""Tries Quillmarsh with the applications of known.py, each on a desktop of its own, prints a line for
each cell and then the page, and writes that to applications.md:  matrix.py RELEASE [APPLICATION ...]
With APPLICATIONS only those are tried, and the page's other rows stay as they are. A cell that did
not come out as it should is an error."""

import pathlib
import re
import subprocess
import sys
import traceback

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE.parent / "support")]
from application import COLUMNS, NOTES  # noqa: E402
from known import APPLICATIONS  # noqa: E402
from trial import Trial  # noqa: E402

GOOD = "✓"
PAGE = pathlib.Path("applications.md")


def attempt(application, column):
    """What the cell says, and whether that is as it should be."""
    if column in application.absent:
        return f"–[^{application.absent[column]}]", True
    trial = getattr(application, column)
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


def version(package):
    told = subprocess.run(["dpkg-query", "--show", "--showformat=${Version}", package],
                          capture_output=True, text=True, check=False).stdout
    return told.partition(":")[2] or told


def earlier_rows():
    lines = PAGE.read_text(encoding="utf-8").splitlines()
    rows = ([cell.strip() for cell in line.strip("|").split("|")]
            for line in lines if line.startswith("|"))
    return {row[0]: row for row in rows}


def page(release, rows):
    heads = ["application", "version", *(column.replace("_", " ") for column in COLUMNS)]
    lines = [heads, ["---"] * len(heads), *rows]
    # What stands above the table is the page's own, but for the release.
    head = re.sub(r"(What the real programs of ).*?( did)", rf"\g<1>{release.replace('-', ' ')}\2",
                  PAGE.read_text(encoding="utf-8").partition("| application |")[0])
    table = "\n".join("| " + " | ".join(line) + " |" for line in lines)
    notes = "\n".join(f"[^{name}]: {note}" for name, note in NOTES.items())
    return f"{head}{table}\n\n{notes}\n"


def main():
    release, *wanted = sys.argv[1:]
    earlier = earlier_rows()
    rows, passed, failed = [], 0, 0
    for application in APPLICATIONS:
        if wanted and application.name not in wanted:
            rows.append(earlier.get(application.name,
                                    [application.name, "", *["not tried"] * len(COLUMNS)]))
            continue
        rows.append([application.name, version(application.package)])
        for column in COLUMNS:
            cell, is_good = attempt(application, column)
            print(f"{application.name}: {column.replace('_', ' ')}: {cell}", flush=True)
            passed, failed = passed + is_good, failed + (not is_good)
            rows[-1].append(cell)
    PAGE.write_text(page(release, rows), encoding="utf-8")
    print("", PAGE.read_text(encoding="utf-8"), f"{passed} passed, {failed} failed", sep="\n")
    return failed != 0


if __name__ == "__main__":
    sys.exit(main())
