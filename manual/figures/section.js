// Outlines of sections with their dimensions, and channels by their dimensions.

import { drawable } from "./values.js";
import { add, cross, dot, exists, minus, times } from "./places.js";
import { equation, heldLength, turningArc } from "./marks.js";
import { scene } from "./scene.js";
import { number } from "./svg.js";

const MOST = 12; // contours
const SPACING = 27; // of dimension lines

const SECTION = { project: ([x, y]) => [x, y], backdrop };

// The axes through the origin, where the outline has them.
function backdrop(sheet, _, { marks }) {
  if (sheet.small || !marks.includes(OUTLINE)) return;
  const { left, right, top, bottom } = sheet.frame;
  const [x, y] = sheet.to([0, 0, 0]);
  const reach = 30;
  const low = sheet.to(sheet.whole.low ?? [0, 0, 0]);
  const high = sheet.to(sheet.whole.high ?? [0, 0, 0]);
  const ends = [
    [Math.min(right - 8, Math.max(high[0], x) + reach), y],
    [x, Math.max(top + 12, Math.min(high[1], y) - reach)],
  ];
  const starts = [
    [Math.max(left, Math.min(low[0], x) - 8), y],
    [x, Math.min(bottom, Math.max(low[1], y) + 8)],
  ];
  ends.forEach((end, i) => {
    sheet.strokeAt([starts[i], end], "soft thin dashed", { weight: 0.3, layer: "back" });
    sheet.head(starts[i], end, "soft");
    sheet.labelAt("xy"[i], [end], "axis");
  });
}

const MARGIN = { top: 26, bottom: 26, left: 44, right: 44 };

// As much room on each side as the dimension lines there take.
function marginOf(marks) {
  const margin = { ...MARGIN };
  for (const { side, level = 1 } of marks.flatMap((one) => one.outside ?? [])) {
    const words = side === "left" || side === "right" ? 24 : 8;
    margin[side] = Math.max(margin[side], SPACING * level + words);
  }
  return margin;
}

export const section = (marks, more) => scene(SECTION, marks, { margin: marginOf(marks), ...more });

const first = (v, name) => {
  const value = v.scalar(name);
  return drawable(value) ? [value] : v.array(name);
};

export function vertices(v) {
  const [x, y] = [v.array("x"), v.array("y")];
  return x.map((value, i) => [value, y[i] ?? NaN, 0]);
}

// The contours of the record that all builders write.
export function contours(v) {
  const [counts, kinds, signs] = ["nv", "kind", "sign"].map((name) => first(v, name));
  const all = vertices(v);
  const filleted = kinds.includes(4);
  let start = 0;
  return counts.slice(0, Math.min(MOST, v.count("nc", MOST))).map((count, i) => {
    const places = all.slice(start, start + Math.max(0, count)).filter(exists);
    const first = start + 1;
    start += Math.max(0, count) || 0;
    const isFillet = kinds[i] === 4 || (filleted && places.length === 3);
    return { places, first, kind: kinds[i], hole: signs[i] < 0, isFillet };
  });
}

// A circular segment by centre and chord, as the smaller part of its circle.
function segmentArc([centre, from, to]) {
  const [u, w] = [minus(from, centre), minus(to, centre)];
  return turningArc(centre, u, [0, 0, 1], Math.atan2(cross(u, w)[2], dot(u, w)));
}

const LEAST_NUMBERED = 40; // size on the page of a contour whose vertices have numbers

function sizeOnPage(sheet, places) {
  const all = places.map((p) => sheet.to(p));
  return Math.max(
    ...[0, 1].map((i) => Math.max(...all.map((p) => p[i])) - Math.min(...all.map((p) => p[i]))),
  );
}

// The numbers of a contour's vertices in the lists; of a small one the first and the last.
function numberVertices(sheet, contour) {
  const { places, first } = contour;
  if (sizeOnPage(sheet, places) < LEAST_NUMBERED) {
    sheet.label(numbersOf(contour), places, "vertex");
    return;
  }
  places.forEach((p, i) => sheet.label(String(first + i), [p], "vertex"));
}

const numbersOf = ({ places, first }) => `${first}\u2013${first + places.length - 1}`;

// Where a contour begins, and which way it goes.
function paintWayAround(sheet, { places }) {
  if (places.length < 2 || sizeOnPage(sheet, places) < LEAST_NUMBERED) return;
  const [a, b] = places.slice(0, 2).map((p) => sheet.to(p));
  const share = (t) => [a[0] + t * (b[0] - a[0]), a[1] + t * (b[1] - a[1])];
  sheet.head(share(0.3), share(0.62), "accent");
}

function paintContour(sheet, { places, kind, hole, isFillet }) {
  if (kind === 4 && places.length === 3) {
    const arc = segmentArc(places);
    sheet.wash(arc, "paper-fill");
    sheet.stroke(arc, "accent thin", { weight: 0.5 });
    return;
  }
  sheet.wash(places, hole ? "paper-fill" : "accent-wash");
  if (!isFillet) sheet.stroke(places, "accent", { closed: true });
}

// All contours of a builder's result.
export const OUTLINE = {
  terms: ["nc", "nv", "x", "y", "kind", "sign"],
  span: (v) => vertices(v).filter(exists),
  say: (v) =>
    `${v.scalar("nc")} contours with the vertices ${vertices(v)
      .map(([x, y]) => `(${number(x)}, ${number(y)})`)
      .join(" ")}`,
  paint(sheet, v) {
    const all = contours(v);
    for (const contour of all) paintContour(sheet, contour);
    if (sheet.small) return;
    const outlines = all.filter((contour) => contour.places.length && !contour.isFillet);
    for (const contour of outlines) paintWayAround(sheet, contour);
    sheet.later(() => {
      for (const contour of outlines) numberVertices(sheet, contour);
    });
  },
};

// The order of several contours: which vertices each has, those of the fillets in one.
export function contourKey(v) {
  const all = contours(v).filter(({ places }) => places.length);
  const fillets = all.filter((contour) => contour.isFillet);
  const items = all.flatMap((contour) => {
    if (!contour.isFillet) return [numbersOf(contour)];
    if (contour !== fillets[0]) return [];
    const { first, places } = fillets.at(-1);
    return [`${contour.first}\u2013${first + places.length - 1} (fillets)`];
  });
  return items.length > 1 ? items.map((text, i) => (i ? text : `contours: ${text}`)) : [];
}

const placeOf = (where, v) =>
  typeof where === "function" ? where(v) : (vertices(v)[where - 1] ?? [NaN, NaN, NaN]);

// Between two vertices, a part of the way.
export const share = (i, j, t) => (v) => add(times(placeOf(i, v), 1 - t), placeOf(j, v), t);

export const mid = (i, j) => share(i, j, 0.5);

const SIDES = { top: [1, -1], bottom: [1, 1], left: [0, -1], right: [0, 1] };

// Page position of the dimension line: outside on a side, or at a place within.
function lineAt(sheet, v, ends, { side, level = 1, at }) {
  if (side) {
    const [axis, sign] = SIDES[side];
    const { low, high, middle } = sheet.whole;
    const edges = [low ?? middle, high ?? middle].map((p) => sheet.to(p)[axis]);
    return Math[sign < 0 ? "min" : "max"](...edges) + sign * (SPACING * level - 6);
  }
  const axis = ends.along === 0 ? 1 : 0;
  const where = at === undefined ? times(add(ends.p, ends.q), 0.5) : placeOf(at, v);
  return sheet.to(where)[axis];
}

function paintDimension(sheet, v, term, { p, q, along }, where) {
  const level = lineAt(sheet, v, { p, q, along }, where);
  const onLine = (place) =>
    along === 0 ? [sheet.to(place)[0], level] : [level, sheet.to(place)[1]];
  const ends = [onLine(p), onLine(q)];
  [p, q].forEach((place, i) =>
    sheet.strokeAt([sheet.to(place), ends[i]], "soft thin", { weight: 0.2 }),
  );
  const size = Math.hypot(ends[1][0] - ends[0][0], ends[1][1] - ends[0][1]);
  const tone = v.isResult(term) ? "accent" : "ink";
  const tips = arrows(sheet, ends, size < 34, along, tone);
  const middle = [(ends[0][0] + ends[1][0]) / 2, (ends[0][1] + ends[1][1]) / 2];
  const words = v.isResult(term) ? equation(term, v) : term;
  const part = (t) => ends[0].map((from, i) => from + t * (ends[1][i] - from));
  sheet.labelAt(words, size < 34 ? [...tips, middle] : [middle, part(0.3), part(0.7)], tone);
  sheet.grip(ends[1], heldLength(sheet, term, ends, v));
}

// Heads from within, or from outside where there is no room. Gives where words may stand.
function arrows(sheet, [a, b], isShort, along, tone) {
  if (!isShort) {
    sheet.arrowAt(a, b, tone, `${tone} thin`);
    sheet.arrowAt(b, a, tone, `${tone} thin`);
    return [];
  }
  const sign = Math.sign(b[along] - a[along]) || 1;
  const away = (p, by) => p.map((value, i) => (i === along ? value + by * sign : value));
  sheet.arrowAt(away(a, -18), a, tone, `${tone} thin`);
  sheet.arrowAt(away(b, 18), b, tone, `${tone} thin`);
  return [away(b, 18), away(a, -18)];
}

// The dimension of an argument between two vertices, measured along x or, at the left, at the right
// or where said, along y. `when` leaves it out.
export function dim(term, i, j, { upright, when = () => true, ...where } = {}) {
  const along = upright || where.side === "left" || where.side === "right" ? 1 : 0;
  const ends = (v) => ({ p: placeOf(i, v), q: placeOf(j, v), along });
  return {
    terms: [term],
    outside: where.side ? [where] : [],
    dimension: (v) => (when(v) ? Math.abs(ends(v).p[along] - ends(v).q[along]) : undefined),
    say: (v) => (when(v) ? equation(term, v) : null),
    paint(sheet, v) {
      const { p, q } = ends(v);
      if (sheet.small || !when(v)) return;
      if (exists(p) && exists(q)) paintDimension(sheet, v, term, ends(v), where);
    },
  };
}
