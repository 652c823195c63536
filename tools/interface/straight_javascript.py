"""Calls from JavaScript by functions of plain statements, which take a hundredth of the time of a
call that reads the arguments' description: of a routine whose inputs are scalars, and of any whose
arguments have a fixed number of entries many calls in a loop."""

from .defaults import optional_inputs
from .languages import broken, glued

# What calls by statements of their own hold; the names of arguments have no dollar sign.
STRAIGHT = """
/** For the routines whose inputs are scalars, calls by statements of their own. What they do not
 * take, checked.kez... gets, which says what is wrong. A block of the instance's memory holds all
 * arguments; a view of no length shows that the memory has grown, and its views have ended. The host's
 * own stack may end within the library, whose stack is as before then. */
export function straightCalls($exports, $checked, $unwritten) {{
  const $at = $exports.malloc({words} * 4);
  let $reals = new Float32Array();
  let $integers = new Int32Array();
  const $renew = () => {{
    $reals = new Float32Array($exports.memory.buffer, $at, {words});
    $integers = new Int32Array($exports.memory.buffer, $at, {words});
  }};
  return {{
{calls}
  }};
}}

/** For the routines whose arguments have fixed numbers of entries, many calls. An argument has $room
 * bytes for each of its entries, behind those of the arguments before it; $end is 4 for each call. */
export const stridedCalls = ($exports) => ({{
{strided}
}});
"""
WRONG = {"real": 'typeof {0} !== "number"', "integer": "({0} | 0) !== {0}"}


def width(argument):
    return int(argument.extent or 1)


def places(routine):
    """Where each argument lies in the block, and how many words they are."""
    found, words = [], 0
    for argument in routine.arguments:
        found.append((argument, words))
        words += width(argument)
    return found, words


def is_straight(routine):
    """Whether its inputs are scalars, and how much it writes is known before."""
    return all(a.kind in ("real", "integer") and (not a.extent or (
        a.extent.isdigit() and a.direction == "out" and not a.is_kept()))
        for a in routine.arguments) and not optional_inputs(routine)


def is_strided(routine):
    return all(a.kind in ("real", "integer") and (not a.extent or a.extent.isdigit())
               for a in routine.arguments)


def result(argument, place):
    view = f"${argument.kind}s"
    if argument.extent:
        return f"{argument.name}: {view}.slice({place}, {place + width(argument)})"
    value = f"{view}[{place}]"
    if argument.is_kept():
        value = f"$integers[{place}] === $unwritten.{argument.kind} ? undefined : {value}"
    return f"{argument.name}: {value}"


def filled(head, items, joint, tail):
    """A statement that breaks between the items only."""
    return broken(glued(head) + joint.join(map(glued, items)) + glued(tail), 92, "    ")


def straight_call(routine, name_of):
    laid, _ = places(routine)
    names = [name_of(a.name) for a in routine.inputs()]
    wrong = [WRONG[a.kind].format(name_of(a.name)) for a in routine.inputs()]
    addresses = [f"$at + {4 * place}" if place else "$at" for _, place in laid]
    lines = [*filled("if (", [f"arguments.length !== {len(names)}", *wrong], " || ", ")"),
             f"  return $checked.{routine.name}(...arguments);",
             "if ($reals.length === 0) $renew();"]
    for argument, place in laid:
        if argument.direction != "out":
            lines.append(f"${argument.kind}s[{place}] = {name_of(argument.name)};")
        elif argument.is_kept():
            lines.append(f"$integers[{place}] = $unwritten.{argument.kind};")
    lines += ["const $stack = $exports.stackSave();", "try {",
              *filled(f"  $exports.{routine.name}(", addresses, ", ", ");"),
              "} catch ($error) {", "  $exports.stackRestore($stack);", "  throw $error;", "}"]
    lines += filled("return { ", [result(a, place) for a, place in laid if a.direction != "in"],
                    ", ", " };")
    return "\n".join([*filled(f"    {routine.name}(", names, ", ", ") {"),
                      *("      " + line for line in lines), "    },"])


def times(factor, name):
    return f"{factor} * {name}" if factor > 1 else name


def strided_call(routine):
    laid, _ = places(routine)
    addresses = [" + ".join(["$at", *([times(place, "$room")] if place else []),
                             times(width(a), "$i")]) for a, place in laid]
    return "\n".join([f"  {routine.name}($at, $room, $end) {{",
                      "    for (let $i = 0; $i < $end; $i += 4)",
                      *("  " + line for line in
                        filled(f"    $exports.{routine.name}(", addresses, ", ", ");")), "  },"])


def straight_calls(interface, name_of):
    routines = [r for r in interface.routines if is_straight(r)]
    strided = [strided_call(r) for r in interface.routines if is_strided(r)]
    words = max((places(r)[1] for r in routines), default=0)
    return STRAIGHT.format(strided="\n".join(strided), words=words,
                           calls="\n".join(straight_call(r, name_of) for r in routines))
