"""Text as HTML: the header's, which is plain text with tables, lists, sketches and `code`, and the
documents', which are Markdown. Names of routines become links in both."""

import posixpath
import re

import markdown
from markupsafe import Markup as Safe

EXTENSIONS = ["tables", "fenced_code", "sane_lists", "toc"]
EMPHASIS = ("em_strong", "em_strong2", "escape", "reference", "link", "short_reference", "autolink",
            "automail", "html", "entity", "linebreak", "image_link", "image_reference",
            "short_image_ref")


def plain_converter():
    """In the header's formulas a star multiplies, and brackets and signs are themselves."""
    converter = markdown.Markdown(extensions=["tables"])
    converter.preprocessors.deregister("html_block")
    for block in ("reference", "setextheader", "hashheader", "quote", "hr"):
        converter.parser.blockprocessors.deregister(block)
    for pattern in EMPHASIS:
        converter.inlinePatterns.deregister(pattern, strict=False)
    return converter


def with_lists_apart(text):
    """A list stands right below the line that leads up to it in the header."""
    return re.sub(r"(?m)^(?!- | )(.+)\n(?=- )", r"\1\n\n", text)


def with_whole_rows(text):
    """A row of a table whose first cell is empty goes on with the row above."""
    lines = []
    for line in text.splitlines():
        cells = [cell.strip() for cell in line.strip().strip("|").split("|")]
        if line.startswith("|") and not cells[0] and lines[-1].startswith("|"):
            above = [cell.strip() for cell in lines.pop().strip().strip("|").split("|")]
            line = "| " + " | ".join(f"{a} {b}".strip() for a, b in zip(above, cells)) + " |"
        lines.append(line)
    return "\n".join(lines)


class Prose:
    """Knows the routines' names, and the pages to which links of the documents lead."""

    def __init__(self, names, pages=None):
        self.names = frozenset(names)
        self.pages = pages or {}  # by file in the repository
        self.plain = plain_converter()

    def link(self, name, text):
        return f'<a href="{name}.html">{text}</a>' if name in self.names else text

    def linked(self, text):
        text = re.sub(r"<code>(kez\w+)</code>", lambda m: self.link(m[1], m[0]), text)
        text = text.replace("<td>&lt;= ", "<td>&lt;=&nbsp;")
        text = text.replace("<table>", '<div class="wide" tabindex="0"><table>').replace(
            "</table>", "</table></div>").replace("<pre>", '<pre tabindex="0">')
        return Safe(text)

    def header(self, text):
        return self.linked(self.plain.reset().convert(
            with_whole_rows(with_lists_apart(text))))

    def inline(self, text):
        """Of one paragraph."""
        return Safe(re.sub(r"^<p>|</p>$", "", self.header(" ".join(text.split()))))

    def remark(self, text):
        """Of a row, which marks no names."""
        return Safe(re.sub(r"\bkez\w+", lambda match: self.link(match[0], match[0]),
                           str(Safe.escape(text))))

    def without_files(self, text, path):
        """Links of a file of the repository: one to a file that has no page is its text."""
        def resolve(match):
            if re.match(r"https?:|#", match[1]):
                return match[0]
            file, mark, anchor = match[1].partition("#")
            page = self.pages.get(posixpath.normpath(posixpath.join(path, "..", file)))
            return f'<a href="{page}{mark}{anchor}">{match[2]}</a>' if page else match[2]

        return re.sub(r'<a href="([^"]*)">(.*?)</a>', resolve, text, flags=re.DOTALL)

    def document(self, text, path):
        return self.linked(self.without_files(markdown.markdown(text, extensions=EXTENSIONS), path))


def plain_text(text):
    """For attributes and the search: without the marks of code."""
    return text.replace("`", "")
