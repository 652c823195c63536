"""KezLib: single-precision numeric routines for programs that design steel structures.

A function of this package takes a routine's inputs and returns its outputs as a named tuple:

    >>> import kezlib
    >>> kezlib.kezlci(0, 1, -0.5, 0, 0, -1)
    Kezlci(n=2, x1=0.8660254..., y1=0.5, x2=-0.8660254..., y2=0.5)

help(kezlib.routines) lists the routines by family, with the tables of their codes.
kezlib.library_path() says which file the library was loaded from.
"""

from . import routines
from ._library import library_path
from .routines import *  # noqa: F403
from .routines import __version__

__all__ = ["__version__", "library_path", *routines.__all__]
