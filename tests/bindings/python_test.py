#!/usr/bin/env python3
"""The package for Python, with numpy and as where there is none.

Needs: python3-distributed python3-numpy python3-pip python3-setuptools python3-wheel mypy
"""

import json
import re
import shutil
import subprocess

import harness
from interface import bulk

PYTHON = "/usr/bin/python3"  # whose packages these are
MYPY = ["mypy", "--no-incremental", "--cache-dir", "/dev/null", "kezlib", "use.py"]
CALLS = """\
import json, pathlib, sys
if sys.argv[1] == "plain":
    sys.modules["numpy"] = None
def texts(value):
    return [str(v) for v in value] if hasattr(value, "__len__") else [str(value)]
found = {}
for name, text in json.loads(pathlib.Path("texts.json").read_text()).items():
    names = {}
    try:
        exec(text.replace("print(result)", ""), names)
        found[name] = {key: None if value is None else texts(value)
                       for key, value in names["result"]._asdict().items()}
    except ValueError as error:
        found[name] = {"refused": [str(error)]}
print(json.dumps(found))
"""
# Outlines are returned only if asked for.
ARRAYS = """\
import json, pathlib
import numpy as np
found = {}
def run(text):
    names = {}
    exec(text.replace("print(result)", ""), names)
    return names["result"] if isinstance(names["result"], tuple) else (names["result"],)
for name, text, operands in json.loads(pathlib.Path("texts.json").read_text()):
    every = run(text)
    if any(work for *_, work in operands):
        returned, every = every, run(text.replace(")\\nprint", ", changed=True)\\nprint"))
        plain = [value for value, (*_, work) in zip(every, operands) if not work]
        assert all(map(np.array_equal, plain, returned, [True] * len(returned))), name
    assert len(every) == len(operands), name
    found[name] = {}
    for value, (arguments, axes, _) in zip(every, operands):
        parts = value.reshape((*value.shape[:value.ndim - axes], len(arguments)))
        for i, argument in enumerate(arguments):
            found[name][argument] = [str(v) for v in parts[..., i].ravel().tolist()]
print(json.dumps(found))
"""
DOCTEST = """\
import doctest, sys
sys.modules.update({"numpy": None} if sys.argv[1] == "plain" else {})
found = doctest.testfile(sys.argv[2], module_relative=False)
sys.exit(found.failed > 0 or found.attempted < 10)
"""
USE = """\
import kezlib
from kezlib import arrays as kz

root: float = kezlib.kezpds(0, 0, 0, 1, 2, 3).d
kezlib.kezapl([0, 1, 1, 0], (0.5, 1, 1, 0), 3)
kz.kezapl([[0, 0], [1, 0], [0, 1]], n=3).astype(float)
kz.cut_polygon([[0, 0], [1, 0], [0, 1]], [1, 0, 0], changed=True).outline.sum()
"""


def run(place, *arguments, **variables):
    path = str(place.binding("python"))
    return place.run(PYTHON, *arguments, **{"PYTHONPATH": path, **variables})


def python(texts, place, world="plain"):
    place.file("texts.json", json.dumps(texts))
    return json.loads(run(place, place.file("calls.py", CALLS), world))


def numpy(texts, place):
    """Results come apart into the routine's arguments again."""
    results = {r.name: [([a.name for a in o.arguments], len(o.inner), o.role == "work")
                        for o in bulk.operands(r) if o.role.endswith("out") or o.role == "work"]
               for r in harness.INTERFACE.routines}
    place.file("texts.json", json.dumps(
        [(name, text, results[name.partition("_as_")[0]]) for name, text in texts.items()]))
    return json.loads(run(place, place.file("arrays.py", ARRAYS)))


def check_package(place):
    """The wheel, made by the page's commands of a copy, since what is installed may belong to the
    system: it finds a library that is named, or the loader's."""
    page = (place.binding("python") / "README.md").read_text()
    copy, make = re.findall(r"(?m)^    (cp -r /usr/local.*|pip wheel.*)$", page)
    place.run("sh", "-euc", f"{copy}\n{make}".replace("/usr/local", '"$package"').replace(
        "pip wheel", f"{PYTHON} -m pip wheel"), package=str(place.package))
    (wheel,) = place.work.glob("*.whl")
    if wheel.name != f"kezlib-{harness.interface.version()}-py3-none-any.whl":
        raise SystemExit(f"the wheel has another version: {wheel.name}")
    run(place, "-m", "pip", "install", "--no-deps", "--no-index", "--target", "site", wheel,
        PYTHONPATH="")
    assert (place.work / "site/kezlib/py.typed").exists()
    for named in ({"KEZLIB_LIBRARY": str(place.library), "LD_LIBRARY_PATH": ""},
                  {"KEZLIB_LIBRARY": ""}):
        said = run(place, harness.EXAMPLES / "host.py", PYTHONPATH="site", **named)
        assert said.strip() == harness.FIRST_CALL, said


def page_for(world, place):
    """Without numpy there are no arrays."""
    text = (place.binding("python") / "README.md").read_text()
    if world == "plain":
        text, count = re.subn(r"(?ms)^## Many items.*?(?=^## )", "", text)
        assert count == 1, "the page says nothing of many items"
    return place.file("page.md", text)


def check_types(place):
    """As those who use the package see them."""
    folder = place.work / "typed"
    shutil.copytree(place.binding("python"), folder, dirs_exist_ok=True)
    for text, accepted in ((USE, True), (USE + 'kezlib.kezpds(0, 0, 0, 1, 2, "3")\n', False),
                           (USE.replace(", changed=True", ""), False)):
        (folder / "use.py").write_text(text)
        done = subprocess.run(MYPY, cwd=folder, capture_output=True, text=True, check=False)
        assert (done.returncode == 0) == accepted, done.stdout


def main():
    (place,) = harness.places()
    for world in "plain", "numpy":
        print(harness.check("python", lambda texts, here: python(texts, here, world), place,
                            says_kept=True, refuses=True, made=True))
        for tests in "python_package.py", "python_lists.py":
            run(place, harness.HERE / tests, world)
        run(place, "-c", DOCTEST, world, page_for(world, place))
    print(harness.check("numpy", numpy, place, padded=True))
    run(place, harness.HERE / "python_arrays.py")
    print(run(place, harness.HERE / "python_arrays_calls.py").splitlines()[-1])
    check_package(place)
    check_types(place)
    # Areas, centroids and Ix of the channel by hand.
    table = run(place, harness.EXAMPLES / "outlines.py")
    for line in ("100 x 10 +38.00 +0.00 +21.32 ", "240 x 360 +137.60 +0.00 +27.05 ",
                 "20 +7.64 +-15.29 +0.00 +476.8 "):
        assert re.search(line, table), table


if __name__ == "__main__":
    main()
