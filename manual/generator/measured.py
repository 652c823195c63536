"""What programs have measured, in the pages that show it."""

import re

from interface import ROOT

FOLDER = ROOT / "build/accuracy"  # where `./dev accuracy` writes


def fill(text):
    """The text of a page with its placeholders <!-- measured: NAME --> filled from NAME.md."""
    return re.sub(r"<!-- measured: (\w+) -->",
                  lambda match: (FOLDER / f"{match[1]}.md").read_text().strip(), text)
