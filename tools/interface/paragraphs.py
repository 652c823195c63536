"""The titled paragraphs of a routine's comment, which stand in this order before its arguments:

    @par Name              what people call it, or
    @par Second name of    the routine that it is too
    @par Measures through  the routines whose decisions it shares
    @par Deliberate, @par Degenerate input, @par Accuracy, @par Time, @par Source, @par Kept value
"""

import re

from .model import FormError

FIELDS = {"Name": "readable", "Second name of": "second_name_of",
          "Measures through": "measures_through", "Deliberate": "deliberate",
          "Degenerate input": "degenerate", "Accuracy": "accuracy", "Time": "time",
          "Source": "source", "Kept value": "kept"}
READABLE = re.compile(r"(?!kez)[a-z][a-z0-9]*(_[a-z0-9]+)*")
ROUTINES = re.compile(r"`kez\w+`(, `kez\w+`)*")


def routine_names(title, text):
    if not ROUTINES.fullmatch(" ".join(text.split())):
        raise FormError(f"'@par {title}' is not followed by names of routines: `kezone`, `keztwo`")
    return re.findall(r"\w+", text)


def value_of(title, text):
    if not text:
        raise FormError(f"'@par {title}' says nothing")
    if title == "Name" and not READABLE.fullmatch(text):
        raise FormError(f"'{text}' is not a name of lower case words with underscores between")
    if title == "Measures through":
        return routine_names(title, text)
    if title == "Second name of":
        name, *others = routine_names(title, text)
        if others:
            raise FormError("it is a second name of one routine")
        return name
    return text


def read(chunks):
    """The fields of a routine by the texts that begin with "@par TITLE" and a line's end."""
    titles, fields = list(FIELDS), {}
    for chunk in chunks:
        title, _, text = chunk.removeprefix("@par ").partition("\n")
        if title not in titles:
            raise FormError(f"the paragraph '{title}' is " + (
                "unknown" if title not in FIELDS else "there twice or out of the order "
                + ", ".join(FIELDS)))
        titles = titles[titles.index(title) + 1:]
        fields[FIELDS[title]] = value_of(title, text.strip("\n"))
    if ("readable" in fields) == ("second_name_of" in fields):
        raise FormError("it has neither a name nor the routine that it is too, or both")
    return fields


def check_others(routine, known):
    """That it names routines, but not itself and none twice."""
    named = [*routine.measures_through, *filter(None, [routine.second_name_of])]
    for i, name in enumerate(named):
        if name not in known or name in (routine.name, *named[:i]):
            raise FormError(f"{routine.name}: {name} is no other routine, or named twice")
    if routine.second_name_of and known[routine.second_name_of].second_name_of:
        raise FormError(f"{routine.name}: {routine.second_name_of} has no name of its own")


def check(routines):
    """What the paragraphs say of several routines."""
    known, readable = {routine.name: routine for routine in routines}, {}
    for routine in routines:
        check_others(routine, known)
        other = readable.setdefault(routine.readable, routine)
        if routine.readable and other is not routine:
            raise FormError(f"{other.name} and {routine.name} have the name {routine.readable}")
