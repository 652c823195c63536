"""The interface as kezcall's data, declared in tools/kezcall/interface.h."""

import re

from .. import conditions
from ..arithmetic import substituted
from ..languages import documentation, known_as
from ..model import FormError
from . import NOTICE


def quoted(text):
    escaped = text.replace("\\", "\\\\").replace('"', '\\"').replace("\n", "\\n")
    return f'"{escaped}"'


def function(body):
    parameter = "v" if re.search(r"\bv[.\[]", body) else ""
    return f"[](Integers {parameter}) -> std::int64_t {{ return {body}; }}"


def terms(routine):
    places = {a.name: f"v.array({i})" if a.extent else f"v[{i}]"
              for i, a in enumerate(routine.arguments)}
    return places | {"max": "std::max<std::int64_t>", "sum": "sum"}


RELATIONS = {"is": ("==", " || "), "not": ("!=", " && "), "below": ("<", "")}


def written(argument, routine):
    """How many first entries are written."""
    if expression := conditions.beyond(argument.kept_when):
        return function(substituted(expression, terms(routine)))
    if found := conditions.comparison(argument.kept_when):
        operator, joint = RELATIONS[found.relation]
        holds = joint.join(f"{terms(routine)[found.name]} {operator} {v}" for v in found.values)
        return function(f"{holds} ? 0 : every_entry")
    return "nullptr"


def argument_fields(argument, routine):
    extent = ("nullptr", "nullptr")
    if argument.extent:
        extent = (function(substituted(argument.extent, terms(routine))), quoted(argument.extent))
    kept_clause = quoted(argument.kept_clause()) if argument.kept_when else "nullptr"
    return [quoted(argument.name), argument.kind, argument.direction.replace(",", "_"), *extent,
            quoted(argument.whole_text()), kept_clause, written(argument, routine)]


def check_callbacks(routine):
    """kezcall has one routine to be called back, and one place for the values that it returns."""
    callbacks = [a.callback for a in routine.arguments if a.callback]
    known = [("integer", True, True)]
    for callback in callbacks:
        signature = [(a.kind, a.constant, a.by_pointer) for a in callback.arguments]
        if len(callbacks) > 1 or callback.result != "real" or signature != known:
            raise FormError(f"{routine.name}: kezcall knows one callback a routine, which takes an "
                            "index by reference and returns a real")


def write(interface):
    out = [f"// {NOTICE}", '#include "interface.h"', "", "#include <algorithm>", "",
           "namespace kezcall {", "namespace {", "",
           "using enum Kind;", "using enum Direction;", ""]
    for routine in interface.routines:
        check_callbacks(routine)
        out.append(f"constexpr Argument {routine.name}_arguments[] = {{")
        out += [f"    {{{', '.join(argument_fields(a, routine))}}}," for a in routine.arguments]
        out += ["};", ""]
    out.append("constexpr Routine all[] = {")
    for r in interface.routines:
        out += [f"    {{{quoted(r.name)}, {quoted(known_as(r))}, {quoted(r.group)},",
                f"     {quoted(r.summary)},",
                f"     {quoted(documentation(r))},",
                f"     {'true' if r.kept else 'false'}, {r.name}_arguments}},"]
    out += ["};", "", "}  // namespace", "", "const std::span<const Routine> routines = all;", "",
            "}  // namespace kezcall"]
    return "\n".join(out) + "\n"
