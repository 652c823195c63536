// A number line: entries of a table as strokes on it, values as points, intervals and ranges as
// bands.

import { planeGrip } from "./grips.js";
import { equation } from "./marks.js";
import { exists } from "./places.js";
import { scene } from "./scene.js";
import { niceStep, ticksWithin } from "./fit.js";
import { axisName, baseOf, level, number, tickText, upright } from "./svg.js";

const onLine = (x) => [x, 0, 0];

// Heights above and below the line, which small pictures need larger.
const tall = (sheet, height) => (sheet.small ? 2.4 * height : height);

function backdrop(sheet) {
  const { frame, view } = sheet;
  const y = sheet.to(onLine(0))[1];
  sheet.strokeAt(level(y, frame.left, frame.right), "soft", { layer: "back" });
  sheet.head([frame.left, y], [frame.right, y], "soft");
  const low = (frame.left - view.left) / view.sx;
  const high = (frame.right - view.left) / view.sx;
  const step = niceStep(high - low, 9);
  const base = baseOf(low, high, step);
  if (base) sheet.tick(axisName("value", base), frame.right, y + 84, "end", "axis");
  for (const x of ticksWithin(low, high, step)) {
    const X = sheet.to(onLine(x))[0];
    sheet.strokeAt(upright(X, y - 4, y + 4), "soft", { layer: "back" });
    sheet.tick(tickText(x - base), X, y + 62, "middle");
  }
}

const RULER = { margin: 50, project: ([x]) => [x, 0], backdrop };

const finite = (numbers) => numbers.map(onLine).filter(exists);

// Entries of an ascending table.
export function entries(name, count, { chosen, of } = {}) {
  const all = (v) => v.array(name).slice(0, v.count(count, v.array(name).length));
  const picked = (v) => new Set(chosen ? v.array(chosen).slice(0, v.count(of, 60)) : []);
  return {
    terms: [name, count, chosen, of].filter(Boolean),
    span: (v) => finite(all(v)),
    say: (v) => `table ${name}: ${all(v).map(number).join(", ")}`,
    paint(sheet, v) {
      all(v).forEach((x, i) => {
        if (!exists(onLine(x))) return;
        const [X, Y] = sheet.to(onLine(x));
        const tone = picked(v).has(i + 1) ? "accent" : "ink";
        sheet.strokeAt(upright(X, Y - tall(sheet, 18), Y + tall(sheet, 18)), tone);
        sheet.labelAt(`${name}(${i + 1})`, [[X, Y + 20]], tone);
        sheet.grip([X, Y], planeGrip(sheet, onLine(x), [name], i + 1));
      });
    },
  };
}

function band(sheet, from, to, tone, height) {
  const half = tall(sheet, height);
  const [[x1, y], [x2]] = [sheet.to(onLine(from)), sheet.to(onLine(to))];
  const corners = [
    [x1, y - half],
    [x2, y - half],
    [x2, y + half],
    [x1, y + half],
  ];
  sheet.washAt(corners, `${tone}-wash`);
  return [x1, x2, y];
}

// The interval of a table that a result names.
export const interval = (name, index) => ({
  terms: [name, index],
  paint(sheet, v) {
    const i = v.scalar(index);
    const [from, to] = [v.array(name)[i - 1], v.array(name)[i]];
    if (exists([from ?? NaN, to ?? NaN])) band(sheet, from, to, "accent", 18);
  },
});

export const range = (low, high) => ({
  terms: [low, high],
  span: (v) => finite([v.scalar(low), v.scalar(high)]),
  say: (v) => `range from ${equation(low, v)} to ${equation(high, v)}`,
  paint(sheet, v) {
    const ends = [v.scalar(low), v.scalar(high)];
    if (!exists(ends)) return;
    const [x1, x2, y] = band(sheet, ...ends, "ink", 34);
    const half = tall(sheet, 34);
    for (const [x, name] of [
      [x1, low],
      [x2, high],
    ]) {
      sheet.strokeAt(upright(x, y - half, y + half), "ink thin");
      sheet.labelAt(name, [[x, y - 36]], "ink");
    }
  },
});

// A distance above the line, from an end of the range to an entry.
export const gap = (term, from, entry) => ({
  terms: [term],
  say: (v) => equation(term, v),
  paint(sheet, v) {
    const [p, q] = [v.scalar(from), entry(v) ?? NaN];
    if (!exists([p, q, v.scalar(term)]) || v.scalar(term) === 0) return;
    const [[x1, y], [x2]] = [sheet.to(onLine(p)), sheet.to(onLine(q))];
    const above = y - tall(sheet, 50);
    sheet.strokeAt(level(above, x1, x2), "accent thin");
    for (const x of [x1, x2]) sheet.strokeAt(upright(x, above - 6, above + 6), "accent thin");
    sheet.labelAt(equation(term, v), [[(x1 + x2) / 2, above - 4]], "accent");
  },
});

export const value = (name) => ({
  terms: [name],
  span: (v) => finite([v.scalar(name)]),
  say: (v) => equation(name, v),
  paint(sheet, v) {
    const x = v.scalar(name);
    if (!exists([x])) return;
    const [X, Y] = sheet.to(onLine(x));
    sheet.strokeAt(upright(X, Y, Y - tall(sheet, 58)), "ink thin", { weight: 0.3 });
    sheet.dot(onLine(x), "ink", planeGrip(sheet, onLine(x), [name]), 5);
    sheet.labelAt(
      equation(name, v),
      [
        [X, Y - 60],
        [X, Y - 84],
      ],
      "ink",
    );
  },
});

// The numbers on one side of zero or on the other, and on which one a value is.
export const sides = (name, positive) => ({
  terms: [name],
  span: () => finite([0]),
  paint(sheet, v) {
    const far = (sheet.frame.right - sheet.frame.left) / sheet.view.sx;
    const isPositive = v.scalar(name) > 0;
    band(sheet, 0, isPositive ? far : -far, "accent", 24);
    const [x, y] = sheet.to(onLine(0));
    sheet.strokeAt(upright(x, y - tall(sheet, 30), y + tall(sheet, 30)), "ink");
    for (const [text, X] of [
      [positive[0], x + 90],
      [positive[1], x - 90],
    ]) {
      sheet.labelAt(text, [[X, y + 30]], "soft");
    }
  },
});

export const zero = {
  terms: [],
  span: () => finite([0]),
  paint(sheet) {
    const [x, y] = sheet.to(onLine(0));
    sheet.strokeAt(upright(x, y - tall(sheet, 30), y + tall(sheet, 30)), "accent");
    sheet.labelAt("0", [[x, y + 32]], "accent");
  },
};

export const ruler = (marks, more) => scene(RULER, marks, more);
