"""Copies rich text in each program of formatted.py and pastes it into each, prints what arrived and
then the page, which it writes to rich-text.md:  rich.py RELEASE [SOURCE[:TARGET] ...]
The ways are `direct`, without Quillmarsh and while the source runs, which is what the programs can do
at all; `history`, with the source closed; and where that is less, `bytes`, from an owner that offers
what the source does of text, RTF and HTML and nothing else. With SOURCES only those are tried; the
other results are those of rich-text.json. What was lost for no reason that is known is an error."""

import json
import pathlib
import sys
import traceback

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE.parent / "support")]
import rich_page  # noqa: E402
from application import OTHER  # noqa: E402
from formatted import LAST_WORD, PROGRAMS  # noqa: E402
from trial import START, Trial  # noqa: E402

RESULTS = pathlib.Path("rich-text.json")
ADDRESS = "https://example.org/reeds"


WORDS = {"bold": "bold", "link": "link", "colour": "red"}
# A sheet has no formatting within a cell's text, so with one of them it is that of whole cells.
CELLS = {"bold": "Reed", "link": "Sedge", "colour": "Rush"}


def places(runs, text):
    """Where that text stands by itself, in one run or a few, as some programs break one in two."""
    for first in range(len(runs)):
        for last in range(first + 1, min(first + 4, len(runs) + 1)):
            if "".join(run["text"] for run in runs[first:last]).strip() == text:
                yield runs[first:last]


def has(runs, key, value, *texts):
    return all(any(all(run[key] == value for run in place) for place in places(runs, text))
               for text in texts)


def arrived(runs, words):
    """The properties that the runs have."""
    properties = {
        "bold": has(runs, "bold", True, words["bold"]),
        "link": has(runs, "link", ADDRESS, words["link"]),
        "heading": has(runs, "heading", True, "Marsh birds"),
        "list": has(runs, "list", True, "heron", "bittern"),
        "table": has(runs, "cell", True, *CELLS.values(), LAST_WORD),
        "colour": has(runs, "colour", "#cc0000", words["colour"]),
    }
    return [name for name, has_come in properties.items() if has_come]


def copy(desk, source):
    desk.start("the sample")

    def copy_all():
        if desk.process.poll() is not None:
            print(f"{source.name} has crashed and is started again", flush=True)
            desk.start("the sample")
        source.copy_all(desk)
    desk.desktop.repeat(copy_all, lambda: LAST_WORD in newest(desk), "the copy", each=1.5,
                        seconds=START)


def serve_its_bytes(desk, source):
    """In its place, once it has closed."""
    offered = desk.pasteboard("TARGETS").split()
    formats = []
    for kind in ("text/rtf", "application/rtf", "text/html"):
        if kind in offered:
            file = pathlib.Path(desk.desktop.home, kind.replace("/", "-"))
            with file.open("wb") as taken:
                desk.desktop.run(["xclip", "-selection", "clipboard", "-o", "-t", kind],
                                 stdout=taken)
            formats += [kind, file]
    text = desk.pasteboard()
    closed(desk, source)
    desk.desktop.helper("owner.py", "files", *formats, text)


def newest(desk):
    return (desk.app.clips()[:1] or [""])[0] if desk.app else desk.pasteboard() or ""


def paste(desk):
    if not desk.app:
        desk.key("ctrl+v")
        return
    desk.copy_elsewhere(OTHER)
    desk.app.open_history()
    desk.key("Down", "Return")
    desk.app.wait_until_hidden()


def into(desk, target):
    """The runs of what arrived; none when nothing did."""
    desk.application = target
    desk.start()
    paste(desk)
    seen = []

    def has_come():
        seen.append(target.runs(desk))
        text = "".join(run["text"] for run in seen[-1])
        return seen[-2:-1] == seen[-1:] and ("bird" in text or "Reed" in text)
    try:
        desk.wait_for(has_come, "the text")
    except TimeoutError:
        return []
    return seen[-1]


def closed(desk, program):
    desk.application = program
    try:
        if desk.process.poll() is None:
            program.end(desk)
    except TimeoutError:
        desk.end()


def outcome(desk, source, target, name):
    """What arrived, or what went wrong."""
    kept = pathlib.Path("pictures", name)
    kept.parent.mkdir(exist_ok=True)
    try:
        runs = into(desk, target)
        if not runs:
            desk.picture(name)
        kept.with_suffix(".txt").write_text(target.source(desk), encoding="utf-8")
        return arrived(runs, CELLS if source.lacks or target.lacks else WORDS)
    except Exception as problem:  # any way to fail is a cell of the table
        return failure(desk, name, problem)
    finally:
        closed(desk, target)


def failure(desk, name, problem):
    traceback.print_exception(problem)
    desk.picture(name)
    return f"✗ {problem}".splitlines()[0]


def pasted(source, targets, way):
    """Each target with what arrived there, in the order in which they are tried."""
    with Trial(source, with_history=way == "history") as desk:
        try:
            copy(desk, source)
            if way == "bytes":
                serve_its_bytes(desk, source)
            elif way == "history":
                closed(desk, source)
        except Exception as problem:  # as above
            told = failure(desk, f"{way}-{source.name}", problem)
            yield from ((target, told) for target in targets)
            return
        for target in targets:
            yield target, outcome(desk, source, target, f"{way}-{source.name}-{target.name}")


def is_lost(results, source, target):
    through, directly = (results.get(way, {}).get(source.name, {}).get(target.name)
                         for way in ("history", "direct"))
    return isinstance(through, list) and isinstance(directly, list) and set(directly) - set(through)


def main():
    release, *wanted = sys.argv[1:]
    results = json.loads(RESULTS.read_text()) if RESULTS.exists() else {}
    for source in PROGRAMS:
        targets = [target for target in PROGRAMS if not wanted or source.name in wanted
                   or f"{source.name}:{target.name}" in wanted]
        for way in ("direct", "history", "bytes"):
            if way == "bytes":
                targets = [target for target in targets if is_lost(results, source, target)]
            for target, told in pasted(source, targets, way) if targets else []:
                print(f"{way}: {source.name} into {target.name}: {told}", flush=True)
                results.setdefault(way, {}).setdefault(source.name, {})[target.name] = told
                RESULTS.write_text(json.dumps(results, indent=1))
    return rich_page.write(release, results)


if __name__ == "__main__":
    sys.exit(main())
