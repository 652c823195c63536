"""The built library exports the header's routines and its version, and needs only the system.

    exports_test.py OBJDUMP LIBRARY BUILD_TYPE [IMPORT_LIBRARY]

The build type is "sanitized" where the sanitizers' libraries are needed too.
"""

import fnmatch
import pathlib
import re
import subprocess
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tools"))
import interface  # noqa: E402

OBJDUMP, LIBRARY, BUILD_TYPE, *IMPORT_LIBRARY = sys.argv[1:]
ROUTINES = interface.read().routines
ARGUMENTS = {"kezbatch": 6} | {routine.name: len(routine.arguments) for routine in ROUTINES}
# By pattern of the names, the version nodes of the library.
NODES = {name: node for node, names in re.findall(
    r"(?s)(\w[\w.]*) \{\s+global: ([^}]*?);\s+(?:local: \*;\s+)?\}",
    (interface.ROOT / "src/kezlib.map").read_text()) for name in re.split(r";\s*", names)}
VERSION = ".".join(re.findall(r"(?m)^#define KEZ_VERSION_\w+ (\d+)$",
                              interface.HEADER.read_text()))
VERSION_NAME = "kezlib_version"


def objdump(option, file=LIBRARY):
    return subprocess.run([OBJDUMP, option, file], check=True, capture_output=True,
                          text=True).stdout


def node_of(name):
    """By its own name, else by a pattern."""
    return NODES.get(name) or next(NODES[p] for p in NODES if fnmatch.fnmatch(name, p))


def decorated(name):
    return f"{name}@{4 * ARGUMENTS[name]}"


@unittest.skipIf(LIBRARY.endswith(".dll"), "ELF")
class SharedObject(unittest.TestCase):
    def setUp(self):
        self.headers = objdump("-p")
        self.needed = re.findall(r"NEEDED\s+(\S+)", self.headers)
        # Flags, section, version and name.
        symbols = re.findall(
            r"^[0-9a-f]{8,16} (.{7}) (\S+)\s+[0-9a-f]+ +(?:\(?(\w[\w.]*)\)? +)?(\S+)$",
            objdump("-T"), re.MULTILINE)
        self.defined = [s for s in symbols if s[0][0] != "l" and s[1] != "*UND*"]
        self.undefined = [s for s in symbols if s[0][1] != "w" and s[1] == "*UND*"]

    def test_exports_the_routines_only(self):
        wanted = {("*ABS*", node, node) for node in NODES.values()}
        wanted |= {(".text", node_of(name), name) for name in ARGUMENTS}
        wanted.add((".rodata", node_of(VERSION_NAME), VERSION_NAME))
        exported = {s[1:] for s in self.defined}
        self.assertEqual(wanted - exported, set(), "edit src/<folder>/exports.cpp")
        self.assertEqual(exported - wanted, set())

    def test_is_named_for_its_major_version(self):
        self.assertIn("libKezLib.so.1", re.findall(r"SONAME\s+(\S+)", self.headers))

    @unittest.skipIf(BUILD_TYPE == "sanitized", "the sanitizers need more")
    def test_needs_only_an_old_c_library(self):
        for needed in self.needed:
            self.assertRegex(needed, r"^(lib[cm]|ld-linux.*)\.so")
        oldest = (2, 17) if "aarch64" in self.headers else (2, 14)
        for *_, version, name in self.undefined:
            self.assertRegex(version, r"^GLIBC_[0-9.]+$", name)
            number = tuple(map(int, version.removeprefix("GLIBC_").split(".")))
            self.assertLessEqual(number, oldest, name)

    @unittest.skipUnless(BUILD_TYPE == "Release", "is not given away")
    def test_checks_itself(self):
        self.assertRegex(self.headers, r"\bRELRO\b")
        self.assertRegex(self.headers, r"\bFLAGS\s+0x0*8\b")  # all symbols bound at once
        checks = [s[3] for s in self.undefined if re.search("_chk", s[3])]
        self.assertIn("__stack_chk_fail", checks)
        if "aarch64" not in self.headers:  # its compiler sees that the check holds
            self.assertIn("__snprintf_chk", checks)
        self.assertFalse(".text" in objdump("-t"), "has symbols")


@unittest.skipUnless(LIBRARY.endswith(".dll"), "DLL")
class WindowsLibrary(unittest.TestCase):
    def setUp(self):
        self.headers = objdump("-p")
        self.standard_call = "pei-i386" in self.headers

    def test_exports_lead_to_one_entry_a_routine(self):
        entry = dict(re.findall(r"\[\s*(\d+)\] \+base\[\s*\d+\] (\w+) Export RVA", self.headers))
        names = {name: entry[number] for number, name in
                 re.findall(r"\[\s*(\d+)\] (_?kez\S+)$", self.headers, re.MULTILINE)}
        self.assertIn(VERSION_NAME, names)
        expected = {name: names.get(name) for name in [VERSION_NAME, *ARGUMENTS]}
        if self.standard_call:
            expected |= {"_" + decorated(name): names.get(name) for name in ARGUMENTS}
        self.assertEqual(names, expected)
        self.assertEqual(len(entry), len(names))
        self.assertEqual(len(set(names.values())), len(ARGUMENTS) + 1)

    def test_import_library_has_the_names_that_compilers_refer_to(self):
        names = re.findall(r"\b__imp_(\S+)$", objdump("-t", *IMPORT_LIBRARY), re.MULTILINE)
        expected = [VERSION_NAME, *ARGUMENTS]
        if self.standard_call:
            expected = ["_" + name for name in expected + list(map(decorated, ARGUMENTS))]
        self.assertEqual(sorted(names), sorted(expected))

    def test_says_its_version(self):
        text = pathlib.Path(LIBRARY).read_bytes().decode("utf-16-le", "ignore")
        self.assertRegex(text, "FileVersion\0+" + re.escape(VERSION))
        self.assertIn("VS_VERSION_INFO", text)

    @unittest.skipUnless(BUILD_TYPE == "Release", "is not given away")
    def test_is_stripped(self):
        self.assertFalse(".text" in objdump("-t"), "has symbols")

    def test_needs_only_the_system(self):
        needed = set(re.findall(r"DLL Name: (\S+)", self.headers))
        self.assertLessEqual(needed, {"ADVAPI32.dll", "KERNEL32.dll", "msvcrt.dll"})


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
