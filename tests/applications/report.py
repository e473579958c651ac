"""The pages that tell what came of the trials: their words are their own, the table is ours."""

import re
import subprocess


def version(package):
    told = subprocess.run(["dpkg-query", "--show", "--showformat=${Version}", package],
                          capture_output=True, text=True, check=False).stdout
    return told.partition(":")[2] or told


def rewritten(page, release, heads, rows, notes):
    """The page with another table and the notes that it needs. What stands above the table stays,
    but for the release."""
    words = re.sub(r"(real\s+programs of ).*?( did| are)", rf"\g<1>{release.replace('-', ' ')}\2",
                   page.partition(f"| {heads[0]} |")[0])
    lines = [heads, ["---"] * len(heads), *rows]
    table = "\n".join("| " + " | ".join(line) + " |" for line in lines)
    used = "\n".join(f"[^{name}]: {note}" for name, note in notes.items() if f"[^{name}]" in table)
    return f"{words}{table}\n\n{used}\n"
