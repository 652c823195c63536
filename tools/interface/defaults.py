"""Inputs that a call may leave out in languages with such arguments: they are 0 then, which stands
for a detail that the shape does not have."""

from .model import FormError

OPTIONAL = {
    "kezsec_c": "r gd gw gb sw yw nw sf xf nf value".split(),
}


def optional_inputs(routine):
    """Their names, which are the last of the inputs."""
    names = OPTIONAL.get(routine.name, [])
    last = routine.inputs()[-len(names):] if names else []
    if [a.name for a in last if a.kind == "real" and not a.extent] != names:
        raise FormError(f"{routine.name}: what may be left out is not the last of its inputs")
    return names
