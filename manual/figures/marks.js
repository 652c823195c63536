// Marks that plane and space share. A mark has the terms it shows, the places that must be in the
// picture, and says what it is in words; it is accented where one of its terms is a result.

import { angleGrip, lengthGrip, planeGrip, spaceGrip } from "./grips.js";
import {
  add,
  at,
  cross,
  dot,
  exists,
  length,
  minus,
  ORIGIN,
  times,
  turnedAbout,
  unit,
} from "./places.js";
import { number } from "./svg.js";
import { degreesBeside, nameOf } from "./values.js";

export const spoken = (p, flat) =>
  `(${p
    .slice(0, flat ? 2 : 3)
    .map(number)
    .join(", ")})`;

// A value as it is said in a picture: "d = 5", or its name alone where the words below tell it.
export function equation(term, v) {
  if (v.told?.has(term)) return nameOf(term);
  const value = v.scalar(term);
  return `${nameOf(term)} = ${number(value)}${degreesBeside(term, value)}`;
}

const isFlat = (place) => !place.own || place.own.length === 2;

const wordsOf = (place) => (place.own ?? []).filter((term) => typeof term === "string").join(", ");

// Results are accented, where nothing else is asked for.
export const toneOf = (terms, v, tone) => tone ?? (terms.some(v.isResult) ? "accent" : "ink");

// What only helps to see how a place was found.
export const HELP = { look: "thin dashed", tone: "soft" };

export function mark(parts, painter, { terms = [], tone, say = () => null } = {}) {
  const all = [...parts.flatMap((part) => part.terms), ...terms];
  const places = (v) => parts.map((part) => part.where(v));
  return {
    terms: all,
    span: (v) => places(v).filter(exists),
    say,
    paint(sheet, v) {
      const found = places(v);
      if (found.every(exists)) painter(sheet, found, toneOf(all, v, tone), v);
    },
  };
}

// Whether an input of its own holds what is drawn.
const isFree = (term, v) => typeof term === "string" && term[0] !== "-" && !v.isResult(term);

// What a pointer takes hold of: the inputs of a point. Charts let go of a result alone.
function gripOf(sheet, place, p, v) {
  const { own } = place;
  const isPlane = sheet.view.isFlat;
  if (own?.length !== (isPlane ? 2 : 3) || new Set(own).size < own.length) return null;
  const free = own.filter((term) => isFree(term, v));
  const entry = /\.(\d+)/.exec(own[0])?.[1];
  if (free.length < (sheet.isChart ? 1 : own.length)) return null;
  const names = own.map((term) => (isFree(term, v) ? nameOf(term) : null));
  return isPlane ? planeGrip(sheet, p, names, entry) : spaceGrip(sheet, p, names, entry);
}

// Of a point that is drawn at its distance from another, the inputs that are the distance.
function tipGrip(sheet, way, start, tip, v) {
  const grip = gripOf(sheet, way, way.where(v), v);
  const [[x0, y0], [x, y]] = [sheet.to([0, 0, 0]), sheet.to(start)];
  const from = ([X, Y]) => [X - x + x0, Y - y + y0];
  if (!grip) return null;
  const lines = grip.lines && ((plane) => spaceGrip(sheet, tip, grip.names).lines(plane));
  return { ...grip, lines, move: (position, plane) => grip.move(from(position), plane) };
}

// The grip of a length that is an input, at the second position.
const heldLength = (sheet, term, [a, b], v) =>
  isFree(term, v) ? lengthGrip(a, b, nameOf(term), v.scalar(term)) : null;

export { gripOf, heldLength, isFree };

export function point(where, label, { tone, held = true } = {}) {
  const place = at(where);
  const name = label ?? wordsOf(place);
  return mark(
    [place],
    (sheet, [p], colour, v) => {
      sheet.drop?.(p);
      sheet.dot(p, colour, held ? gripOf(sheet, place, p, v) : null);
      sheet.label(name, [p], colour);
    },
    { tone, say: (v) => name && `${name} at ${spoken(place.where(v), isFlat(place))}` },
  );
}

// A ring around a point that a result is about.
export const verdict = (where) => ({
  terms: at(where).terms,
  paint(sheet, v) {
    const p = at(where).where(v);
    if (exists(p)) sheet.ring(p, "accent");
  },
});

// A point that only helps to understand: no name, no handle.
export const spot = (where) => point(where, "", { tone: "soft", held: false });

const shares = (p, q, parts) => parts.map((t) => add(times(p, 1 - t), q, t));

export function segment(from, to, label, { look, tone } = {}) {
  return mark(
    [at(from), at(to)],
    (sheet, [p, q], colour) => {
      sheet.stroke([p, q], look ? `${colour} ${look}` : colour);
      sheet.label(label, shares(p, q, [0.5, 0.35, 0.65]), colour);
    },
    { tone },
  );
}

// A ring at its end, where no point is.
function holdEnd(sheet, place, p, v) {
  const [x, y] = sheet.to(p);
  const isMarked = ({ left, right, top, bottom }) =>
    x > left && x < right && y > top && y < bottom;
  sheet.later(() => {
    if (!sheet.dots.some(isMarked)) sheet.grip([x, y], gripOf(sheet, place, p, v));
  });
}

export function vector(from, to, label, { tone, look } = {}) {
  return mark(
    [at(from), at(to)],
    (sheet, [p, q], colour, v) => {
      sheet.arrow(p, q, colour, look ? `${colour} ${look}` : colour);
      holdEnd(sheet, at(to), q, v);
      sheet.label(label, shares(p, q, [0.55, 0.4, 0.7, 1]), colour);
    },
    {
      tone,
      say: (v) =>
        label && `${label} from ${spoken(at(from).where(v))} to ${spoken(at(to).where(v))}`,
    },
  );
}

// A direction drawn at a place, with its tip for a handle where it begins at the origin.
export function direction(text, { from = ORIGIN, label } = {}) {
  const way = at(text);
  const start = at(from);
  const name = label ?? wordsOf(way);
  return mark(
    [start, { terms: way.terms, where: (v) => add(start.where(v), way.where(v)) }],
    (sheet, [p, q], colour, v) => {
      sheet.arrow(p, q, colour);
      const grip = tipGrip(sheet, way, p, q, v);
      if (grip) sheet.dot(q, colour, grip, 3);
      sheet.label(name, shares(p, q, [0.6, 0.8, 0.4, 1]), colour);
    },
    { say: (v) => `direction ${name} = ${spoken(way.where(v), isFlat(way))}` },
  );
}

// A direction whose length is not to scale, at a place: as long as asked, of the whole picture.
export function pointer(text, from, label, share) {
  const way = at(text);
  const start = at(from);
  return {
    ...mark([start], () => {}, {
      terms: way.terms,
      say: (v) => `${label} = ${spoken(way.where(v))}`,
    }),
    late: (v, whole) =>
      [add(start.where(v), unit(way.where(v)), share * whole.reach)].filter(exists),
    paint(sheet, v) {
      const p = start.where(v);
      const q = add(p, unit(way.where(v)), share * sheet.whole.reach);
      if (!exists(p) || !exists(q)) return;
      const colour = toneOf(way.terms, v);
      sheet.arrow(p, q, colour);
      sheet.label(label, [q, add(times(p, 0.4), q, 0.6)], colour);
    },
  };
}

// "d = 5" between two places.
export function distance(from, to, term, { tone, shift = 0, held = true } = {}) {
  const say = (v) => equation(term, v);
  return mark(
    [at(from), at(to)],
    (sheet, [p, q], colour, v) => {
      const [a, b] = shifted(sheet.to(p), sheet.to(q), shift);
      const across = Math.atan2(b[1] - a[1], b[0] - a[0]) + Math.PI / 2;
      const tick = ([x, y]) =>
        [-6, 6].map((s) => [x + s * Math.cos(across), y + s * Math.sin(across)]);
      sheet.strokeAt([a, b], `${colour} thin`);
      for (const end of [a, b]) sheet.strokeAt(tick(end), `${colour} thin`);
      const mid = (t) => [a[0] + t * (b[0] - a[0]), a[1] + t * (b[1] - a[1])];
      sheet.labelAt(say(v), [mid(0.5), mid(0.3), mid(0.7)], colour);
      if (held) sheet.grip(b, heldLength(sheet, term, [a, b], v));
    },
    { tone, terms: [term], say },
  );
}

function shifted(p, q, by) {
  const size = Math.hypot(q[0] - p[0], q[1] - p[1]) || 1;
  const [x, y] = [(-(q[1] - p[1]) / size) * by, ((q[0] - p[0]) / size) * by];
  return [
    [p[0] + x, p[1] + y],
    [q[0] + x, q[1] + y],
  ];
}

// The places of an arc about a vertex from one direction to another, the shorter way.
export function arcBetween(vertex, u, w, radius) {
  const normal = cross(u, w);
  const axis = length(normal) > 1e-9 * length(u) * length(w) ? unit(normal) : [0, 0, 1];
  const phi = Math.atan2(dot(normal, axis), dot(u, w));
  return turningArc(vertex, times(unit(u), radius), axis, phi);
}

export function turningArc(vertex, start, axis, phi) {
  const steps = Math.max(2, Math.min(96, Math.ceil(Math.abs(phi) * 16) || 2));
  return Array.from({ length: steps + 1 }, (_, i) =>
    add(vertex, turnedAbout(start, axis, (phi * i) / steps)),
  );
}

const MOST_TURNED = 6.3; // more of a turn is not drawn

export const drawnTurn = (radians) => Math.max(-MOST_TURNED, Math.min(MOST_TURNED, radians));

// The way of what is turned, with a head at its end and words at its middle.
export function paintWay(sheet, arc, text, { tone = "accent", wordTone = "ink", weight } = {}) {
  if (!arc.every(exists)) return;
  sheet.stroke(arc, `${tone} thin dashed`, { weight });
  sheet.head(...arc.slice(-2).map((place) => sheet.to(place)), tone);
  sheet.label(text, [arc[arc.length >> 1]], wordTone);
}

// The angle at a vertex between the directions to two places. Its radius is one of the page.
export function angle(vertex, from, to, term, { radius = 46, tone, name, right = false } = {}) {
  const label = (v) => (term === undefined ? name : equation(term, v));
  return mark(
    [at(vertex), at(from), at(to)],
    (sheet, [o, p, q], colour, v) => {
      const size = radius / sheet.view.sx;
      const arc = arcBetween(o, minus(p, o), minus(q, o), size);
      if (!arc.every(exists)) return;
      const [u, w] = [p, q].map((place) => times(unit(minus(place, o)), size / 3));
      const isRight = right && Math.abs(dot(u, w)) < 1e-4 * (size / 3) ** 2;
      sheet.stroke(isRight ? [add(o, u), add(add(o, u), w), add(o, w)] : arc, `${colour} thin`);
      const parts = [0.5, 0.25, 0.75].map((t) => arc[Math.round(t * (arc.length - 1))]);
      sheet.label(label(v), parts, colour);
      if (term !== undefined) gripAngle(sheet, o, arc.at(-1), term, v);
    },
    { tone, terms: term === undefined ? [] : [term], say: (v) => label(v) },
  );
}

// The way of a place that is turned about a centre, with a head at its end.
export function turn(where, centre, term, { share = 1 } = {}) {
  const say = (v) => equation(term, v);
  return mark(
    [at(where), at(centre)],
    (sheet, [p, o], colour, v) => {
      const start = times(minus(p, o), share);
      const arc = turningArc(o, start, [0, 0, 1], drawnTurn(v.scalar(term)));
      paintWay(sheet, arc, say(v), { tone: colour, wordTone: colour });
      gripAngle(sheet, o, arc.at(-1), term, v);
    },
    { terms: [term], say },
  );
}

// In the plane.
function gripAngle(sheet, centre, end, term, v) {
  if (!sheet.view.isFlat || !isFree(term, v) || !exists(end)) return;
  const [o, e] = [sheet.to(centre), sheet.to(end)];
  if (Math.hypot(e[0] - o[0], e[1] - o[1]) > 4)
    sheet.grip(e, angleGrip(o, e, nameOf(term), v.scalar(term)));
}

// The way of a place that swings about the line through two others.
export function swing(where, from, to, term) {
  const say = (v) => equation(term, v);
  return mark(
    [at(where), at(from), at(to)],
    (sheet, [p, q, r], _, v) => {
      const axis = unit(minus(r, q));
      const centre = add(q, axis, dot(minus(p, q), axis));
      paintWay(
        sheet,
        turningArc(centre, minus(p, centre), axis, drawnTurn(v.scalar(term))),
        say(v),
      );
    },
    { terms: [term], say },
  );
}

// The small square of a right angle.
export function square(vertex, from, to) {
  return mark([at(vertex), at(from), at(to)], (sheet, [o, p, q]) => {
    const size = 11 / sheet.view.sx;
    const [u, w] = [unit(minus(p, o)), unit(minus(q, o))].map((way) => times(way, size));
    const corner = [add(o, u), add(add(o, u), w), add(o, w)];
    if (corner.every(exists)) sheet.stroke(corner, "soft thin", { weight: 0.4 });
  });
}

// A closed outline through places.
export function outline(places, { look, tone, wash } = {}) {
  return mark(
    places.map(at),
    (sheet, corners, colour) => {
      if (wash) sheet.wash(corners, `${colour}-wash`);
      sheet.stroke(corners, look ? `${colour} ${look}` : colour, { closed: true });
    },
    { tone },
  );
}

// The points that divide a segment into equal parts.
export function division(from, to, count) {
  return mark(
    [at(from), at(to)],
    (sheet, [p, q], colour, v) => {
      const parts = Math.min(60, v.scalar(count));
      for (let i = 1; i < parts; ++i) {
        const place = add(times(p, 1 - i / parts), q, i / parts);
        sheet.drop?.(place);
        sheet.dot(place, "accent");
      }
    },
    { terms: [count] },
  );
}
