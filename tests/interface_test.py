"""The header's parser refuses what breaks the form, and what was generated is fresh."""

import builtins
import keyword
import pathlib
import re
import subprocess
import sys
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tools"))
import interface  # noqa: E402
from interface import arithmetic, bulk, languages, rows, writers  # noqa: E402
from interface.writers import (  # noqa: E402
    call_table, fortran, javascript, module_definition)

INTERFACE = interface.read()
HEADER = INTERFACE.routines
TESTS = pathlib.Path(__file__).parent
LANGUAGES = writers.languages()
BINDINGS = interface.ROOT / "bindings"
HEADINGS = ["Install", "First call", "Arrays", "Kept values", "Callback",  # others between them
            "What has been tried"]
PAGES = interface.ROOT / "manual/pages"

GROUP = "/** @defgroup g Group\n * @{\n */\n"
GOOD = """/**
 * Sums a table. Details follow.
 *
 * @par Name
 * sum_table
 *
 * @par Deliberate
 * Sums two times.
 *
 * @par Kept value
 * The last sum.
 *
 * @param[in] n entries
 * @param[in] x [2 * n + 1] table
 * @param[in,out] a,b sums
 * @param[out] w [n] words
 */
KEZ_API void KEZ_CALL kezsum(const int32_t *n, const float x[], float *a,
                             float *b, void *w);
"""


def parse(text):
    return interface.parse_header(GROUP + text)


def table(text):
    return call_table.write(parse(text))


def entries(file):
    return [line for line in (TESTS / file).read_text().splitlines() if line[0] != "#"]


def prose(file):
    return " ".join((interface.ROOT / file).read_text().split())


def names_in(text):
    return set(re.findall(r"`(kez\w+)`", text))


class Bulk(unittest.TestCase):
    def test_how_arguments_group(self):
        """Names, axes and roles: ~ is written and no result unless asked for, ? may be kept."""
        marks = {"in,out": "*", "work": "~", "count": "#", "count,out": "#*", "ignored": "-"}
        for name, wanted in {
                "kezlci": "line3 circle3 n first2? second2?", "kezpre": "segment12,3 segment22,3 c",
                "kezdtr3": "matrix3,3 det", "kezvin": "a- b 3- side",
                "kezrotx": "mode points3* n# angle", "kezaxe": "o3 a3 b3 axes3,3 status",
                "kez3lni": "p13* d13 p23* d23 status intersection3?",
                "kezppp": "n# outline2~ p2 status", "kezair": "points2~ n# kind A0 factor area?",
                "kezadr": "a- counts n source target?", "kezmer2": "n#* a*",
                "kezsec_t": "b h tf tw value nc nv vertices2 kind sign v7",
                "kezipl": "outline2~ n# Ix Iy Ixy", "kezln6": "p3 direction3 q3 tol code onLine",
        }.items():
            routine = next(r for r in HEADER if r.name == name)
            found = [("" if o.role == "ignored" and o.inner else o.name)
                     + ",".join(map(str, o.inner)) + marks.get(o.role, "")
                     + ("?" if o.is_kept() else "") for o in bulk.operands(routine)]
            self.assertEqual(" ".join(found), wanted, name)


class Form(unittest.TestCase):
    def test_good_routine(self):
        (routine,) = parse(GOOD).routines
        self.assertEqual((routine.name, routine.readable, routine.group, routine.group_name),
                         ("kezsum", "sum_table", "Group", "g"))
        self.assertEqual((routine.summary, routine.details), ("Sums a table.", "Details follow."))
        self.assertEqual(routine.remarks(),
                         {"Deliberate": "Sums two times.", "Kept value": "The last sum."})
        self.assertEqual([(a.name, a.kind, a.direction, a.extent) for a in routine.arguments],
                         [("n", "integer", "in", ""), ("x", "real", "in", "2 * n + 1"),
                          ("a", "real", "in,out", ""), ("b", "real", "in,out", ""),
                          ("w", "word", "out", "n")])
        self.assertIn("_kezsum@20 = kezsum@20", module_definition.write(parse(GOOD)))
        self.assertIn("return 2 * v[0] + 1;", table(GOOD))

    def test_group(self):
        text = "/** @defgroup g Group\n *\n * Text.\n *\n * | a |\n * @{\n */\n"
        (group,) = interface.parse_header(text).groups
        self.assertEqual((group.name, group.title, group.text), ("g", "Group", "Text.\n\n| a |"))

    def test_sketch_keeps_its_indentation(self):
        sketch = GOOD.replace(" Details follow.", "\n *\n *       1--2\n *     3")
        (routine,) = parse(sketch).routines
        self.assertEqual(routine.details, "      1--2\n    3")

    def test_extent_with_the_larger_of_two(self):
        text = GOOD.replace("[2 * n + 1]", "[max(n, 0) * max(2, n)]")
        self.assertIn("return std::max<std::int64_t>(v[0], 0) * std::max<std::int64_t>(2, v[0]);",
                      table(text))

    def test_extent_from_an_integer_array(self):
        text = GOOD.replace("float x[]", "int32_t x[]").replace(
            "[n] words", "[sum(x, n) - x(n)] words")
        self.assertIn("return sum(v.array(1), v[0]) - v.array(1)(v[0]);", table(text))

    def test_what_breaks_the_form(self):
        for reason, old, new in (
                ("by value", "const float x[]", "float x"),
                ("unknown type", "const float x[]", "const double x[]"),
                ("undocumented", " * @param[in] n entries\n", ""),
                ("not an argument", "] a,b sums", "] a,b,c sums"),
                ("order", "a,b sums", "b,a sums"),
                ("in but not const", "@param[out] w", "@param[in] w"),
                ("out but const", "@param[in] x", "@param[out] x"),
                ("array without extent", "[2 * n + 1] ", ""),
                ("scalar with extent", "a,b sums", "a,b [n] sums"),
                ("extent of no input", "[2 * n + 1]", "[m]"),
                ("function without a call", "[2 * n + 1]", "[sum + 1]"),
                ("extent of a real", "[2 * n + 1]", "[a]"),
                ("extent of no arithmetic", "[2 * n + 1]", "[n, 1]"),
                ("extent of a real array", "w [n]", "w [x(n)]"),
                ("sum of a real array", "w [n]", "w [sum(x, n)]"),
                ("extent of another call", "[2 * n + 1]", "[min(n, 1)]"),
                ("no text", "n entries", "n"),
                ("no description", " * Sums a table. Details follow.\n", ""),
                ("unknown paragraph", "@par Kept value", "@par Kept values"),
                ("paragraph without text", " * Sums two times.\n", ""),
                ("paragraph below the arguments", " * @par Kept value\n * The last sum.\n *\n"
                 " * @param[in] n entries\n",
                 " * @param[in] n entries\n *\n * @par Kept value\n * The last sum.\n *\n"),
                ("paragraphs out of order", "@par Kept value", "@par Degenerate input\n * None.\n"
                 " * @par Deliberate"),
                ("paragraph twice", "@par Kept value", "@par Deliberate"),
                ("no name", " * @par Name\n * sum_table\n", ""),
                ("name in capitals", "sum_table", "Sum_table"),
                ("name of two words", "sum_table", "sum table"),
                ("name with a loose underscore", "sum_table", "sum_"),
                ("name like those of routines", "sum_table", "kez_sum"),
                ("name and second name", "@par Deliberate\n * Sums two times.",
                 "@par Second name of\n * `kezone`"),
                ("through what is no name", "@par Deliberate\n * Sums",
                 "@par Measures through\n * kezone"),
                ("through no routine", "@par Deliberate\n * Sums two times.",
                 "@par Measures through\n * `kezone`"),
                ("through itself", "@par Deliberate\n * Sums two times.",
                 "@par Measures through\n * `kezsum`"),
                ("no comment", GOOD[:GOOD.index("KEZ_API")], ""),
                ("returns a value", "KEZ_API void", "KEZ_API int32_t"),
                ("no KEZ_API", "KEZ_API ", "")):
            with self.subTest(reason):
                self.assertIn(old, GOOD)
                with self.assertRaises(interface.FormError):
                    parse(GOOD.replace(old, new))
        with self.assertRaises(interface.FormError):
            interface.parse_header(GOOD)  # outside a group
        with self.assertRaises(interface.FormError):
            parse(GOOD + GOOD)

    def test_what_is_said_of_other_routines(self):
        one = GOOD.replace("kezsum", "kezone").replace("sum_table", "sum_one")
        through = one.replace("@par Deliberate\n * Sums two times.",
                              "@par Measures through\n * `kezsum`")
        self.assertEqual(parse(through + GOOD).routines[0].remarks()["Measures through"],
                         "`kezsum`")
        second = one.replace("@par Name\n * sum_one", "@par Second name of\n * `kezsum`")
        found = parse(second + GOOD).routines[0]
        self.assertEqual((found.readable, languages.known_as(found)),
                         ("", "the same as kezsum"))
        for reason, text in (
                ("one name twice", one.replace("sum_one", "sum_table") + GOOD),
                ("one routine named twice", through.replace("`kezsum`", "`kezsum`, `kezsum`")
                 + GOOD),
                ("second name of two", second.replace("`kezsum`", "`kezsum`, `kezfoo`") + GOOD),
                ("second name of a second name", second + GOOD.replace(
                    "@par Name\n * sum_table", "@par Second name of\n * `kezone`"))):
            with self.subTest(reason), self.assertRaises(interface.FormError):
                parse(text)

    def test_what_is_kept(self):
        for condition, written in (
                ("n is not 0", "return v[0] != 0 ? 0 : every_entry;"),
                ("n is 0, -2 or 3",
                 "return v[0] == 0 || v[0] == -2 || v[0] == 3 ? 0 : every_entry;"),
                ("n is below 1", "return v[0] < 1 ? 0 : every_entry;"),
                ("beyond max(n, 2)", "return std::max<std::int64_t>(v[0], 2);"),
                ("a sum is below 1.5", '"kept when a sum is below 1.5", nullptr}')):
            when = "" if condition.startswith("beyond") else "when "
            text = GOOD.replace("[n] words", f"[n] words;\n *   kept {when}{condition}")
            with self.subTest(condition):
                last = parse(text).routines[0].arguments[-1]
                self.assertEqual((last.text, last.kept_when), ("words", condition))
                self.assertEqual(last.whole_text(), f"words; kept {when}{condition}")
                self.assertIn(written, table(text))
        text = GOOD.replace("a,b sums", "a,b sums; unchanged when n is 0")
        self.assertEqual([a.kept_when for a in parse(text).routines[0].arguments],
                         ["", "", "n is 0", "n is 0", ""])

    def test_what_is_said_of_kept_elsewhere(self):
        for old, new in (
                ("[n] words", "[n] words, all bits kept"),
                ("[n] words", "[n] words, kept when n is 0"),
                ("[n] words", "[n] words; unchanged when n is 0"),
                ("[n] words", "[n] words; kept when"),
                ("[n] words", "[n] ; kept when n is 0"),
                ("[n] words", "[n] words; kept when n is 0; more words"),
                ("[n] words", "[n] words; kept when n is 0; kept beyond n"),
                ("[n] words", "[n] words; kept when m is 0"),
                ("[n] words", "[n] words; kept when x is 0"),
                ("[n] words", "[n] words; kept when beyond n"),
                ("[n] words", "[n] words; kept beyond m"),
                ("[n] words", "[n] words; kept beyond a"),
                ("[n] words", "[n] words; kept beyond the last"),
                ("a,b sums", "a,b sums; kept when n is 0"),
                ("a,b sums", "a,b sums, else unchanged"),
                ("a,b sums", "a,b sums; unchanged beyond n")):
            with self.subTest(new), self.assertRaises(interface.FormError):
                parse(GOOD.replace(old, new))

    def test_callback(self):
        good = ("/** A host's function. */\n"
                "typedef float(KEZ_CALL *kez_f)(const int32_t *i);\n"
                "/**\n * Calls.\n *\n * @par Name\n * call\n *\n"
                " * @param[in] n calls\n * @param[in] f [n] values\n */\n"
                "KEZ_API void KEZ_CALL kezcal(const int32_t *n, kez_f f);\n")
        (routine,) = parse(good).routines
        self.assertEqual([(a.kind, a.direction, a.extent) for a in routine.arguments],
                         [("integer", "in", ""), ("callback", "in", "n")])
        self.assertEqual(routine.arguments[1].callback, interface.Callback(
            "kez_f", "A host's function.", "real",
            [interface.CallbackArgument("i", "integer", True, True)]))
        self.assertIn('"f", callback', table(good))
        for old, new in ((" [n]", ""), ("[in] f", "[out] f"), ("typedef ", "extern "),
                         ("/** A host's function. */\n", ""), ("function.", "function.\n@return z"),
                         ("typedef float", "typedef double"), ("KEZ_CALL *kez_f", "*kez_f"),
                         ("int32_t *i", "char *i"), ("const int32_t *i", "void i"),
                         ("const int32_t *n, kez_f", "const int32_t *n, kez_g"),
                         ("/** A", good[:good.index("/**\n")] + "/** A")):
            with self.subTest(new):
                self.assertIn(old, good)
                with self.assertRaises(interface.FormError):
                    parse(good.replace(old, new))
        two = good.replace("] f [n]", "] f,g [n]").replace("kez_f f)", "kez_f f, kez_f g)")
        for text in (two, good.replace("const int32_t *i", "int32_t i"),
                     good.replace("typedef float", "typedef void")):
            parse(text)
            with self.subTest(text), self.assertRaisesRegex(interface.FormError, "kezcall knows"):
                table(text)
        with self.assertRaises(interface.FormError):
            javascript.write(parse(good))
        javascript.write(parse(good.replace("kez_f", "kez_z_callback")))

    def test_error_names_the_line(self):
        with self.assertRaisesRegex(interface.FormError, "line 23: kezsum: .*by reference"):
            parse(GOOD.replace("kezsum", "kezone") + GOOD.replace("float *a", "float a"))

    def test_header_has_every_routine_with_its_count(self):
        listed = {line for line in entries("routines.txt") if line[0] != "-"}
        declared = {f"{r.name} {len(r.arguments)}" for r in HEADER}
        self.assertEqual(declared - listed, set(), "edit tests/routines.txt")
        self.assertEqual(listed - declared, set(), "edit include/kezlib.h")

    def test_readable_names_are_free_in_every_language(self):
        taken = {*keyword.kwlist, *dir(builtins)}.union(
            *(writer.LANGUAGE.reserved for writer in writers.all_writers().values()
              if hasattr(writer, "LANGUAGE")))
        self.assertEqual(taken & {r.readable for r in HEADER}, set(), "edit include/kezlib.h")

    def test_generated_files_are_fresh(self):
        subprocess.run([sys.executable, "-B", pathlib.Path(interface.__file__).parent, "--check"],
                       check=True)


class WorkedCalls(unittest.TestCase):
    """What the bindings' tests rely on; kezcall_test holds the same rules."""

    def test_row(self):
        (routine,) = parse(GOOD).routines
        row = rows.parse_row("kezsum 1 [0 0 0] 2 3 -> 4 ~5 [0x10 1.0]", routine, "f:1", "")
        self.assertEqual(row.given, {"n": ["1"], "x": ["0", "0", "0"], "a": ["2"], "b": ["3"]})
        self.assertEqual(row.wanted, {"a": ["4"], "b": ["~5"], "w": ["0x10", "1.0"]})
        self.assertEqual(row.kinds["w"], "real")

    def test_comment_belongs_to_the_rows_below(self):
        lines = ["# Two", "# lines.", "row", "row  # Own.", "row", "# Next.", "row", "", "row"]
        self.assertEqual(list(rows.comments_above(lines))[2:],
                         ["Two lines."] * 3 + ["Next."] * 2 + [""] * 2)

    def test_every_routine_has_rows_that_say_what_they_show(self):
        for name, calls in rows.worked_calls(INTERFACE).items():
            with self.subTest(name):
                self.assertGreaterEqual(len(calls), 2, "rows with a sentence")
                for row in calls:
                    self.assertRegex(row.comment, r"^[^a-z].*[.]$", f"{row.place} is no sentence")

    def test_first_one_is_an_ordinary_call(self):
        for name, (first, *_) in rows.worked_calls(INTERFACE).items():
            literals = [literal for given in first.given.values() for literal in given]
            with self.subTest(name, place=first.place):
                self.assertTrue(all(re.fullmatch(r"-?[0-9.]*[0-9]", l) for l in literals))

    def test_what_meets_a_literal(self):
        one, minus_zero = rows.word("1", "real"), rows.word("-0", "real")
        for bits, literal, kind, meets in (
                (one, "1", "real", True), (one, "1", "integer", False),
                (minus_zero, "0", "real", True), (0, "-0", "real", False),
                (0x7FC00000, "nan", "real", True), (one, "nan", "real", False),
                (one, "~1.0000009", "real", True), (one, "~1.000002", "real", False),
                (one, "1.1~0.11", "real", True), (one, "1.1~0.09", "real", False),
                (0xFFFFFFFE, "-2", "integer", True), (5, ".", "integer", True)):
            self.assertEqual(rows.meets(bits, 5, literal, kind), meets, literal)

    def test_kind_of_words_by_their_text(self):
        routine = next(r for r in INTERFACE.routines if r.name == "kezinv")
        for text, form in (("", "integer"), ("1, &\n    -2", "integer"), ("«x»", "integer"),
                           ("ibset(0, 31)", "integer"), ("«x.»", "real"), ("1.5", "real"),
                           ("1e+10, 2e+10", "real"), ("ieee_value(1.0, ieee_quiet_nan)", "real")):
            found = languages.form_of(routine, {"n": "1", "x": text}, fortran.LANGUAGE)
            self.assertEqual(found, form, text)

    def test_extent(self):
        integers = {"n": 3, "counts": [2**31 - 1, 2, 4]}
        for expression, value in (("(n + 1) / 2", 2), ("max(n, 5) * n", 15), ("counts(3)", 4),
                                  ("counts(n + 1)", 0), ("sum(counts, 2)", 1 - 2**31)):
            self.assertEqual(arithmetic.evaluate(expression, integers), value, expression)


class Languages(unittest.TestCase):
    def test_each_has_a_test_and_a_page(self):
        """The test's function is what the manual's test calls, too."""
        for key, writer in LANGUAGES.items():
            folder = writer.LANGUAGE.folder
            with self.subTest(key):
                test = (TESTS / f"bindings/{folder}_test.py").read_text()
                self.assertRegex(test, rf"(?m)^def {key}\(texts, place", "make the calls of rows")
                self.assertIn(f'harness.check("{key}", ', test)
                self.assertTrue(writer.signature(HEADER[0]))
                self.assertIn(f"(bindings/{folder}/README.md)", prose("README.md"))

    def test_there_are_no_others(self):
        folders = {writer.LANGUAGE.folder for writer in LANGUAGES.values()}
        self.assertEqual({path.parent.name for path in BINDINGS.glob("*/*")}, folders)
        self.assertEqual({path.name for path in (TESTS / "bindings").glob("*_test.py")},
                         {f"{folder}_test.py" for folder in folders})

    def test_readme_shows_a_call_for_many_items_of_each_page(self):
        """Whose programs the bindings' tests run."""
        shown = dict(re.findall(r"(?m)^\|.*\(bindings/(\w+)/README.md\) \|.*\| `(.*)` \|$",
                                (interface.ROOT / "README.md").read_text()))
        self.assertEqual(set(shown), {writer.LANGUAGE.folder for writer in LANGUAGES.values()})
        for folder, call in shown.items():
            page = (BINDINGS / folder / "README.md").read_text()
            programs = re.findall(r"(?ms)^```\w+\n(.*?)^```", page)
            self.assertIn(call, "".join(programs + re.findall(r"(?m)^    >>> (.*)$", page)))

    def test_pages_have_the_same_headings(self):
        for page in BINDINGS.glob("*/README.md"):
            text = re.sub(r"(?ms)^```.*?^```", "", page.read_text())
            found = re.findall(r"(?m)^## (.+)$", text)
            with self.subTest(page.parent.name):
                self.assertEqual([h for h in found if h in HEADINGS], HEADINGS)


class Prose(unittest.TestCase):
    """Which routines a page is about."""

    def expect(self, page, names, hint=""):
        self.assertEqual(names_in((PAGES / page).read_text()), set(names),
                         f"edit manual/pages/{page}{hint}")

    def test_which_are_left_out(self):
        self.expect("left-out.md", (name[1:].split()[0] for name in entries("routines.txt")
                                    if name[0] == "-"), " or tests/routines.txt")

    def test_which_do_not_give_the_same_bits_everywhere(self):
        same = {line.split()[0] for line in entries("reference.txt")}
        self.expect("same-answers.md", {r.name for r in HEADER} - same,
                    ", run ./dev reference, or edit tests/reference.cpp")

    def test_how_many_there_are(self):
        self.assertIn(f"{len(HEADER)} numeric routines", prose("README.md"))


if __name__ == "__main__":
    unittest.main()
