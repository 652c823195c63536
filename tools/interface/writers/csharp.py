"""The binding for C#, of which Visual Basic .NET can use the assembly."""

import re
import textwrap
from xml.sax.saxutils import escape

from .. import shapes
from ..arithmetic import substituted
from ..languages import (Language, Literals, broken, form_of, forms, glued, is_list, known_as,
                         remarks, shape, where_arrays_are_checked, wrapped)
from ..model import FormError
from ..reader import version
from . import NOTICE

LANGUAGE = Language(
    "C#", "csharp/KezLib.cs",
    frozenset("""abstract as base bool break byte case catch char checked class const continue
        decimal default delegate do double else enum event explicit extern false finally fixed float
        for foreach goto if implicit in int interface internal is lock long namespace new null
        object operator out override params private protected public readonly ref return sbyte
        sealed short sizeof stackalloc static string struct switch this throw true try typeof uint
        ulong unchecked unsafe ushort using virtual void volatile while""".split()),
    escape="@{}", order=4,
    literals=Literals("{}f", not_a_number="float.NaN", infinity="float.PositiveInfinity"))

TYPES = {"real": "float", "integer": "int", "nothing": "void"}
DIRECTIONS = {"in": "Read", "out": "Written", "in,out": "Read and written"}
CLASS = """
/// <summary>The routines of the library, as its header has them.</summary>
/// <remarks>
/// <para>An array may be longer than the extent that is asked for. One that is shorter, or no
/// array at all, is refused with an ArgumentException, and the library is not called.</para>
{}
/// </remarks>
public static class Routines""".strip()


def name(argument):
    return LANGUAGE.name(argument.name)


def type_name(argument, form):
    if argument.callback:
        return argument.callback.name
    kind = TYPES[argument.kind_in(form)]
    return kind + "[]" if is_list(argument) else kind


def passing(argument):
    """How a caller passes it. Scalar inputs go by value: mono's compiler takes an `in` for that,
    others before C# 7.2 for an error."""
    if is_list(argument) or argument.direction == "in":
        return ""
    return "out " if argument.direction == "out" and not argument.is_kept() else "ref "


def native_passing(argument):
    if is_list(argument):
        return "" if argument.direction == "in" else "[In, Out] "
    return passing(argument) or "ref "


def filled(head, items, tail):
    """A line that breaks between the items only."""
    return "\n".join(broken(f"{glued(head)}({', '.join(map(glued, items))}){tail}", 88))


def head(routine, form):
    return filled(f"public static void {routine.name}",
                  [f"{passing(a)}{type_name(a, form)} {name(a)}" for a in routine.arguments], "")


def signature(routine):
    return "\n".join(head(routine, form) for form in forms(routine))


def marked_up(text):
    return re.sub(r"`([^`]+)`", r"<c>\1</c>", escape(text))


def paragraphs(text):
    """Sketches and tables in <code>, which keeps their lines, all other text and each item of a
    list in <para>."""
    for paragraph in filter(None, text.split("\n\n")):
        if paragraph.startswith((" ", "|")):
            yield f"<code>\n{escape(paragraph)}\n</code>"
            continue
        for item in re.split(r"\n(?=- )", paragraph):
            yield "\n".join(wrapped(f"<para>{marked_up(item)}</para>", "", 84))


def comment(lines):
    return [f"/// {line}".rstrip() for text in lines for line in text.splitlines()]


def documentation(routine, group):
    more = "; the remarks of the class say more." if group.text else "."
    summary = f"{known_as(routine)}: {routine.summary}"
    texts = wrapped(f"<summary>{marked_up(summary)}</summary>", "", 84)
    for a in routine.arguments:
        text = f"{DIRECTIONS[a.direction]}, {shape(a)}: {a.whole_text()}."
        if shapes.pairs(a, routine):
            text += " It needs room for the pairs that there are only: see Pairs.Count."
        texts += wrapped(f'<param name="{a.name}">{marked_up(text)}</param>', "", 84)
    said = paragraphs(where_arrays_are_checked(
        "\n\n".join([routine.details, remarks(routine), f"Family: {routine.group}{more}"])))
    return comment([*texts, "<remarks>", *said, "</remarks>"])


def counted_pairs(found):
    lists = [LANGUAGE.name(name) for pair in zip(found.lists, found.counts) for name in pair]
    tolerance = [LANGUAGE.name(found.tolerance)] if found.tolerance else []
    return f"Pairs.Count({', '.join(lists + tolerance)})"


def check_of_pairs(argument, found, terms):
    """They are counted where there is no room for as many as there could be."""
    whole, least = (substituted(e, terms) for e in (argument.extent, found.extent))
    short = f"Checks.IsShort({name(argument)}, {whole})"
    return f'Checks.Holds("{argument.name}", {name(argument)},\n    {short}\n    ? {least} : 0);'


def checks(routine):
    """What is asked of arrays before the call. A count stands before the arrays of that length."""
    terms = {a.name: name(a) if a.extent else f"(long){name(a)}" for a in routine.arguments}
    terms |= {"max": "Math.Max", "sum": "Checks.Sum", "entry": "Checks.Entry"}
    arrays = "|".join(a.name for a in routine.arguments if a.extent)
    for a in routine.arguments:
        if a.callback:
            yield f'Checks.IsThere("{a.name}", {name(a)});'
        elif found := shapes.pairs(a, routine):
            yield check_of_pairs(a, found, terms | {"pairs": counted_pairs(found)})
        elif is_list(a):
            extent = re.sub(rf"\b({arrays})\(", r"entry(\1, ", a.extent)
            yield f'Checks.Holds("{a.name}", {name(a)}, {substituted(extent, terms)});'


def guarded_call(argument, call):
    """No exception of the host's routine may pass through the library."""
    callback = argument.callback
    if (callback.result, [a.kind for a in callback.arguments]) != ("real", ["integer"]):
        raise FormError(f"{callback.name}: C# has a guard for reals of one integer only")
    return ["var guard = new Guard();",
            f"Native.{callback.name} held =\n"
            f"    (ref int index) => guard.Call({name(argument)}, index);",
            call, "GC.KeepAlive(held);", "guard.Rethrow();"]


def method(routine, form, group):
    passed = ["held" if a.callback else name(a) if is_list(a) else (passing(a) or "ref ") + name(a)
              for a in routine.arguments]
    call = filled(f"Native.{routine.name}", passed, ";")
    callbacks = [a for a in routine.arguments if a.callback]
    body = [*checks(routine), *(guarded_call(*callbacks, call) if callbacks else [call])]
    return "\n".join([*documentation(routine, group), head(routine, form), "{",
                      textwrap.indent("\n".join(body), "    "), "}"])


def native(routine, form):
    items = [f"{native_passing(a)}{type_name(a, form)} {name(a)}" for a in routine.arguments]
    return ("[DllImport(Library, ExactSpelling = true)]\n"
            + filled(f"internal static extern void {routine.name}", items, ";"))


def delegate(callback):
    items = [f"{TYPES[a.kind]} {LANGUAGE.name(a.name)}" for a in callback.arguments]
    return "\n".join(comment(wrapped(f"<summary>{marked_up(callback.text)}</summary>", "", 92)) + [
        filled(f"public delegate {TYPES[callback.result]} {callback.name}", items, ";")])


def native_delegate(callback):
    items = [f"ref {TYPES[a.kind]} {LANGUAGE.name(a.name)}" for a in callback.arguments]
    return ("[UnmanagedFunctionPointer(CallingConvention.Winapi)]\n"
            + filled(f"internal delegate {TYPES[callback.result]} {callback.name}", items, ";"))


def block(head, items):
    return f"{head}\n{{\n" + textwrap.indent("\n\n".join(items), "    ") + "\n}"


def batched(interface):
    """By routine with arguments of fixed extents a word for each: r or i, a capital where it is
    written, and its entries."""
    rows = []
    for routine in interface.routines:
        if all(a.kind in TYPES and (not a.extent or a.extent.isdigit()) for a in routine.arguments):
            words = [(a.kind[0] if a.direction == "in" else a.kind[0].upper()) + (a.extent or "1")
                     for a in routine.arguments]
            text = broken(" ".join(words), 76, "")
            joined = ' "\n        + "'.join(text)
            rows.append(f'    {{"{routine.name}", "{joined}"}},')
    return "\n".join(["internal static readonly Dictionary<string, string> Batched =",
                      "    new Dictionary<string, string>", "{", *rows, "};"])


def write(interface):
    groups = {group.title: group for group in interface.groups}
    texts = "\n\n".join(f"{group.title}.\n\n{where_arrays_are_checked(group.text)}"
                        for group in interface.groups if group.text)
    declared = [(routine, form) for routine in interface.routines for form in forms(routine)]
    head = CLASS.format("\n".join(comment(paragraphs(texts))))
    public = block(head, [method(r, form, groups[r.group]) for r, form in declared])
    private = block("internal static partial class Native",
                    [f'internal const string Version = "{version()}"; // that this is written for',
                     batched(interface), *map(native_delegate, interface.callbacks),
                     *(native(r, form) for r, form in declared)])
    space = block("namespace KezLib", [*map(delegate, interface.callbacks), public, private])
    return (f"// <auto-generated>\n// {NOTICE}\n// </auto-generated>\n"
            f"using System;\nusing System.Collections.Generic;\nusing System.Runtime.InteropServices;\n\n{space}\n")


def declaration(argument, form, literals, sizes):
    kind, variable = type_name(argument, form), name(argument)
    held = literals.get(argument.name)
    if argument.callback:
        return (f"float[] {argument.name}_values = {{{held}}};\n"
                f"{kind} {variable} = i => {argument.name}_values[i - 1];")
    if is_list(argument):
        held = f"new {kind[:-2]}[{sizes[argument.name]}]" if held is None else f"{{{held}}}"
    elif held is None and passing(argument) == "ref ":
        held = "0"
    return f"{kind} {variable};" if held is None else f"{kind} {variable} = {held};"


def printed(argument):
    text = f'string.Join(" ", {name(argument)})' if is_list(argument) else name(argument)
    return f'Console.WriteLine("{argument.name} = " + {text});'


def call(routine, literals, sizes):
    form = form_of(routine, literals, LANGUAGE)
    passed = [passing(a) + name(a) for a in routine.arguments]
    return "\n".join([*(declaration(a, form, literals, sizes) for a in routine.arguments),
                      filled(f"Routines.{routine.name}", passed, ";"),
                      *(printed(a) for a in routine.outputs())])
