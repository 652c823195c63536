// Places: where a mark stands, said by arguments. `where(values)` gives (x, y, z), which is not a
// number where an argument is none; `terms` are the arguments it is made of.

import { drawable } from "./values.js";

export const add = (p, q, t = 1) => p.map((value, i) => value + t * q[i]);
export const minus = (p, q) => add(p, q, -1);
export const times = (p, t) => p.map((value) => value * t);
export const dot = (p, q) => p[0] * q[0] + p[1] * q[1] + p[2] * q[2];
export const cross = (p, q) => [
  p[1] * q[2] - p[2] * q[1],
  p[2] * q[0] - p[0] * q[2],
  p[0] * q[1] - p[1] * q[0],
];
export const length = (p) => Math.hypot(...p);
export const unit = (p) => times(p, 1 / length(p));
export const exists = (p) => p.every(drawable);

export const turnedAbout = (p, axis, angle) =>
  add(
    add(times(p, Math.cos(angle)), cross(axis, p), Math.sin(angle)),
    axis,
    dot(axis, p) * (1 - Math.cos(angle)),
  );

const place = (terms, where, also = {}) => ({ terms, where, ...also });

const termsOf = (...parts) =>
  parts.flatMap((part) =>
    typeof part === "number" ? [] : typeof part === "string" ? [part] : part.terms,
  );

// "x1 y1" or "x1 y1 z1": the place itself, which a pointer may take hold of in the plane.
export function at(text) {
  if (typeof text !== "string") return text;
  const terms = text.split(" ");
  return place(
    terms,
    (v) => {
      const [x, y, z = 0] = terms.map(v.scalar);
      return [x, y, z];
    },
    { own: terms },
  );
}

export const fixed = (x, y, z = 0) => place([], () => [x, y, z]);

export const ORIGIN = fixed(0, 0);

// One with its coordinates named or given: "x1", 0, "z2".
export const mixed = (...coordinates) =>
  place(termsOf(...coordinates), (v) => [...coordinates, 0, 0].slice(0, 3).map(v.scalar));

export const sum = (p, q, t = 1) =>
  place(termsOf(at(p), at(q), t), (v) => add(at(p).where(v), at(q).where(v), v.scalar(t)));

export const between = (p, q) => sum(p, q, -1); // the vector from q to p

export const middle = (p, q) =>
  place(termsOf(at(p), at(q)), (v) => times(add(at(p).where(v), at(q).where(v)), 0.5));

// From p towards q by a length, or by several.
export const along = (p, q, ...lengths) =>
  place(termsOf(at(p), at(q), ...lengths), (v) => {
    const start = at(p).where(v);
    const reach = lengths.map(v.scalar).reduce((total, item) => total + item, 0);
    return add(start, unit(minus(at(q).where(v), start)), reach);
  });

export const turned = (p, centre, angle) =>
  place(termsOf(at(p), at(centre), angle), (v) => {
    const about = at(centre).where(v);
    return add(about, turnedAbout(minus(at(p).where(v), about), [0, 0, 1], v.scalar(angle)));
  });

// Foot of the perpendicular from p on the line through q and r.
export const footOn = (p, q, r) =>
  place(termsOf(at(p), at(q), at(r)), (v) => {
    const start = at(q).where(v);
    const way = minus(at(r).where(v), start);
    return add(start, way, dot(minus(at(p).where(v), start), way) / dot(way, way));
  });

// Foot of the perpendicular from p on the line a x + b y + c = 0, or on a plane.
export const foot = (p, text) =>
  place([...at(p).terms, ...text.split(" ")], (v) => onSurface(at(p).where(v), text, v));

// Normal and constant of a line a, b, c or a plane A, B, C, D, or of one that is derived.
export function surface(text, v) {
  if (typeof text !== "string") return text.of(v);
  const all = text.split(" ").map(v.scalar);
  const [a, b, c, d] = all.length === 3 ? [all[0], all[1], 0, all[2]] : all;
  return { normal: [a, b, c], constant: d };
}

export function onSurface(p, text, v) {
  const { normal, constant } = surface(text, v);
  return add(p, normal, -(dot(normal, p) + constant) / dot(normal, normal));
}

// A place of a formula: for the few that only one routine has.
export const derived = (text, where) => place(text.split(" "), where);

// The points of arrays, "X Y" or "x y z", as far as the count says.
export function list(text, count) {
  const names = text.split(" ");
  return {
    terms: count === undefined ? names : [...names, count],
    names,
    items(v) {
      const arrays = names.map(v.array);
      const total = v.count(count, Math.min(...arrays.map((array) => array.length)));
      return Array.from({ length: total }, (_, i) => {
        const [x, y, z = 0] = arrays.map((array) => array[i]);
        return [x, y, z];
      });
    },
  };
}
