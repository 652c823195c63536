"""The pages of the manual that are files of their own, and the pages of languages."""

import re
from dataclasses import dataclass

from interface import ROOT

from . import measured


@dataclass
class Document:
    """A Markdown file, which is a page as a whole."""

    path: str  # in the repository
    href: str
    title: str
    body: str


def read(path, href):
    title, body = re.match(r"# (.+)\n((?:.|\n)*)", (ROOT / path).read_text()).groups()
    return Document(path, href, title, measured.fill(body.strip("\n")))


def relative(paths):
    return sorted(str(path.relative_to(ROOT)) for path in paths)


def about():
    """About the library, by title. Each of manual/pages is one."""
    found = [read(path, path.rpartition("/")[2].replace(".md", ".html"))
             for path in relative((ROOT / "manual/pages").glob("*.md"))]
    found += [read("bench/README.md", "benchmarks.html"), read("CHANGELOG.md", "changelog.html"),
              read("kezsection/README.md", "kezsection.html")]
    return sorted(found, key=lambda document: document.title.lower())


def topics():
    """The guides, in the order of the numbers that their files begin with."""
    paths = relative((ROOT / "manual/guides").glob("*.md"))
    return [read(path, re.sub(r".*/\d+-(.*)\.md", r"\1.html", path))
            for path in sorted(paths, key=lambda path: int(re.search(r"/(\d+)-", path)[1]))]


def guides():
    """To the languages, by the name of their folder."""
    return {path.split("/")[1]: read(path, f"language-{path.split('/')[1]}.html")
            for path in relative((ROOT / "bindings").glob("*/README.md"))}
