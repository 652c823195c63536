"""What the search knows: routines, pages, the sections of pages, and the words of readers."""

import re

from interface import ROOT
from interface.languages import known_as
from markupsafe import Markup as Safe

from . import routine
from .markup import plain_text

SYNONYMS = ROOT / "manual/synonyms.txt"
WORD = r"[a-z][a-z0-9.+#-]*[a-z0-9+#]|\d[\d.-]*\d|[a-z]"  # names, and numbers of standards
HEADING = re.compile(r'<h([23])[^>]* id="([^"]+)"[^>]*>(.*?)</h\1>', re.DOTALL)


def vocabulary(text, without=""):
    known = set(re.findall(WORD, without.lower()))
    found = re.findall(WORD, text.lower().replace("_", " "))
    return " ".join(sorted({word for word in found if len(word) > 1} - known))


def lines():
    text = SYNONYMS.read_text()
    return [line for line in text.splitlines() if line and not line.startswith("#")]


def synonyms():
    """By word of readers the words that the texts have for it."""
    found = {}
    for line in lines():
        said, equals, meant = line.partition(" = ")
        for word in said.split(", ") if equals else ():
            found.setdefault(word, []).extend(meant.split())
    return found


def asked_for():
    """By page, routine or section the words by which readers ask for it."""
    pairs = (line.rsplit(": ", 1) for line in lines() if " = " not in line)
    return {title: words for title, words in pairs}


def sections(html):
    """The headings that have an anchor: title, anchor, text."""
    found = list(HEADING.finditer(html))
    ends = [match.start() for match in found[1:]] + [len(html)]
    return [(Safe(match[3]).striptags(), match[2], Safe(html[match.end():end]).striptags())
            for match, end in zip(found, ends)]


def routine_entry(r, asked):
    sentence = f"{known_as(r)}: {plain_text(routine.sentence(r))}"
    return [r.name, sentence, r.group, f"{r.name}.html",
            vocabulary(routine.whole_text(r), sentence), asked.get(r.name, "")]


def page_entries(title, place, page, asked):
    """A page, and each of its sections."""
    text = str(page.values.get("text", ""))
    parts = [part for part in sections(text) if len(part[0]) > 1]  # not the letters of A to Z
    lead = text[:HEADING.search(text).start()] if parts else text
    description = page.values.get("lead", "")
    yield [title, description, place, page.href, vocabulary(Safe(lead).striptags(), title),
           asked.get(title, "")]
    for heading, anchor, said in parts:
        yield [heading, "", title, f"{page.href}#{anchor}", vocabulary(said, heading),
               asked.get(heading, "")]


def index(site):
    asked = asked_for()
    pages = {page.href: page for page in site.pages}
    entries = [routine_entry(r, asked) for r in site.interface.routines]
    for chapter in site.contents():
        for entry in chapter.entries:
            entries += page_entries(entry.title, chapter.title, pages[entry.href], asked)
    return {"entries": entries, "synonyms": synonyms()}
