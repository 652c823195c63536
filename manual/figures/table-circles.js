// Circles and arcs, placement of lists and outlines in the plane.

import { area, besideAngle, cap, gyration, levers, vertexAngles } from "./figure.js";
import {
  angle,
  direction,
  distance,
  equation,
  HELP,
  point,
  segment,
  spot,
  square,
  turn,
} from "./marks.js";
import { newOrigin, turns } from "./moves.js";
import {
  add,
  along,
  at,
  between,
  derived,
  dot,
  fixed,
  footOn,
  length,
  middle,
  minus,
  mixed,
  ORIGIN,
  sum,
  times,
  turned,
  turnedAbout,
  unit,
} from "./places.js";
import { FOUND, TURN } from "./terms.js";
import {
  arcOf,
  circle,
  circleAbout,
  circleThrough,
  line,
  plane,
  points,
  polygon,
  through,
} from "./plane.js";

const P0 = at("x0 y0");
const P1 = at("x1 y1");
const P2 = at("x2 y2");
const P = at("x y");

const GUIDE = [circleThrough(P0, P1), segment(P1, P2), point(P0), point(P1), point(P2)];
const MEASURED = along(P1, P2, "L");
const edge = (sign) =>
  derived("x1 y1 x2 y2 L w", (v) =>
    along(P1, P2, v.scalar("L") + (sign * v.scalar("w")) / 2).where(v),
  );

const LEFT_EDGE = edge(-1);
const RIGHT_EDGE = edge(1);

const REACHED = [spot(MEASURED), distance(P1, MEASURED, "L", { tone: "ink", shift: 18 })];

// A place on the line from another at an angle to the guide.
const atAngle = (from) =>
  derived("x1 y1 x2 y2 theta", (v) => {
    const way = unit(minus(P2.where(v), P1.where(v)));
    return add(from.where(v), turnedAbout(way, [0, 0, 1], v.scalar("theta")));
  });

// The chord's middle, raised over the chord as the routine raises it.
const RAISED = derived("x0 y0 x1 y1 x2 y2 sense h", (v) => {
  const [o, p, q] = [P0, P1, P2].map((place) => place.where(v));
  const [u, w] = [minus(p, o), minus(q, o)];
  const half = Math.acos(Math.max(-1, Math.min(1, dot(u, w) / length(u) / length(w)))) / 2;
  const towards = add(o, turnedAbout(u, [0, 0, 1], -v.scalar("sense") * half));
  const mid = times(add(p, q), 0.5);
  return add(mid, unit(minus(towards, mid)), v.scalar("h"));
});

const CHORD_MIDDLE = middle(P1, P2);

const DPHI_TURNED = turned(P1, P0, "dphi");

const bySign = (more, less) => (sense) => (sense > 0 ? more : less);
// The other crossing of a line with the circle, which the other sense chooses.
function otherSense(chosen, along) {
  const [P_, Q] = [chosen, along].map(at);
  const other = { terms: [...P_.terms, ...Q.terms, ...P0.terms], where: (v) =>
    add(times(footOn(P0, P_, Q).where(v), 2), P_.where(v), -1) };
  return { ...point(other, "other sense", { tone: "soft", held: false }), span: () => [],
    say: () => null };
}

const CHOSEN = { ...FOUND, sense: bySign("positive", "not positive") };
const CENTRES = { status: ["none, or a level chord", "one centre", "two centres"],
  sense: bySign("on the positive side", "on the negative side") };

const KINDS = ["", "a point", "a polygon", "a circle", "a segment", "the rest of a circle"];

// A rise of more than the radius belongs to more than half of the circle.
const isLarge = (v) => v.scalar("f") > v.scalar("R");

// Where the arc over a chord is highest.
const TOP = derived("x1 y1 x2 y2 cx cy R f", (v) => {
  const centre = at("cx cy").where(v);
  const reach = isLarge(v) ? -v.scalar("R") : v.scalar("R");
  return add(centre, unit(minus(CHORD_MIDDLE.where(v), centre)), reach);
});

// The angle from P1 to P2 about a centre, the short way.
function turnBetween(centre, v) {
  const [u, w] = [P1, P2].map((place) => minus(place.where(v), centre.where(v)));
  return Math.atan2(u[0] * w[1] - u[1] * w[0], dot(u, w));
}

const theOtherWay = (phi) => phi - (phi < 0 ? -2 : 2) * Math.PI;

const named = (term) => Object.assign((v) => equation(term, v),
  { terms: [term] });

// From P1 towards the raised point's side, by half the angle of the chord.
const halfTurn = (v) => (-v.scalar("sense") * Math.abs(turnBetween(P0, v))) / 2;

const TURNED = Object.assign(
  (v) => `${equation("sense", v)}: ${v.scalar("sense") > 0 ? "clockwise" : "counter-clockwise"}`,
  { terms: ["sense"] });

const nearArc = (v) => turnBetween(P0, v);
const rest = (v) => theOtherWay(nearArc(v));

const X_AXIS = fixed(1, 0);

const CIRCLE = {
  kezcer: plane([circle("D E F"), point("xc yc"),
    distance("xc yc", sum("xc yc", mixed("r", 0)), "r", { tone: "ink" })], { tell: "D E F" }),
  kezlci: plane([line("a b c"), circle("D E F"), point("x1 y1"), point("x2 y2")], { tell: "n", meanings: { n: ["misses", "touches", "cuts"] } }),
  kezc12: plane([circle("D1 E1 F1"), circle("D2 E2 F2"),
    segment("x1 y1", "x2 y2", "", HELP), point("x1 y1"),
    point("x2 y2")], { tell: "n",
    meanings: { n: ["no common point", "touching", "crossing"] } }),
  kezcin: plane([circleThrough("X.1 Y.1", "X.2 Y.2"),
    cap("X.1 Y.1", "x2 y2", "x3 y3", "k", 4),
    angle("X.1 Y.1", "x2 y2", "x3 y3", undefined, { name: "phi", tone: "soft" }),
    segment("X.1 Y.1", "x2 y2", "", HELP), segment("X.1 Y.1", "x3 y3", "", HELP),
    line("a b c"), point("X.1 Y.1", "X(1), Y(1)"), point("X.2 Y.2", "X(2), Y(2)"),
    point("x2 y2"), point("x3 y3")], { tell: "k",
    meanings: { k: ["", "in the positive region", "in the negative region",
      "segment of phi positive", "segment of 2 pi - phi positive"] } }),
  kezcer6: plane([...GUIDE, ...REACHED, through(P0, MEASURED), otherSense(P, P0), point(P)], { tell: "status sense L", meanings: CHOSEN }),
  kezcer8: plane([...GUIDE, ...REACHED, segment(MEASURED, P, "", HELP),
    square(MEASURED, P2, P), otherSense(P, MEASURED), point(P)], { tell: "status sense L", meanings: CHOSEN }),
  kezcer9: plane([...GUIDE, distance(P1, MEASURED, "L", { tone: "ink", shift: 18 }),
    spot(MEASURED), distance(LEFT_EDGE, RIGHT_EDGE, "w", { tone: "ink", shift: -18 }),
    segment(LEFT_EDGE, "xa ya", "", HELP),
    segment(RIGHT_EDGE, "xb yb", "", HELP),
    square(LEFT_EDGE, P1, "xa ya"), square(RIGHT_EDGE, P2, "xb yb"),
    otherSense("xa ya", LEFT_EDGE), otherSense("xb yb", RIGHT_EDGE),
    point("xa ya"), point("xb yb")], { tell: "status sense L w", meanings: CHOSEN }),
  kezcer4: plane([...GUIDE, ...REACHED, through(MEASURED, atAngle(MEASURED)),
    angle(MEASURED, P2, atAngle(MEASURED), "theta", { tone: "ink" }), point(P)],
  { tell: "status theta L", meanings: FOUND }),
  kezcer10: plane([...GUIDE, through(P1, P2), segment(P0, P1, "", HELP),
    segment(P0, DPHI_TURNED, "", HELP),
    turn(P1, P0, "dphi", { share: 0.6 }), 
    point(DPHI_TURNED, "P1 turned", { tone: "soft", held: false }),
    through(DPHI_TURNED, atAngle(DPHI_TURNED)),
    angle(P, sum(P, between(P2, P1)), sum(P, between(atAngle(DPHI_TURNED), DPHI_TURNED)), "theta",
      { tone: "ink" }), point(P)],
  { tell: "status dphi theta", meanings: { status: ["crossing", "the lines coincide", "parallel"] } }),
  kezcer5: plane([...GUIDE, ...REACHED, through(MEASURED, RAISED),
    distance(CHORD_MIDDLE, RAISED, "h", { tone: "ink" }), spot(RAISED), segment(P0, P1, "", HELP),
    arcOf(P0, sum(P0, between(P1, P0), 0.45), halfTurn, { look: "thin", label: TURNED }),
    point(P)],
  { tell: "status sense L h", meanings: CHOSEN }),
  kezcer2: plane([circleAbout("c1x c1y", "R", "", { look: "thin", tone: "soft" }),
    circleAbout("c2x c2y", "R", "", { look: "thin", tone: "soft" }), circleAbout("cx cy", "R"),
    segment(P1, P2), point(P1), point(P2), point("c1x c1y", undefined, { tone: "accent" }),
    point("c2x c2y", undefined, { tone: "accent" }), point("cx cy"), distance("cx cy", P1, "R", { tone: "ink", held: false })],
  { tell: "status sense cx cy", meanings: CENTRES }),
  kezcer1: plane([circleAbout("cx cy", "R", "", HELP),
    segment(P1, P2), arcOf("cx cy", P1, chordAngle, { tone: "accent" }), point(P1), point(P2),
    distance(CHORD_MIDDLE, TOP, "f", { tone: "ink" }), point("cx cy"),
    distance("cx cy", P2, "R")], { tell: "status sense", meanings: CENTRES }),
  kezarc1: plane([segment(P0, P1), segment(P0, P2), arcOf(P0, P1, rest, { tone: "accent",
    look: "thin dashed", label: named("s2") }), arcOf(P0, P1, nearArc, { tone: "accent",
    label: named("s1") }), point(P0), point(P1), point(P2)], { tell: "status", meanings: FOUND }),
  kezacp: plane([circleThrough(P0, P1, { look: "thin", tone: "soft" }), cap(P0, P1, P2, "kind", 5),
    segment(P1, P2, "", { look: "thin" }), point(P0), point(P1), point(P2), point("xs ys")],
  { tell: "area kind", meanings: { kind: (k) => (k === 5 ? KINDS[5] : KINDS[4]) } }),
};

// From the first end of the chord to the second about the arc's centre.
function chordAngle(v) {
  const short = turnBetween(at("cx cy"), v);
  return isLarge(v) ? theOtherWay(short) : short;
}

const PLACEMENT = {
  keztra: plane([newOrigin("tx ty", "X' Y'", "n", { flat: true }), polygon("X Y", "n"),
    point("tx ty")], { tell: "X.1 Y.1 X.1' Y.1'", silent: "n" }),
  kezrot: plane([polygon("X Y", "n"), polygon("X' Y'", "n"), turns("X Y", "n", "angle", "mode")],
    { tell: "angle mode", meanings: TURN("clockwise", "counter-clockwise"), silent: "n" }),
  kezcer3: plane([segment(P0, P, "", { look: "thin" }), segment(P0, "xo yo", "", { look: "thin" }),
    point(P0), point(P), turn(P, P0, "dphi"), point("xo yo")],
  { tell: "status", meanings: FOUND }),
};

const OUTLINES = {
  kezapl: plane([polygon("X Y", "n", { wash: "accent-wash" })], { tell: "area", silent: "n" }),
  kezair: plane([area("X Y", "n", "kind")], { tell: "area' kind factor A0", silent: "n",
    meanings: { kind: (k) => KINDS[k] || "no kind" } }),
  kezspl: plane([polygon("X Y", "n"), levers("X Y", "n", 2, ["Sx", "Sy"])],
    { tell: "Sx Sy", silent: "n" }),
  kezstm: plane([area("X Y", "n", "kind"), levers("X Y", "n", "kind", ["Sx", "Sy"])],
    { tell: "Sx' Sy' kind factor A0", silent: "n", meanings: { kind: (k) => KINDS[k] || "no kind" } }),
  kezipl: plane([polygon("X Y", "n"), gyration("X Y", "n", ["Ix", "Iy"])],
    { tell: "Ix Iy Ixy", silent: "n" }),
  kezcnv: plane([polygon("X Y", "n"), vertexAngles("X Y", "n")], { tell: "flag", silent: "n",
    meanings: { flag: { 0: "convex", "-1": "not convex" } } }),
  kezaxph: plane([segment(ORIGIN, X_AXIS, "", { tone: "soft" }), direction("x y"),
    angle(ORIGIN, X_AXIS, P, "phi", { radius: 70 })]),
  kezhin: plane([through(P1, P2), segment(P1, P2), point(P0), point(P1), point(P2), point("x3 y3"),
    distance(P0, footOn(P0, P1, P2), "h0"), distance("x3 y3", footOn("x3 y3", P1, P2), "h3"),
    square(footOn(P0, P1, P2), P2, P0), square(footOn("x3 y3", P1, P2), P1, "x3 y3"),
    distance(P1, footOn(P0, P1, P2), "a0", { shift: 24 }),
    distance(P1, footOn("x3 y3", P1, P2), "a3", { shift: 48 }),
    distance(P1, P2, "L", { shift: 72 })], { tell: "z0 z1 z2 z3" }),
  kezapp: plane([besideAngle(P0, P1, P2), segment(P0, P1), segment(P0, P2),
    point(P0), point(P1), point(P2),
    points("X Y", "n", { flags: "flag" })], { silent: "n", key: ["flag 1: in what is shaded", "2: elsewhere"] }),
};

export const CIRCLES = { ...CIRCLE, ...PLACEMENT, ...OUTLINES };
