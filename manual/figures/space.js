// Space, in axonometry: x comes forward, y goes to the right, z up. Points stand on a floor, so
// that one sees where they are.

import { niceStep, ticksWithin } from "./fit.js";
import { arcBetween, mark, spoken } from "./marks.js";
import { add, at, cross, exists, length, minus, onSurface, surface, times, unit }
  from "./places.js";
import { scene } from "./scene.js";
import { number } from "./svg.js";

// Where one looks from, the first as long as it shows the points apart.
const AZIMUTHS = [0.62, 0.95, 0.35, 1.2];
const ELEVATION = 0.4;

const [CE, SE] = [Math.cos(ELEVATION), Math.sin(ELEVATION)];

const projection = (azimuth) => {
  const [c, s] = [Math.cos(azimuth), Math.sin(azimuth)];
  return ([x, y, z]) => [y * c - x * s, z * CE - (x * c + y * s) * SE];
};

// How far apart the nearest two of the points look, as a part of how far apart they are.
function clearness(places, project) {
  let least = 1;
  places.forEach((p, i) => places.slice(0, i).forEach((q) => {
    const real = length(minus(p, q));
    const [[x1, y1], [x2, y2]] = [project(p), project(q)];
    if (real > 0) least = Math.min(least, Math.hypot(x1 - x2, y1 - y2) / real);
  }));
  return least;
}

function chooseView(places) {
  const views = AZIMUTHS.map(projection);
  const some = places.slice(0, 16);
  const clear = views.map((view) => clearness(some, view));
  return clear[0] > 0.45 ? views[0] : views[clear.indexOf(Math.max(...clear))];
}

const boxOf = (low, high) => [0, 1, 2, 3, 4, 5, 6, 7].map((i) =>
  [0, 1, 2].map((axis) => ((i >> axis) & 1 ? high[axis] : low[axis])));

const extremes = (places) => [Math.min, Math.max].map((pick) =>
  [0, 1, 2].map((i) => pick(...places.map((p) => p[i]))));

// The floor, a little larger than what stands on it.
function around(places) {
  const [low, high] = extremes(places);
  const room = 0.08 * length(minus(high, low)) || 0.5;
  return [...boxOf([low[0] - room, low[1] - room, low[2]], [high[0] + room, high[1] + room, low[2]]),
    ...places];
}

function paintFloor(sheet, low, high) {
  const step = niceStep(Math.max(high[0] - low[0], high[1] - low[1]), 7);
  const level = low[2];
  const line = (p, q, look) => sheet.stroke([p, q], look, { weight: 0.1, layer: "back" });
  for (const x of ticksWithin(low[0], high[0], step)) {
    line([x, low[1], level], [x, high[1], level], "faint");
  }
  for (const y of ticksWithin(low[1], high[1], step)) {
    line([low[0], y, level], [high[0], y, level], "faint");
  }
  paintAxes(sheet, low, high, step);
}

function paintAxes(sheet, low, high, step) {
  const corner = low;
  const size = 0.5 * Math.max(high[0] - low[0], high[1] - low[1]);
  const ends = [[high[0], low[1], low[2]], [low[0], high[1], low[2]],
    [low[0], low[1], Math.max(high[2], low[2] + size * 0.4)]];
  ["x", "y", "z"].forEach((name, i) => {
    sheet.stroke([corner, ends[i]], "soft", { weight: 0.5, layer: "back" });
    const [p, q] = [sheet.to(corner), sheet.to(ends[i])];
    sheet.head(p, q, "soft");
    sheet.label(name, [q], "soft");
  });
  if (sheet.small) return;
  tickAlong(sheet, ticksWithin(low[0], high[0], step), (x) => [x, high[1], low[2]], "start");
  tickAlong(sheet, ticksWithin(low[1], high[1], step), (y) => [high[0], y, low[2]], "end");
}

function tickAlong(sheet, ticks, where, anchor) {
  const [a, b] = [ticks[0], ticks[1]].map((t) => sheet.to(where(t ?? 0)));
  const every = Math.max(1, Math.ceil(34 / (Math.hypot(a[0] - b[0], a[1] - b[1]) || 1e9)));
  ticks.filter((_, i) => i % every === 0).forEach((t) => {
    const [x, y] = sheet.to(where(t));
    sheet.tick(number(Number(t.toPrecision(6))), x + (anchor === "end" ? -5 : 5), y + 15, anchor);
  });
}

function backdrop(sheet, whole) {
  const room = 0.08 * 2 * whole.reach || 0.5;
  const low = [whole.low[0] - room, whole.low[1] - room, whole.low[2]];
  const high = [whole.high[0] + room, whole.high[1] + room, whole.high[2]];
  paintFloor(sheet, low, high);
  sheet.drop = (p) => {
    const below = [p[0], p[1], whole.low[2]];
    if (sheet.small || Math.abs(p[2] - whole.low[2]) < 1e-3 * whole.reach) return;
    sheet.stroke([p, below], "soft dashed", { weight: 0.2, layer: "back" });
    const [x, y] = sheet.to(below);
    sheet.strokeAt([[x - 3, y], [x + 3, y]], "soft", { weight: 0.1, layer: "back" });
  };
}

const SPACE = { margin: 40, chooseView, backdrop, around };

export const space = (marks, more) => scene(SPACE, marks, more);

// A line by two places, or by one and a direction, beyond both by a part of the picture.
export function beyond(from, to, label = "", { tone, look = "" } = {}) {
  const parts = [at(from), at(to)];
  const terms = parts.flatMap((part) => part.terms);
  const ends = (v, whole) => {
    const [p, q] = parts.map((part) => part.where(v));
    const way = unit(minus(q, p));
    const reach = 0.3 * whole.reach;
    return [add(p, way, -reach), add(q, way, reach)];
  };
  return {
    terms,
    span: (v) => parts.map((part) => part.where(v)).filter(exists),
    late: (v, whole) => ends(v, whole).filter(exists),
    paint(sheet, v) {
      const [p, q] = ends(v, sheet.whole);
      const colour = tone ?? (terms.some(v.isResult) ? "accent" : "ink");
      if (!exists(p) || !exists(q)) return;
      sheet.stroke([p, q], `${colour} ${look}`);
      sheet.label(label, [sheet.to(add(times(p, 0.1), q, 0.9)), sheet.to(q)], colour);
    },
  };
}

// Two directions in a plane, one of them level.
function spread(normal) {
  const n = unit(normal);
  const level = cross([0, 0, 1], n);
  const u = length(level) > 1e-3 ? unit(level) : [0, 1, 0];
  return [u, cross(n, u)];
}

// Where a plane is drawn: near the picture's middle, and where it meets the others of its group.
function anchorOf(text, { meets, from }, v, whole) {
  let p = from ? from.where(v) : whole.middle;
  for (let i = 0; i < 30; i += 1) {
    for (const other of meets) {
      const q = onSurface(p, other, v);
      if (exists(q)) p = q;
    }
    p = onSurface(p, text, v);
  }
  return p;
}

// The plane A x + B y + C z + D = 0, as a patch with its normal.
export function patch(text, label, { tone, meets = [], through: from, normal = true,
  share = 0.75 } = {}) {
  const terms = text.split(" ");
  const name = label ?? terms.join(", ").replaceAll("'", "");
  const corners = (v, whole) => {
    const [u, w] = spread(surface(text, v).normal).map((way) => times(way, share * whole.reach));
    const p = anchorOf(text, { meets, from }, v, whole);
    return [add(add(p, u), w), add(minus(p, u), w), minus(minus(p, u), w), minus(add(p, u), w)];
  };
  return {
    terms: [...terms, ...(from?.terms ?? []), ...meets.flatMap((other) => other.split(" "))],
    late: (v, whole) => corners(v, whole).filter(exists),
    say: (v) => `plane ${name} = ${spoken([...terms.map(v.scalar)].slice(0, 3))} with ${
      terms[3]} = ${number(v.scalar(terms[3]))}`,
    paint(sheet, v) {
      const all = corners(v, sheet.whole);
      if (!all.every(exists)) return;
      const colour = tone ?? (terms.some(v.isResult) ? "accent" : "ink");
      sheet.wash(all, `${colour}-wash`);
      sheet.stroke(all, `${colour} thin`, { closed: true, weight: 0.6 });
      sheet.label(name, all.map((p) => sheet.to(p)), colour);
      if (normal) paintNormal(sheet, anchorOf(text, { meets, from }, v, sheet.whole), text, v, colour);
    },
  };
}

function paintNormal(sheet, p, text, v, colour) {
  const tip = add(p, unit(surface(text, v).normal), 0.4 * sheet.whole.reach);
  if (exists(tip)) sheet.arrow(p, tip, colour, `${colour} thin`);
}

// The line in which two planes meet, as far as their patches go.
export function meeting(first, second, { tone = "accent", share = 0.75 } = {}) {
  return {
    terms: [...first.split(" "), ...second.split(" ")],
    paint(sheet, v) {
      const way = cross(surface(first, v).normal, surface(second, v).normal);
      const p = anchorOf(first, { meets: [second] }, v, sheet.whole);
      const reach = times(unit(way), share * sheet.whole.reach);
      if (exists(p) && exists(reach)) sheet.stroke([minus(p, reach), add(p, reach)], tone);
    },
  };
}

// The plane through three places, as the parallelogram or the triangle of them.
export function facet(p, q, r, { tone, look = "thin" } = {}) {
  return mark([at(p), at(q), at(r)], (sheet, corners, colour) => {
    sheet.wash(corners, `${colour}-wash`);
    sheet.stroke(corners, `${colour} ${look}`, { closed: true, weight: 0.6 });
  }, { tone });
}

// The parallelepiped of three vectors at a place.
export function solid(start, vectors, { tone } = {}) {
  const parts = [at(start), ...vectors];
  const corner = ([p, ...ways], i) => ways.reduce((q, way, k) => ((i >> k) & 1 ? add(q, way) : q), p);
  const all = (v) => {
    const found = parts.map((part) => part.where(v));
    return [0, 1, 2, 3, 4, 5, 6, 7].map((i) => corner(found, i));
  };
  return {
    terms: parts.flatMap((part) => part.terms),
    span: (v) => all(v).filter(exists),
    paint: (sheet, v) => paintBlock(sheet, all(v), tone ?? "soft"),
  };
}

const FACES = [[0, 1, 3, 2], [0, 2, 6, 4], [0, 1, 5, 4]];

// Corner i and its neighbours i + 1, i + 2 and i + 4.
function paintBlock(sheet, corners, tone) {
  if (!corners.every(exists)) return;
  for (const face of FACES) {
    sheet.wash(face.map((i) => corners[i]), tone === "accent" ? "accent-wash" : "ink-wash");
  }
  corners.forEach((p, i) => [1, 2, 4].filter((k) => !(i & k)).forEach((k) =>
    sheet.stroke([p, corners[i | k]], `${tone} thin`, { weight: 0.4 })));
}

// Where three planes meet.
function corner(texts, v) {
  const planes = texts.map((text) => surface(text, v));
  const [n1, n2, n3] = planes.map((one) => one.normal);
  const [d1, d2, d3] = planes.map((one) => one.constant);
  const sum = add(add(times(cross(n2, n3), d1), times(cross(n3, n1), d2)), times(cross(n1, n2), d3));
  return times(sum, -1 / (n1[0] * cross(n2, n3)[0] + n1[1] * cross(n2, n3)[1]
    + n1[2] * cross(n2, n3)[2]));
}

// The block that three slabs, of two planes each, have in common.
export function block(...slabs) {
  const corners = (v) => [0, 1, 2, 3, 4, 5, 6, 7].map((i) =>
    corner(slabs.map((slab, k) => slab[(i >> k) & 1]), v));
  return {
    terms: slabs.flat().flatMap((text) => text.split(" ")),
    span: (v) => corners(v).filter(exists),
    say: (v) => `block with the corners ${corners(v).map((p) => spoken(p)).join(" ")}`,
    paint: (sheet, v) => paintBlock(sheet, corners(v), "ink"),
  };
}

// The legs of a vector along the axes.
export function legs(from, to, names = []) {
  return mark([at(from), at(to)], (sheet, [p, q]) => {
    const stops = [p, [q[0], p[1], p[2]], [q[0], q[1], p[2]], q];
    for (let i = 0; i < 3; i += 1) {
      sheet.stroke([stops[i], stops[i + 1]], "accent thin dashed", { weight: 0.5 });
      sheet.label(names[i], [sheet.to(times(add(stops[i], stops[i + 1]), 0.5))], "accent");
    }
  }, { terms: names });
}

// An axis system at a place: the nine numbers by their names.
export function axes(origin, names, { tone = "accent", share = 0.5, labels = true } = {}) {
  const terms = names.split(" ");
  const ways = (v) => [0, 3, 6].map((i) => terms.slice(i, i + 3).map(v.scalar));
  return {
    terms: [...at(origin).terms, ...terms],
    span: (v) => [at(origin).where(v)].filter(exists),
    late: (v, whole) => ways(v).map((way) =>
      add(at(origin).where(v), way, share * whole.reach)).filter(exists),
    say: (v) => `axes ${ways(v).map((way) => spoken(way)).join(" ")}`,
    paint(sheet, v) {
      const p = at(origin).where(v);
      ways(v).forEach((way, i) => {
        const tip = add(p, way, share * sheet.whole.reach);
        if (!exists(tip) || !exists(p)) return;
        sheet.arrow(p, tip, tone);
        if (labels) sheet.label(`${terms[3 * i]}..${terms[3 * i + 2]}`, [sheet.to(tip)], tone);
      });
    },
  };
}

// What two vectors at one place look like from the three axes: on the walls behind and the floor.
export function shadows(from, first, second, names) {
  const parts = [at(from), at(first), at(second)];
  return mark(parts, (sheet, [p, q, r], colour, v) => {
    const { low } = sheet.whole;
    const room = 0.16 * sheet.whole.reach;
    names.forEach((name, axis) => {
      const flat = (place) => place.map((value, i) =>
        (i === axis ? low[i] - (axis === 2 ? 0 : room) : value));
      const [o, a, b] = [p, q, r].map(flat);
      for (const tip of [a, b]) sheet.arrow(o, tip, "soft", "soft");
      const arc = arcBetween(o, minus(a, o), minus(b, o), 40 / sheet.view.sx);
      if (!arc.every(exists)) return;
      sheet.stroke(arc, "accent thin");
      sheet.label(`${name} = ${number(v.scalar(name))}`, [sheet.to(arc[arc.length >> 1])], "accent");
    });
  }, { terms: names, say: (v) => names.map((name) => `${name} = ${number(v.scalar(name))}`).join(", ") });
}
