"""README's list of the routines: their number, and by family the names and a sentence of each."""

import itertools
import textwrap

from ..model import FormError
from ..reader import ROOT

COMMITTED = "README.md"
BEGIN = "<!-- Written by ./dev interface from include/kezlib.h. -->\n"
END = "<!-- End of the list. -->\n"


def item(routine):
    sentence = routine.summary.rstrip(":.") + "."  # a colon leads up to a formula
    names = ", ".join(f"`{name}`" for name in (routine.name, routine.readable) if name)
    return textwrap.fill(f"- {names}: {sentence}", 100, subsequent_indent="  ",
                         break_long_words=False, break_on_hyphens=False)


def families(routines):
    for group, members in itertools.groupby(routines, lambda routine: routine.group):
        yield f"**{group}**\n\n" + "\n".join(item(routine) for routine in members) + "\n"


def renewed(text, interface):
    """The text with what stands between the two marks written again."""
    before, begin, rest = text.partition(BEGIN)
    _, end, behind = rest.partition(END)
    if not begin or not end:
        raise FormError(f"{COMMITTED} has lost a mark around the list of routines")
    count = f"There are {len(interface.routines)}, by family:\n"
    return "\n".join([before + begin, count, *families(interface.routines), end + behind])


def write(interface):
    return renewed((ROOT / COMMITTED).read_text(), interface)
