"""The page of what rich.py found: a cell for each source, target and property."""

import pathlib

from formatted import PROGRAMS
from report import rewritten, version

PAGE = pathlib.Path("rich-text.md")
PROPERTIES = ["bold", "link", "heading", "list", "table", "colour"]
LOST = "✗"
NOTES = {
    "cells": "A sheet has neither headings nor lists, as the source or as the target.",
    "source": "The source offers it to nobody: directly, no program gets it from there.",
    "target": "The target takes it from nobody: directly, it gets it from no program.",
    "pair": "Directly it does not arrive either, though the source gives it to others and the"
            " target takes it from others.",
    "own": "Directly these two exchange it in a format of their own. An owner that offers nothing"
           " but the source's text, RTF and HTML, which is what the history keeps, does not bring"
           " it either.",
    "abiword": "AbiWord takes RTF, which Quillmarsh offers beside a browser's HTML, before HTML, and"
               " pastes a table from RTF only where that is its own: none from LibreOffice Writer's"
               " directly either.",
}
# What is lost by the target and the property, and why.
KNOWN = {("AbiWord", "table"): "abiword"}


def arrives(results, way, source, target, name):
    outcome = results.get(way, {}).get(source.name, {}).get(target.name)
    return isinstance(outcome, list) and name in outcome


def why_absent(results, source, target, name):
    """The cell of what did not arrive."""
    if arrives(results, "direct", source, target, name):
        tried = isinstance(results.get("bytes", {}).get(source.name, {}).get(target.name), list)
        if tried and not arrives(results, "bytes", source, target, name):
            return "–[^own]"
        reason = KNOWN.get((target.name, name))
        return f"{LOST}[^{reason}]" if reason else LOST
    if not any(arrives(results, "direct", source, other, name) for other in PROGRAMS):
        return "–[^source]"
    if not any(arrives(results, "direct", other, target, name) for other in PROGRAMS):
        return "–[^target]"
    return "–[^pair]"


def cell(results, source, target, name):
    if name in source.lacks or name in target.lacks:
        return "–[^cells]"
    for way in ("direct", "history"):
        outcome = results.get(way, {}).get(source.name, {}).get(target.name, "✗ not tried")
        if not isinstance(outcome, list):
            return outcome
    if not arrives(results, "history", source, target, name):
        return why_absent(results, source, target, name)
    return "✓" if arrives(results, "direct", source, target, name) else "★"


def write(release, results):
    """Whether anything was lost for no reason that is known."""
    rows = [[source.name, target.name,
             *(cell(results, source, target, name) for name in PROPERTIES)]
            for source in PROGRAMS for target in PROGRAMS]
    versions = ", ".join(f"{program.name} {version(program.package)}" for program in PROGRAMS)
    text = rewritten(PAGE.read_text(encoding="utf-8"), release,
                     ["copied in", "pasted into", *PROPERTIES], rows, NOTES)
    PAGE.write_text(f"{text}\nThe versions: {versions}.\n", encoding="utf-8")
    lost = sum(value.startswith(LOST) and "[^" not in value for row in rows for value in row)
    print(PAGE.read_text(encoding="utf-8"), f"{lost} lost", sep="\n")
    return lost != 0
