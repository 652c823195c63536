"""The built library exports the header's routines and nothing else, and needs only the system.

    exports_test.py OBJDUMP LIBRARY [IMPORT_LIBRARY]
"""

import pathlib
import re
import subprocess
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tools"))
import interface  # noqa: E402

OBJDUMP, LIBRARY, *IMPORT_LIBRARY = sys.argv[1:]
ROUTINES = interface.read().routines


def objdump(option, file=LIBRARY):
    return subprocess.run([OBJDUMP, option, file], check=True, capture_output=True,
                          text=True).stdout


def decorated(routine):
    return f"{routine.name}@{4 * len(routine.arguments)}"


@unittest.skipIf(LIBRARY.endswith(".dll"), "ELF")
class SharedObject(unittest.TestCase):
    def test_exports_the_routines_only(self):
        globals_ = re.findall(r"^[0-9a-f]{8,16} [^l].*$", objdump("-T"), re.MULTILINE)
        defined = [line.split()[-1] for line in globals_ if "*UND*" not in line]
        self.assertEqual(sorted(defined), sorted(r.name for r in ROUTINES))

    def test_name_and_dependencies(self):
        headers = objdump("-p")
        self.assertIn("libKezLib.so.1", re.findall(r"SONAME\s+(\S+)", headers))
        for needed in re.findall(r"NEEDED\s+(\S+)", headers):
            self.assertRegex(needed, r"^(lib(stdc\+\+|m|c|gcc_s|asan|ubsan)|ld-linux.*)\.so")


@unittest.skipUnless(LIBRARY.endswith(".dll"), "DLL")
class WindowsLibrary(unittest.TestCase):
    def setUp(self):
        self.headers = objdump("-p")
        self.standard_call = "pei-i386" in self.headers

    def test_exports_lead_to_one_entry_a_routine(self):
        entry = dict(re.findall(r"\[\s*(\d+)\] \+base\[\s*\d+\] (\w+) Export RVA", self.headers))
        names = {name: entry[number] for number, name in
                 re.findall(r"\[\s*(\d+)\] (_?kez\S+)$", self.headers, re.MULTILINE)}
        expected = {r.name: names.get(r.name) for r in ROUTINES}
        if self.standard_call:
            expected |= {"_" + decorated(r): names.get(r.name) for r in ROUTINES}
        self.assertEqual(names, expected)
        self.assertEqual(len(entry), len(names))
        self.assertEqual(len(set(names.values())), len(ROUTINES))

    def test_import_library_has_the_names_that_compilers_refer_to(self):
        names = re.findall(r"\b__imp_(\S+)$", objdump("-t", *IMPORT_LIBRARY), re.MULTILINE)
        expected = [r.name for r in ROUTINES]
        if self.standard_call:
            expected = ["_" + name for name in expected + [decorated(r) for r in ROUTINES]]
        self.assertEqual(sorted(names), sorted(expected))

    def test_needs_only_the_system(self):
        needed = set(re.findall(r"DLL Name: (\S+)", self.headers))
        self.assertLessEqual(needed, {"KERNEL32.dll", "msvcrt.dll"})


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
