"""The documents of the repository, by their headings."""

import re
from dataclasses import dataclass


@dataclass
class Section:
    title: str
    text: str  # with the sections below it


def outside_code(text):
    """The text with code blocks blanked out, to find headings in."""
    return re.sub(r"(?ms)^```.*?^```", lambda m: re.sub(r"[^\n]", " ", m[0]), text)


def sections(text, level):
    """The sections of a level, by title; a section ends where one of its level or above begins."""
    starts = [(m.start(), m.end(), len(m[1]), m[2])
              for m in re.finditer(r"(?m)^(#+) (.+)$", outside_code(text))]
    found = {}
    for i, (_, end, depth, title) in enumerate(starts):
        if depth == level:
            ends = [start for start, _, other, _ in starts[i + 1:] if other <= level]
            found[title] = Section(title, text[end:min(ends, default=len(text))].strip("\n"))
    return found


class Document:
    """A Markdown file. A heading that is asked for and is not there is an error."""

    def __init__(self, path):
        self.path = path
        text = path.read_text()
        self.title = re.search(r"(?m)^# (.+)$", text)[1]
        self.body = text.split("\n", 1)[1].strip("\n")
        self.sections = sections(text, 3) | sections(text, 2)

    def section(self, title):
        if title not in self.sections:
            raise SystemExit(f"{self.path}: the manual needs the section '{title}'")
        return self.sections[title]
