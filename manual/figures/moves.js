// How lists of points are placed: turned, moved and turned, or seen from another origin.

import { drawnTurn, equation, paintWay, spoken, turningArc } from "./marks.js";
import { add, at, cross, dot, exists, length, list, minus, times, unit } from "./places.js";

const X = [1, 0, 0];
const Y = [0, 1, 0];
const Z = [0, 0, 1];

// The way of a place that is turned about an axis through another.
function turningWay(p, origin, axis, angle) {
  const centre = add(origin, axis, dot(axis, minus(p, origin)) / dot(axis, axis));
  return turningArc(
    centre,
    minus(p, centre),
    unit(axis),
    drawnTurn(angle) * Math.sign(length(axis)),
  );
}

const LIGHT = { weight: 0.5 }; // words may lie over it

// The ways of the points of a list that is turned about an axis through the origin.
export function turns(text, count, term, mode, { axis = Z } = {}) {
  const places = list(text, count);
  return {
    terms: [...places.terms, term, mode],
    say: (v) => equation(term, v),
    paint(sheet, v) {
      const sign = v.scalar(mode) === 1 ? -1 : 1;
      places
        .items(v)
        .slice(0, 8)
        .forEach((p, i) => {
          const arc = turningWay(p, [0, 0, 0], axis, sign * v.scalar(term));
          paintWay(sheet, arc, i === 0 && equation(term, v), LIGHT);
        });
    },
  };
}

// The axes in which points are placed: those of the world, or those of three places, which are
// turned so that z points to where y grows, else z, else x.
const WORLD = { terms: [], of: () => ({ origin: [0, 0, 0], ways: [X, Y, Z] }) };

export function systemOf(...corners) {
  const parts = corners.map(at);
  return {
    terms: parts.flatMap((part) => part.terms),
    of(v) {
      const [o, a, b] = parts.map((part) => part.where(v));
      const normal = cross(minus(a, o), minus(b, o));
      const upwards = [1, 2, 0].map((i) => normal[i]).find((n) => Math.abs(n) > 1e-5) ?? 1;
      const [x, z] = [unit(minus(a, o)), times(unit(normal), Math.sign(upwards))];
      return { origin: o, ways: [x, cross(z, x), z] };
    },
  };
}

// Where the first point of a list is moved, and how it is then turned about each axis in turn. What
// is at most as large as `least` is left out.
export function placing(text, count, shift, angles, { system = WORLD, least = 0 } = {}) {
  const places = list(text, count);
  const [steps, turnings] = [shift, angles].map((terms) => terms.split(" "));
  const way = (v) => {
    const { origin, ways } = system.of(v);
    const [p = [NaN, NaN, NaN]] = places.items(v);
    const sizes = steps.map(v.scalar);
    const stays = sizes.every((size) => Math.abs(size) <= least);
    const moved = stays ? p : sizes.reduce((q, size, i) => add(q, ways[i], size), p);
    const axes = [ways[0], times(ways[1], -1), ways[2]]; // about y from x towards z
    const arcs = [];
    turnings.forEach((term, i) => {
      const from = arcs.at(-1)?.arc.at(-1) ?? moved;
      const angle = v.scalar(term);
      if (!(Math.abs(angle) <= least))
        arcs.push({ term, arc: turningWay(from, origin, axes[i], angle) });
    });
    return { p, moved, arcs };
  };
  return {
    terms: [...places.terms, ...steps, ...turnings, ...system.terms],
    span: (v) => [way(v).moved, ...way(v).arcs.flatMap(({ arc }) => arc)].filter(exists),
    say: (v) => [...steps, ...turnings].map((term) => equation(term, v)).join(", "),
    paint(sheet, v) {
      const { p, moved, arcs } = way(v);
      if (!exists(p) || !exists(moved)) return;
      sheet.arrow(p, moved, "ink", "ink thin");
      const middle = times(add(p, moved), 0.5);
      sheet.label(steps.join(", "), [middle, moved], "ink");
      for (const { term, arc } of arcs) paintWay(sheet, arc, equation(term, v), LIGHT);
    },
  };
}

// The local axes of a system, as long as a part of the picture.
export function localAxes(system) {
  const tips = (v, whole) => {
    const { origin, ways } = system.of(v);
    return ways.map((way) => add(origin, way, 0.6 * whole.reach));
  };
  return {
    terms: system.terms,
    late: (v, whole) => tips(v, whole).filter(exists),
    paint(sheet, v) {
      const { origin } = system.of(v);
      tips(v, sheet.whole).forEach((tip, i) => {
        if (!exists(origin) || !exists(tip)) return;
        sheet.arrow(origin, tip, "soft");
        sheet.label(`local ${"xyz"[i]}`, [tip], "soft");
      });
    },
  };
}

// New axes at a place, which becomes the origin of a list, and its points as these see them.
export function newOrigin(where, after, count, { flat = false } = {}) {
  const place = at(where);
  const places = list(after, count);
  const ways = flat ? [X, Y] : [X, Y, Z];
  const seen = (v) =>
    places
      .items(v)
      .map((p) => add(place.where(v), p))
      .filter(exists);
  return {
    terms: [...place.terms, ...places.terms],
    span: (v) => [place.where(v), ...seen(v)].filter(exists),
    say: (v) =>
      `from the new origin ${spoken(place.where(v), flat)} the points are ${places
        .items(v)
        .map((p) => spoken(p, flat))
        .join(" ")}`,
    late: (v, whole) =>
      ways.map((way) => add(place.where(v), way, 0.5 * whole.reach)).filter(exists),
    paint(sheet, v) {
      const origin = place.where(v);
      if (!exists(origin)) return;
      ways.forEach((way, i) => {
        const tip = add(origin, way, 0.5 * sheet.whole.reach);
        if (!exists(tip)) return;
        sheet.arrow(origin, tip, "accent");
        sheet.label(`new ${"xyz"[i]}`, [tip], "accent");
      });
      for (const p of seen(v)) sheet.arrow(origin, p, "accent", "accent thin dashed");
    },
  };
}
