// Lines, planes and placement in space.

import { chart, runningSum } from "./chart.js";
import {
  angle,
  direction,
  distance,
  HELP,
  outline,
  point,
  segment,
  spot,
  square,
  swing,
  vector,
  verdict,
} from "./marks.js";
import { localAxes, newOrigin, placing, systemOf, turns } from "./moves.js";
import {
  add,
  at,
  between,
  derived,
  foot,
  footOn,
  minus,
  mixed,
  ORIGIN,
  sum,
  turnedAbout,
  unit,
} from "./places.js";
import { line, plane, points, polygon } from "./plane.js";
import { facet, intercepts, meeting, patch, planeOf } from "./planes.js";
import { axes, axisLine, beyond, legs, space, toLine } from "./space.js";
import {
  ALWAYS,
  ENDS,
  MEETING,
  NO_YES,
  P,
  P1,
  P2,
  P3,
  P4,
  PLANE_OF_LINES,
  PLANE_THROUGH,
  SYSTEM_FOUND,
  TURN,
} from "./terms.js";

const P0 = at("x0 y0 z0");
const TESTED = at("px py pz");
const U = "ux uy uz";
const W = "wx wy wz";
const D1 = "dx1 dy1 dz1";
const D2 = "dx2 dy2 dz2";

const PLANE = "A B C D";
const FIRST = "a1 b1 c1 d1";
const SECOND = "a2 b2 c2 d2";

const CLASSES = ["null", "general", "parallel to x", "parallel to y", "parallel to z",
  "parallel to xy", "parallel to yz", "parallel to xz"];
const PLANES = ["", "general", "parallel to the x axis", "parallel to the y axis",
  "parallel to the z axis", "parallel to xy", "parallel to yz", "parallel to xz", "the xy plane",
  "the yz plane", "the xz plane"];
const LINES = ["oblique", "parallel", "parallel, opposite", "same line", "same line, opposite",
  "perpendicular", "skew", "undefined"];
const IN_PLANE = { meanings: { status: { 0: "in the plane", "-1": "outside", 1: "no normal" } } };

// The third point, when it has swung about the line of the others.
const SWUNG = derived("x1 y1 z1 x2 y2 z2 x3 y3 z3 angle", (v) => {
  const [p, q, r] = [P1, P2, P3].map((place) => place.where(v));
  const centre = footOn(P3, P1, P2).where(v);
  return add(centre, turnedAbout(minus(r, centre), unit(minus(q, p)), v.scalar("angle")));
});

const lineThrough = (p, q) => [beyond(p, q), point(p), point(q)];

const lineAlong = (p, way) => [beyond(p, sum(p, way), "", { look: "thin" }), point(p),
  direction(way, { from: at(p) })];

const CROSSINGS = {
  kezlni: plane([line("a1 b1 c1"), line("a2 b2 c2"), point("x y")],
    { tell: "status", margin: 100,
      meanings: { status: ["one point", "the lines coincide", "parallel"] } }),
  kezpsn: space([vector(P1, P2, ""), ...ENDS, legs(P1, P2)],
    { tell: "code", meanings: { code: CLASSES } }),
  kezln6: space([...lineAlong(P0, "u v w"), point(TESTED), verdict(TESTED)],
    { tell: "code onLine tol", meanings: { code: CLASSES, onLine: NO_YES } }),
  kezln7: space([patch(FIRST, undefined, { meets: [SECOND], normal: false }),
    patch(SECOND, undefined, { meets: [FIRST], normal: false }), meeting(FIRST, SECOND),
    point(TESTED), verdict(TESTED)], { tell: "code onLine l m n tol", meanings: { code: CLASSES, onLine: NO_YES } }),
  kez3lni: space([...lineAlong(P1, D1), ...lineAlong(P2, D2),
    segment(P1, "xi' yi' zi'", "", HELP), segment(P2, "xi' yi' zi'", "", HELP),
    point("xi' yi' zi'", "xi, yi, zi")], { tell: "status", meanings: MEETING }),
  kezpli: space([patch(PLANE, undefined, { through: at("xi yi zi"), normal: false }),
    ...lineAlong("x0 y0 z0", "u v w"), segment("x0 y0 z0", "xi yi zi", "", HELP),
    point("xi yi zi")], { tell: "status",
    meanings: { status: { 0: "one point", 3: "parallel to the plane", 4: "no direction" } } }),
};

const TWO_LINES = [...lineThrough(P1, P2), ...lineThrough(P3, P4)];

const PLANES_BY = {
  kezpl1: space([facet(P1, P2, P3, { tone: "ink" }), ...ENDS, point(P3), patch(PLANE)],
    { tell: "A B C D status", meanings: PLANE_THROUGH }),
  kezpl2: space([...TWO_LINES, point(P0), patch(PLANE, undefined, { through: P0 })],
    { tell: "A B C D status", meanings: PLANE_OF_LINES }),
  kezpl3: space([...TWO_LINES, patch(PLANE, undefined, { through: P1 })],
    { tell: "A B C D status", meanings: PLANE_OF_LINES }),
  kezpl4: space([vector(P1, P2, ""), ...ENDS, point(P0), patch(PLANE, undefined, { through: P0 })],
    { tell: "A B C D status", meanings: { status: ["a plane", "P1 and P2 coincide"] } }),
  kezpl5: space([outline([mixed("p", 0), mixed(0, "q"), mixed(0, 0, "r")],
    { tone: "accent", look: "thin", wash: true }), segment(ORIGIN, mixed("p", 0), "p"),
  segment(ORIGIN, mixed(0, "q"), "q"), segment(ORIGIN, mixed(0, 0, "r"), "r"),
  point(mixed("p", 0), ""), point(mixed(0, "q"), ""), point(mixed(0, 0, "r"), "")],
  { tell: "A B C D status p q r",
    meanings: { status: ["a plane", "an intercept is zero"] } }),
  kezpl6: space([...lineAlong(P1, D1), ...lineAlong(P2, D2), patch(PLANE)],
    { tell: "A B C D status", meanings: PLANE_OF_LINES }),
  kezpl7: space([facet(P1, P2, P3, { tone: "ink" }), beyond(P1, P2, "", { look: "thin" }), ...ENDS,
    point(P3), swing(P3, P1, P2, "angle"), facet(P1, P2, SWUNG, { tone: "accent" }),
    patch(PLANE, undefined, { through: P1, covers: [P1, P2, SWUNG] })],
  { tell: "A B C D status angle", meanings: PLANE_THROUGH }),
};

const MEASURES = {
  kezplv: space([direction(U), direction(W),
    angle(ORIGIN, U, W, undefined, { tone: "accent", right: true })],
    { tell: "rel", silent: "e f", meanings: { rel: { ...LINES, "-1": "first is zero" } } }),
  kezpld: space([patch(PLANE), point(P), distance(foot(P, PLANE), P, "dist")]),
  kezplp: space([intercepts(PLANE), patch(PLANE)], { tell: "code", meanings: { code: PLANES } }),
  kezpsp: space([patch(planeOf(P1, P2, P3), ""), facet(P1, P2, P3), ...ENDS, point(P3),
    point(P), verdict(P)], { tell: "status tol", ...IN_PLANE }),
  kezpspg: space([patch(PLANE), point(P), verdict(P),
    segment(foot(P, PLANE), P, "", { tone: "accent", look: "thin dashed" })],
  { tell: "status tol", ...IN_PLANE }),
  kezpnp: chart([runningSum("x y z", "n", "A B C", "D", "idx", "count")],
    { tell: "count D D' A B C", silent: "n", margin: 44, names: ["points", "sum"] }),
};

const LINE = lineThrough(P1, P2);

const FOOT = footOn(TESTED, P1, P2);

const TO_LINE = [...LINE, point(TESTED), segment(P1, FOOT, "", HELP),
  distance(FOOT, TESTED, "dist"), square(FOOT, P2, TESTED)];

// The line that `kez3ldb` measures from has y1 for z1.
const MEASURED = at("x1 y1 y1");
const MEASURED_END = sum(MEASURED, between(P2, P1));
const MEASURED_FOOT = footOn(TESTED, MEASURED, MEASURED_END);

const NEAR = {
  kez3lda: space(TO_LINE, { tell: "status", meanings: ALWAYS }),
  kez3lds: space(TO_LINE),
  kez3ldb: space([...LINE, point(TESTED), beyond(MEASURED, MEASURED_END, "", HELP),
    distance(MEASURED_FOOT, TESTED, "dist"), square(MEASURED_FOOT, MEASURED_END, TESTED)],
  { tell: "status", meanings: ALWAYS }),
  kezpnl: space([...LINE, beyond(MEASURED, MEASURED_END, "", HELP),
    toLine("x y zof", "n", MEASURED, MEASURED_END, "tol"),
    points("x y zof", "n", { chosen: "idx" })],
    { tell: "status count tol", meanings: ALWAYS, silent: "n" }),
};

const SYSTEM = "m1 m2 m3 m4 m5 m6 m7 m8 m9";
const O = at("x0 y0 z0");

// The steps of a point along the local axes, which are its local coordinates.
const step = (count) =>
  derived(`p p' ${SYSTEM} mode`, (v) => {
    const local = v.array(v.scalar("mode") === 1 ? "p" : "p'");
    const system = SYSTEM.split(" ").map(v.scalar);
    return [0, 1, 2]
      .slice(0, count)
      .reduce((place, i) => add(place, system.slice(3 * i, 3 * i + 3), local[i] ?? NaN), [0, 0, 0]);
  });

const LOCAL = systemOf(O, "xa ya za", "xb yb zb");

const moved = (names) =>
  names
    .split(" ")
    .map((name) => `${name}'`)
    .join(" ");

const placed = [polygon("x y z", "n"), polygon(moved("x y z"), "n")];

// A list that is turned about an axis; its third coordinate there stays.
const turning = (after, axis) => space([axisLine(axis.map(Math.abs)),
  polygon("x y z", "n"), polygon(after, "n"),
  turns("x y z", "n", "angle", "mode", { axis })],
  { tell: "angle mode", meanings: TURN("backwards", "forwards"), silent: "n" });

const PLACEMENT = {
  kezaxe: space([point(O), point("xa ya za"), point("xb yb zb"), segment(O, "xa ya za", "",
    { look: "thin" }), facet(O, "xa ya za", "xb yb zb", { tone: "ink" }), axes(O, SYSTEM)],
  { tell: "status", meanings: SYSTEM_FOUND }),
  keztrn: space([axes(ORIGIN, SYSTEM, { tone: "ink", share: 0.8 }),
    segment(ORIGIN, step(1), "", HELP), segment(step(1), step(2), "", HELP),
    segment(step(2), step(3), "", HELP),
    point(step(3), "p", { tone: "accent" })], { tell: "p.1' p.2' p.3' p.1 p.2 p.3 mode",
    meanings: TURN("local to global", "global to local") }),
  kez3tra: space([polygon("x y z", "n"), newOrigin("ox oy oz", moved("x y z"), "n"),
    point("ox oy oz")], { tell: "x.1 y.1 z.1 x.1' y.1' z.1'", silent: "n" }),
  kezrotx: turning("x y' z'", [1, 0, 0]),
  kezroty: turning("x' y z'", [0, -1, 0]),
  kezrotz: turning("x' y' z", [0, 0, 1]),
  kezptr: space([...placed,
    placing("x y z", "n", "tx ty tz", "ax ay az", { least: 1e-5 })],
  { tell: "tx ty tz ax ay az", silent: "n" }),
  kezptrl: space([point(O), point("xa ya za"), point("xb yb zb"),
    facet(O, "xa ya za", "xb yb zb", { tone: "soft" }), polygon("x y z", "n", { numbers: false }),
    polygon(moved("x y z"), "n"), localAxes(LOCAL),
    placing("x y z", "n", "tx ty tz", "ax ay az", { system: LOCAL })],
  { tell: "status tx ty tz ax ay az", meanings: SYSTEM_FOUND, silent: "n" }),
  kezorv: space([polygon("X Y Z", undefined, { wash: false, look: "thin dashed", numbers: false }),
    polygon("X' Y' Z'")], { tell: "order.1 order.2 order.3 order.4" }),
};

export const SPACE = { ...CROSSINGS, ...PLANES_BY, ...MEASURES, ...NEAR, ...PLACEMENT };
