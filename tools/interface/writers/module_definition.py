"""Names of the Windows DLL's exports."""

from . import NOTICE

COMMITTED = "src/kezlib.def"


def write(interface):
    """Both names of a routine lead to the one entry, which the compiler calls name@bytes. The
    version's text is data."""
    lines = [f"; {NOTICE}", "LIBRARY KezLib.dll", "EXPORTS"]
    counts = {"kezbatch": 6} | {r.name: len(r.arguments) for r in interface.routines}
    for name, arguments in counts.items():
        entry = f"{name}@{4 * arguments}"
        lines += [f"    {name} = {entry}", f"    _{entry} = {entry}"]
    lines.append("    kezlib_version DATA")
    return "\n".join(lines) + "\n"
