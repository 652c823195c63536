"""Runs procedures of Visual Basic for Applications, as far as hosts of the library need it: what it
does not know it refuses. External procedures are called as they are declared."""

import ctypes
import operator

from vba_module import External
from vba_text import Refused, enter
from vba_values import TYPES, Array, Scalar, coerced

# By sign how tightly it binds, and what it does.
BINARY = {"=": (1, operator.eq), "+": (2, operator.add), "-": (2, operator.sub),
          "*": (3, operator.mul), "/": (3, operator.truediv)}
TIGHTEST = 4


def shown(value):
    return value if isinstance(value, str) else f"{value:.7g}"


def number(text):
    if text[0] == "&":
        return ctypes.c_int32(int(text[2:].rstrip("&"), 16)).value
    digits = text.rstrip("!&#%@")
    return float(digits) if set(digits.lower()) & set(".e") or text[-1] in "!#" else int(digits)


def single_from_bits(value):
    return ctypes.c_float.from_buffer(ctypes.c_int32(value)).value


class Tokens:
    def __init__(self, line):
        self.line, self.tokens, self.at = line, line.tokens(), 0

    def peek(self):
        return self.tokens[self.at][1] if self.at < len(self.tokens) else ""

    def next(self):
        self.at += 1
        return self.tokens[self.at - 1]

    def accept(self, text):
        found = self.peek().lower() == text.lower()
        self.at += found
        return found

    def expect(self, text):
        if not self.accept(text):
            self.line.refuse(f"'{text}' expected, not '{self.peek()}'")

    def name(self):
        kind, text = self.next() if self.peek() else ("", "")
        if kind != "name":
            self.line.refuse("a name expected")
        return text

    def end(self):
        if self.peek():
            self.line.refuse(f"'{self.peek()}' is too much")


class Run:
    """One run of the procedures of some modules; `printed` is what Debug.Print wrote."""

    def __init__(self, modules, library):
        self.names, self.globals, self.printed, self.library = {}, {}, [], library
        for module in modules:
            self.names |= module.names
            for line in module.variables:
                self.dim(Tokens(line), self.globals)

    def call(self, name, arguments=()):
        """The variables of a procedure of the modules when it returns."""
        procedure = self.names[name.lower()]
        frame = {}
        for parameter, value in zip(procedure.parameters, arguments):
            enter(frame, parameter.name, Scalar(parameter.type), procedure.line)
            frame[parameter.name.lower()].put(value)
        if procedure.result:
            enter(frame, procedure.name, Scalar(procedure.result), procedure.line)
        self.block(procedure.body, frame)
        for variable, value in (frame | self.globals).items():
            if isinstance(value, Array) and not value.is_intact():
                raise Refused(f"{procedure.name}: written behind {variable}")
        return frame

    def block(self, lines, frame):
        lines = list(lines)
        while lines:
            tokens = Tokens(lines.pop(0))
            if tokens.accept("For"):
                self.for_(tokens, lines, frame)
            elif tokens.peek():
                self.statements(tokens, frame)

    def statements(self, tokens, frame):
        self.statement(tokens, frame)
        while tokens.accept(":"):
            self.statement(tokens, frame)
        tokens.end()

    def statement(self, tokens, frame):
        word = tokens.peek().lower()
        if tokens.accept("Dim"):
            self.dim(tokens, frame)
        elif tokens.accept("If"):
            self.if_(tokens, frame)
        elif tokens.accept("Debug"):
            tokens.expect(".")
            tokens.expect("Print")
            self.print(tokens, frame)
        elif isinstance(self.names.get(word), External):
            self.external_call(tokens, frame)
        else:
            place = self.place(tokens, frame)
            tokens.expect("=")
            place.put(self.expression(tokens, frame))

    def dim(self, tokens, frame):
        while True:
            name, bounds = tokens.name(), None
            if tokens.accept("("):
                bounds = [self.expression(tokens, frame)]
                tokens.expect("To")
                bounds.append(self.expression(tokens, frame))
                tokens.expect(")")
            tokens.expect("As")
            kind = tokens.name()
            if kind not in TYPES and (kind != "Variant" or bounds):
                tokens.line.refuse(f"variables of {kind} are not known here")
            enter(frame, name, Array(kind, *bounds) if bounds else Scalar(kind), tokens.line)
            if not tokens.accept(","):
                break

    def inner(self, tokens, lines):
        """The lines up to the end of the loop that has begun, taken off the front."""
        found, depth = [], 1
        while lines:
            line = lines.pop(0)
            words = line.text.split() or [""]
            depth += (words[0] == "For") - (words[0] == "Next")
            if not depth:
                return found
            found.append(line)
        tokens.line.refuse("no Next")

    def for_(self, tokens, lines, frame):
        each = tokens.accept("Each")
        variable = self.place(tokens, frame)
        tokens.expect("In" if each else "=")
        values = self.expression(tokens, frame)
        if not each:
            tokens.expect("To")
            values = range(values, self.expression(tokens, frame) + 1)
        elif variable.type != "Variant":
            tokens.line.refuse("For Each takes a Variant")
        tokens.end()
        body = self.inner(tokens, lines)
        for value in values:
            variable.put(value)
            self.block(body, frame)

    def if_(self, tokens, frame):
        """Of one line."""
        holds = self.expression(tokens, frame)
        tokens.expect("Then")
        if not tokens.peek():
            tokens.line.refuse("what is done if it holds stands in other lines")
        if holds:
            self.statements(tokens, frame)
        tokens.at = len(tokens.tokens)

    def print(self, tokens, frame):
        parts = []
        while tokens.peek():
            parts.append(shown(self.expression(tokens, frame)))
            if not tokens.accept(";"):
                break
        self.printed.append(" ".join(parts))

    def external_call(self, tokens, frame):
        external = self.names[tokens.name().lower()]
        if tokens.peek() == "(":
            tokens.line.refuse("without Call, brackets make values of the arguments")
        kept = []
        for i, parameter in enumerate(external.parameters):
            if i:
                tokens.expect(",")
            kept.append(self.argument(parameter, tokens, frame))
        getattr(self.library, external.entry)(*(passed for passed, _ in kept))

    def argument(self, parameter, tokens, frame):
        """What is passed, and what must live as long as the call."""
        if not parameter.by_reference:
            value = self.expression(tokens, frame)
            if parameter.type == "LongPtr":
                return ctypes.cast(value, ctypes.c_void_p), value
            return TYPES[parameter.type](coerced(value, parameter.type)), value
        name, begin, place = tokens.peek().lower(), tokens.at, None
        if name in frame or name in self.globals:
            place = self.place(tokens, frame)
        if place and tokens.peek() in ("", ",", ":"):
            if place.type != parameter.type:
                tokens.line.refuse(f"ByRef argument type mismatch at {parameter.name}")
        else:
            place, tokens.at = Scalar(parameter.type), begin
            place.put(self.expression(tokens, frame))
        return ctypes.c_void_p(place.address()), place

    def place(self, tokens, frame):
        name = tokens.name()
        found = frame.get(name.lower(), self.globals.get(name.lower()))
        if found is None:
            tokens.line.refuse(f"{name} is not declared")
        if isinstance(found, Scalar):
            return found
        tokens.expect("(")
        entry = found.entry(self.expression(tokens, frame))
        tokens.expect(")")
        return entry

    def expression(self, tokens, frame, least=1):
        value = self.primary(tokens, frame)
        while tokens.peek() in BINARY and BINARY[tokens.peek()][0] >= least:
            binding, apply = BINARY[tokens.next()[1]]
            value = apply(value, self.expression(tokens, frame, binding + 1))
        return value

    def primary(self, tokens, frame):
        if tokens.accept("-"):
            return -self.expression(tokens, frame, TIGHTEST)
        if tokens.accept("AddressOf"):
            return self.callback(self.names[tokens.name().lower()])
        kind, text = tokens.tokens[tokens.at] if tokens.peek() else ("", "")
        if kind in ("number", "string"):
            tokens.next()
            return number(text) if kind == "number" else text[1:-1]
        if text.lower() in ("array", "singlefrombits"):
            tokens.next()
            values = self.bracketed(tokens, frame)
            return values if text.lower() == "array" else single_from_bits(*values)
        return self.place(tokens, frame).get()

    def bracketed(self, tokens, frame):
        values = []
        tokens.expect("(")
        while not tokens.accept(")"):
            values.append(self.expression(tokens, frame))
            tokens.accept(",")
        return values

    def callback(self, procedure):
        """A function of the host for the library, with its parameters as it declares them."""
        types = [TYPES[p.type] for p in procedure.parameters]
        if not all(p.by_reference for p in procedure.parameters):
            procedure.line.refuse("the library passes by reference")

        def called(*places):
            frame = self.call(procedure.name, [place[0] for place in places])
            return frame[procedure.name.lower()].get()
        return ctypes.CFUNCTYPE(TYPES[procedure.result], *map(ctypes.POINTER, types))(called)
