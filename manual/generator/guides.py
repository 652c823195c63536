"""What is computed or read from the headers in guides and pages, in the place of their comments:

    <!-- call: kezcer 3 0 2 -> D1 E1 F1 -->   a call, whose results later calls use by name
    <!-- made: statuses -->                   a method of Made
"""

import json
import re
import subprocess
import urllib.parse

from interface import HEADER
from interface.languages import known_as
from interface.reader import TAG, parse_comment
from interface.rows import TOKEN
from markupsafe import Markup as Safe
from markupsafe import escape

from . import routine, sheet, statuses
from .routine_page import fragment, page_data

CALL = re.compile(r"<!-- call: (.+?) -->", re.DOTALL)
MADE = re.compile(r"<!-- made: (.+?) -->")
BATCH = HEADER.with_name("kezbatch.h")


def given_texts(tokens):
    texts, entries = [], None
    for token in tokens:
        if token == "[":
            entries = []
        elif token == "]":
            texts.append(" ".join(entries))
            entries = None
        elif entries is None:
            texts.append(token)
        else:
            entries.append(token)
    return texts


def asked(text, routines, calls, tabs):
    left, _, right = text.partition("->")
    name, *tokens = TOKEN.findall(left)
    return {"routine": page_data(routines[name], calls[name], tabs),
            "given": given_texts(tokens), "names": right.split()}


def compute(script, documents, interface, calls, work):
    """The answers by page, in the order of its calls."""
    routines = {r.name: r for r in interface.routines}
    questions, answers = work / "guide-questions.json", work / "guide-answers.json"
    questions.write_text(json.dumps({
        document.href: [asked(text, routines, calls, []) for text in CALL.findall(document.body)]
        for document in documents}))
    subprocess.run(["node", str(script), str(questions), str(answers)], check=True)
    return json.loads(answers.read_text())


def spans(named):
    return Safe(" ").join(Safe("<span><i>{}</i> {}</span>").format(name, text)
                          for name, text in named.items())


def shown(result):
    return "kept" if result is None else result or "[]"


def call_html(name, answer):
    address = f"{name}.html#{urllib.parse.urlencode(answer['inputs'])}"
    results = {n: shown(text) for n, text in answer["results"].items()}
    return Safe('<div class="made-call"><figure>{}</figure><p><a href="{}.html"><code>{}</code></a>'
                '</p><a class="call" href="{}" title="Try this call"><span class="given">{}</span> '
                '<span class="gives">→ {}</span></a></div>').format(
                    Safe(answer["picture"]), name, name, address, spans(answer["inputs"]),
                    spans(results))


def table(heads, rows):
    cells = Safe("").join(Safe("<th>{}</th>").format(head) for head in heads)
    body = Safe("\n").join(
        Safe("<tr>{}</tr>").format(Safe("").join(Safe("<td>{}</td>").format(c) for c in row))
        for row in rows)
    return Safe('<div class="wide" tabindex="0"><table><thead><tr>{}</tr></thead>\n<tbody>{}'
                "</tbody></table></div>").format(cells, body)


def link(name):
    return Safe('<a href="{0}.html"><code>{0}</code></a>').format(name)


def codes(names):
    return Safe(", ").join(Safe("<code>{}</code>").format(name) for name in names)


def breakable(name):
    """At its underscores, where there is no room."""
    return escape(name).replace("_", Safe("_<wbr>"))


class Made:
    """One method for each name of a comment."""

    def __init__(self, site, answers):
        self.site, self.answers = site, answers
        self.routines = site.interface.routines
        self.reports = list(statuses.reports(site.interface, site.calls))

    def document(self, html, href):
        answers = iter(self.answers.get(href, []))
        html = CALL.sub(lambda match: call_html(match[1].split()[0], next(answers)), html)
        return Safe(MADE.sub(lambda match: getattr(self, match[1].replace(" ", "_"))(), html))

    def status_values(self):
        """One table over all, by value."""
        values = sorted({case.value for report in self.reports for case in report.cases})
        return Safe("\n").join(self.one_value(value) for value in values)

    def one_value(self, value):
        rows = [(Safe('<a href="#{0}"><code>{0}</code></a>').format(report.routine.name),
                 Safe("<code>{}</code>").format(report.argument.name),
                 self.site.prose.inline(case.meaning))
                for report in self.reports for case in report.cases if case.value == value]
        return Safe('<h3 id="value{0}">Status {0}</h3>\n{1}').format(
            value, table(("routine", "result", "meaning"), rows))

    def statuses(self):
        return Safe("\n").join(map(self.one_report, self.reports))

    def anchor(self, report):
        """Of its table on the page of statuses."""
        name = report.routine.name
        first = next(r for r in self.reports if r.routine is report.routine)
        return name if report is first else f"{name}-{report.argument.name}"

    def report_links(self, routine):
        """By integer that reports a case, where its values are listed."""
        return {report.argument.name: f"statuses.html#{self.anchor(report)}"
                for report in self.reports if report.routine is routine}

    def one_report(self, report):
        name = report.routine.name
        others = statuses.other_clauses(report)
        rows = [(case.value, self.site.prose.inline(case.meaning),
                 codes(case.kept) or ("see below" if others else "none"),
                 Safe('<a href="{}.html#{}">try</a>').format(name, fragment(case.example))
                 if case.example else "")
                for case in report.cases]
        notes = Safe("").join(
            Safe("<p>Not written: {}, when {}.</p>").format(codes(names),
                                                            self.site.prose.inline(clause))
            for clause, names in others.items())
        return Safe('<h3 id="{}">Status of {}</h3>\n<p>{} ({}) reports in <code>{}</code>:</p>\n'
                    "{}{}").format(
            self.anchor(report), name, link(name), known_as(report.routine), report.argument.name,
            table((report.argument.name, "meaning", "not written", "a call"), rows), notes)

    def a_to_z(self):
        """By readable name: a letter's heading, then its routines with pictures."""
        cards = sorted(self.site.cards.values(), key=lambda card: (self.letters(card), card.name))
        html, letter = [], ""
        for card in cards:
            if self.letters(card)[0] != letter:
                html.append(Safe("</ul>") if letter else Safe(""))
                letter = self.letters(card)[0]
                html.append(Safe('<h2 id="{0}">{0}</h2>\n<ul class="cards">').format(
                    letter.upper()))
            html.append(self.card(card))
        return Safe("\n").join([*html, Safe("</ul>")])

    @staticmethod
    def letters(card):
        return card.known_as.removeprefix("the same as kez")

    @staticmethod
    def card(card):
        return Safe('<li><a href="{}">{}<strong>{} <small>{}</small></strong><span>{}</span></a>'
                    "</li>").format(card.href, card.small, breakable(card.known_as), card.name,
                            card.sentence)

    def languages(self):
        """A call of kezpds in each."""
        drawn = self.site.drawn["kezpds"].copies
        html = [Safe('<h3 id="in-{}">{}</h3>\n<pre tabindex="0"><code>{}</code></pre>\n'
                     '<p><a href="{}">All about {}</a></p>').format(
                         tab.key, tab.title, drawn[tab.key], tab.page, tab.title)
                for tab in self.site.tabs if tab.key in drawn]
        return Safe("\n").join(html)

    def kept_values(self):
        return table(("routine", "what it remembers"),
                     [(link(r.name), self.site.prose.inline(r.kept))
                      for r in self.routines if r.kept])

    def unwritten(self):
        """Every output that some case leaves alone, by routine."""
        rows = [(link(r.name), codes(names), escape(clause))
                for r in self.routines for clause, names in self.clauses(r).items()]
        return table(("routine", "results", "not written"), rows)

    def clauses(self, r):
        found = {}
        for a in r.outputs():
            if a.kept_when and not a.kept_when.startswith("beyond "):
                text = re.sub(r"`", "", a.kept_clause().partition(" ")[2])
                found.setdefault(text, []).append(a.name)
        return found

    def extents(self):
        """The arrays whose extent is more than a count that the call passes."""
        rows = []
        for r in self.routines:
            counts = {a.name for a in r.arguments if not a.extent}
            odd = {}
            for a in r.arguments:
                if a.extent and a.extent not in counts and not a.extent.isdigit():
                    odd.setdefault((a.extent, routine.DIRECTIONS[a.direction]), []).append(a.name)
            rows += [(link(r.name), codes(names), direction, Safe("<code>{}</code>").format(extent))
                     for (extent, direction), names in odd.items()]
        return table(("routine", "arrays", "direction", "entries"), rows)

    def kezbatch(self):
        """Its prototype, and what its header says."""
        *_, comment, prototype = re.split(r"/\*\*|\*/", BATCH.read_text())
        description, tags, _ = parse_comment(comment)
        rows = []
        for tag in tags:
            direction, name, extent, text = TAG.fullmatch(tag.strip()).groups()
            rows.append((codes([name]), routine.DIRECTIONS[direction],
                         codes([f"[{extent}]"]) if extent else "", self.site.prose.inline(text)))
        return Safe('<pre tabindex="0"><code>{}</code></pre>\n{}\n{}').format(
            prototype.strip().partition(";")[0] + ";", self.site.prose.header(description),
            table(("argument", "direction", "entries", "meaning"), rows))

    @staticmethod
    def section_sheet():
        return sheet.figure()
