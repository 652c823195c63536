"""What bindings find out about arrays from their extents, so that a call need not have what no
routine reads or writes.

- An output whose extent has the product of two counts holds pairs of entries of the two lists with
  these counts: pairs that are equal, or within the tolerance that the routine is given. Their
  number is what the routine writes; the product is only what it could be at most.
- An array that is read and written and has n + 1 entries is read up to entry n, and at least the
  first: the last entry is only written.
"""

import ast
from dataclasses import dataclass

from .model import FormError


@dataclass(frozen=True)
class Pairs:
    """Two input lists, their counts, and the real that is the tolerance, if there is one."""

    lists: tuple
    counts: tuple
    tolerance: str
    extent: str  # with `pairs` in place of the product


def names_in(node):
    return [found.id for found in ast.walk(node) if isinstance(found, ast.Name)]


class WithoutProduct(ast.NodeTransformer):
    def __init__(self):
        self.factors = []

    def visit_BinOp(self, node):
        self.generic_visit(node)
        if not isinstance(node.op, ast.Mult) or not names_in(node.left) or not names_in(node.right):
            return node
        self.factors += [node.left, node.right]
        return ast.Name("pairs")


def only(found, place, what):
    if len(found) != 1:
        raise FormError(f"{place}: a product of counts, but {what}")
    return found[0]


def pairs(argument, routine):
    """None where the extent has no product of counts."""
    if argument.callback or "*" not in argument.extent:
        return None
    visitor = WithoutProduct()
    extent = ast.unparse(visitor.visit(ast.parse(argument.extent, mode="eval")))
    if not visitor.factors:
        return None
    place = f"{routine.name}: {argument.name}"
    arguments = {a.name: a for a in routine.inputs()}
    counts = tuple(only([name for name in names_in(factor) if name in arguments], place,
                        "no product of two of them") for factor in visitor.factors)
    lists = tuple(only([a.name for a in arguments.values() if a.extent == count], place,
                       f"not one list of {count} entries") for count in counts)
    reals = [a.name for a in arguments.values() if a.kind == "real" and not a.extent]
    tolerance = only(reals, place, "more than one real") if reals else ""
    return Pairs(lists, counts, tolerance, extent)


class WithoutLast(ast.NodeTransformer):
    changed = False

    def visit_BinOp(self, node):
        self.generic_visit(node)
        is_next = isinstance(node.op, ast.Add) and ast.unparse(node.right) == "1"
        if not is_next or not isinstance(node.left, ast.Name):
            return node
        self.changed = True
        return node.left


def read_entries(argument):
    """How many entries are read of an array whose last one is only written, as an expression; at
    least one is in any case. Empty where that is not known."""
    if argument.callback or argument.direction != "in,out" or not argument.extent:
        return ""
    visitor = WithoutLast()
    expression = ast.unparse(visitor.visit(ast.parse(argument.extent, mode="eval")))
    return expression if visitor.changed else ""
