"""The wheels that carry the library, as who installs them meets them.

    wheels_test.py PACKAGES WORK

Pythons for 32-bit x86 and for ARM are Debian's, fetched at first use and kept in KEZLIB_PYTHONS
(default ~/.cache/kezlib/pythons). There is none for Windows: Wine loads what its wheels carry.
"""

import email
import os
import pathlib
import re
import runpy
import shutil
import subprocess
import sys
import unittest
import zipfile

from packaging.utils import parse_wheel_filename

ROOT = pathlib.Path(__file__).resolve().parents[2]
PACKAGES, WORK = (pathlib.Path(argument).resolve() for argument in sys.argv[1:])
# By the platforms that installers know: which library a wheel carries, and its machine's number.
CARRIED = {"manylinux2014_x86_64": "debian/libKezLib.so.1",
           "manylinux_2_17_x86_64": "debian/libKezLib.so.1",
           "manylinux_2_17_i686": "x86/libKezLib.so.1",
           "manylinux_2_17_aarch64": "aarch64/libKezLib.so.1",
           "win32": "windows-x86/KezLib.dll",
           "win_amd64": "windows-x64/KezLib.dll"}
PYTHONS = pathlib.Path(os.environ.get("KEZLIB_PYTHONS") or pathlib.Path(
    os.environ.get("XDG_CACHE_HOME") or pathlib.Path.home() / ".cache") / "kezlib/pythons")
PYTHON = "/usr/bin/python3"  # whose packages pip, wheel and packaging are
CALL = "import kezlib; print(kezlib.library_path(), kezlib.kezpds(0, 0, 0, 2, 3, 6).d)"


def run(*command, **variables):
    done = subprocess.run(list(map(str, command)), cwd=WORK, capture_output=True, text=True,
                          env={"PATH": os.environ["PATH"], "HOME": os.environ["HOME"],
                               "LC_ALL": "C.UTF-8", **variables}, check=False)
    if done.returncode:
        raise AssertionError(f"{command}\n{done.stdout}{done.stderr}")
    return done.stdout


def wheels():
    return sorted(PACKAGES.glob("kezlib-*.whl"))


def carried(folder):
    (library,) = [*folder.glob("kezlib/*.so*"), *folder.glob("kezlib/*.dll")]
    return library


def build_of(library):
    """The build whose library that is."""
    (found,) = {path for path in CARRIED.values()
                if library.read_bytes() == (ROOT / "build" / path).read_bytes()}
    return found


def installed_for(platform):
    """The package as an installer of that platform unpacks the file that it takes."""
    folder = WORK / platform
    run(PYTHON, "-m", "pip", "install", "--no-index", "--find-links", PACKAGES, "--target", folder,
        "--only-binary", ":all:", "--python-version", "3.9", "--platform", platform, "kezlib")
    return folder


def fetched_python(machine):
    """The folder of Debian's Python for a machine. The system's own packages stay as they are."""
    kept = PYTHONS / machine
    if not (kept / "complete").exists():
        (kept / "state/lists/partial").mkdir(parents=True, exist_ok=True)
        (kept / "cache/archives/partial").mkdir(parents=True, exist_ok=True)
        (kept / "status").write_text("")
        options = (f"APT::Architecture={machine}", f"APT::Architectures={machine}",
                   f"Dir::State={kept}/state", f"Dir::State::status={kept}/status",
                   f"Dir::Cache={kept}/cache", "APT::Sandbox::User=root")
        apt = ["apt-get", "-qq", *(part for option in options for part in ("-o", option))]
        subprocess.run([*apt, "update"], check=False)  # what is missing then is said below
        run(*apt, "-y", "--no-install-recommends", "--download-only", "install",
            "python3-minimal", "libpython3-stdlib")
        for package in (kept / "cache/archives").glob("*.deb"):
            run("dpkg-deb", "-x", package, kept / "root")
        for folder in "cache", "state":
            shutil.rmtree(kept / folder)
        (kept / "complete").touch()
    return kept / "root"


class Content(unittest.TestCase):
    def test_of_each(self):
        """Unpacking holds each file against its hash in RECORD."""
        self.assertEqual(len(wheels()), len(set(CARRIED.values())))
        for wheel in wheels():
            with self.subTest(wheel.name), zipfile.ZipFile(wheel) as packed:
                run("twine", "check", "--strict", wheel)
                run(PYTHON, "-m", "wheel", "unpack", "--dest", WORK / "unpacked", wheel)
                (said,) = (n for n in packed.namelist() if n.endswith(".dist-info/WHEEL"))
                said = email.message_from_bytes(packed.read(said))
                self.assertEqual(said["Root-Is-Purelib"], "false")
                self.assertEqual(set(said.get_all("Tag")),
                                 set(map(str, parse_wheel_filename(wheel.name)[3])))
                self.assertEqual({i.date_time for i in packed.infolist()}, {(1980, 1, 1, 0, 0, 0)})

    def test_same_bytes_again(self):
        libraries = sorted({ROOT / "build" / path for path in CARRIED.values()})
        bindings = PACKAGES.parent / "packed/share/kezlib/bindings/python"
        previous = os.umask(0o077)
        try:
            run(PYTHON, "-B", ROOT / "tools/wheels", bindings, WORK / "again", *libraries,
                TZ="Pacific/Auckland")
        finally:
            os.umask(previous)
        for wheel in wheels():
            self.assertEqual(wheel.read_bytes(), (WORK / "again" / wheel.name).read_bytes())

    def test_what_not_every_linux_has_is_refused(self):
        name = runpy.run_path(str(ROOT / "tools/wheels/__main__.py"))["manylinux"]
        name("x86_64", ["libm.so.6", "libc.so.6"], ["GLIBC_2.2.5", "GLIBC_2.17"])
        for needed, versions in ((["libc.so.6"], ["GLIBC_2.18"]), (["libstdc++.so.6"], []),
                                 (["libc.so.6"], ["GLIBC_PRIVATE"]), ([], ["GCC_3.0"])):
            with self.assertRaises(SystemExit):
                name("x86_64", needed, versions)


class Installation(unittest.TestCase):
    def test_each_platform_gets_its_own(self):
        for platform, library in CARRIED.items():
            with self.subTest(platform):
                self.assertEqual(build_of(carried(installed_for(platform))), library)

    def test_other_platforms_get_none(self):
        for platform in "musllinux_1_2_x86_64", "manylinux2010_x86_64", "macosx_14_0_arm64":
            with self.assertRaisesRegex(AssertionError, "No matching distribution"):
                installed_for(platform)

    def test_bare_environment(self):
        """No library is installed there, and none is named."""
        run(PYTHON, "-m", "venv", "--without-pip", "bare")
        run(PYTHON, "-m", "pip", "--python", "bare/bin/python", "install", "--no-index",
            "--find-links", PACKAGES, "kezlib")
        path, distance = run("bare/bin/python", "-c", CALL).split()
        self.assertEqual(distance, "7.0")
        self.assertIn(WORK / "bare", pathlib.Path(path).parents)
        self.assertEqual(run("bare/bin/python", ROOT / "examples/host.py").strip(),
                         "(0.866025, 0.5) and (-0.866025, 0.5)")

    def test_other_machines_of_linux(self):
        for machine, platform in ("i386", "manylinux2014_i686"), ("arm64", "manylinux2014_aarch64"):
            with self.subTest(platform):
                root, site = fetched_python(machine), installed_for(platform)
                runner = ["qemu-aarch64", "-L", root]
                if machine == "i386":
                    runner = [root / "lib/ld-linux.so.2", "--library-path", ":".join(
                        f"{root}/{folder}/i386-linux-gnu" for folder in ("lib", "usr/lib"))]
                said = run(*runner, (root / "usr/bin/python3").resolve(), "-c", CALL,
                           PYTHONHOME=f"{root}/usr", PYTHONPATH=str(site))
                self.assertEqual(said.split(), [str(carried(site)), "7.0"])

    def test_libraries_for_windows(self):
        for machine, platform in ("x86", "win32"), ("x64", "win_amd64"):
            with self.subTest(platform):
                said = run(ROOT / "tools/launchers" / f"wine-{machine}",
                           ROOT / f"build/windows-{machine}/kezcall.exe",
                           "--library", carried(installed_for(platform)),
                           "kezpds", "0", "0", "0", "2", "3", "6")
                self.assertEqual(re.sub(r"\s+", " ", said).strip(), "d = 7")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
