"""The section sheet: gross and effective values, classes, resistances and checks of steel sections
by EN 1993-1-1, EN 1993-1-3 and EN 1993-1-5, on the library KezLib."""

import pkgutil

__version__ = "1.0.0"


def data(name):
    """A file of the folder data, also where the package is in an archive."""
    return pkgutil.get_data(__name__, f"data/{name}").decode("utf-8")
