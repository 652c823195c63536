// The pictures of the worked calls, and what is drawn in them.

import { execFileSync } from "node:child_process";
import { fileURLToPath } from "node:url";
import { draw } from "../../manual/figures/draw.js";
import { textWidth } from "../../manual/figures/labels.js";

// Seeded, as the library's own: the same numbers on every machine.
export function generator(seed) {
  let state = seed;
  return (below) => {
    state = (Math.imul(state, 1664525) + 1013904223) >>> 0;
    return Math.floor((state / 2 ** 32) * below);
  };
}

const SCRIPT = fileURLToPath(new URL("calls.py", import.meta.url));
export const ROUTINES = JSON.parse(execFileSync("python3", ["-B", SCRIPT], { maxBuffer: 1 << 26 }));

// A number; what is kept is undefined, of a list the entry that was there before.
function numberOf(value, before) {
  if (value === null) return before;
  return typeof value === "string" ? Number(value.replace("inf", "Infinity")) : value;
}

const valuesOf = (given, before = {}) =>
  Object.fromEntries(
    Object.entries(given).map(([name, value]) => [
      name,
      Array.isArray(value)
        ? value.map((entry, i) => numberOf(entry, before[name]?.[i] ?? 0))
        : numberOf(value, before[name]),
    ]),
  );

export const callsOf = (name) =>
  ROUTINES[name].calls.map((call) => {
    const inputs = valuesOf(call.inputs);
    return { inputs, results: valuesOf(call.results, inputs) };
  });

export const callOf = (name) => callsOf(name)[0];

export const pictureOf = (name, options) => {
  const { inputs, results } = callOf(name);
  return draw(name, inputs, results, options);
};

export const attribute = (text, name) => new RegExp(`(?:^|\\s)${name}="([^"]*)"`).exec(text)?.[1];

const HEIGHTS = { vertex: 13, tick: 15, axis: 15 };

// The words of a picture with their boxes: as high as capitals, bold ones a little wider.
export const wordsOf = (svg) =>
  [...svg.matchAll(/<text ([^>]*)>([^<]*)</g)].map(([, given, text]) => {
    const look = attribute(given, "class");
    const size = Number(/font-size: ([\d.]+)/.exec(given)?.[1] ?? HEIGHTS[look] ?? 17);
    const width = textWidth(text.replace(/&\w+;/g, "x"), size) * (look === "accent" ? 1.08 : 1);
    const [x, bottom] = ["x", "y"].map((name) => Number(attribute(given, name)));
    const left = x - width * ({ middle: 0.5, end: 1 }[attribute(given, "text-anchor")] ?? 0);
    return { text, left, right: left + width, top: bottom - 0.8 * size, bottom };
  });

export const shapesOf = (svg) =>
  [...svg.matchAll(/<path class="([^"]*)" d="([^"]*)"/g)].map(([, look, d]) => ({
    look,
    points: [...d.matchAll(/[ML](\S+) ([^MLZ]+)/g)].map(([, x, y]) => [Number(x), Number(y)]),
  }));

export const dotsOf = (svg, tone) =>
  [...svg.matchAll(new RegExp(`<circle class="${tone}-fill" cx="([^"]*)" cy="([^"]*)"`, "g"))].map(
    ([, x, y]) => [Number(x), Number(y)],
  );

export const resultsOf = (svg) => dotsOf(svg, "accent");

export function distanceToStroke([x, y], { points }) {
  const gaps = points.slice(1).map(([x2, y2], i) => {
    const [x1, y1] = points[i];
    const [dx, dy] = [x2 - x1, y2 - y1];
    const t = ((x - x1) * dx + (y - y1) * dy) / (dx * dx + dy * dy || 1);
    const [px, py] = [x1 + Math.max(0, Math.min(1, t)) * dx, y1 + Math.max(0, Math.min(1, t)) * dy];
    return Math.hypot(x - px, y - py);
  });
  return Math.min(...gaps);
}
