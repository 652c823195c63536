"""All pages: which there are, and what each is made of."""

import functools
import re
from dataclasses import dataclass, field

from interface import HEADER
from interface.reader import parse_comment
from markupsafe import Markup as Safe

from . import documents, finder, routine
from .guides import Made
from .markup import Prose, plain_text
from .routine_page import Card, routine_values

FILES = {"README.md": "index.html", "include/kezlib.h": "reading.html",
         "manual/templates/shapes.html": "shapes.html"}  # beside the documents
FIRST = "index.html"
BUILDER = "kezsec_"  # what the names of the routines that give outlines of sections begin with
TELLING = 4  # small pictures of a family on the first page


@dataclass
class Page:
    href: str
    title: str
    template: str
    description: str = ""
    values: dict = field(default_factory=dict)


@dataclass
class Entry:
    """Of the table of contents."""

    title: str
    href: str
    members: dict = field(default_factory=dict)  # the routines of a family and their pages


@dataclass
class Chapter:
    title: str
    entries: list


def file_comment():
    """The paragraphs at the top of the header: those that say how to read it, and the numbers."""
    text = HEADER.read_text().partition("/**")[2].partition("*/")[0]
    paragraphs = parse_comment(text)[2][0].partition("\n")[2].strip().split("\n\n")
    middle = next(i for i, p in enumerate(paragraphs) if p.startswith('"Equal"'))
    return "\n\n".join(paragraphs[:middle]), "\n\n".join(paragraphs[middle:])


def of_pages(text):
    """The header speaks of comments, which are pages here."""
    text = text.replace("How to read a routine's comment:", "What the words of a page mean:")
    return re.sub(r"\bcomment(s?)\b", r"page\1", text)


def with_headings(html):
    """A paragraph that begins with a line and a colon has this line as its heading."""
    def heading(match):
        anchor = re.sub(r"\W+", "-", match[1].lower())
        return f'<h2 id="{anchor}">{match[1]}</h2>\n<p>'

    html = re.sub(r"<p>([A-Z][^.:<]{5,40}):\n(?!</p>)", heading, html)
    return Safe(re.sub(r"<p>([A-Z][^.:<]{5,40}):</p>(?=\n<ul>)", lambda m: heading(m)[:-4], html))


class Site:
    def __init__(self, interface, calls, drawn, tabs, answers):
        self.interface, self.calls, self.drawn, self.tabs = interface, calls, drawn, tabs
        self.about, self.guides = documents.about(), documents.guides()
        self.topics = documents.topics()
        self.prose = Prose([r.name for r in interface.routines], FILES | {
            document.path: document.href
            for document in [*self.topics, *self.about, *self.guides.values()]})
        self.cards = {r.name: Card(r, Safe(drawn[r.name].small)) for r in interface.routines}
        self.made = Made(self, answers)

    def family_href(self, title):
        return next(f"family-{g.name}.html" for g in self.interface.groups if g.title == title)

    def family_cards(self, group):
        return [self.cards[r.name] for r in self.interface.routines if r.group == group.title]

    def language_pages(self):
        """Pages of the languages and their titles, in the order of the tabs."""
        titles = {}
        for tab in self.tabs:
            titles.setdefault(self.guides[tab.folder].href, tab.title)
        return titles

    def contents(self):
        families = [Entry(g.title, self.family_href(g.title),
                          {card.name: card.href for card in self.family_cards(g)})
                    for g in self.interface.groups]
        about = [Entry(d.title, d.href) for d in self.about if d.href != FIRST]
        return [
            Chapter("Guides", [Entry(d.title, d.href) for d in self.topics]),
            Chapter("Routines", [*families, Entry("All in a list", "routines.html"),
                                 Entry("Section shapes", "shapes.html")]),
            Chapter("Languages", [Entry(t, href) for href, t in self.language_pages().items()]),
            Chapter("The library", [Entry("Overview", FIRST),
                                    Entry("How to read a page", "reading.html"),
                                    Entry("The numbers", "numbers.html"), *about])]

    @functools.cached_property
    def pages(self):
        return list(self.all_pages())

    def all_pages(self):
        yield self.first_page()
        yield from self.header_pages()
        for group in self.interface.groups:
            yield self.family_page(group)
        for r in self.interface.routines:
            values = routine_values(r, self)
            yield Page(f"{r.name}.html", r.name, "routine.html",
                       plain_text(routine.sentence(r)), values)
        yield Page("routines.html", "All routines", "routines.html", "All routines in a list.",
                   {"families": self.families()})
        yield self.shapes_page()
        for topic in self.topics:
            yield self.document_page(topic, topic.title)
        titles = self.language_pages()
        for guide in self.guides.values():
            yield self.document_page(guide, titles[guide.href])
        for document in self.about:
            if document.href != FIRST:
                yield self.document_page(document, document.title)

    def header_pages(self):
        reading, numbers = (with_headings(self.prose.header(of_pages(text)))
                            for text in file_comment())
        yield Page("reading.html", "How to read a page", "page.html",
                   "What the words of a routine's page mean.", {"text": reading})
        yield Page("numbers.html", "The numbers", "page.html",
                   "Tolerance, bits that agree, what a host provides.",
                   {"text": numbers})

    def document_page(self, document, title):
        return Page(document.href, title, "page.html", f"{document.title}.",
                    {"text": self.made.document(
                        self.prose.document(document.body, document.path), document.href)})

    def families(self):
        return [{"title": g.title, "href": self.family_href(g.title),
                 "cards": self.family_cards(g), "telling": self.telling(g)}
                for g in self.interface.groups]

    def first_page(self):
        (document,) = (d for d in self.about if d.href == FIRST)
        return Page(FIRST, "Manual", "index.html", "The manual of KezLib.",
                    {"families": self.families(), "count": len(self.interface.routines),
                     "finder": finder.values(self.cards.values()),
                     "text": self.prose.document(document.body, document.path)})

    def telling(self, group):
        """Evenly out of the family."""
        cards = self.family_cards(group)
        return [cards[i * len(cards) // TELLING] for i in range(TELLING)]

    def family_page(self, group):
        return Page(self.family_href(group.title), group.title, "family.html",
                    f"{group.title}: the routines.",
                    {"cards": self.family_cards(group), "text": self.prose.header(group.text)})

    def shapes_page(self):
        builders = [r for r in self.interface.routines if r.name.startswith(BUILDER)]
        group = routine.family(builders[0], self.interface)
        shapes = [{"name": r.name, "href": f"{r.name}.html",
                   "summary": self.prose.inline(routine.sentence(r)),
                   "picture": Safe(self.drawn[r.name].picture),
                   "dimensions": [row for row in routine.argument_rows(r)
                                  if row.direction == "in" and row.names != ["value"]]}
                  for r in builders]
        for shape in shapes:
            for row in shape["dimensions"]:
                row.meaning = self.prose.inline(row.meaning)
        return Page("shapes.html", "Section shapes", "shapes.html",
                    "The outlines of sections with their dimensions.",
                    {"shapes": shapes, "text": self.prose.header(group.text)})
