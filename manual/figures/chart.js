// Charts: the plane with a scale of its own for each axis, and curves of a design value.

import { fit } from "./fit.js";
import { planeGrip } from "./grips.js";
import { equation, isFree, mark } from "./marks.js";
import { at, dot, exists, list } from "./places.js";
import { grid } from "./plane.js";
import { scene } from "./scene.js";
import { level, number, upright } from "./svg.js";

const CHART = { ticks: true, margin: 34, project: ([x, y]) => [x, y], backdrop: grid };

export const chart = (marks, more) => scene(CHART, marks, { stretched: true, ...more });

function strokeToAxes(sheet, [x, y], [downTone, acrossTone], weight) {
  const { left, bottom } = sheet.frame;
  sheet.strokeAt(upright(x, y, bottom), `${downTone} thin dashed`, { weight });
  sheet.strokeAt(level(y, x, left), `${acrossTone} thin dashed`, { weight });
}

// From a point straight to both axes, with its values.
export function read(where, names) {
  const place = at(where);
  return mark([place], (sheet, [p], colour) => {
    const { left, bottom } = sheet.frame;
    const [x, y] = sheet.to(p);
    strokeToAxes(sheet, [x, y], [colour, colour], 0.3);
    sheet.labelAt(names[0], [[x, bottom - 12]], "ink");
    sheet.labelAt(names[1], [[left + 12, y]], colour);
  });
}

const INSET = { width: 0.32, height: 0.42 }; // of the frame

// A sketch in a corner of the chart, with a scale of its own.
export function inset(marks, { left, top = 0.05 }) {
  return {
    terms: marks.flatMap((one) => one.terms),
    say: (v) =>
      marks
        .map((one) => one.say?.(v))
        .filter(Boolean)
        .join(". "),
    paint(sheet, v) {
      const places = marks.flatMap((one) => one.span(v));
      if (sheet.small || !places.length) return;
      const outer = sheet.frame;
      const [wide, high] = [outer.right - outer.left, outer.bottom - outer.top];
      const frame = {
        left: outer.left + left * wide,
        right: outer.left + (left + INSET.width) * wide,
        top: outer.top + top * high,
        bottom: outer.top + (top + INSET.height) * high,
      };
      const view = fit(places, CHART.project, frame, { margin: 14 });
      const part = Object.assign(Object.create(sheet), { view, frame });
      for (const one of marks) one.paint(part, v);
    },
  };
}

const SAMPLES = 96;

function samples(name, term, result, range, v, { call } = {}) {
  if (!call) return [];
  const [low, high] = range(v);
  if (!(Math.abs(high - low) < 1e30)) return [];
  return Array.from({ length: SAMPLES + 1 }, (_, i) => {
    const x = low + ((high - low) * i) / SAMPLES;
    const found = call(name, { ...v.inputs, [term]: Math.fround(x) });
    return [x, found?.[result] ?? NaN, 0];
  }).filter(exists);
}

// How a result runs over one of the inputs, and where the call stands on it.
function curveMark(name, term, result, range) {
  const here = (v) => [v.scalar(term), v.scalar(result), 0];
  const sampled = (v, options) => samples(name, term, result, range, v, options);
  const corners = (v) => [[range(v)[0], 0, 0], [range(v)[1], 0, 0], here(v)].filter(exists);
  return {
    terms: [term, result],
    span: (v, options) => [...corners(v), ...sampled(v, options)],
    say: (v) => `${equation(result, v)} at ${equation(term, v)}`,
    paint(sheet, v) {
      const all = sampled(v, sheet.options);
      if (all.length) sheet.stroke(all, "ink");
      const p = here(v);
      if (!exists(p)) return;
      const [x, y] = sheet.to(p);
      strokeToAxes(sheet, [x, y], ["soft", "accent"], 0.2);
      sheet.dot(p, "accent", isFree(term, v) ? planeGrip(sheet, p, [term]) : null);
      sheet.labelAt(equation(result, v), [[x, y]], "accent");
    },
  };
}

export const curve = (name, term, result, range, { marks = [], ...more } = {}) =>
  chart([curveMark(name, term, result, range), ...marks], { names: [term, result], ...more });

// A sum that starts as a constant and grows by the product of each point with a normal: what it is
// after each, and where it is zero.
export function runningSum(text, count, normal, constant, chosen, of) {
  const places = list(text, count);
  const names = normal.split(" ");
  const sums = (v) => {
    const way = names.map(v.scalar);
    let total = v.scalar(constant);
    return [total, ...places.items(v).map((p) => (total += dot(way, p)))].map((y, i) => [i, y, 0]);
  };
  const isFound = (v, i) => v.array(chosen).slice(0, v.count(of, 60)).includes(i);
  return {
    terms: [...places.terms, ...names, constant, chosen, of],
    span: (v) => [[0, 0, 0], ...sums(v)].filter(exists),
    say: (v) =>
      `sums ${sums(v)
        .map(([, y]) => number(y))
        .join(", ")}`,
    paint(sheet, v) {
      const all = sums(v);
      if (!all.every(exists)) return;
      for (let i = 1; i < all.length; ++i) {
        const [p, q] = [all[i - 1], all[i]];
        sheet.stroke([p, [q[0], p[1], 0]], "soft thin dashed");
        sheet.arrow([q[0], p[1], 0], q, "ink");
      }
      all.forEach((p, i) => {
        const tone = isFound(v, i) ? "accent" : "ink";
        sheet.dot(p, tone, null, tone === "accent" ? 6 : 4.5);
        sheet.label(i ? `point ${i}` : constant, [p], tone);
      });
    },
  };
}

// Samples over a range as bars, whose area is the integral: one step wide, half as wide at the
// ends. The last one within has none.
export function bars(name, count, from, to) {
  const places = (v) => {
    const all = v.array(name).slice(0, v.count(count, 60));
    const [a, b] = [v.scalar(from), v.scalar(to)];
    return all.map((y, i) => [all.length > 1 ? a + ((b - a) * i) / (all.length - 1) : a, y, 0]);
  };
  return {
    terms: [name, count, from, to],
    span: (v) =>
      places(v)
        .flatMap(([x, y]) => [
          [x, y, 0],
          [x, 0, 0],
        ])
        .filter(exists),
    say: (v) =>
      `samples ${places(v)
        .map(([, y]) => number(y))
        .join(", ")}`,
    paint(sheet, v) {
      const all = places(v);
      const leftOut = all.length > 2 ? all.length - 2 : -1;
      if (!all.every(exists)) return;
      if (all.length > 1) sheet.stroke(all, "soft thin dashed");
      all.forEach((p, i) => {
        if (i !== leftOut) paintBar(sheet, all, i);
        sheet.dot(p, i === leftOut ? "soft" : "ink", planeGrip(sheet, p, [null, name], i + 1));
        sheet.label(
          i === leftOut ? "left out" : `${name}(${i + 1})`,
          [p],
          i === leftOut ? "soft" : "ink",
        );
      });
    },
  };
}

function paintBar(sheet, all, i) {
  const [x, y] = all[i];
  const half = all.length > 1 ? (all[1][0] - all[0][0]) / 2 : 0;
  const [low, high] = [i > 0 ? x - half : x, i < all.length - 1 ? x + half : x];
  const corners = [
    [low, 0, 0],
    [low, y, 0],
    [high, y, 0],
    [high, 0, 0],
  ];
  sheet.wash(corners, "accent-wash");
  sheet.stroke(corners, "accent thin", { closed: true });
}
