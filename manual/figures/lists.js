// Lists as rows of cells, one below the other, with links that say where an entry went.

import { textWidth } from "./labels.js";
import { assemble, nothing, Sheet, stripLines } from "./sheet.js";
import { frameOf, stripOf, words } from "./scene.js";
import { element, entry as text, path } from "./svg.js";
import { drawable, nameOf, plainNames } from "./values.js";

const LEFT = 92;
const CELL = 44;
const WIDEST = 78;
const MOST = 12;
const LEAST = 11; // size of words in a cell
const WIDE_LETTER = 0.66; // width of a digit in bold, of its height

// A row of cells: the entries of an argument. `links` says how to find the entry of row `to`, else
// of the row before, that an entry comes from:
//   equal     the first of the same value that has no link yet
//   value     the first of the same value
//   position  the entry is that position
//   mirror    the same position from the end
//   block     one after another, from entry `start` on
// Entries behind `stop` are faint. Those are filled that `chosen` lists or `chosenAt` names, that
// stand in `block` n of the counts, or whose value stands `within` another argument.
export function cells(
  term,
  { count, links, chosen, of, stop, block, from, to, within, chosenAt, numbered } = {},
) {
  const listed = (v) => v.array(chosen).slice(0, v.count(of, 60));
  const common = (v) => positionsOf(v.array(term), new Set(v.array(within)));
  const picked = {
    block: (v) => blockOf(block, v),
    within: common,
    chosen: listed,
    chosenAt: (v) => [v.scalar(chosenAt)],
  };
  const picks = Object.entries({ block, within, chosen, chosenAt }).find(([, value]) => value);
  const start = (v) => blockOf(from, v)[0] - 1;
  return {
    terms: [term, count, chosen, of, stop, within, chosenAt, ...(block ?? [])].filter(Boolean),
    label: term,
    numbered,
    links: typeof links === "string" ? [{ by: links, to, start: from && start }] : (links ?? []),
    tone: (v) => (v.isResult(term) ? "accent" : "ink"),
    values(v) {
      const all = v.array(term);
      return all.slice(0, v.count(count, all.length));
    },
    used: (v) => (stop ? v.count(stop, 60) : Infinity),
    picked: (v) => new Set(picks ? picked[picks[0]](v) : []),
  };
}

const positionsOf = (values, wanted) =>
  values.flatMap((value, i) => (wanted.has(value) ? [i + 1] : []));

// Of two lists that are joined: the entries of the row above, then those of the row below.
export const joined = (count) => [
  { by: "block", to: 0, start: () => 0 },
  { by: "block", to: 2, start: (v) => -Math.max(0, v.scalar(count)) },
];

// The positions of the entries of block n, where blocks of these counts stand one after another.
function blockOf([counts, n], v) {
  const all = v.array(counts).slice(0, v.count(n, 60));
  const size = all.pop() ?? 0;
  const start = all.reduce((total, count) => total + count, 0);
  return Array.from({ length: Math.max(0, Math.min(60, size)) }, (_, i) => start + i + 1);
}

// The positions from one to another, in either direction.
export function run(first, last, most) {
  return {
    terms: [first, last, most],
    label: "run",
    links: [],
    tone: () => "ink",
    values(v) {
      const [from, to] = [v.scalar(first), v.scalar(last)];
      if (!(Math.abs(to - from) < 60)) return [];
      const step = to < from ? -1 : 1;
      return Array.from({ length: Math.floor(Math.abs(to - from)) + 1 }, (_, i) => from + step * i);
    },
    used: () => Infinity,
    picked: () => new Set(),
  };
}

const same = (a, b) => a === b || (Number.isNaN(a) && Number.isNaN(b));

const FINDERS = {
  equal(values, source) {
    const free = source.map(() => true);
    return values.map((value) => {
      const found = source.findIndex((other, i) => free[i] && same(value, other));
      if (found >= 0) free[found] = false;
      return found;
    });
  },
  value: (values, source) => values.map((value) => source.findIndex((other) => same(value, other))),
  mirror: (values, source) => values.map((_, i) => source.length - 1 - i),
  position: (values, source) =>
    values.map((value) => (value >= 1 && value <= source.length ? value - 1 : -1)),
  block: (values, source, start) =>
    values.map((_, i) => (start + i < source.length ? start + i : -1)),
};

const widthOf = (values) =>
  Math.max(
    60,
    Math.min(WIDEST, 18 + Math.max(0, ...values.map((value) => textWidth(text(value))))),
  );

// Width and places of the cells. Small pictures have neither names nor positions beside them.
function layout(rows, v, frame, small) {
  const all = rows.map((row) => row.values(v));
  const longest = Math.max(1, ...all.map((values) => Math.min(values.length, MOST + 1)));
  const below = rows.at(-1).numbered && !small ? 22 : 4;
  const [wide, high] = [frame.right - frame.left, frame.bottom - frame.top - below];
  const [beside, above] = small ? [20, 20] : [LEFT, 26];
  const width = Math.min(
    small ? 120 : widthOf(all.flat()),
    (wide - beside - (small ? 20 : 6)) / longest,
  );
  const cell = small ? Math.min(90, high / (1.7 * rows.length)) : CELL;
  const room =
    (high - rows.length * cell - above - (small ? above : 0)) / Math.max(1, rows.length - 1);
  const step = cell + Math.max(12, Math.min(small ? 110 : 70, room));
  const top = frame.top + above + Math.max(0, (high - above - (rows.length - 1) * step - cell) / 2);
  const left =
    frame.left +
    beside +
    Math.max(0, (wide - beside - longest * width) / 2 - (small ? beside / 2 : 30));
  return { all, width, cell, at: (r, i) => [left + i * width, top + r * step] };
}

// Without words an entry is a bar, as high as it is among all.
function paintBar(sheet, [x, y], { width, cell, all }, value, tone) {
  const values = all.flat().filter(drawable);
  const [low, high] = [Math.min(0, ...values), Math.max(...values)];
  if (!drawable(value) || !(high > low)) return;
  const top = y + cell - (0.1 + (0.75 * (value - low)) / (high - low)) * cell;
  const [left, right] = [x + 0.25 * width, x + 0.75 * width];
  const corners = [
    [left, y + cell],
    [left, top],
    [right, top],
    [right, y + cell],
  ];
  sheet.put("dots", element("path", { class: `${tone}-fill`, d: path(corners, true) }));
}

function paintCell(sheet, [x, y], place, value, { tone, faint, picked }) {
  const { width, cell } = place;
  const edge = faint ? "faint" : tone;
  const corners = [
    [x, y],
    [x + width, y],
    [x + width, y + cell],
    [x, y + cell],
  ];
  sheet.strokeAt(corners, `${edge} thin ${picked ? "accent-wash" : "paper-fill"}`, {
    closed: true,
    layer: "dots",
  });
  if (sheet.small && !faint) paintBar(sheet, [x, y], place, value, tone);
  const whole = text(value);
  const look = faint ? "soft" : tone;
  const size = Math.min(17, (width - 5) / (WIDE_LETTER * [...whole].length));
  const most = Math.max(1, Math.floor((width - 5) / (WIDE_LETTER * LEAST)) - 1);
  const shown = size < LEAST ? `${[...whole].slice(0, most).join("")}…` : whole;
  sheet.words(shown, x + width / 2, y + cell / 2 + 6, look, "middle", Math.max(size, LEAST));
}

function paintRow(sheet, row, r, place, v) {
  const values = place.all[r];
  const [used, picked] = [row.used(v), row.picked(v)];
  const [x, y] = place.at(r, 0);
  sheet.words(
    plainNames([row.label]),
    x - 14,
    y + CELL / 2 + (row.note ? 0 : 6),
    row.tone(v),
    "end",
  );
  if (row.note) sheet.words(row.note, x - 14, y + CELL / 2 + 18, "tick", "end");
  if (!values.length) sheet.words("no entry", x + 8, y + CELL / 2 + 6, "soft", "start");
  values.slice(0, MOST).forEach((value, i) =>
    paintCell(sheet, place.at(r, i), place, value, {
      tone: picked.has(i + 1) ? "accent" : row.tone(v),
      faint: i >= used,
      picked: picked.has(i + 1),
    }),
  );
  if (values.length > MOST) {
    const [end] = place.at(r, MOST);
    sheet.words("…", end + 12, y + CELL / 2 + 6, "soft", "start");
  }
  if (r === 0 || row.numbered) {
    const level = r === 0 ? y - 9 : y + place.cell + 17;
    values.slice(0, MOST).forEach((_, i) =>
      sheet.words(String(i + 1), place.at(r, i)[0] + place.width / 2, level, "tick"),
    );
  }
}

function paintLink(sheet, place, [from, source], [to, entry]) {
  const [upper, lower] = from < to ? [place.cell, 0] : [0, place.cell];
  const [x1, y1] = place.at(from, source);
  const [x2, y2] = place.at(to, entry);
  const half = place.width / 2;
  sheet.arrowAt([x1 + half, y1 + upper], [x2 + half, y2 + lower], "accent", "accent thin");
}

function paintLinks(sheet, row, r, place, v) {
  const values = place.all[r].slice(0, Math.min(MOST, row.used(v)));
  for (const { by, to: from = r - 1, start } of row.links) {
    FINDERS[by](values, place.all[from], start?.(v)).forEach((source, i) => {
      if (source >= 0 && source < MOST) paintLink(sheet, place, [from, source], [r, i]);
    });
  }
}

// For each entry of a row of positions the entry of the next row that it names.
export const mapped = (index, row) => ({
  terms: [index],
  paint(sheet, place, v) {
    v.array(index)
      .slice(0, Math.min(MOST, place.all[row].length))
      .forEach((target, i) => {
        if (target >= 1 && target <= Math.min(MOST, place.all[row + 1].length)) {
          paintLink(sheet, place, [row, i], [row + 1, target - 1]);
        }
      });
  },
});

// Which entry of the second row each of the first became one with: the nearest, within a tolerance.
export const merged = (count, tolerance) => ({
  terms: [count, tolerance].filter(Boolean),
  paint(sheet, place, v) {
    const within = tolerance ? v.scalar(tolerance) : 0;
    const ends = place.all[1].slice(0, Math.min(MOST, v.count(count, MOST)));
    place.all[0].slice(0, MOST).forEach((value, i) => {
      const gaps = ends.map((end) => Math.abs(end - value));
      const least = Math.min(...gaps);
      if (least <= within) paintLink(sheet, place, [0, i], [1, gaps.indexOf(least)]);
    });
  },
});

// Which entries of two rows belong together.
export const pairs = (first, second, count) => ({
  terms: [first, second, count],
  paint(sheet, place, v) {
    const total = v.count(count, Math.min(v.array(first).length, v.array(second).length));
    for (let k = 0; k < total; ++k) {
      const [i, j] = [v.array(first)[k] - 1, v.array(second)[k] - 1];
      if (!(i >= 0 && j >= 0 && i < MOST && j < MOST)) continue;
      const [p, q] = [place.at(0, i), place.at(1, j)];
      const half = place.width / 2;
      sheet.strokeAt(
        [
          [p[0] + half, p[1] + place.cell],
          [q[0] + half, q[1]],
        ],
        "accent",
      );
    }
  },
});

const sayRow = (row, values) =>
  `${plainNames([row.label])}${row.note ? ` ${row.note}` : ""}: ${
    values.map(text).join(", ") || "no entry"
  }`;

function drawLists(row, title, v, options) {
  const strip = stripOf(row, v);
  const lines = stripLines(strip, options);
  const frame = frameOf(lines, options, { ticks: false });
  const place = layout(row.rows, v, frame, options.small);
  if (!place.all.some((values) => values.length)) {
    return nothing(title, "Nothing to draw: the lists are empty.", options, strip);
  }
  const sheet = new Sheet({ to: (p) => p, sx: 1, sy: 1 }, frame, options);
  row.rows.forEach((line, r) => paintLinks(sheet, line, r, place, v));
  row.links.forEach((link) => link.paint(sheet, place, v));
  row.rows.forEach((line, r) => paintRow(sheet, line, r, place, v));
  const says = [
    ...row.rows.map((line, r) => sayRow(line, place.all[r])),
    ...strip.map((word) => word.text),
  ];
  return assemble({
    title,
    says: says.map((item) => `${item}.`),
    content: sheet.content(),
    lines,
    options,
  });
}

// Rows that show one argument before and after the call say so.
function noted(rows) {
  const names = rows.map((row) => row.terms[0]).map(nameOf);
  return rows.map((row, i) =>
    names.filter((name) => name === names[i]).length > 1
      ? { ...row, note: row.terms[0].endsWith("'") ? "after" : "before" }
      : row,
  );
}

export function lists(rows, { tell = "", silent = "", links = [], ...more } = {}) {
  const row = { rows: noted(rows), links, tell, ...more };
  const terms = [...rows, ...links].flatMap((part) => part.terms);
  return {
    shown: [...terms, ...words(tell)],
    silent: words(silent),
    draw: (title, v, options) => drawLists(row, title, v, options),
  };
}
