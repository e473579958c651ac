"""Tries Quillmarsh with the applications of known.py, each on a desktop of its own, prints a line for
each cell and then the page, and writes that to applications.md:  matrix.py RELEASE [APPLICATION ...]
With APPLICATIONS only those are tried, and the page's other rows stay as they are. A cell that did
not come out as it should is an error."""

import pathlib
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
HEAD = """# With every application

What the real programs of {release} did beside Quillmarsh, each on a desktop of its own: openbox,
a notification service, a session bus and an empty home. `tests/applications/run` wrote this page; it
makes a fresh root of the release, installs the package and the applications, and works them by
their keys, as a person would. To repeat it, as root, with a Debian mirror and 12 GB to spare:

    tools/package
    tests/applications/run 12                                # everything, in about half an hour
    tests/applications/run 12 build/package/*.deb kate GIMP  # some, whose rows are written anew

✓: as it should be. –: the application has no such thing; the note says why. Anything else is what
went wrong.

- **copy text**: a copy by the application's own keys is in the history, under its name.
- **copy rich**: so is its RTF.
- **copy files**: so is the copied file, with its path.
- **close after copy**: the application has closed, and what it had copied can still be pasted, with
  RTF, HTML or the picture where there was one.
- **paste**, **paste upper**, **paste lower**: Return, Shift + Return and Alt + Return in the history put
  the clip, in capitals or in small letters, into the application's document or folder.
- **swop**: the selection and a clip have changed places.

What is in the document afterwards is read from the file that the application saves, or from its
own copy by another program. The versions are those of Debian's packages. GVim and Emacs run without
a configuration; the rows with "beside" are mousepad next to another program that has a part in the
clipboard.

"""


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
    lines = PAGE.read_text(encoding="utf-8").splitlines() if PAGE.exists() else []
    rows = ([cell.strip() for cell in line.strip("|").split("|")]
            for line in lines if line.startswith("|"))
    return {row[0]: row for row in rows}


def page(release, rows):
    heads = ["application", "version", *(column.replace("_", " ") for column in COLUMNS)]
    lines = [heads, ["---"] * len(heads), *rows]
    table = "\n".join("| " + " | ".join(line) + " |" for line in lines)
    notes = "\n".join(f"[^{name}]: {note}" for name, note in NOTES.items())
    return f"{HEAD.format(release=release.replace('-', ' '))}{table}\n\n{notes}\n"


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
