#!/usr/bin/python3
"""Every catalogue has every text of the sources, translated, with the same placeholders.

usage: translations_test.py LUPDATE SOURCES CATALOGUES
"""

import pathlib
import re
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as Tree

PLACEHOLDER = re.compile(r"%L?[0-9n]")


def messages(path):
    """Context, source and comment to the forms of the translation; None when it is not finished."""
    found = {}
    for context in Tree.parse(path).getroot().iter("context"):
        for message in context.iter("message"):
            translation = message.find("translation")
            forms = [form.text or "" for form in translation.iter("numerusform")] or [
                translation.text or ""]
            key = (context.findtext("name"), message.findtext("source"),
                   message.findtext("comment"))
            found[key] = None if translation.get("type") else forms
    return found


def problems(catalogue, wanted):
    own = messages(catalogue)
    for key in wanted.keys() - own.keys():
        yield f"lacks {key[:2]}"
    for key in own.keys() - wanted.keys():
        yield f"has {key[:2]}, which no source says"
    for (context, source, _), forms in own.items():
        if not forms or not all(forms):
            yield f"has no translation of {context}: {source!r}"
            continue
        for form in forms:
            if sorted(PLACEHOLDER.findall(form)) != sorted(PLACEHOLDER.findall(source)):
                yield f"has other placeholders in {context}: {form!r}"


def main():
    lupdate, sources, catalogues = sys.argv[1:]
    told = []
    with tempfile.TemporaryDirectory() as folder:
        for catalogue in sorted(pathlib.Path(catalogues).glob("*.ts")):
            # English needs only what depends on a number.
            english = ["-pluralonly"] if catalogue.stem.endswith("_en") else []
            fresh = pathlib.Path(folder, catalogue.name)
            subprocess.run([lupdate, "-silent", *english, "-recursive", sources, "-ts", fresh],
                           check=True, stderr=subprocess.DEVNULL)
            told += [f"{catalogue.name} {problem}"
                     for problem in problems(catalogue, messages(fresh))]
    print("\n".join(told) or "every catalogue is complete")
    return 1 if told else 0


if __name__ == "__main__":
    sys.exit(main())
