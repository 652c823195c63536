"""What kezlib.arrays takes, refuses, documents and returns, beside the worked calls; and the same
calls on a cluster."""

import inspect
import resource
import sys
import threading
import unittest
from fractions import Fraction

import numpy as np
from kezlib import arrays as kz

SQUARE = [[0, 0], [2, 0], [2, 2], [0, 2]]
LINES, UNIT_CIRCLE = [[0, 1, -.5], [0, 1, -1], [0, 1, -2]], [0, 0, -1]


class Shapes(unittest.TestCase):
    def test_leading_axes_are_broadcast(self):
        p, q = np.zeros((4, 1, 3)), np.array([[2, 3, 6], [0, 3, 4], [0, 0, 1]])
        found = kz.distance(p, q)
        self.assertEqual((found.shape, found.dtype), ((4, 3), np.float32))
        self.assertEqual(found[1].tolist(), [7, 5, 1])
        self.assertEqual(kz.distance(np.zeros((0, 3)), q[0]).shape, (0,))
        self.assertEqual((kz.distance(q[0], 3 * [0]).shape, float(kz.distance(q[0], 3 * [0]))),
                         ((), 7))

    def test_many_short_walks(self):
        rng = np.random.default_rng(1)
        p, q, o = rng.random((40, 1, 40, 3)), rng.random((1, 40, 1, 3)), rng.random((40, 1, 3))
        found = kz.vertex_angle_in_space(p, q, o)
        self.assertEqual(found.shape, (40, 40, 40))
        for item in (0, 0, 0), (39, 2, 17), (7, 39, 0):
            i, j, k = item
            self.assertEqual(found[item], kz.vertex_angle_in_space(p[i, 0, k], q[0, j, 0], o[j, 0]))

    def test_results(self):
        found = kz.intersect_line_circle(LINES, UNIT_CIRCLE)
        self.assertEqual((type(found), found._fields),
                         (kz.IntersectLineCircle, ("count", "first", "second")))
        self.assertEqual(found.count.tolist(), [2, 1, 0])
        self.assertEqual(found.count.dtype, np.int32)
        self.assertEqual(np.isnan(found.first[:, 0]).tolist(), [False, False, True])
        preset = kz.intersect_line_circle(LINES, UNIT_CIRCLE, first=[[1, 2], [3, 4], [5, 6]])
        self.assertEqual(preset.first[2].tolist(), [5, 6])
        self.assertTrue(np.isnan(preset.second[2]).all())

    def test_lists(self):
        self.assertEqual(kz.point_in_polygon(SQUARE, [[1, 1.2], [3, 1], [2, 1]]).tolist(),
                         [0, -1, 100])
        self.assertEqual(kz.polygon_area(SQUARE, n=[4, 3, 0]).tolist(), [4, 2, 0])
        both = kz.polygon_area([SQUARE, SQUARE[::-1]], changed=True)
        self.assertEqual(both.outline[:, 4].tolist(), [[0, 0], [0, 2]])
        self.assertEqual(kz.find_positions([7, 8, 7, 7], [7, 8, 9]).idx.tolist(),
                         [[1, 3, 4, 0], [2, 0, 0, 0], [0, 0, 0, 0]])
        common = kz.compare_lists([[1, 2, 2], [3, 4, 5]], [2, 5])
        self.assertEqual(common.com.tolist(), [[2, 2], [5, 0]])
        self.assertEqual(kz.move_origin(SQUARE, [1, 1])[0].tolist(), [-1, -1])

    def test_numbers_of_any_type(self):
        p, zero = np.array([[2, 3, 6], [0, 3, 4]]), [0, 0, 0]
        for given in (p.astype(">f8"), p.astype("f2"), p.astype("u1"), p[::-1][::-1], p.tolist(),
                      p.astype(object) + Fraction(0), np.repeat(p, 2, 1)[:, ::2], p > -1):
            wanted = [3**.5] * 2 if np.asarray(given).dtype == bool else [7, 5]
            np.testing.assert_allclose(kz.distance(given, zero), wanted, rtol=1e-7)
        buffer = np.zeros(25, np.uint8)[1:].view(np.float32)
        self.assertEqual(kz.distance(buffer[:3], [2, 3, 6]), 7)  # where no float may stand
        self.assertEqual(kz.reverse_list([1, 2, 3]).dtype, np.int32)
        self.assertEqual(kz.reverse_list([1, 2, 3.5]).dtype, np.float32)
        self.assertEqual(kz.reverse_list(np.array([5, 2**32 - 1], np.uint32)).tolist(), [-1, 5])

    def test_what_is_refused(self):
        cases = [
            (lambda: kz.distance([1, 2], [1, 2, 3]), ValueError,
             r"distance: p has shape \(2,\), not \(..., 3\)"),
            (lambda: kz.distance(np.zeros((4, 3)), np.zeros((5, 3))), ValueError,
             r"distance: the leading axes do not agree: p \(4, 3\), q \(5, 3\)"),
            (lambda: kz.distance(["1", "2", "3"], [1, 2, 3]), TypeError, "distance: p has entries"),
            (lambda: kz.distance([1, 2, None], [1, 2, 3]), TypeError, "p has None, not a real"),
            (lambda: kz.distance([1, 2, 3j], [1, 2, 3]), TypeError, "distance: p has entries of"),
            (lambda: kz.distance([[1, 2, 3], [1]], [1, 2, 3]), ValueError, "p: its entries"),
            (lambda: kz.find_positions([1, 2.5], 1), TypeError, "find_positions: ia has entries"),
            (lambda: kz.find_positions([1, 2**31], 1), OverflowError, "ia has an entry beyond"),
            (lambda: kz.polygon_area(SQUARE, n=5), ValueError,
             r"outline has 4 entries, \(..., n, 2\) asks for 5"),
            (lambda: kz.order_quadrilateral(np.zeros((5, 3))), ValueError, "corners has 5 entries"),
            (lambda: kz.find_in_range([1, 2], 0, 3, idx=[0]), ValueError, "idx has 1 entries"),
            (lambda: kz.sample_segment([0, 0, 0], [1, 0, 0], 1, 2**31 - 1 + np.zeros(9999, int)),
             MemoryError, "points has 2147483647 entries in each of 9999 items")]
        for call, error, words in cases:
            with self.subTest(words), self.assertRaisesRegex(error, words):
                call()

    def test_memory_grows_with_the_pairs(self):
        count = 100_000
        before = resource.getrusage(resource.RUSAGE_SELF).ru_maxrss
        a = np.arange(count)
        common = kz.compare_lists([a, a], a + [[count - 1], [count - 2]])
        self.assertEqual(common.com.tolist(), [[count - 1, 0], [count - 2, count - 1]])
        near = kz.pair_near_values(2.0 * a, 2.0 * a + .5, .5)
        self.assertEqual((near.nm, near.positions[count - 1].tolist()), (count, [count] * 2))
        self.assertLess(resource.getrusage(resource.RUSAGE_SELF).ru_maxrss - before, 100_000)
        few = kz.compare_lists([1, 2, 3], [3, 4, 1], com=[9, 9])
        self.assertEqual(few.com.tolist(), [1, 3])
        with self.assertRaisesRegex(ValueError, "com has 1 entries, .* asks for 2"):
            kz.compare_lists([1, 2, 3], [3, 4, 1], com=[9])

    def test_details_that_a_shape_does_not_have(self):
        plain, whole = (kz.kezsec_c(60, [150, 200], 0, 2, *rest) for rest in ([], [0] * 11))
        for got, wanted in zip(plain, whole):
            self.assertEqual(got.tobytes(), wanted.tobytes())
        self.assertEqual(kz.kezsec_c(60, 150, 15, 2, sf=20, xf=5, nf=[0, 1]).nv[:, 1].tolist(),
                         [0, 4])

    def test_own_heights(self):
        def near(z, tol=2):
            return kz.points_near_line([0, 0, 0], [1, 0, 0], [[0, 0], [1, 0], [2, 0]], z, tol)

        self.assertEqual(near(lambda i: [.5, 4, 1][i - 1], [2, 5]).count.tolist(), [2, 3])
        self.assertEqual(near([[.5, 4, 1], [3, 0, 9]]).idx.tolist(), [[1, 3, 0], [2, 0, 0]])
        asked = []

        def stops(i):
            asked.append(i)
            raise KeyError("enough")

        with self.assertRaisesRegex(KeyError, "enough"):
            near(stops, np.ones(5))
        self.assertEqual(asked, [1])
        with self.assertRaisesRegex(TypeError, "points_near_line: zof's result is '1', not a real"):
            near(lambda i: "1")


class Threads(unittest.TestCase):
    def test_python_goes_on_meanwhile(self):
        """While one thread has the library sort, which takes long, another is not held up."""
        table = np.full((1, 3_000_000), 1.0)
        table[0, ::2] = np.arange(1_500_000)
        ticks, done = [0], threading.Event()

        def tick():
            while not done.is_set():
                ticks[0] += 1

        kz.sort_reals(table[:, :9])
        thread = threading.Thread(target=tick)
        from kezlib import _batch
        call, during = _batch.kezbatch, []

        def counted(*arguments):
            before = ticks[0]
            call(*arguments)
            during.append(ticks[0] - before)

        _batch.kezbatch = counted
        try:
            thread.start()
            kz.sort_reals(table)
        finally:
            done.set()
            _batch.kezbatch = call
            thread.join()
        self.assertGreater(during[0], 1000)


class Documentation(unittest.TestCase):
    def test_shapes_of_all_arguments(self):
        self.assertEqual(len(set(kz.__all__)), 136 + 138)
        for name in kz.__all__:
            function = getattr(kz, name)
            text = inspect.getdoc(function)
            given = text.partition("\nParameters\n----------\n")[2].partition("\n\n")[0]
            lines = [line for line in given.splitlines() if line[:1].strip()]
            with self.subTest(name):
                self.assertEqual([line.partition(" : ")[0] for line in lines],
                                 list(inspect.signature(function).parameters))
                self.assertTrue(all("(..." in line or "changed" in line for line in lines), lines)


class Cluster(unittest.TestCase):
    def test_same_bits_on_two_workers(self):
        import dask.array as da
        from dask.distributed import Client, LocalCluster

        rng = np.random.default_rng(2)
        p = rng.normal(1, 1, (100_000, 3)).astype(np.float32)
        points = da.from_array(p, chunks=(20_000, 3))
        with LocalCluster(n_workers=2, threads_per_worker=1, processes=True,
                          dashboard_address=None) as cluster, Client(cluster) as client:
            d = da.map_blocks(kz.distance, points, [2, 3, 6], dtype="f4", drop_axis=1)
            where = da.map_blocks(kz.point_in_polygon, SQUARE, points[:, :2], dtype="i4",
                                  drop_axis=1)
            self.assertEqual(len(client.scheduler_info()["workers"]), 2)
            found = d.compute(), where.compute()
        for got, wanted in zip(found, (kz.distance(p, [2, 3, 6]),
                                       kz.point_in_polygon(SQUARE, p[:, :2]))):
            self.assertEqual(got.tobytes(), wanted.tobytes())


if __name__ == "__main__":
    sys.exit(unittest.main())
