"""What the program reads, writes, refuses and says."""

import csv
import os
import pathlib
import re
import signal
import subprocess
import sys
import tempfile
import time
import unittest
import xml.dom.minidom

PYTHON = os.environ.get("PYTHON", sys.executable)
PROGRAM = [PYTHON, "-B", os.environ.get("KEZSECTION") or "-m"]
PROGRAM += [] if os.environ.get("KEZSECTION") else ["kezsection"]
GOOD = """\
\ufeffIPE300 235 0 90 Träger <1> & Söhne   # a comment
hollow 20cm 0.1m 5 10  355MPa 400000N 5e6Nmm

angles 100 100 0 10 10  235 420 0 =1+1
channel 75 200 20 2 40 50 2  350 60 0
channel 80 250 25 2.5 90 55 1  350 -90 0
girder 1200 320 400 25 25 8  355 500 2400 Vz=300 mz=5 a=2m end=rigid @home
"""
SHAPES = """\
tee 200 150 15 12 355 50 -12 Vz=20
half IPE 300 355 20 -6
box 600 560 12 12 1000 8 500 355 500 1500 Mz=100 Vz=500
rhs 100 200 4 355 300 5 Mz=2
SHS 100x5 355 100 3 Mz=3 Vz=200
chs 500 4 355 100 10
L 100x65x7 235 100 1
cee 75 60 200 20 15 2 350 10 3 Vz=30
zed 75 60 200 0 15 2 350 20 3 Mz=0.2 Vz=20
flat 10 20 355 10 .1
round 20 355 10 0
"""


class Program(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)
        (self.folder / "good.txt").write_text(GOOD, "utf-8")
        (self.folder / "shapes.txt").write_text(SHAPES, "utf-8")

    def run_it(self, *arguments, status=0, **others):
        done = subprocess.run([*PROGRAM, *arguments], cwd=self.folder, text=True,
                              capture_output=True, encoding="utf-8", **others)
        self.assertEqual(done.returncode, status, done.stderr)
        self.assertNotIn("Traceback", done.stderr)
        return done

    def rows(self, name, **how):
        with open(self.folder / name, encoding="utf-8-sig", newline="") as file:
            return list(csv.DictReader(file, **how))

    def test_report(self):
        done = self.run_it("good.txt", status=1)
        self.assertEqual(done.stderr, "good.txt:5: section 4 incomplete: web: it has slots\n")
        for text in ("Not covered: buckling of members", "good.txt:7",
                     "1  Träger <1> & Söhne", "IPE300, rolled: h 300, b 150",
                     "INCOMPLETE, no rule for web: it has slots.", "rigid"):
            self.assertIn(text, done.stdout)
        self.assertLess(done.stdout.index("Not covered"), done.stdout.index("Gross section"))
        long = self.run_it("shapes.txt").stdout
        self.assertLessEqual(max(map(len, (done.stdout + long).splitlines())), 80)

    def test_numbers_are_places(self):
        """Bad lines leave gaps, in all products."""
        (self.folder / "gaps.txt").write_text(
            "# one\nIPE 80 235 0 1 A\nrhs 1\n\nIPE 80 235 0 1 B\n")
        done = self.run_it("gaps.txt", "--csv", "t.csv", "--csv-plates", "p.csv", "--svg", "s",
                           "--html", "h.html", status=1)
        self.assertRegex(done.stderr, r"^gaps.txt:3: h, t, fy, N, M missing; write rhs b h t fy")
        self.assertEqual([(r["number"], r["line"], r["name"]) for r in self.rows("t.csv")],
                         [("1", "2", "A"), ("3", "5", "B")])
        self.assertEqual({r["number"] for r in self.rows("p.csv")}, {"1", "3"})
        self.assertEqual(sorted(os.listdir(self.folder / "s")), ["section-1.svg", "section-3.svg"])
        self.assertEqual(re.findall(r"<h1>(\d)", (self.folder / "h.html").read_text("utf-8")),
                         ["1", "3"])

    def test_bad_lines(self):
        """Each is named with what to write instead, and the other lines are computed."""
        faults = (
            ("IPE 300 235", "N, M missing; write IPE300 fy N M"),
            ("zett 1 2", "unknown word 'zett'; write girder, rolled, tee"),
            ("hea 210 235 0 0", "unknown word HEA210; write HEA2"),
            ("tee 200 150 15 12,5 355 0 0", "tw '12,5' is not a number, with mm or cm or m"),
            ("tee 200 150 15 0 355 0 0", "tw 0 is outside 0.1 to 10000 mm"),
            ("rhs 100 200 4 nan 0 0", "fy 'nan' is not a number"),
            ("rhs 100 200 4 0 0 0", "fy 0 is outside 100 to 1000 N/mm2"),
            ("rhs 100 200 4 235 0 0 r=3", "rhs has no r="),
            ("rhs 100 200 4 235 0 0 Mz=1 Mz=2", "Mz= stands there twice"),
            ("rhs 100 200 4 235 0 0 end=soft", "write end=rigid or end=plain"),
            ("rhs 100 200 4 235 0 0 Vz =300", "the name has 'Vz ='; write key=value before"),
            ("rhs 100 200 4 235 0 0 vz:3 Beam", "the name has 'vz:3'"),
            ("rhs 100 200 4 235 0 0 Beam mz=3", "the name has 'mz='"),
            ("girder 50 320 400 25 25 8 355 0 0", "such that t1 + t2 < d"),
            ("cee 75 60 200 3 15 2 350 0 0 r=4", "c1 = 0 or c1 >= t + r"),
            ("rhs 100 200 4 355 0 0 \x07", "a character in the name cannot be printed"),
            (b"rhs 100 200 4 355 0 0 \xff", "not in UTF-8"))
        lines = [line if isinstance(line, bytes) else line.encode() for line, _ in faults]
        (self.folder / "bad.txt").write_bytes(b"\n".join([*lines, b"IPE 80 235 0 1 The last"]))
        done = self.run_it("bad.txt", status=1)
        said = done.stderr.splitlines()
        self.assertEqual(len(said), len(faults), done.stderr)
        for number, (line, (_, reason)) in enumerate(zip(said, faults), 1):
            self.assertTrue(line.startswith(f"bad.txt:{number}: "), line)
            self.assertIn(reason, line)
        self.assertIn(f"{len(faults) + 1}  The last", done.stdout)

    def test_nothing_is_overwritten(self):
        """No output is the input or another output, by whatever name; refused before any work."""
        os.link(self.folder / "good.txt", self.folder / "hard.txt")
        os.symlink("good.txt", self.folder / "soft.txt")
        (self.folder / "section-2.svg").write_text(GOOD, "utf-8")
        for arguments in (["--csv", "good.txt"], ["--html", "./good.txt"], ["--dxf", "hard.txt"],
                          ["--csv-plates", "soft.txt"], ["--csv", "a", "--html", "./a"],
                          ["--csv", "a", "--csv-plates", "a"], ["--csv", "."],
                          ["--svg", "good.txt"], ["--csv", "-"], ["--svg", "-"], ["--csv", "good.txt/t.csv"],
                          ["--csv", "/dev/null"], ["--csv", "section-1.svg", "--svg", "."]):
            with self.subTest(arguments):
                done = self.run_it("good.txt", *arguments, status=2)
                self.assertEqual(done.stderr.count("\n"), 1, done.stderr)
                self.assertEqual((done.stdout, done.stderr[:12]), ("", "kezsection: "))
        for name, arguments in (("t.csv", ["--csv", "t.csv"]), ("good.txt", [])):
            with open(self.folder / name, "a", encoding="utf-8") as report:
                done = subprocess.run([*PROGRAM, "good.txt", *arguments], cwd=self.folder, text=True,
                                      stdout=report, stderr=subprocess.PIPE)
            self.assertEqual(done.returncode, 2)
            self.assertRegex(done.stderr, f"^kezsection: standard output goes to {name}, .*\n$")
        (self.folder / "t.csv").unlink()
        self.run_it("section-2.svg", "--svg", ".", status=2)
        self.assertEqual((self.folder / "good.txt").read_text("utf-8"), GOOD)
        self.assertEqual(sorted(os.listdir(self.folder)), ["good.txt", "hard.txt", "section-2.svg",
                                                           "shapes.txt", "soft.txt"])

    def test_files_are_whole(self):
        """An earlier file stays until the new one is complete, also when the run is ended."""
        signal.signal(signal.SIGINT, signal.default_int_handler)  # which a shell's & ignores
        old = self.folder / "out" / "t.csv"
        self.run_it("shapes.txt", "--quiet", "--csv", "out/t.csv", "--html", "new/h.html")
        before = old.read_bytes()
        (self.folder / "many.txt").write_text("IPE 300 235 50 90\n" * 20000)
        for how in (signal.SIGTERM, signal.SIGINT, signal.SIGKILL):
            run = subprocess.Popen([*PROGRAM, "many.txt", "--quiet", "--csv", "out/t.csv"],
                                   cwd=self.folder, stderr=subprocess.PIPE, text=True)
            for _ in range(600):
                if len(os.listdir(old.parent)) > 1:
                    break
                time.sleep(0.02)
            run.send_signal(how)
            said = run.communicate()[1]
            self.assertEqual(old.read_bytes(), before)
            if how != signal.SIGKILL:
                self.assertEqual((run.returncode, said),
                                 (2, "kezsection: interrupted; no file was written\n"))
                self.assertEqual(os.listdir(old.parent), ["t.csv"])
        self.run_it("missing.txt", "--csv", "out/t.csv", status=2)
        self.assertEqual(old.read_bytes(), before)

    def test_statuses(self):
        (self.folder / "empty.txt").write_text("# nothing\n")
        (self.folder / "bad.txt").write_text("IPE 300 S235 0 90\n")
        (self.folder / "k.csv").write_text("old")
        done = self.run_it("bad.txt", "--csv", "k.csv", status=2)
        self.assertIn("kezsection: bad.txt: every line is bad; no file was written", done.stderr)
        self.assertEqual((self.folder / "k.csv").read_text(), "old")
        for arguments, said in ((["empty.txt"], "empty.txt: no section"),
                                (["missing.txt"], "missing.txt: No such file"),
                                (["good.txt", "--dask", "nowhere"], "missing port number")):
            self.assertRegex(self.run_it(*arguments, status=2).stderr,
                             f"^kezsection: .*{said}.*\n$")
        for eta in ("5", "0.9", "nan"):
            self.assertIn("not in 1.0 to 1.2", self.run_it("good.txt", "--eta", eta, status=2).stderr)
        self.assertIn("invalid choice: 0", self.run_it("good.txt", "--jobs", "0", status=2).stderr)
        bare = subprocess.run([PYTHON, "-S", "-B", "-c",
                               "import sys; sys.path[:0] = [sys.argv.pop(1)]\n"
                               "from kezsection.cli import main; sys.exit(main())",
                               str(pathlib.Path(__file__).resolve().parents[2] / "kezsection"),
                               "good.txt"], cwd=self.folder, text=True, capture_output=True,
                              env={**os.environ, "PYTHONPATH": ""})
        self.assertEqual(bare.returncode, 2)
        self.assertIn("install the package kezlib", bare.stderr)

    def test_head(self):
        (self.folder / "many.txt").write_text("IPE 300 235 50 90\n" * 300)
        run = subprocess.Popen([*PROGRAM, "many.txt", "--csv", "t.csv"], cwd=self.folder,
                               stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        run.stdout.readline()
        run.stdout.close()
        self.assertEqual((run.stderr.read(), run.wait()), (b"", 0))
        run.stderr.close()
        self.assertEqual(len(self.rows("t.csv")), 300)

    def test_tables(self):
        self.run_it("good.txt", "--quiet", "--csv", "t.csv", "--csv-plates", "p.csv", status=1)
        rows = self.rows("t.csv")
        self.assertEqual([r["name"] for r in rows], ["Träger <1> & Söhne", "", "'=1+1", "", "",
                                                     "'@home"])
        self.assertEqual([r["incomplete"] for r in rows],
                         [""] * 3 + ["web: it has slots"] + [""] * 2)
        girder = rows[5]
        self.assertEqual([girder[k] for k in ("a [mm]", "end post", "Mz [kNm]",
                                              "Weff min My+ [cm3]", "class all actions")],
                         ["2000", "rigid", "5", "10443.4", "4"])
        utilisations = {k: float(v) for k, v in girder.items() if k.startswith("utilisation") and v}
        self.assertEqual(float(girder["governing utilisation [-]"]), max(utilisations.values()))
        web = next(r for r in self.rows("p.csv") if (r["number"], r["state"], r["plate"])
                   == ("6", "My+", "web"))
        (self.folder / "over.txt").write_text("chs 100 5 235 0 5 Vz=5000\n")
        self.run_it("over.txt", "--quiet", "--csv", "o.csv")
        self.assertEqual(self.rows("o.csv")[0]["governing utilisation [-]"], "inf")
        self.assertEqual((web["rho [-]"], web["k_sigma [-]"]), ("0.664842", "20.4583"))
        self.run_it("good.txt", "--quiet", "--csv", "x.csv", "--csv-excel", status=1)
        self.assertEqual((self.folder / "x.csv").read_bytes()[:3], b"\xef\xbb\xbf")
        self.assertEqual([list(r.values()) for r in self.rows("x.csv", delimiter=";")],
                         [list(r.values()) for r in rows])
        # Every column is described, and the page names no others.
        page = pathlib.Path(__file__).resolve().parents[2] / "kezsection" / "README.md"
        described = set(re.findall(r"`([^`\n]+)`", page.read_text("utf-8")))
        for heading in [*rows[0], *web]:
            general = re.sub(r"(My|Mz)[+-]", "My+", re.sub(r"dim [1-6]", "dim 1", heading))
            general = re.sub(r"^utilisation .*", "utilisation ... [-]", general)
            general = re.sub(r"M[yz],Rd [+-]", "My,Rd +", general)
            general = re.sub(r"class My\+$", "class N", general)
            self.assertIn(general, described)

    def test_pictures_and_pages(self):
        self.run_it("shapes.txt", "--quiet", "--svg", "s/t", "--html", "h.html", "--dxf", "o.dxf")
        self.run_it("good.txt", "--quiet", "--svg", "s/g", status=1)
        for path in [*self.folder.glob("s/*/*.svg")]:
            text = path.read_text("utf-8")
            xml.dom.minidom.parseString(text.encode())
            self.assertNotRegex(text, r"\bnan\b|\binf\b")
        picture = (self.folder / "s/g/section-6.svg").read_text("utf-8")
        for words in ("d 1200", "b1 320", "b2 400", "t1 25", "t2 25", "tw 8", "164.4", "207.2"):
            self.assertIn(words, picture)
        pages = (self.folder / "h.html").read_text("utf-8")
        self.assertEqual(pages.count("<section class='page'"), 11)
        self.assertNotRegex(pages, r"\bnan\b")
        import ezdxf
        drawing = ezdxf.readfile(self.folder / "o.dxf")
        names = [b.dxf.name for b in drawing.modelspace()]
        self.assertEqual(names, [f"SECTION_{i}" for i in range(1, 12)])
        outlines = [e for e in drawing.blocks.get("SECTION_5") if e.dxf.layer == "KEZ_OUTLINE"]
        self.assertEqual([sum(1 for *_, bulge in e if bulge) for e in outlines], [4, 4])

    def test_studies(self):
        """The same bytes from one process, from two, and from a cluster that loses a worker."""
        from distributed import LocalCluster
        with open(self.folder / "many.txt", "w", encoding="utf-8") as file:
            for i in range(400):
                print(f"girder {400 + i} 300 300 12 12 6 355 {i % 7 * 50} {i % 5 * 40}", file=file)
        tables = []
        def study(name, *arguments, during=lambda: None):
            run = subprocess.Popen([*PROGRAM, "many.txt", "--csv", name, *arguments],
                                   cwd=self.folder, stdout=subprocess.PIPE)
            during()
            text = run.communicate()[0]
            self.assertEqual(run.returncode, 0)
            tables.append((self.folder / name).read_bytes() + text)
        study("1.csv")
        study("2.csv", "--jobs", "2")
        with LocalCluster(n_workers=2, threads_per_worker=1, dashboard_address=None) as cluster:
            study("3.csv", "--dask", cluster.scheduler_address,
                  during=lambda: (time.sleep(1), os.kill(cluster.workers[0].pid, signal.SIGKILL)))
        self.assertEqual(tables[0].count(b"\nIPE"), 0)
        self.assertEqual(len(set(tables)), 1)

    def test_worker_that_dies(self):
        (self.folder / "many.txt").write_text("IPE 300 235 50 90\n" * 30000)
        run = subprocess.Popen([*PROGRAM, "many.txt", "--quiet", "--jobs", "2", "--csv", "t.csv"],
                               cwd=self.folder, stderr=subprocess.PIPE, text=True)
        children = pathlib.Path(f"/proc/{run.pid}/task/{run.pid}/children")
        for _ in range(600):
            if len(children.read_text().split()) == 2:
                break
            time.sleep(0.02)
        os.kill(int(children.read_text().split()[0]), signal.SIGKILL)
        self.assertEqual((run.communicate()[1], run.returncode),
                         ("kezsection: a worker process died; no file was written\n", 2))
        self.assertFalse((self.folder / "t.csv").exists())


if __name__ == "__main__":
    unittest.main()
