// Points and vectors, lines in the plane, angles and relations, tables, sampling.

import { chart, read, bars } from "./chart.js";
import { cells, lists, run } from "./lists.js";
import {
  angle,
  direction,
  distance,
  division,
  outline,
  point,
  pointer,
  segment,
  square,
  vector,
  verdict,
} from "./marks.js";
import {
  add,
  along,
  at,
  between,
  derived,
  dot,
  fixed,
  foot,
  footOn,
  length,
  minus,
  mixed,
  ORIGIN,
  sum,
  times,
  unit,
} from "./places.js";
import { line, plane, points, through } from "./plane.js";
import { entries, interval, ruler, sides, value, zero } from "./ruler.js";
import { meeting, patch, solid } from "./planes.js";
import { beyond, legs, shadows, space } from "./space.js";
import { ENDS, NO_YES, P, P1, P2, P3, P4, POSITIONS } from "./terms.js";

const P5 = at("x5 y5 z5");
const P6 = at("x6 y6 z6");
const U = at("ux uy uz");
const W = at("wx wy wz");

// The second segment's vector, moved to where the first one starts.
const MOVED = sum(P1, between(P4, P3));

const TWO_SEGMENTS = [...ENDS, point(P3), point(P4), vector(P1, P2), vector(P3, P4)];

const DIRECTIONS = [direction("ux uy uz"), direction("wx wy wz")];

const RELATIONS = ["oblique", "same direction", "opposite", "perpendicular", "null direction"];
const LINES = ["coplanar, oblique", "parallel", "parallel, opposite", "same line",
  "same line, opposite", "perpendicular", "skew", "undefined"];
const PLANES = ["intersecting", "parallel", "parallel, opposite", "same plane",
  "same plane, opposite", "perpendicular", "null normal"];

const POINTS = {
  kezpds: space([...ENDS, distance(P1, P2, "d")]),
  kezcnt: space([...ENDS, vector(P1, P2, "", { tone: "soft" }), legs(P1, P2, ["dx", "dy", "dz"])],
    { tell: "same dx dy dz", meanings: { same: NO_YES } }),
  kezcnt1: ruler([zero, value("a"), value("b"), value("c")],
    { tell: "zero", meanings: { zero: NO_YES } }),
  kez123: space([...ENDS, segment(P1, P2), segment(P1, P, "", { tone: "accent" }), point(P)],
    { tell: "same t", meanings: { same: NO_YES } }),
  kezpre: space([...TWO_SEGMENTS, vector(P1, MOVED, "", { tone: "soft", look: "dashed" }),
    outline([P1, P2, sum(P2, between(P4, P3)), MOVED], { tone: "soft", look: "dashed thin" }),
    pointer("c.1 c.2 c.3", P1, "c", 0.9)], { tell: "c.1 c.2 c.3" }),
  kezpri: space([...TWO_SEGMENTS, vector(P1, MOVED, "", { tone: "soft", look: "dashed" }),
    segment(MOVED, footOn(MOVED, P1, P2), "", { tone: "soft", look: "thin dashed" }),
    segment(P1, footOn(MOVED, P1, P2), "", { tone: "accent" }),
    square(footOn(MOVED, P1, P2), P1, MOVED)], { tell: "d" }),
  keztrg: space([...TWO_SEGMENTS, vector(P1, MOVED, "", { tone: "soft", look: "dashed" }),
    angle(P1, P2, MOVED, undefined, { tone: "accent", radius: 60 })], { tell: "cosa sina status",
      meanings: { status: ["found", "the ends of a segment coincide"] } }),
  kezmed: space([...ENDS, segment(P1, P2), point("xm ym zm")]),
  kezdtr2: plane([outline([ORIGIN, at("a b"), sum("a b", "c d"), at("c d")],
    { tone: "accent", look: "thin", wash: true }), direction("a b"), direction("c d")],
  { tell: "det" }),
  kezdtr3: space([solid(ORIGIN, [at("a11 a12 a13"), at("a21 a22 a23"), at("a31 a32 a33")],
    { tone: "accent" }), direction("a11 a12 a13", { label: "a11..a13" }),
  direction("a21 a22 a23", { label: "a21..a23" }), direction("a31 a32 a33", { label: "a31..a33" })],
  { tell: "det" }),
  kez3sp: space([solid(P1, [between(P2, P1), between(P4, P3), between(P6, P5)], { tone: "accent" }),
    vector(P1, P2, "P1 P2"), vector(P3, P4, "P3 P4"), vector(P5, P6, "P5 P6")],
  { tell: "spans", meanings: { spans: NO_YES } }),
  kezint: chart([through("x1 y1", "x2 y2"), segment("x1 y1", "x2 y2"), point("x1 y1"),
    point("x2 y2"), read("x y", ["x", "y"]), point("x y")], { tell: "y x" }),
  kezvin: ruler([sides("b", ["side 1", "side 2"]), value("b")],
    { tell: "side", meanings: { side: { 1: "b > 0", 2: "not so" } }, silent: "a c d e" }),
};

const Q1 = at("x1 y1");
const Q2 = at("x2 y2");
const Q0 = at("x0 y0");
const Q = at("x y");
const ON_AXIS = sum(Q0, fixed(1.5, 0));

// On the bisector, as far from the vertex as the point of the first ray.
const BISECTED = derived("x0 y0 x1 y1 a b", (v) => {
  const vertex = Q0.where(v);
  const way = [-v.scalar("b"), v.scalar("a"), 0];
  return add(vertex, unit(way), length(minus(Q1.where(v), vertex)));
});

const LINES_IN_PLANE = {
  kezln3: plane([line("a b c", { normal: true }), point(Q1), point(Q2)],
    { tell: "a b c" }),
  kezlds: plane([line("a b c", { normal: true }), point(Q),
    distance(foot(Q, "a b c"), Q, "d"), square(foot(Q, "a b c"), Q, sum(foot(Q, "a b c"),
      mixed("-b", "a")))]),
  kezln4: plane([line("a b c"), point(Q0), direction("p q", { from: Q0 })],
    { tell: "a b c", silent: "e" }),
  kezln1: plane([line("a b c"), segment(Q0, ON_AXIS, "", { tone: "soft" }), point(Q0),
    angle(Q0, ON_AXIS, derived("x0 y0 theta", (v) => {
      const [x, y, turn] = ["x0", "y0", "theta"].map(v.scalar);
      return [x + Math.cos(turn), y + Math.sin(turn), 0];
    }), "theta", { tone: "ink", radius: 70 })], { tell: "a b c" }),
  kezln2: plane([line("a b c", { normal: true }), line("a2 b2 c2"),
    distance(foot(ORIGIN, "a b c"), foot(foot(ORIGIN, "a b c"), "a2 b2 c2"), "d",
      { tone: "ink" })], { tell: "a2 b2 c2" }),
  kezln5: plane([line("a b c", { normal: true }), point(Q0), point(Q1), point(Q2),
    segment(Q0, Q1), segment(Q0, Q2),
    angle(Q0, Q1, BISECTED, undefined, { tone: "accent", radius: 50 }),
    angle(Q0, BISECTED, Q2, undefined, { tone: "accent", radius: 56 })],
  { tell: "a b c" }),
  kezpsl: space([beyond(P1, P2, "", { tone: "soft", look: "dashed" }), segment(P1, P2), ...ENDS,
    point(P), verdict(P)], { tell: "pos", meanings: { pos: POSITIONS } }),
  kezplg: space([point("x0 y0 z0"), direction("p1 q1 r1", { from: at("x0 y0 z0") }),
    direction("p2 q2 r2", { from: at("x0 y0 z0") }), patch("A B C D")], { tell: "A B C D" }),
  kezgrc: plane([through(fixed(1, 0), fixed(1, 1), "1"), segment(ORIGIN, "a b"),
    segment(ORIGIN, "a c"), point("a b"), point("a c"), point(mixed(1, "q"), "q"),
    point(mixed(1, "p"), "p")], { tell: "p q" }),
};

// The second direction, or its opposite where that is nearer to the first.
const ACUTE = derived("ux uy uz wx wy wz", (v) => {
  const [u, w] = [U.where(v), W.where(v)];
  return dot(u, w) < 0 ? times(w, -1) : w;
});

const ANGLES = {
  kezphi: plane([segment(Q0, Q1), segment(Q0, Q2), point(Q0), point(Q1), point(Q2),
    angle(Q0, Q1, Q2, "phi")]),
  kezphi1: space([...DIRECTIONS, angle(ORIGIN, U, W, "phi", { radius: 56 })], { tell: "phi" }),
  kezphi3: space([segment("x0 y0 z0", P1), segment("x0 y0 z0", P2), point("x0 y0 z0"),
    ...ENDS, angle("x0 y0 z0", P1, P2, "phi", { radius: 56 })], { tell: "phi" }),
  kezphip: space([...DIRECTIONS, beyond(sum(ORIGIN, U, -1), U, "", { tone: "soft" }),
    beyond(sum(ORIGIN, W, -1), W, "", { tone: "soft" }),
    angle(ORIGIN, U, ACUTE, "phi", { radius: 56 })],
  { tell: "phi fail", meanings: { fail: { kept: "no failure", "-1": "a direction is too short" } } }),
  kezmov: space([point(P1), vector(P1, P2, "P1 P2"), vector(P3, P4, "P3 P4"),
    vector(P1, MOVED, "", { tone: "soft", look: "dashed" }),
    shadows(P1, P2, MOVED, ["ax", "ay", "az"])], { tell: "ax ay az" }),
  kezdir: space([...DIRECTIONS,
    angle(ORIGIN, U, W, undefined, { tone: "accent", right: true })],
    { tell: "rel", meanings: { rel: RELATIONS } }),
  kezdirl: space([beyond(P1, P2), beyond(P3, P4), ...ENDS, point(P3), point(P4)],
    { tell: "rel", meanings: { rel: LINES } }),
  kezdirp: space([patch("A1 B1 C1 D1", undefined, { meets: ["A2 B2 C2 D2"], normal: "normal 1" }),
    patch("A2 B2 C2 D2", undefined, { meets: ["A1 B1 C1 D1"], normal: "normal 2" }),
    meeting("A1 B1 C1 D1", "A2 B2 C2 D2")], { tell: "rel", meanings: { rel: PLANES } }),
};

const SOUGHT = [entries("x", "n"), interval("x", "i"), value("v")];

const sorted = (name) => lists([cells(name, { count: "n" }),
  cells(`${name}'`, { count: "n", links: "equal" })], { silent: "n" });

const TABLES = {
  kezpos: ruler(SOUGHT, { tell: "i", silent: "n", meanings: { i: ["in none"] } }),
  kezpos1: ruler(SOUGHT, { tell: "code i", silent: "n",
    meanings: { code: ["outside", "equals an entry", "inside an interval"], i: ["none"] } }),
  kezord: sorted("x"),
  kezord1: sorted("ia"),
  kezinv: sorted("x"),
  kezsel1: lists([cells("ia", { count: "n", chosen: "idx", of: "count" }),
    cells("idx", { count: "count", links: "position" })], { tell: "count v", silent: "n" }),
};

const SAMPLING = {
  kezpas: space([segment(P1, P2), division(P1, P2, "nseg"), ...ENDS,
    distance(P1, along(P1, P2, "realstep"), "realstep", { tone: "accent", shift: 26 })],
  { tell: "nseg npts step" }),
  keznst: space([segment(P1, P2), points("xs ys zs", "n", { named: 2 }), ...ENDS,
    distance(P1, along(P1, P2, "step"), "step", { tone: "ink", shift: 26 })], { silent: "n" }),
  kezinr: chart([bars("y", "n", "a", "b")], { tell: "s a b", silent: "n" }),
  kezpar: lists([cells("list1", { count: "count1", links: "equal", to: 1 }),
    run("i1", "i2", "nmax"), cells("list2", { count: "count2", links: "equal" })],
  { tell: "count1 count2 i1 i2 nmax" }),
};

export const FRAME = { ...POINTS, ...LINES_IN_PLANE, ...ANGLES, ...TABLES, ...SAMPLING };
