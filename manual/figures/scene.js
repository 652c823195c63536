// A scene is a list of marks on a sheet, above the words of what is told rather than drawn.

import { fit } from "./fit.js";
import { add, length, minus, times } from "./places.js";
import { assemble, nothing, Sheet, stripHeight, stripLines } from "./sheet.js";
import { number, px, sizeOf } from "./svg.js";
import { degreesBeside, nameOf, spelled } from "./values.js";

const NOTHING = "Nothing to draw: the numbers give no picture.";

// Of a code, by a table or by a rule.
const meaningOf = (meanings, value) =>
  typeof meanings === "function" ? meanings(value) : meanings?.[value];

// One told value: "rel = 3 (perpendicular)". A result that was kept has none.
function told(term, when, v, meanings) {
  const kept = v.isResult(term) && v.results[nameOf(term)] === undefined;
  const value = v.scalar(term);
  const meaning = meaningOf(meanings[nameOf(term)], kept ? "kept" : value);
  const name = spelled(term) + when;
  const said = kept ? `${name} kept` : `${name} = ${number(value)}${degreesBeside(term, value)}`;
  const text = meaning ? `${said}: ${meaning}` : said;
  return { text, tone: v.isResult(term) ? "accent" : "ink" };
}

export const words = (text) => (text ? text.split(" ") : []);

// Of what is told both as it was and as it became, it is said which is which.
function whenOf(term, all) {
  if (term.endsWith("'")) return all.includes(term.slice(0, -1)) ? " after" : "";
  return all.includes(`${term}'`) ? " before" : "";
}

const keyOf = ({ key = [] }, v) => (typeof key === "function" ? key(v) : key);

export function stripOf(row, v) {
  const terms = words(row.tell);
  const all = terms.map((term) => told(term, whenOf(term, terms), v, row.meanings ?? {}));
  return [
    ...all.filter(({ tone }) => tone === "accent"),
    ...all.filter(({ tone }) => tone === "ink"),
    ...keyOf(row, v).map((text) => ({ text, tone: "soft" })),
  ];
}

function wholeOf(places) {
  if (!places.length) return { middle: [0, 0, 0], reach: 0 };
  const low = [0, 1, 2].map((i) => Math.min(...places.map((p) => p[i])));
  const high = [0, 1, 2].map((i) => Math.max(...places.map((p) => p[i])));
  return { low, high, middle: times(add(low, high), 0.5), reach: length(minus(high, low)) / 2 };
}

export function frameOf(lines, options, { ticks }) {
  const { width, height } = sizeOf(options);
  if (options.small) return { left: 0, top: 0, right: width, bottom: height };
  const foot = stripHeight(lines) + (ticks ? 26 : 6);
  return { left: ticks ? 46 : 6, top: 6, right: width - 6, bottom: height - foot };
}

// Where a page finds the coordinates: x at left + scale x, y at top - scale y of the viewBox.
const anchors = (view) => ({
  "data-scale": px6(view.sx),
  "data-left": px(view.left),
  "data-top": px(view.top),
});

const px6 = (value) => String(Number(value.toPrecision(6)));

// What keeps the next picture from moving under a pointer.
const held = ({ project, sx, sy, left, top, patches }) => ({ project, sx, sy, left, top, patches });

function drawScene(row, kind, title, v, options) {
  const strip = stripOf(row, v);
  v.told = new Set(words(row.tell));
  const lines = stripLines(strip, options);
  const frame = frameOf(lines, options, kind);
  const first = row.marks.flatMap((mark) => mark.span?.(v, options) ?? []);
  const whole = wholeOf(first);
  whole.reach ||= length(whole.middle) / 4 || 1;
  const later = row.marks.flatMap((mark) => mark.late?.(v, whole) ?? []);
  const places = [...first, ...later];
  if (!places.length) return nothing(title, NOTHING, options, strip);
  const margin = options.small ? 44 : (row.margin ?? kind.margin);
  const normals = row.marks.flatMap((mark) => mark.normals?.(v) ?? []);
  const project = kind.project ?? kind.chooseView(places, first, normals, frame);
  const view = fit(kind.around?.(places) ?? places, project, frame, {
    margin,
    stretched: row.stretched,
    held: options.view,
    isFlat: Boolean(kind.project),
  });
  if (options.report) options.report.view = held(view);
  const sheet = Object.assign(new Sheet(view, frame, options), { whole, isChart: row.stretched });
  kind.backdrop(sheet, wholeOf(places), row, v);
  for (const mark of row.marks) mark.paint(sheet, v);
  const says = [...row.marks.map((mark) => mark.say?.(v)), ...strip.map(({ text }) => text)];
  return assemble({
    title,
    says: says.filter((text) => text && !v.told.has(text)).map((text) => `${text}.`),
    lines,
    options,
    content: sheet.content(),
    root: kind.flat && !row.stretched ? anchors(view) : {},
  });
}

// A row of a table: the marks, then what is told in words and what is deliberately not shown.
export function scene(kind, marks, { tell = "", silent = "", ...more } = {}) {
  const row = { marks, tell, ...more };
  const shown = [...marks.flatMap((mark) => mark.terms), ...words(tell)];
  return {
    shown,
    silent: words(silent),
    marks,
    draw: (title, v, options) => drawScene(row, kind, title, v, options),
  };
}
