"""The values of a routine's page."""

import json
import urllib.parse
from dataclasses import dataclass

from interface import conditions
from interface.languages import known_as
from markupsafe import Markup as Safe

from . import finder, languages, routine, worked
from .markup import plain_text


@dataclass
class Card:
    """A routine where many stand beside each other."""

    routine: object
    small: str  # its picture

    @property
    def name(self):
        return self.routine.name

    @property
    def known_as(self):
        return known_as(self.routine)

    @property
    def href(self):
        return f"{self.name}.html"

    @property
    def sentence(self):
        return plain_text(routine.sentence(self.routine))


def fragment(call):
    """The part of the address that holds the inputs of a call."""
    return urllib.parse.urlencode(call.inputs)


def shown_result(text):
    return "kept" if text is None else text or "[]"


def shown_call(call):
    return {"fragment": fragment(call),
            "given": [{"name": n, "text": t or "[]"} for n, t in call.inputs.items()],
            "results": [{"name": a.name, "array": bool(a.extent),
                         "text": shown_result(call.results[a.name])}
                        for a in call.row.routine.outputs()]}


def shown_group(calls, prose):
    return {"sentence": prose.remark(calls[0].sentence), "calls": list(map(shown_call, calls))}


def argument_data(argument):
    return {"name": argument.name, "kind": argument.kind, "direction": argument.direction,
            "extent": argument.extent, "length": routine.is_length(argument),
            "kept": argument.kept_when, "beyond": conditions.beyond(argument.kept_when) or ""}


def page_data(r, calls, tabs):
    """What the scripts need, in the page and when it is made."""
    return {"name": r.name, "sentence": plain_text(routine.sentence(r)),
            "arguments": [argument_data(a) for a in r.arguments], "example": calls[0].inputs,
            "keeps": bool(r.kept), "languages": [languages.data(tab, r) for tab in tabs]}


def embedded(data):
    """In a script's element, where a tag would end it."""
    return Safe(json.dumps(data, ensure_ascii=False).replace("<", "\\u003c"))


def tab_values(r, copies, tabs, pages):
    for tab in tabs:
        yield {"key": tab.key, "title": tab.title, "how": "as statements",
               "signature": tab.writer.signature(r), "call": copies[tab.key],
               "page": tab.page if tab.page in pages else ""}
    yield {"key": "kezcall", "title": "kezcall", "signature": "", "page": "kezcall.html",
           "how": "as a row, with what it gives", "call": copies["kezcall"]}


def input_rows(rows, call, prose):
    inputs = {a.name: a for a in call.row.routine.inputs()}
    for row in rows:
        if set(row.names) <= set(inputs):
            fields = [{"name": n, "value": call.inputs[n], "array": bool(inputs[n].extent)}
                      for n in row.names]
            called = inputs[row.names[0]].kind == "callback"
            yield {"meaning": prose.inline(row.meaning), "unit": row.unit, "fields": fields,
                   "note": "here the values that it returns, one after another" if called else ""}


def kept_text(row):
    if row.beyond:
        return f"entries beyond {row.beyond} are {row.kept.split()[0]}"
    return row.kept


def marked(rows, prose, links):
    for row in rows:
        row.values = next((links[name] for name in row.names if name in links), "")
        row.meaning = prose.inline(row.meaning)
        row.kept = prose.inline(kept_text(row))
        yield row


def related(r, interface):
    """By name: first what makes the inputs."""
    names = [other.name for other in routine.related(r, interface)]
    return list(dict.fromkeys([*finder.makers(r), *names]))


def routine_values(r, site):
    prose, calls = site.prose, site.calls[r.name]
    shown, folded = worked.shown_and_folded(worked.groups(calls))
    tabs = tab_values(r, site.drawn[r.name].copies, site.tabs, site.language_pages())
    group = routine.family(r, site.interface)
    lead, description = routine.lead_and_description(r)
    return {
        "name": r.name, "known_as": known_as(r), "summary": prose.inline(lead),
        "family": {"title": group.title, "href": site.family_href(group.title),
                   "text": prose.header(group.text)},
        "in_family_text": f"`{r.name}`" in group.text,
        "picture": Safe(site.drawn[r.name].picture),
        "first": shown_call(calls[0]),
        "input_rows": list(input_rows(routine.argument_rows(r), calls[0], prose)),
        "details": prose.header(description),
        "remarks": {title: prose.header(text)
                    for title, text in routine.remarks_above(r).items()},
        "argument_rows": list(marked(routine.argument_rows(r), prose, site.made.report_links(r))),
        "kept": prose.inline(r.kept), "source": prose.inline(r.source),
        "time": prose.inline(r.time),
        "tabs": list(tabs),
        "shown": [shown_group(calls, prose) for calls in shown],
        "folded": [shown_group(calls, prose) for calls in folded],
        "related": [site.cards[name] for name in related(r, site.interface)],
        "data": embedded(site.drawn[r.name].data)}
