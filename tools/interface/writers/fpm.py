"""The manifest of Fortran's module as a package of fpm, the Fortran package manager."""

from ..reader import version
from . import NOTICE

FILE = "fortran/fpm.toml"


def write(interface):
    return f"""\
# {NOTICE}
name = "kezlib"
version = "{version()}"
author = "KezLib developers"
description = "Single-precision numeric routines for programs that design steel structures"

[library]
source-dir = "."

[build]
link = "KezLib"
auto-executables = false
auto-tests = false
auto-examples = false

[fortran]
implicit-typing = false
implicit-external = false
source-form = "free"
"""
