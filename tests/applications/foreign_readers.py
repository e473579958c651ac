"""Gives the RTF that the history keeps of many kinds of HTML to readers of RTF that are not ours:
LibreOffice and AbiWord for what it shows, and for the HTML inside the npm package rtf-stream-parser,
which is not asked without the directory where it is:  foreign_readers.py [NODE_MODULES]"""

import json
import pathlib
import subprocess
import sys
import urllib.parse

HERE = pathlib.Path(__file__).resolve().parent
sys.path[:0] = [str(HERE), str(HERE.parent / "support")]
from desktop import Desktop  # noqa: E402
from quillmarsh import Quillmarsh  # noqa: E402
from readers import AbiWordDocument, OpenDocument  # noqa: E402
from trial import BINARY  # noqa: E402

LINK = "https://example.org/reeds?a=1&b={2}"


def looks(value, *names):
    """A look of the word as one or the other of the two readers calls it."""
    return lambda run: any(value in run["looks"].get(name, "") for name in names)


# HTML with a word of its own, and what has to hold for that word.
SAMPLES = {
    "bold": ("<p>a <b>heron</b> here", lambda run: run["bold"]),
    "italic": ("<p>a <em>heron</em> here", looks("italic", "font-style")),
    "underline": ("<p>a <u>heron</u> here",
                  lambda run: looks("solid", "text-underline-style")(run)
                  or looks("underline", "text-decoration")(run)),
    "strike": ("<p>a <s>heron</s> here",
               lambda run: looks("solid", "text-line-through-style")(run)
               or looks("line-through", "text-decoration")(run)),
    "superscript": ("<p>a<sup>heron</sup> here", looks("super", "text-position")),
    "subscript": ("<p>a<sub>heron</sub> here", looks("sub", "text-position")),
    "colour": ("<p>a <span style='color:#cc0000'>heron</span> here",
               lambda run: run["colour"] == "#cc0000"),
    "heading 1": ("<p>some<h1>heron</h1>more", lambda run: run["heading"]),
    "heading 6": ("<p>some<h6>heron</h6>more", lambda run: run["heading"]),
    "link": (f"<p>a <a href='{LINK}'>heron</a> here",
             lambda run: urllib.parse.unquote(run["link"]) == LINK),
    "list": ("<p>some<ul><li>heron<li>bittern</ul>more", lambda run: run["list"]),
    "numbered list": ("<p>some<ol><li>bittern<li>heron</ol>more", lambda run: run["list"]),
    "list in a list": ("<ul><li>birds<ul><li>heron</ul></ul>", lambda run: run["list"]),
    "table": ("<p>a<table><tr><td>heron<td>2<tr><td>3<td>4</table>b", lambda run: run["cell"]),
    "table in a table": ("<table><tr><td>1<td><table><tr><td>heron</table></table>",
                         lambda run: run["cell"]),
    "formatted cell": ("<table><tr><td>1<td>a <b>heron</b></table>",
                       lambda run: run["bold"] and run["cell"]),
    "alignment": ("<p>a<p style='text-align:center'>heron", looks("center", "text-align")),
}
# Only that its text arrives, and the HTML exactly.
TEXTS = {
    "braces": "{heron} \\b0 \\'41 {\\*\\htmltag",
    "scripts": "Löffler 白鷺 нырок طائر 🐦 heron",
    "spaces": "a  heron",
    "long": "heron " * 300 + "end",
}
# HTML of other kinds; the bytes must come back.
BYTES = {
    "utf-16": "\ufeff<p>heron é 白</p>".encode("utf-16-le"),
    "returns": b"<p>heron</p>\r\n<p>\tb</p>\r",
    "comment": b"<!--StartFragment--><p>heron<!-- } { \\ --></p><!--EndFragment-->",
    "style": b"<style>p { color: red }</style><script>if (a < b) { c(); }</script><p>heron</p>",
    "broken": b"<p>heron <b><i>x</b></i></table></p",
    "charset": "<meta charset=windows-1252><p>heron é</p>".encode("cp1252"),
}
DEENCAPSULATE = """
const {deEncapsulateSync} = require("rtf-stream-parser");
const {decode} = require("iconv-lite");
const result = {};
for (const path of process.argv.slice(1)) {
  try {
    result[path] = deEncapsulateSync(require("fs").readFileSync(path), {decode, mode: "html",
                                                                        prefix: false}).text;
  } catch (problem) { result[path] = String(problem); }
}
console.log(JSON.stringify(result));
"""


def rtf_of(desktop, app, name, html, text):
    """What the history keeps of a program's HTML and text."""
    path = pathlib.Path(desktop.home, "copy.html")
    path.write_bytes(html)
    owner = desktop.helper("owner.py", "files", "text/html", path, text)
    app.wait_for_clip(text)
    rtf = desktop.wait_for(lambda: app.clips("strValue, rtfValue")[0][1], f"the RTF of {name}")
    owner.terminate()
    owner.wait()
    return rtf.encode() if isinstance(rtf, str) else rtf


def samples():
    """Each sample's name, bytes, text and check."""
    for name, (html, check) in SAMPLES.items():
        yield name, html.encode(), f"heron of {name}", check
    for name, text in TEXTS.items():
        html = "<p>" + text.replace("  ", "&nbsp; ") + "</p>"
        yield name, html.encode(), text, None
    for name, html in BYTES.items():
        yield name, html, f"heron of {name}", None


def html_inside(paths, modules):
    told = subprocess.run(["node", "-e", DEENCAPSULATE, *map(str, paths)], text=True, check=True,
                          capture_output=True, env={"PATH": "/usr/bin:/bin", "NODE_PATH": modules})
    return json.loads(told.stdout)


def decoded(html):
    """The package gives characters, whatever bytes they were."""
    if html.startswith(b"\xff\xfe"):
        return html.decode("utf-16-le")
    try:
        return html.decode()
    except UnicodeDecodeError:
        return html.decode("cp1252")


def word_is(runs, check):
    return any(run["text"].strip() == "heron" and check(run) for run in runs)


def main():
    modules = sys.argv[1:]
    kept = pathlib.Path("rtf").absolute()
    kept.mkdir(exist_ok=True)
    files = {}
    with Desktop() as desktop:
        app = Quillmarsh(desktop, BINARY)
        for name, html, text, check in samples():
            path = kept / f"{name.replace(' ', '-')}.rtf"
            path.write_bytes(rtf_of(desktop, app, name, html, text))
            files[path] = (name, html, text, check)
    print(f"{len(files)} documents", flush=True)
    html_of = html_inside(files, modules[0]) if modules else {}
    subprocess.run(["libreoffice", "--headless", "--convert-to", "fodt", "--outdir", str(kept),
                    *map(str, files)], check=True, stdout=subprocess.DEVNULL)
    failed = 0
    for path, (name, html, text, check) in files.items():
        outcome = {"rtf-stream-parser": html_of[str(path)] == decoded(html)} if html_of else {}
        subprocess.run(["abiword", "--to=abw", "-o", str(path.with_suffix(".abw")), str(path)],
                       check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        for reader, runs in [("LibreOffice", OpenDocument(path.with_suffix(".fodt")).runs()),
                             ("AbiWord", AbiWordDocument(path.with_suffix(".abw")).runs())]:
            shown = "".join(run["text"] for run in runs)
            outcome[reader] = word_is(runs, check) if check else (
                text if name in TEXTS else "heron") in shown.replace("\xa0", " ")
        failed += sum(not good for good in outcome.values())
        print(f"{name}: " + ", ".join(f"{reader} {'✓' if good else '✗'}"
                                      for reader, good in outcome.items()), flush=True)
    print(f"{failed} failed")
    return failed != 0


if __name__ == "__main__":
    sys.exit(main())
