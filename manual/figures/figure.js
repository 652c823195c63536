// Figures of the plane as areas: polygons, circles and their segments, and what is measured on
// them.

import { planeGrip } from "./grips.js";
import { arcBetween, spoken, turningArc } from "./marks.js";
import {
  add,
  at,
  cross,
  dot,
  exists,
  length,
  list,
  minus,
  times,
  turnedAbout,
  unit,
} from "./places.js";
import { level, upright } from "./svg.js";

const Z = [0, 0, 1];

const circleOutline = ([centre, on]) => turningArc(centre, minus(on, centre), Z, 2 * Math.PI);

// Of the circle about the first point, the part that the chord between the others cuts off.
function segmentOutline([centre, from, to], larger) {
  const [u, w] = [minus(from, centre), minus(to, centre)];
  const smaller = Math.atan2(cross(u, w)[2], dot(u, w));
  const angle = larger ? smaller - Math.sign(smaller || 1) * 2 * Math.PI : smaller;
  return turningArc(centre, u, Z, angle);
}

// The outline of a figure by its kind; a single place of one that is concentrated in it.
function outlineOf(text, count, kind, v) {
  const points = list(text, count).names.map(v.array);
  const all = points[0].map((x, i) => [x, points[1][i] ?? NaN, 0]);
  const needed = { 1: 1, 2: v.count(count, all.length), 3: 2, 4: 3, 5: 3 }[kind] ?? 0;
  const used = all.slice(0, needed);
  if (used.length < needed || !used.every(exists)) return { used: [], outline: [] };
  const outline =
    { 3: circleOutline, 4: segmentOutline, 5: (p) => segmentOutline(p, true) }[kind] ?? ((p) => p);
  return { used, outline: outline(used).filter(exists) };
}

// A figure of `kind`, by the lists of its points.
export function area(text, count, kind) {
  const names = text.split(" ");
  const found = (v) => outlineOf(text, count, v.scalar(kind), v);
  return {
    terms: [...names, count, kind],
    span: (v) => found(v).outline,
    say: (v) =>
      `figure through ${found(v)
        .used.map((p) => spoken(p, true))
        .join(" ")}`,
    paint(sheet, v) {
      const { used, outline } = found(v);
      if (outline.length > 1) {
        sheet.wash(outline, "accent-wash");
        sheet.stroke(outline, "ink", { closed: true });
      }
      used.forEach((p, i) => {
        sheet.dot(p, "ink", planeGrip(sheet, p, names, i + 1));
        sheet.label(String(i + 1), [p], "ink");
      });
    },
  };
}

// The part of a circle that a chord cuts off: the smaller one, or the rest where `term` is `rest`.
export function cap(centre, from, to, term, rest) {
  const parts = [centre, from, to].map(at);
  const outline = (v) =>
    segmentOutline(
      parts.map((part) => part.where(v)),
      v.scalar(term) === rest,
    ).filter(exists);
  return {
    terms: [...parts.flatMap((part) => part.terms), term],
    span: outline,
    paint(sheet, v) {
      if (outline(v).length < 3) return;
      sheet.wash(outline(v), "accent-wash");
      sheet.stroke(outline(v), "accent", { closed: true });
    },
  };
}

function moments(outline) {
  const sums = { area: 0, x: 0, y: 0, xx: 0, yy: 0 };
  outline.forEach(([x1, y1], i) => {
    const [x2, y2] = outline[(i + 1) % outline.length];
    const part = x1 * y2 - x2 * y1;
    sums.area += part / 2;
    sums.x += (part * (x1 + x2)) / 6;
    sums.y += (part * (y1 + y2)) / 6;
    sums.xx += (part * (x1 * x1 + x1 * x2 + x2 * x2)) / 12;
    sums.yy += (part * (y1 * y1 + y1 * y2 + y2 * y2)) / 12;
  });
  return sums;
}

function centroidOf(outline) {
  if (outline.length === 1) return outline[0];
  const { area: size, x, y } = moments(outline);
  return [x / size, y / size, 0];
}

// The centroid and its distances from the axes: times the area they are the first moments.
export function levers(text, count, kind, [first, second]) {
  const outline = (v) => outlineOf(text, count, v.scalar(kind), v).outline;
  return {
    terms: [first, second],
    span: (v) => [[0, 0, 0], ...outline(v)],
    paint(sheet, v) {
      if (!outline(v).length) return;
      const p = centroidOf(outline(v));
      if (!exists(p)) return;
      for (const [foot, name] of [
        [[p[0], 0, 0], first],
        [[0, p[1], 0], second],
      ]) {
        sheet.arrow(foot, p, "accent", "accent thin");
        sheet.label(
          `${name} / area`,
          [0.5, 0.3, 0.7].map((t) => add(times(foot, 1 - t), p, t)),
          "accent",
        );
      }
      sheet.dot(p, "accent", null, 6);
    },
  };
}

// The radii of gyration: how far from the axes the whole area would have the same second moments.
export function gyration(text, count, [first, second]) {
  const outline = (v) => list(text, count).items(v).filter(exists);
  return {
    terms: [first, second],
    span: (v) => [[0, 0, 0], ...outline(v)],
    paint(sheet, v) {
      const { area: size } = moments(outline(v));
      const [i, j] = [first, second].map((term) => Math.sqrt(v.scalar(term) / size));
      if (!exists([i, j])) return;
      const { left, right, top, bottom } = sheet.frame;
      const [X, Y] = sheet.to([j, i, 0]);
      const [OX, OY] = sheet.to([0, 0, 0]);
      sheet.strokeAt(level(Y, left, right), "accent thin dashed");
      sheet.strokeAt(upright(X, top, bottom), "accent thin dashed");
      sheet.arrowAt([right - 60, OY], [right - 60, Y], "accent", "accent thin");
      sheet.arrowAt([OX, top + 26], [X, top + 26], "accent", "accent thin");
      const middle = [0.5, 0.8, 0.2].map((t) => [right - 60, OY + t * (Y - OY)]);
      sheet.labelAt(`√(${first} / area)`, middle, "accent");
      sheet.labelAt(
        `√(${second} / area)`,
        [
          [X, top + 26],
          [(X + OX) / 2, top + 26],
        ],
        "accent",
      );
    },
  };
}

// The angles at the vertices of an outline; of those that point inwards the outer one is smaller.
export function vertexAngles(text, count) {
  const outline = (v) => list(text, count).items(v);
  return {
    terms: [],
    paint(sheet, v) {
      const all = outline(v);
      if (!all.every(exists) || all.length < 3) return;
      const sense = Math.sign(moments(all).area);
      all.forEach((p, i) => {
        const [u, w] = [all.at(i - 1), all[(i + 1) % all.length]].map((q) => minus(q, p));
        const arc = arcBetween(p, w, u, Math.min(26 / sheet.view.sx, length(u) / 3, length(w) / 3));
        if (!arc.every(exists)) return;
        const inwards = cross(w, u)[2] * sense < 0;
        sheet.stroke(arc, inwards ? "accent" : "accent thin");
        if (inwards) sheet.wash([p, ...arc], "accent-wash");
      });
    },
  };
}

// Ahead of the vertex, seen along the first ray: all but the angle between the rays, which is taken
// off where it is less than a right one, and as far as the second line back where it is more.
export function besideAngle(vertex, first, second) {
  const parts = [vertex, first, second].map(at);
  return {
    terms: parts.flatMap((part) => part.terms),
    paint(sheet, v) {
      const [o, p, q] = parts.map((part) => part.where(v));
      const [u, w] = [minus(p, o), minus(q, o)];
      const sense = cross(u, w)[2] < 0 ? -1 : 1;
      const phi = Math.abs(Math.atan2(cross(u, w)[2], dot(u, w)));
      const far = times(unit(u), 3 * Math.max(length(u), length(w), sheet.whole.reach));
      const quarter = Math.PI / 2;
      for (const [from, to] of [
        [0, -Math.min(quarter, Math.PI - phi)],
        [phi, quarter],
      ]) {
        const start = turnedAbout(far, Z, sense * from);
        const arc = turningArc(o, start, Z, sense * (to - from));
        if (Math.abs(from) < quarter && exists(o) && arc.every(exists))
          sheet.wash([o, ...arc], "accent-wash");
      }
    },
  };
}
