// Planes and blocks in space: patches with their normals, and what they have in common.

import { mark, spoken, toneOf } from "./marks.js";
import {
  add,
  at,
  cross,
  dot,
  exists,
  length,
  minus,
  onSurface,
  surface,
  times,
  unit,
} from "./places.js";
import { number } from "./svg.js";
import { plainNames } from "./values.js";
import { offsetGrip, tiltGrip } from "./grips.js";

const REACH = 0.75; // of patches, as a part of the picture

// Two directions in a plane, one of them level.
function spread(normal) {
  const n = unit(normal);
  const level = cross([0, 0, 1], n);
  const u = length(level) > 1e-3 ? unit(level) : [0, 1, 0];
  return [u, cross(n, u)];
}

// Where a plane is drawn: near the picture's middle, and where it meets the others of its group.
function anchorOf(text, { meets, from }, v, whole) {
  const wanted = from?.where(v) ?? [NaN];
  let p = exists(wanted) ? wanted : whole.middle;
  for (let i = 0; i < 30; ++i) {
    for (const other of meets) {
      const q = onSurface(p, other, v);
      if (exists(q)) p = q;
    }
    p = onSurface(p, text, v);
  }
  return p;
}

const namesOf = (plane) => (typeof plane === "string" ? plane.split(" ") : plane.terms);

// How far a patch reaches along both ways from its anchor: evenly, or just beyond what it covers.
function extents(p, ways, reach, covered) {
  if (!covered.length) return ways.map(() => [-reach, reach]);
  return ways.map((way) => {
    const all = covered.map((q) => dot(minus(q, p), way));
    return [Math.min(...all) - 0.25 * reach, Math.max(...all) + 0.25 * reach];
  });
}

// A patch by a place, a direction and its reach along both. While a handle is held these are of an
// earlier plane, so that the patch does not spin under the pointer.
function cornersOf(text, { p, u, reaches: [[left, right], [low, high]] }, v) {
  const normal = unit(surface(text, v).normal);
  const middle = onSurface(p, text, v);
  const across = unit(add(u, normal, -dot(u, normal)));
  const up = cross(normal, across);
  const corner = (x, y) => add(add(middle, across, x), up, y);
  return [corner(right, high), corner(left, high), corner(left, low), corner(right, low)];
}

// Where a plane is moved, and two corners by which it is tilted.
function gripPatch(sheet, terms, corners, here, v) {
  const values = terms.map(v.scalar);
  const middle = times(add(corners[0], corners[2]), 0.5);
  const near = [middle, ...[0.35, 0.6].flatMap((t) => corners.map((corner) =>
    add(times(middle, 1 - t), corner, t)))];
  sheet.later(() => {
    const positions = near.map((place) => sheet.to(place));
    here.held ??= positions.indexOf(sheet.freeOf(positions));
    const [place, position] = [near[here.held], positions[here.held]];
    sheet.grip(position, offsetGrip(sheet, terms, values, place));
    for (const corner of corners.slice(0, 2))
      sheet.grip(sheet.to(corner), tiltGrip(sheet, terms, values, corner, middle));
  });
}

// The plane A x + B y + C z + D = 0, or one of places, as a patch with its normal.
export function patch(text, label, { meets = [], through: from, normal = true, covers = [] } = {}) {
  const terms = namesOf(text);
  const name = label ?? plainNames(terms);
  const frame = (v, whole) => {
    const [u, w] = spread(surface(text, v).normal);
    const p = anchorOf(text, { meets, from }, v, whole);
    const covered = covers.map((place) => at(place).where(v)).filter(exists);
    return { p, u, reaches: extents(p, [u, w], REACH * whole.reach, covered) };
  };
  const say = (v) => `plane ${name} = ${spoken(terms.map(v.scalar))} with ${terms[3]} = ${number(v.scalar(terms[3]))}`;
  return {
    normals: (v) => [unit(surface(text, v).normal)].filter(exists),
    terms: [
      ...terms,
      ...[from, ...covers].flatMap((place) => (place ? at(place).terms : [])),
      ...meets.flatMap(namesOf),
    ],
    late: (v, whole) => cornersOf(text, frame(v, whole), v).filter(exists),
    say: typeof text === "string" ? say : undefined,
    paint(sheet, v) {
      const here = (sheet.view.patches[terms] ??= frame(v, sheet.whole));
      const all = cornersOf(text, here, v);
      if (!all.every(exists)) return;
      const colour = toneOf(terms, v);
      sheet.wash(all, `${colour}-wash`);
      sheet.stroke(all, `${colour} thin`, { closed: true, weight: 0.6 });
      sheet.label(name, all, colour);
      if (terms.length === 4 && !terms.some(v.isResult))
        gripPatch(sheet, terms, all, here, v);
      if (!normal) return;
      const tip = paintNormal(sheet, onSurface(here.p, text, v), text, v, colour);
      if (tip && typeof normal === "string") sheet.label(normal, [tip], colour);
    },
  };
}

const LEAST_NORMAL = 34; // on the page: also one that comes towards the eye is an arrow

function paintNormal(sheet, p, text, v, colour) {
  const way = unit(surface(text, v).normal);
  if (!exists([...p, ...way])) return null;
  const [[x1, y1], [x2, y2]] = [p, add(p, way)].map((place) => sheet.to(place));
  const seen = Math.max(Math.hypot(x2 - x1, y2 - y1), 0.2 * sheet.view.sx);
  const tip = add(p, way, Math.max(0.4 * sheet.whole.reach, LEAST_NORMAL / seen));
  sheet.arrow(p, tip, colour, `${colour} thin`);
  return tip;
}

// The line in which two planes meet, as far as their patches go.
export function meeting(first, second) {
  return {
    terms: [...first.split(" "), ...second.split(" ")],
    paint(sheet, v) {
      const [n1, n2] = [first, second].map((text) => unit(surface(text, v).normal));
      const way = cross(n1, n2);
      if (!(length(way) > 5e-3)) return; // as good as parallel
      const p = anchorOf(first, { meets: [second] }, v, sheet.whole);
      const reach = times(unit(way), REACH * sheet.whole.reach);
      if (exists(p) && exists(reach)) sheet.stroke([minus(p, reach), add(p, reach)], "accent");
    },
  };
}

// The plane of three places.
export function planeOf(...corners) {
  const parts = corners.map(at);
  return {
    terms: parts.flatMap((part) => part.terms),
    of(v) {
      const [p, q, r] = parts.map((part) => part.where(v));
      const normal = cross(minus(q, p), minus(r, p));
      return { normal, constant: -dot(normal, p) };
    },
  };
}

// Where a plane cuts the axes, and the triangle between these points.
export function intercepts(text) {
  const cuts = (v) => {
    const { normal, constant } = surface(text, v);
    return [0, 1, 2].map((i) => [0, 1, 2].map((k) => (i === k ? -constant / normal[i] : 0)));
  };
  return {
    terms: text.split(" "),
    span: (v) => [[0, 0, 0], ...cuts(v).filter(exists)],
    paint(sheet, v) {
      const all = cuts(v).filter(exists);
      for (const p of all) {
        sheet.stroke([[0, 0, 0], p], "soft", { weight: 0.4 });
        sheet.dot(p, "accent");
      }
      if (all.length > 1) sheet.stroke(all, "accent thin", { closed: true });
    },
  };
}

// The plane through three places, as the parallelogram or the triangle of them.
export function facet(p, q, r, { tone } = {}) {
  return mark(
    [at(p), at(q), at(r)],
    (sheet, corners, colour) => {
      sheet.wash(corners, `${colour}-wash`);
      sheet.stroke(corners, `${colour} thin`, { closed: true, weight: 0.6 });
    },
    { tone },
  );
}

// The parallelepiped of three vectors at a place.
export function solid(start, vectors, { tone } = {}) {
  const parts = [at(start), ...vectors];
  const corner = ([p, ...ways], i) =>
    ways.reduce((q, way, k) => ((i >> k) & 1 ? add(q, way) : q), p);
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

const FACES = [
  [0, 1, 3, 2],
  [0, 2, 6, 4],
  [0, 1, 5, 4],
];

// Corner i and its neighbours i + 1, i + 2 and i + 4.
function paintBlock(sheet, corners, tone) {
  if (!corners.every(exists)) return;
  for (const face of FACES) {
    sheet.wash(
      face.map((i) => corners[i]),
      tone === "accent" ? "accent-wash" : "ink-wash",
    );
  }
  corners.forEach((p, i) =>
    [1, 2, 4]
      .filter((k) => !(i & k))
      .forEach((k) => sheet.stroke([p, corners[i | k]], `${tone} thin`, { weight: 0.4 })),
  );
}

// Where three planes meet.
function meetingPoint(texts, v) {
  const planes = texts.map((text) => surface(text, v));
  const [n1, n2, n3] = planes.map((one) => one.normal);
  const [d1, d2, d3] = planes.map((one) => one.constant);
  const sum = add(
    add(times(cross(n2, n3), d1), times(cross(n3, n1), d2)),
    times(cross(n1, n2), d3),
  );
  return times(
    sum,
    -1 / (n1[0] * cross(n2, n3)[0] + n1[1] * cross(n2, n3)[1] + n1[2] * cross(n2, n3)[2]),
  );
}

// The block that three slabs, of two planes each, have in common.
export function block(...slabs) {
  const corners = (v) =>
    [0, 1, 2, 3, 4, 5, 6, 7].map((i) =>
      meetingPoint(
        slabs.map((slab, k) => slab[(i >> k) & 1]),
        v,
      ),
    );
  return {
    terms: slabs.flat().flatMap((text) => text.split(" ")),
    span: (v) => corners(v).filter(exists),
    say: (v) =>
      `block with the corners ${corners(v)
        .map((p) => spoken(p))
        .join(" ")}`,
    paint(sheet, v) {
      paintBlock(sheet, corners(v), "ink");
      slabs.forEach((slab, k) =>
        slab.forEach((text, side) =>
          gripFace(sheet, text, corners(v).filter((_, i) => ((i >> k) & 1) === side), v)));
    },
  };
}

// The middle of a face, by which its plane is moved.
function gripFace(sheet, text, corners, v) {
  const terms = text.split(" ");
  const middle = times(corners.reduce((sum, corner) => add(sum, corner)), 1 / corners.length);
  if (terms.some(v.isResult) || !exists(middle)) return;
  sheet.later(() =>
    sheet.grip(sheet.to(middle), offsetGrip(sheet, terms, terms.map(v.scalar), middle)));
}
