"""Integer arithmetic as the header writes it, over the integers of a routine: sums, products and
quotients; max(a, b), the larger of two; of an integer array counts(i), its entry i, and
sum(counts, i), the sum of its first i entries."""

import ast
import re

from .model import FormError

NODES = (ast.Expression, ast.BinOp, ast.Add, ast.Sub, ast.Mult, ast.Div, ast.Constant, ast.Name,
         ast.Load, ast.Call)


def is_known_call(call, arrays):
    name = ast.unparse(call.func)
    if name == "sum":
        return len(call.args) == 2 and ast.unparse(call.args[0]) in arrays
    return len(call.args) == (1 if name in arrays else 2 if name == "max" else -1)


def is_arithmetic(expression, arrays):
    try:
        nodes = list(ast.walk(ast.parse(expression, mode="eval")))
    except SyntaxError:
        return False
    calls = [node for node in nodes if isinstance(node, ast.Call)]
    in_place = {id(call.func) for call in calls} | {
        id(call.args[0]) for call in calls if call.args and ast.unparse(call.func) == "sum"}
    return (all(isinstance(node, NODES) for node in nodes)
            and all(is_known_call(call, arrays) for call in calls)
            and all(id(node) in in_place for node in nodes
                    if isinstance(node, ast.Name) and node.id in arrays))


def check(expression, integers, place, known):
    """Refuses what is no arithmetic over these arguments, which are called `known`."""
    if not is_arithmetic(expression, {a.name for a in integers if a.extent}):
        raise FormError(f"{place} is not integer arithmetic")
    for name in re.findall(r"\b(?!(?:max|sum)\()[A-Za-z_]\w*", expression):
        if name not in {a.name for a in integers}:
            raise FormError(f"{place}: {name} is not {known}")


def substituted(expression, terms):
    """The expression with each of its names, max and sum too, replaced."""
    return re.sub(r"[A-Za-z_]\w*", lambda match: terms[match[0]], expression)


class Entries(list):
    """An integer array, whose entries are counted from 1; there are zeros around it."""

    def __call__(self, i):
        return self[i - 1] if 1 <= i <= len(self) else 0


def signed(value):
    """As 32-bit integers wrap."""
    return (value + 2**31) % 2**32 - 2**31


def evaluate(expression, integers):
    """The value over integers by name, of which arrays are sequences. Quotients are of what is not
    negative, or count nothing."""
    names = {name: Entries(value) if hasattr(value, "__len__") else value
             for name, value in integers.items()}
    names |= {"max": max, "sum": lambda entries, count: signed(sum(entries[:max(count, 0)]))}
    code = expression.replace("/", "//")
    return eval(code, {"__builtins__": {}}, names)  # what check() has let pass
