"""All pages: which there are, and what each is made of."""

import functools
import re
from dataclasses import dataclass, field

from interface import HEADER, ROOT
from interface.languages import known_as
from interface.reader import parse_comment
from markupsafe import Markup as Safe

from . import routine
from .documents import Document
from .markup import Prose, plain_text
from .routine_page import Card, routine_values

LIBRARY = {  # page: its title, and the sections of README that it is made of
    "linking.html": ("Linking and platforms", ["Linking", "Packages and platforms",
                                               "The Windows DLLs"]),
    "kezcall.html": ("kezcall", ["Trying a routine: kezcall"]),
    "benchmarks.html": ("Benchmarks", ["How fast it is"]),
}
NUMBERS = ["The same answers everywhere", "Values kept between calls"]
FILES = {"README.md": "index.html", "CHANGELOG.md": "changelog.html",
         "bench/plot.svg": "assets/plot.svg", "include/kezlib.h": "reading.html"}
BUILDER = "kezsec_"  # what the names of the routines that give outlines of sections begin with
WORD = r"[a-z][a-z0-9_.+#-]*[a-z0-9_+#]|\d{4}-\d[-\d]*"  # names, and those of standards
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


@dataclass
class Part:
    title: str
    html: str

    @property
    def anchor(self):
        return "".join(c if c.isalnum() else "-" for c in self.title.lower())


def file_comment():
    """The paragraphs at the top of the header: those that say how to read it, and the numbers."""
    text = HEADER.read_text().partition("/**")[2].partition("*/")[0]
    paragraphs = parse_comment(text)[2][0].partition("\n")[2].strip().split("\n\n")
    middle = next(i for i, p in enumerate(paragraphs) if p.startswith('"Equal"'))
    return "\n\n".join(paragraphs[:middle]), "\n\n".join(paragraphs[middle:])


def said(page):
    """The text of a page that is no routine's."""
    parts = [part.html for part in page.values.get("parts", [])]
    texts = [*parts, *(page.values.get(key, "") for key in ("introduction", "text"))]
    return Safe(" ".join(texts)).striptags()


def vocabulary(text):
    return " ".join(sorted(set(re.findall(WORD, text.lower()))))


class Site:
    def __init__(self, interface, calls, drawn, tabs, readme):
        self.interface, self.calls, self.drawn, self.readme = interface, calls, drawn, readme
        self.tabs = tabs
        self.prose = Prose([r.name for r in interface.routines], FILES)
        self.guides = {path.parent.name: Document(path)
                       for path in sorted((ROOT / "bindings").glob("*/README.md"))}
        self.cards = {r.name: Card(r, Safe(drawn[r.name].small)) for r in interface.routines}

    def family_href(self, title):
        return next(f"family-{g.name}.html" for g in self.interface.groups if g.title == title)

    def family_cards(self, group):
        return [self.cards[r.name] for r in self.interface.routines if r.group == group.title]

    def language_pages(self):
        """Pages of the languages and their titles, in the order of the tabs."""
        titles = {}
        for tab in self.tabs:
            titles.setdefault(tab.folder, tab.title)
        order = list(titles)
        yield "language-c.html", titles["c"]
        for key in sorted(self.guides, key=lambda k: order.index(k) if k in titles else len(order)):
            yield f"language-{key}.html", titles.get(key, self.guides[key].title)

    def contents(self):
        families = [Entry(g.title, self.family_href(g.title),
                          {card.name: card.href for card in self.family_cards(g)})
                    for g in self.interface.groups]
        library = [Entry(title, href) for href, (title, _) in LIBRARY.items()]
        library.insert(2, Entry("The numbers", "numbers.html"))
        return [
            Chapter("Routines", [*families, Entry("Section shapes", "shapes.html")]),
            Chapter("Languages", [Entry(t, href) for href, t in self.language_pages()]),
            Chapter("The library", [Entry("Overview", "index.html"),
                                    Entry("How to read a page", "reading.html"), *library,
                                    Entry("Changelog", "changelog.html")])]

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
        yield self.shapes_page()
        yield from self.guide_pages()
        for href, (title, sections) in LIBRARY.items():
            yield self.document_page(href, title, sections)
        changes = Document(ROOT / "CHANGELOG.md")
        yield Page("changelog.html", changes.title, "page.html", "What has changed.",
                   {"parts": [Part("", self.prose.document(changes.body))]})

    def header_pages(self):
        reading, numbers = map(self.prose.header, file_comment())
        yield Page("reading.html", "How to read a page", "page.html",
                   "What the words of a routine's page mean.", {"parts": [Part("", reading)]})
        yield Page("numbers.html", "The numbers", "page.html",
                   "Tolerance, bits that agree, what a host provides.",
                   {"parts": [Part("", numbers), *self.readme_parts(NUMBERS)]})

    def readme_parts(self, titles):
        return [Part(title, self.prose.document(self.readme.section(title).text))
                for title in titles]

    def document_page(self, href, title, sections):
        parts = self.readme_parts(sections)
        if len(parts) == 1:
            parts[0].title = ""
        return Page(href, title, "page.html", f"KezLib: {title}.", {"parts": parts})

    def guide_pages(self):
        yield Page("language-c.html", "C", "page.html", "A host in C.",
                   {"parts": self.readme_parts(["A host in C", "Linking"])})
        titles = dict(self.language_pages())
        for key, guide in self.guides.items():
            href = f"language-{key}.html"
            yield Page(href, titles[href], "page.html", f"KezLib in {titles[href]}.",
                       {"parts": [Part("", self.prose.document(guide.body))]})

    def first_page(self):
        families = [{"title": g.title, "href": self.family_href(g.title),
                     "cards": self.family_cards(g), "telling": self.telling(g)}
                    for g in self.interface.groups]
        return Page("index.html", "Manual", "index.html", "The manual of KezLib.",
                    {"families": families, "count": len(self.interface.routines),
                     "introduction": self.prose.document(
                         self.readme.section("What it is").text.split("\n\n")[0]),
                     "parts": self.readme_parts(["What is not part of this build"])})

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

    def index(self):
        """What the search knows: title, sentence, where it belongs, page, and its words."""
        routines = [[r.name, f"{known_as(r)}: {plain_text(routine.sentence(r))}", r.group,
                     f"{r.name}.html", vocabulary(routine.whole_text(r))]
                    for r in self.interface.routines]
        texts = {page.href: said(page) for page in self.pages}
        others = [[e.title, "", chapter.title, e.href, vocabulary(texts[e.href])]
                  for chapter in self.contents() for e in chapter.entries]
        return routines + others
