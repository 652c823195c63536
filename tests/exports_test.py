"""The built library exports the header's routines and nothing else, and needs only the system.

    exports_test.py OBJDUMP LIBRARY
"""

import pathlib
import re
import subprocess
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tools"))
import interface  # noqa: E402

OBJDUMP, LIBRARY = sys.argv[1:3]
ROUTINES = interface.read().routines


def objdump(option):
    return subprocess.run([OBJDUMP, option, LIBRARY], check=True, capture_output=True,
                          text=True).stdout


@unittest.skipIf(LIBRARY.endswith(".dll"), "ELF")
class SharedObject(unittest.TestCase):
    def test_exports_the_routines_only(self):
        symbols = [line for line in objdump("-T").splitlines() if re.match(r"[0-9a-f]{8}", line)]
        defined = [line.split()[-1] for line in symbols if "*UND*" not in line]
        self.assertEqual(sorted(defined), sorted(r.name for r in ROUTINES))

    def test_name_and_dependencies(self):
        headers = objdump("-p")
        self.assertIn("libKezLib.so.1", re.findall(r"SONAME\s+(\S+)", headers))
        for needed in re.findall(r"NEEDED\s+(\S+)", headers):
            self.assertRegex(needed, r"^(lib(stdc\+\+|m|c|gcc_s|asan|ubsan)|ld-linux.*)\.so")


@unittest.skipUnless(LIBRARY.endswith(".dll"), "DLL")
class WindowsLibrary(unittest.TestCase):
    def test_both_names_lead_to_one_entry(self):
        headers = objdump("-p")
        entry = dict(re.findall(r"\[\s*(\d+)\] \+base\[\s*\d+\] (\w+) Export RVA", headers))
        names = {name: entry[number] for number, name in
                 re.findall(r"\[\s*(\d+)\] (_?kez\S+)$", headers, re.MULTILINE)}
        expected = {}
        for routine in ROUTINES:
            rva = names.get(routine.name)
            expected |= {routine.name: rva, f"_{routine.name}@{4 * len(routine.arguments)}": rva}
        self.assertEqual(names, expected)
        self.assertEqual(len(entry), len(names))
        self.assertEqual(len(set(names.values())), len(ROUTINES))

    def test_needs_only_the_system(self):
        needed = set(re.findall(r"DLL Name: (\S+)", objdump("-p")))
        self.assertLessEqual(needed, {"KERNEL32.dll", "msvcrt.dll"})


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
