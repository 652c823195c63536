#!/usr/bin/env python3
"""How the header's text and the documents become pages."""

import pathlib
import re
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
sys.path[:0] = [str(ROOT / "manual"), str(ROOT / "tools")]

from generator import documents, finder, routine, search, statuses, worked  # noqa: E402
from generator.markup import Prose  # noqa: E402
from interface import parse_header, read, rows  # noqa: E402

HEADER = """
/**
 * @defgroup lines Lines
 * @{
 */
/**
 * Foot on a line: the nearest point, see `kezb`. Nothing is checked.
 *
 * @par Name
 * foot
 *
 * @par Accuracy
 * Typically 1e-7.
 *
 * @par Time
 * n log n
 * at worst
 *
 * @par Source
 * EN 1993-1-5, 4.4
 *
 * @param[in] x,y the point (length)
 * @param[in] n entries
 * @param[out] xf,yf the foot (length); kept when n is 0
 */
KEZ_API void KEZ_CALL keza(const float *x, const float *y, const int32_t *n, float *xf, float *yf);

/**
 * Nothing of it.
 *
 * @par Name
 * nothing
 *
 * @param[in] n entries
 * @param[in] x [n] list
 */
KEZ_API void KEZ_CALL kezb(const int32_t *n, const float x[]);
/** @} */
"""


def words(texts):
    return sorted(re.findall(r"\w+", " ".join(texts)))


class Text(unittest.TestCase):
    def setUp(self):
        self.prose = Prose(["keza"], {"README.md": "index.html", "pages/b.md": "b.html"})

    def test_formulas_stand_as_they_are(self):
        for text in ("a * b * c <= |d|", "x_1 and y_1_z", "[n + 1] (see below)", "a <b> & c"):
            plain = self.prose.inline(text).unescape()
            self.assertEqual(plain, text)

    def test_a_list_below_its_line_is_a_list(self):
        html = self.prose.header("What there is:\n- one\n  goes on\n- two")
        self.assertIn("<p>What there is:</p>", html)
        self.assertEqual(html.count("<li>"), 2)

    def test_a_row_that_goes_on_is_one(self):
        html = self.prose.header(
            "| n | meaning |\n|---|---|\n| 1 | long |\n|   | words |\n| 2 | b |")
        self.assertIn("<td>long words</td>", html)
        self.assertEqual(html.count("<tr>"), 3)

    def test_a_sketch_keeps_its_lines(self):
        self.assertIn("1---2\n|   |", self.prose.header("Outline:\n\n    1---2\n    |   |"))

    def test_names_of_routines_are_links(self):
        html = self.prose.header("`keza`, `kezzz`, `kez`")
        self.assertEqual(html.count("<a "), 1)
        self.assertIn('<a href="keza.html"><code>keza</code></a>', html)

        self.assertEqual(self.prose.remark("As with keza, n < 2: kezzz."),
                         'As with <a href="keza.html">keza</a>, n &lt; 2: kezzz.')

    def test_links_lead_to_pages_or_nowhere(self):
        html = self.prose.document("[in](../README.md) [b](b.md#c) [out](dev) [web](https://a.b)",
                                   "pages/a.md")
        self.assertIn('<a href="index.html">in</a> <a href="b.html#c">b</a> out '
                      '<a href="https://a.b">web</a>', html)

    def test_a_page_may_begin_with_code(self):
        self.assertIn("<pre", self.prose.document("    ./dev a\n", "a.md"))


class Routines(unittest.TestCase):
    def setUp(self):
        self.interface = parse_header(HEADER)
        self.first, self.second = self.interface.routines

    def test_the_first_sentence_is_whole(self):
        lead, rest = routine.lead_and_description(self.first)
        self.assertEqual(lead, "Foot on a line: the nearest point, see `kezb`.")
        self.assertEqual(rest, "Nothing is checked.")

    def test_facts_are_no_remarks(self):
        self.assertEqual(routine.remarks_above(self.first), {"Accuracy": "Typically 1e-7."})

    def test_arguments_that_are_documented_together_stand_together(self):
        rows = list(routine.argument_rows(self.first))
        self.assertEqual([row.names for row in rows], [["x", "y"], ["n"], ["xf", "yf"]])
        self.assertEqual([row.unit for row in rows], ["length", "", "length"])
        self.assertEqual(rows[2].kept, "kept when n is 0")

    def test_who_is_named_sees_who_names_it(self):
        self.assertIn(self.first, routine.related(self.second, self.interface))

    def test_no_word_of_the_header_is_lost(self):
        for each in read().routines:
            shown = routine.lead_and_description(each)
            said = [each.summary, each.details]
            self.assertEqual(words(shown), words(said), each.name)


class Calls(unittest.TestCase):
    def test_each_routine_begins_with_a_call_that_says_something(self):
        interface = read()
        calls = worked.worked_calls(interface)
        for name, telling in rows.worked_calls(interface).items():
            self.assertEqual(calls[name][0].row, telling[0], name)


class Statuses(unittest.TestCase):
    def meanings(self, text):
        return statuses.sentence_cases(text)

    def test_cases_are_read_from_sentences(self):
        self.assertEqual(self.meanings("0 one point, 1 the lines coincide, 2 parallel"),
                         {0: "One point.", 1: "The lines coincide.", 2: "Parallel."})
        self.assertEqual(self.meanings("1, or 0 when the input is rejected"),
                         {1: statuses.DONE, 0: "The input is rejected."})
        self.assertEqual(self.meanings("1 when b > 0, else 2 (also for 0, 3)"),
                         {1: "b > 0.", 2: "In all other cases (also for 0, 3)."})
        self.assertEqual(self.meanings("0, or the `kezdirl` relation: 3, 4 the same line, 6 skew"),
                         {0: statuses.DONE, 3: "The same line.", 4: "The same line.", 6: "Skew."})

    def test_every_value_of_a_row_has_a_meaning(self):
        interface = read()
        routines = {r.name: r for r in interface.routines}
        reports = {(r.name, a.name): statuses.meanings(r, a, routines) for r in interface.routines
                   for a in r.outputs() if statuses.is_report(a, r)}
        self.assertGreater(len(reports), 50)
        for row in rows.read_rows(interface):
            for name, literals in row.wanted.items():
                known = reports.get((row.routine.name, name))
                for literal in set(literals) - {"."} if known is not None else ():
                    self.assertIn(int(literal), known, row.place)


class Guides(unittest.TestCase):
    def test_the_tasks_name_every_routine(self):
        (tasks,) = (d for d in documents.topics() if d.href == "tasks.html")
        missing = [r.name for r in read().routines if f"`{r.name}`" not in tasks.body]
        self.assertEqual(missing, [])

    def test_the_finder_knows_what_is_taken_and_given(self):
        known = {r.name: (finder.haves(r), finder.wants(r)) for r in read().routines}
        for name, have, want in [("kezlni", {"lines"}, {"points"}),
                                 ("kezlci", {"lines", "circles"}, {"points"}),
                                 ("kezpl1", {"points"}, {"planes"}),
                                 ("kezcer", {"points", "length", "circles"}, {"circles"}),
                                 ("kezapl", {"outline"}, {"area"}),
                                 ("kezdirp", {"planes"}, {"relation"}),
                                 ("kezphi", {"points"}, {"angle"}),
                                 ("kezordi", {"list"}, {"list"}),
                                 ("kezppp", {"outline", "points"}, {"relation"})]:
            self.assertEqual(known[name], (have, want), name)

    def test_what_makes_the_inputs_is_known(self):
        known = {r.name: finder.makers(r) for r in read().routines}
        for name, makers in [("kezc12", ["kezcer"]), ("kezlci", ["kezln3", "kezcer"]),
                             ("kezdirp", ["kezpl1"]), ("kezpds", []), ("kezln3", [])]:
            self.assertEqual(known[name], makers, name)

    def test_headings_with_anchors_are_sections(self):
        html = '<p>a</p><h2 id="b">B <code>c</code></h2><p>d</p><h3 id="e">E</h3>f'
        self.assertEqual(search.sections(html), [("B c", "b", "d"), ("E", "e", "f")])


class Documents(unittest.TestCase):
    def test_links_lead_to_files(self):
        """Those of the pages as they stand in the repository, too."""
        for document in [*documents.topics(), *documents.about(),
                         *documents.guides().values()]:
            for target in re.findall(r"\]\(([^)#:]+)(?:#[^)]*)?\)", document.body):
                self.assertTrue((ROOT / document.path / ".." / target).resolve().exists(),
                                f"{document.path}: {target}")


if __name__ == "__main__":
    unittest.main()
