"""The interface of the library as data, read from include/kezlib.h, its only source."""

from .model import Argument, Callback, CallbackArgument, FormError, Interface, Routine
from .reader import HEADER, ROOT, parse_header, read, version

__all__ = ["Argument", "Callback", "CallbackArgument", "FormError", "HEADER", "Interface",
           "ROOT", "Routine", "parse_header", "read", "version"]
