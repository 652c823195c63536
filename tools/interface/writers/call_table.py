"""The interface as kezcall's data, declared in tools/kezcall/interface.h."""

import re

from ..arithmetic import substituted
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


def argument_fields(argument, routine):
    extent = ("nullptr", "nullptr")
    if argument.extent:
        extent = (function(substituted(argument.extent, terms(routine))), quoted(argument.extent))
    return [quoted(argument.name), argument.kind, argument.direction.replace(",", "_"), *extent,
            quoted(argument.text)]


def write(interface):
    out = [f"// {NOTICE}", '#include "interface.h"', "", "#include <algorithm>", "",
           "namespace kezcall {", "namespace {", "",
           "using enum Kind;", "using enum Direction;", ""]
    for routine in interface.routines:
        out.append(f"constexpr Argument {routine.name}_arguments[] = {{")
        out += [f"    {{{', '.join(argument_fields(a, routine))}}}," for a in routine.arguments]
        out += ["};", ""]
    out.append("constexpr Routine all[] = {")
    for r in interface.routines:
        kept = quoted(r.kept) if r.kept else "nullptr"
        out += [f"    {{{quoted(r.name)}, {quoted(r.group)}, {quoted(r.summary)},",
                f"     {quoted(r.details)},",
                f"     {kept}, {r.name}_arguments}},"]
    out += ["};", "", "}  // namespace", "", "const std::span<const Routine> routines = all;", "",
            "}  // namespace kezcall"]
    return "\n".join(out) + "\n"
