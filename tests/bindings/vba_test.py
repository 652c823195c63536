#!/usr/bin/env python3
"""The module for VBA, of which there is none here: its text is held against the limits of the
language and its editor, and every call is made as it is declared, by ctypes.

Needs: python3
"""

import ctypes
import re
from collections import namedtuple

import harness
from harness import INTERFACE, languages, writers

# What may name nothing: the language's keywords, and the functions and types that it reserves.
RESERVED = frozenset("""
    abs addressof and any array as attribute boolean byref byte byval call case cbool cbyte ccur
    cdate cdbl cdec cint circle clng clnglng clngptr close const csng cstr currency cvar cverr date
    debug decimal declare defbool defbyte defcur defdate defdbl defdec defint deflng deflnglng
    deflngptr defobj defsng defstr defvar dim do doevents double each else elseif empty end endif
    enum eqv erase event exit false fix for friend function get global gosub goto if imp implements
    in input inputb int integer is lbound len lenb let like lock long longlong longptr loop lset me
    mod new next not nothing null on open option optional or paramarray preserve print private psn
    public put raiseevent redim rem resume return rset scale seek select set sgn shared single spc
    static step stop string sub tab then to true type typeof ubound unlock until variant wend while
    with withevents write xor""".split())
LONGEST_LINE, MOST_CONTINUATIONS, MOST_PARAMETERS = 1023, 24, 60
DECLARE = re.compile(r'Public Declare (PtrSafe )?Sub (\w+) Lib "KezLib\.dll"(?: Alias "(\w+)")? '
                     r"\((.*)\)")
PARAMETER = re.compile(r"(ByRef|ByVal) (\w+) As (Single|Long|LongPtr)")
VARIABLE = re.compile(r"(?:Dim|Private) (\w+)(?:\(1 To (\d+) \+ 1\))? As (Single|Long)")
LIST = re.compile(r"For Each item In Array\((.*)\)")
SETTING = re.compile(r"(\w+)(\(entry\))? = ([^ ]+)")
NUMBER = re.compile(r"(-?)(?:SingleFromBits\(&H(\w+)\)|([\d.e+-]+)!?)")
PRINTED = re.compile(r'Debug\.Print "(\w+)(?: =|\()"; \w+')
TYPES = {"Single": ctypes.c_float, "Long": ctypes.c_int32}

Parameter = namedtuple("Parameter", "name type by_reference")


def logical_lines(data):
    """The text as the editor imports it, with continued lines joined."""
    text = data.decode("ascii")
    assert text.endswith("\r\n") and "\n" not in text.replace("\r\n", ""), "other line ends"
    found, parts = [], []
    for line in text.split("\r\n")[:-1]:
        assert len(line) <= LONGEST_LINE, f"a line is too long: {line[:80]}"
        continued = line.endswith(" _")
        parts.append(line[:-1] if continued else line)
        assert len(parts) <= MOST_CONTINUATIONS + 1, f"too many continuations: {parts[0]}"
        if not continued:
            found.append(" ".join("".join(parts).split()))
            parts = []
    return found


def distinct(names):
    """Names know no case."""
    lower = [name.lower() for name in names]
    assert not RESERVED & set(lower), f"{RESERVED & set(lower)} are reserved"
    assert len(set(lower)) == len(lower), f"a name is declared twice: {names}"
    return names


def declarations(path, vba7):
    """By name the entry of the library and the parameters, of the newer or the older language."""
    lines = logical_lines(path.read_bytes())
    begin, middle, end = (lines.index(line) for line in ("#If VBA7 Then", "#Else", "#End If"))
    assert lines[:2] == ['Attribute VB_Name = "KezLib"', "Option Explicit"]
    found = {}
    for line in lines[begin + 1:middle] if vba7 else lines[middle + 1:end]:
        if line and line[0] != "'":
            safe, name, alias, parameters = DECLARE.fullmatch(line).groups()
            assert bool(safe) == vba7, f"PtrSafe belongs to VBA7, and only there: {line[:80]}"
            parsed = [PARAMETER.fullmatch(text).groups()
                      for text in parameters.strip().split(", ")]
            assert len(parsed) <= MOST_PARAMETERS
            distinct([name for _, name, _ in parsed])
            found[name] = alias or name, [Parameter(p, t, how == "ByRef") for how, p, t in parsed]
    distinct([*found, "SingleFromBits", "LongWord", "SingleWord", "KezLib"])
    return found


def wanted(vba7):
    """What the header asks for."""
    for routine in INTERFACE.routines:
        for form in languages.forms(routine):
            types = {"real": "Single", "integer": "Long"}
            yield routine.name + types.get(form, ""), (routine.name, [
                Parameter(a.name, "LongPtr" if vba7 else "Long", False) if a.callback else
                Parameter(a.name, types[a.kind_in(form)], True) for a in routine.arguments])


def check_header(path):
    for vba7 in False, True:
        found = {name: (entry, [p._replace(name=p.name.rstrip("_")) for p in parameters])
                 for name, (entry, parameters) in declarations(path, vba7).items()}
        for got, asked in zip(found.items(), wanted(vba7), strict=True):
            assert got == asked, f"{got}\nis declared for\n{asked}"


def number(text, kind):
    match = NUMBER.fullmatch(text)
    assert match, f"no number: {text}"
    sign, bits, digits = match.groups()
    if bits:
        value = harness.rows.single(int(bits, 16))
    else:
        value = float(digits) if kind is TYPES["Single"] else int(digits)
    return -value if sign else value


def memory(lines):
    """The variables that a copied call declares, as it sets them."""
    found, pending = {}, []
    for line in lines:
        if declared := VARIABLE.fullmatch(line):
            name, size, kind = declared.groups()
            found[name] = (TYPES[kind] * (int(size or 0) + 1))()
        elif values := LIST.fullmatch(line):
            pending = values[1].split(", ") if values[1] else []
        elif (setting := SETTING.fullmatch(line)) and setting[1] in found:
            array = found[setting[1]]
            texts = pending if setting[2] else [setting[3]]
            array[:len(texts)] = [number(text, array._type_) for text in texts]
    distinct(list(found))
    return found


def called(library, declared, line, variables):
    name, _, passed = line.partition(" ")
    entry, parameters = declared[name]
    arguments, kept = [], []
    for text, parameter in zip(passed.split(", "), parameters, strict=True):
        if text.startswith("AddressOf "):
            values = variables[text.removeprefix("AddressOf ").replace("_at", "_values")]
            kept.append(ctypes.CFUNCTYPE(ctypes.c_float, ctypes.POINTER(ctypes.c_int32))(
                lambda i, values=values: values[i[0] - 1]))
            arguments.append(kept[-1])
        else:
            variable = variables[text.removesuffix("(1)")]
            assert variable._type_ is TYPES[parameter.type], f"type mismatch at {text} of {line}"
            arguments.append(variable)
    getattr(library, entry)(*arguments)


def vba(texts, place):
    declared = declarations(place.binding("vba") / "KezLib.bas", True)
    library = ctypes.CDLL(str(place.library))
    found = {}
    for name, text in texts.items():
        lines = logical_lines((text + "\n").replace("\n", "\r\n").encode())
        variables = memory(lines)
        (call,) = (line for line in lines if line.partition(" ")[0] in declared)
        called(library, declared, call, variables)
        found[name], count = {}, 0
        for line in lines:
            if entries := re.fullmatch(r"For entry = 1 To (\d+)", line):
                count = int(entries[1])
            elif shown := PRINTED.match(line):
                values = variables[writers.languages()["vba"].LANGUAGE.name(shown[1])]
                found[name][shown[1]] = [str(v) for v in values[:count if "(" in line else 1]]
    return found


def check_host(data, declared):
    """What cannot be run: its lines, and that each routine gets as many arguments as it takes."""
    lines = logical_lines(data)
    calls = [line.partition(" ") for line in lines if line.partition(" ")[0] in declared]
    assert calls
    for name, _, passed in calls:
        count = len(re.sub(r"\([^()]*\)", "", passed).split(", "))
        assert count == len(declared[name][1]), f"{name} {passed}"


def main():
    (place,) = harness.places()
    module = place.binding("vba") / "KezLib.bas"
    check_header(module)
    print(harness.check("vba", vba, place))
    declared = declarations(module, True)
    check_host((harness.EXAMPLES / "host.bas").read_bytes(), declared)
    page = (place.binding("vba") / "README.md").read_text()
    assert not re.search("(?m)^Attribute", page), "the page shows what cannot be pasted"
    for text, _ in harness.page_programs(place, "vba", "vba"):
        check_host(text.replace("\n", "\r\n").encode(), declared)


if __name__ == "__main__":
    main()
