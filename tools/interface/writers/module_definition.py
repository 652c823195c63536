"""Names of the Windows DLL's exports."""

from . import NOTICE

COMMITTED = "src/kezlib.def"


def write(interface):
    """Both names of a routine lead to the one entry, which the compiler calls name@bytes."""
    lines = [f"; {NOTICE}", "LIBRARY KezLib.dll", "EXPORTS"]
    for routine in interface.routines:
        entry = f"{routine.name}@{4 * len(routine.arguments)}"
        lines += [f"    {routine.name} = {entry}", f"    _{entry} = {entry}"]
    return "\n".join(lines) + "\n"
