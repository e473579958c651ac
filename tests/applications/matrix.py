"""Tries Quillmarsh with the applications of known.py, each on a desktop of its own, prints a line for
each cell and then the page, and writes that to applications.md:  matrix.py RELEASE [APPLICATION ...]
With APPLICATIONS only those are tried, and the page's other rows stay as they are. A cell that did
not come out as it should is an error."""

import pathlib
import sys
import traceback

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE.parent / "support")]
from application import COLUMNS, NOTES  # noqa: E402
from known import APPLICATIONS  # noqa: E402
from report import rewritten, version  # noqa: E402
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


def earlier_rows():
    lines = PAGE.read_text(encoding="utf-8").splitlines()
    rows = ([cell.strip() for cell in line.strip("|").split("|")]
            for line in lines if line.startswith("|"))
    return {row[0]: row for row in rows}


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
    heads = ["application", "version", *(column.replace("_", " ") for column in COLUMNS)]
    PAGE.write_text(rewritten(PAGE.read_text(encoding="utf-8"), release, heads, rows, NOTES),
                    encoding="utf-8")
    print("", PAGE.read_text(encoding="utf-8"), f"{passed} passed, {failed} failed", sep="\n")
    return failed != 0


if __name__ == "__main__":
    sys.exit(main())
