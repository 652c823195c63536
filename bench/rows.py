"""The rows of the table: what is measured beside what, and the goal."""

from typing import NamedTuple


class Row(NamedTuple):
    work: str
    ours: str  # the benchmark of this library
    peer: str  # the one beside it
    goal: float | None = None
    sizes: tuple[int, ...] = ()
    over: bool = False  # ns above the peer's instead of the ratio
    within: float = 1e-4  # what the answers may differ by, of the larger one


SHORT = 10, 30, 100
TO_1E4 = 1_000, 10_000
TO_1E5 = 1_000, 10_000, 100_000
FROM_1E4 = 10_000, 100_000, 1_000_000
TO_1E6 = 1_000, *FROM_1E4

ROWS = [
    Row("`kezpds` / empty call", "kezpds", "empty7", 1.15),
    Row("`kezlni` / CGAL line-line, inlined", "kezlni", "cgal_line_line", 1.1),
    Row("`kezln3` twice and `kezlni` / CGAL from 4 points", "kezln3_kezln3_kezlni",
        "cgal_four_points", 1.6),
    Row("`kezlci` / Open CASCADE line-circle", "kezlci", "cad_line_circle", 0.14),
    Row("`kezc12` / Open CASCADE circle-circle", "kezc12", "cad_circle_circle", 0.14),
    Row("`kezpl1` / CGAL plane of 3 points (no collinearity test there)", "kezpl1", "cgal_plane",
        2.6),
    Row("`kezpli` / CGAL line-plane", "kezpli", "cgal_line_plane", 1.5),
    Row("`kezpsl` / CGAL point-segment distance, beside the segment", "kezpsl_off",
        "cgal_point_segment_off", 1.1, within=0),
    Row("`kezpsl` / CGAL point-segment distance, on the segment", "kezpsl_on",
        "cgal_point_segment_on", within=0),
    Row("`kezphi1` / CGAL approximate angle", "kezphi1", "cgal_angle", 0.85),
    Row("`kezef2`, ns over an empty call", "kezef2", "empty9", 7.0, over=True),
    Row("`kez3tra` / plain loop", "kez3tra", "plain_move", 1.05, (10_000,)),
    Row("`kezptrl` / Eigen, a short list", "kezptrl", "eigen_placement", 1.35, (100,)),
    Row("`kezptrl` / Eigen", "kezptrl", "eigen_placement", 0.8, (10_000,)),
    Row("`kezapl` / plain loop, a section", "kezapl", "plain_area", 0.8, (12,)),
    Row("`kezapl` / plain loop, long outlines", "kezapl", "plain_area", 0.5, (100, *TO_1E5)),
    Row("`kezipl` / plain loop, a section", "kezipl", "plain_moments", 0.7, (12,)),
    Row("`kezipl` / plain loop, long outlines", "kezipl", "plain_moments", None, (100, *TO_1E5)),
    Row("`kezspl` / Boost centroid", "kezspl", "boost_centroid", 0.5, (12, 100)),
    # Of many vertices one may be level with the point, which kezppp counts twice: one point of 64
    # differs.
    Row("`kezppp` / Boost `within`", "kezppp", "boost_within", 1.2, (12, 100, *TO_1E4),
        within=0.03),
    Row("`kezppp` / Clipper, a section", "kezppp", "clipper_point_in_polygon", 1.7, (12,),
        within=0),
    Row("`kezppp` / Clipper, long outlines", "kezppp", "clipper_point_in_polygon", 1.35,
        (100, *TO_1E4), within=0.03),
    Row("`kezpin` / Boost polygon cut", "kezpin", "boost_cut", 0.08, (12, 100, *TO_1E4)),
    Row("`kezpin` / plain loop", "kezpin", "plain_cut", 3.6, (12, 100, *TO_1E4)),
    Row("`kezpos` / plain scan, to 100", "kezpos", "plain_interval", 1.25, SHORT, within=0),
    Row("`kezpos` / plain scan", "kezpos", "plain_interval", 0.8, TO_1E4, within=0),
    Row("`kezpos1` / plain scan", "kezpos1", "plain_place", 1.25, (*SHORT, *TO_1E4), within=0),
    Row("`kezlul` / plain scan", "kezlul", "plain_range", 1.25, (*SHORT, *TO_1E4), within=0),
    Row("`kezord` / Boost spreadsort, short lists", "kezord", "spreadsort_reals", 0.65, SHORT,
        within=0),
    Row("`kezord` / Boost spreadsort", "kezord", "spreadsort_reals", 0.6, (1_000,), within=0),
    Row("`kezord` / Boost spreadsort", "kezord", "spreadsort_reals", 0.4, FROM_1E4, within=0),
    Row("`kezord1` / Boost spreadsort, short lists", "kezord1", "spreadsort_integers", 0.75,
        (*SHORT, 1_000), within=0),
    Row("`kezord1` / Boost spreadsort", "kezord1", "spreadsort_integers", 0.5, FROM_1E4, within=0),
    Row("`kezordi` / packed `std::sort`", "kezordi", "packed_sort", 1.2, (10,), within=0),
    Row("`kezordi` / packed `std::sort`", "kezordi", "packed_sort", 0.75, (30, 100), within=0),
    Row("`kezordi` / packed radix sort", "kezordi", "radix_order", 1.5, TO_1E6, within=0),
    Row("`kezmer2` / spreadsort and unique, short lists", "kezmer2", "spreadsort_unique", 0.75,
        (*SHORT, 1_000), within=0),
    Row("`kezmer2` / spreadsort and unique", "kezmer2", "spreadsort_unique", 0.5, FROM_1E4,
        within=0),
    # The set leaves the values unordered, as a host that needs no order takes it.
    Row("`kezmer2` / hash set (Abseil)", "kezmer2", "hash_distinct", 1.7, (1_000,), within=0),
    Row("`kezmer2` / hash set (Abseil)", "kezmer2", "hash_distinct", 1.4, FROM_1E4, within=0),
    Row("`kezmer4` / hash set (Abseil)", "kezmer4", "hash_compare", 1.0, (*SHORT, *TO_1E6),
        within=0),
    # Which of near entries stands depends on their order, and the peer has sorted them.
    Row("`kezmer12` / sort and unique, short lists", "kezmer12", "sort_unique", 1.5, (10,),
        within=1e-2),
    Row("`kezmer12` / sort and unique, short lists", "kezmer12", "sort_unique", 0.8, (30, 100),
        within=1e-2),
    Row("`kezmer12` / sort and unique", "kezmer12", "sort_unique", 0.5, TO_1E6, within=1e-3),
    Row("`kezmer13` / sort both, two pointers, short lists", "kezmer13", "two_pointers", 0.8,
        SHORT, within=0),
    Row("`kezmer13` / sort both, two pointers", "kezmer13", "two_pointers", 0.5, TO_1E6, within=0),
]

LOAD_GOAL = 150.0  # us
SIZE_GOAL = 165.0  # kB
