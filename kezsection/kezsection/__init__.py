"""The section sheet: gross and effective values, classes, resistances and checks of steel sections
by EN 1993-1-1, EN 1993-1-3 and EN 1993-1-5, on the library KezLib."""

__version__ = "1.0.0"
