import unittest

from claims import check, value

HEADER = """/**
 * kezaaa: the file's own comment says what typically means.
 */
/**
 * Some line.
 *
 * @par Accuracy
 * It is typically 0.0002 R off, at worst
 * R / 300. Pairs count as skew: 1 in 5.
 */
KEZ_API void KEZ_CALL kezaaa(const float *x);
"""
CLAIMS = {"kezaaa": ["typically {t:off} R off, at worst {w:off}.", "as skew: {s:skew}."]}
MEASURED = {"off": (0.0003, 0.003, 0), "skew": 0.22}


class Claims(unittest.TestCase):
    def faults(self, header=HEADER, claims=None, **measured):
        return check(header, MEASURED | measured, claims or CLAIMS)[0]

    def test_words_of_figures(self):
        for text, number in {"5e-8": 5e-8, "1 in 4": 0.25, "3 of 4": 0.75, "20 per cent": 0.2,
                             "R / 50": 0.02, "R": 1, "half": 0.5}.items():
            self.assertEqual(value(text), number, text)

    def test_figures_that_hold(self):
        self.assertEqual(self.faults(), [])

    def test_figures_that_do_not_hold(self):
        for off in (0.0003, 0.0034, 0), (0.0007, 0.003, 0), (0.00006, 0.003, 0), (3e-4, 3e-4, 0):
            self.assertEqual(len(self.faults(off=off)), 1, off)
        self.assertIn("give no number", *self.faults(off=(0.0003, 0.003, 0.1)))
        self.assertIn("skew", *self.faults(skew=0.28))

    def test_other_figures_in_the_header(self):
        self.assertIn("says R / 400", *self.faults(HEADER.replace("R / 300", "R / 400")))

    def test_a_sentence_without_a_claim(self):
        self.assertIn("nothing measures: At worst it is 1",
                      *self.faults(HEADER.replace("Pairs", "At worst it is 1. Pairs")))

    def test_a_claim_without_its_sentence(self):
        self.assertIn("does not say", self.faults(HEADER.replace("as skew", "as crossing"))[0])

    def test_a_measurement_without_a_claim(self):
        self.assertIn("no claim uses the measurement more", self.faults(more=0.5))


if __name__ == "__main__":
    unittest.main()
