// The plane: a grid with coordinates, lines and circles by their coefficients, outlines.

import { niceStep, ticksWithin } from "./fit.js";
import {
  centreGrip,
  planeGrip,
  radiusGrip,
  shiftGrip,
  slopeGrip,
  spaceGrip,
} from "./grips.js";
import { heldLength, isFree, mark, spoken, toneOf, turningArc } from "./marks.js";
import { add, at, exists, length, list, minus, onSurface, surface, times, unit } from "./places.js";
import { textWidth } from "./labels.js";
import { scene } from "./scene.js";
import { axisName, baseOf, level, number, tickText, upright } from "./svg.js";
import { plainNames } from "./values.js";

function gridLines(sheet, low, high, steps, names) {
  const { frame } = sheet;
  const bases = [0, 1].map((i) => baseOf(low[i], high[i], steps[i]));
  const named = names.map((name, i) => axisName(name, bases[i]));
  sheet.tick(named[0], frame.right, frame.bottom + 17, "end", "axis");
  const isLong = textWidth(named[1], 15) > frame.left - 8;
  sheet.tick(named[1], isLong ? 4 : frame.left - 6, frame.top + 12, isLong ? "start" : "end", "axis");
  for (const x of ticksWithin(low[0], high[0], steps[0])) {
    const [X] = sheet.to([x, 0, 0]);
    const look = Math.abs(x) < steps[0] / 2 ? "soft" : "faint";
    sheet.strokeAt(upright(X, frame.top, frame.bottom), look, { weight: 0.1, layer: "back" });
    sheet.tick(tickText(x - bases[0]), X, frame.bottom + 17, "middle");
  }
  for (const y of ticksWithin(low[1], high[1], steps[1])) {
    const [, Y] = sheet.to([0, y, 0]);
    const look = Math.abs(y) < steps[1] / 2 ? "soft" : "faint";
    sheet.strokeAt(level(Y, frame.left, frame.right), look, { weight: 0.1, layer: "back" });
    sheet.tick(tickText(y - bases[1]), frame.left - 6, Y + 5, "end");
  }
}

export function grid(sheet, _, { names = ["x", "y"] } = {}) {
  if (sheet.small) return;
  const { frame, view } = sheet;
  const low = [(frame.left - view.left) / view.sx, (view.top - frame.bottom) / view.sy];
  const high = [(frame.right - view.left) / view.sx, (view.top - frame.top) / view.sy];
  const equal = view.sx === view.sy;
  const one = niceStep(high[0] - low[0], 9);
  const steps = equal ? [one, one] : [one, niceStep(high[1] - low[1], 6)];
  gridLines(sheet, low, high, steps, names);
}

const PLANE = { flat: true, ticks: true, margin: 40, project: ([x, y]) => [x, y], backdrop: grid };

export const plane = (marks, more) => scene(PLANE, marks, more);

// The ends of a line where it leaves the frame; `way` and `from` are of the page.
function acrossFrame(from, way, frame) {
  let [low, high] = [-Infinity, Infinity];
  const sides = [
    [frame.left, frame.right],
    [frame.top, frame.bottom],
  ];
  sides.forEach(([first, second], i) => {
    if (Math.abs(way[i]) < 1e-9) {
      if (from[i] < first || from[i] > second) low = Infinity;
      return;
    }
    const cuts = [(first - from[i]) / way[i], (second - from[i]) / way[i]];
    low = Math.max(low, Math.min(...cuts));
    high = Math.min(high, Math.max(...cuts));
  });
  return low < high ? [low, high].map((t) => [from[0] + t * way[0], from[1] + t * way[1]]) : null;
}

// Gives the ends of what is seen of it.
function paintLine(sheet, p, way, colour, label, look = "") {
  const a = sheet.to(p);
  const b = sheet.to(add(p, way));
  const size = Math.hypot(b[0] - a[0], b[1] - a[1]);
  const ends = acrossFrame(a, [(b[0] - a[0]) / size, (b[1] - a[1]) / size], sheet.frame);
  if (!ends) return null;
  sheet.strokeAt(ends, `${colour} ${look}`);
  const [p1, p2] = ends;
  const share = (t) => [p1[0] + t * (p2[0] - p1[0]), p1[1] + t * (p2[1] - p1[1])];
  sheet.labelAt(label, [0.9, 0.1, 0.78, 0.22, 0.66].map(share), colour);
  return ends;
}

// Where a line is moved, and where it is turned about that place.
function gripLine(sheet, terms, ends, v) {
  if (!ends || !terms.every((term) => isFree(term, v))) return;
  const share = (t) => ends[0].map((value, i) => value + t * (ends[1][i] - value));
  const place = ([X, Y]) => [
    (X - sheet.view.left) / sheet.view.sx,
    (sheet.view.top - Y) / sheet.view.sy,
  ];
  const values = terms.map(v.scalar);
  sheet.later(() => {
    const middle = sheet.freeOf([0.5, 0.42, 0.58, 0.34].map(share));
    const far = sheet.freeOf([0.84, 0.9, 0.78, 0.16].map(share));
    sheet.grip(middle, shiftGrip(sheet, terms, values));
    sheet.grip(far, slopeGrip(sheet, terms, values, place(middle), place(far)));
  });
}

// The line a x + b y + c = 0; `normal` draws (a, b) on it, towards its positive side.
export function line(text, { normal = false } = {}) {
  const terms = text.split(" ");
  const name = plainNames(terms);
  const near = (v) => onSurface([0, 0, 0], text, v);
  return {
    terms,
    span: (v) => [near(v)].filter(exists),
    say: (v) => `line ${name} = ${spoken(terms.map(v.scalar))}`,
    paint(sheet, v) {
      const { normal: side } = surface(text, v);
      const p = onSurface(sheet.whole.middle, text, v);
      const colour = toneOf(terms, v);
      if (!exists(p)) return;
      gripLine(sheet, terms, paintLine(sheet, p, unit([-side[1], side[0], 0]), colour, name), v);
      if (normal) paintSide(sheet, p, side, colour, terms);
    },
  };
}

function paintSide(sheet, p, side, colour, terms) {
  const tip = add(p, unit(side), 44 / sheet.view.sx);
  sheet.arrow(p, tip, colour, `${colour} thin`);
  sheet.label(`(${terms[0]}, ${terms[1]})`, [tip], colour);
}

// The line through two places, beyond both.
export function through(from, to, label = "") {
  return mark([at(from), at(to)], (sheet, [p, q]) => {
    if (length(minus(q, p)) > 0) paintLine(sheet, p, minus(q, p), "soft", label, "dashed");
  });
}

const round = (centre, radius) => turningArc(centre, [radius, 0, 0], [0, 0, 1], 2 * Math.PI);

const corners = ([x, y], r) => [
  [x - r, y - r, 0],
  [x + r, y + r, 0],
];

// A circle; `measure` gives centre and radius.
function roundMark(terms, measure, name, { tone, look, grips } = {}) {
  return {
    terms,
    span(v) {
      const { centre, radius } = measure(v);
      return exists([...centre, radius]) ? corners(centre, radius) : [];
    },
    say(v) {
      const { centre, radius } = measure(v);
      return name && `circle ${name} about ${spoken(centre, true)} of radius ${number(radius)}`;
    },
    paint(sheet, v) {
      const { centre, radius } = measure(v);
      if (!exists([...centre, radius])) return;
      const colour = toneOf(terms, v, tone);
      sheet.stroke(round(centre, radius), look ? `${colour} ${look}` : colour, { closed: true });
      sheet.label(
        name,
        [0.3, 0.8, 1.2, 1.7].map((turn) =>
          add(centre, [radius * Math.cos(turn * Math.PI), radius * Math.sin(turn * Math.PI), 0]),
        ),
        colour,
      );
      grips?.(sheet, v, centre, radius);
    },
  };
}

// The centre and a place of a circle by its coefficients.
const gripCircle = (terms) => (sheet, v, centre, radius) => {
  if (!terms.every((term) => isFree(term, v))) return;
  const values = terms.map(v.scalar);
  sheet.later(() => {
    sheet.grip(sheet.to(centre), centreGrip(sheet, terms, values, radius));
    sheet.grip(freeRim(sheet, centre, radius), radiusGrip(sheet, terms, values, centre));
  });
};

// A position on a circle where no point is.
const freeRim = (sheet, centre, radius) =>
  sheet.freeOf(
    [-0.25, -0.35, 0.25, 0.75].map((turn) =>
      sheet.to(
        add(centre, [radius * Math.cos(turn * Math.PI), radius * Math.sin(turn * Math.PI), 0]),
      ),
    ),
  );

// The radius, where it is an input.
const gripRadius = (term) => (sheet, v, centre, radius) => {
  sheet.later(() => {
    const rim = freeRim(sheet, centre, radius);
    sheet.grip(rim, heldLength(sheet, term, [sheet.to(centre), rim], v));
  });
};

export function circle(text) {
  const terms = text.split(" ");
  return roundMark(
    terms,
    (v) => {
      const [D, E, F] = terms.map(v.scalar);
      return { centre: [-D / 2, -E / 2, 0], radius: Math.sqrt((D * D) / 4 + (E * E) / 4 - F) };
    },
    terms.join(", "),
    { grips: gripCircle(terms) },
  );
}

export function circleAbout(centre, radius, name = "", more) {
  const [terms, size] =
    typeof radius === "string" ? [[radius], (v) => v.scalar(radius)] : [radius.terms, radius.of];
  return roundMark(
    [...at(centre).terms, ...terms],
    (v) => ({ centre: at(centre).where(v), radius: Math.abs(size(v)) }),
    name,
    { grips: typeof radius === "string" ? gripRadius(radius) : undefined, ...more },
  );
}

export function circleThrough(centre, on, more) {
  return roundMark(
    [...at(centre).terms, ...at(on).terms],
    (v) => {
      const middle = at(centre).where(v);
      return { centre: middle, radius: length(minus(at(on).where(v), middle)) };
    },
    "",
    more,
  );
}

// Part of a circle about a centre, counter-clockwise from one place by an angle.
export function arcOf(centre, from, reach, { tone, look = "", label } = {}) {
  const places = (v) => {
    const o = at(centre).where(v);
    return turningArc(o, minus(at(from).where(v), o), [0, 0, 1], reach(v));
  };
  const drawn = mark(
    [at(centre), at(from)],
    (sheet, _, colour, v) => {
      const arc = places(v);
      if (!arc.every(exists)) return;
      sheet.stroke(arc, `${colour} ${look}`);
      sheet.label(
        label?.(v),
        [0.5, 0.4, 0.6].map((t) => arc[Math.floor(t * (arc.length - 1))]),
        colour,
      );
    },
    { tone, terms: label ? label.terms : [], say: (v) => label?.(v) },
  );
  return { ...drawn, span: (v) => places(v).filter(exists) };
}

function gripOfEntry(sheet, names, p, v, i) {
  if (names.some((name) => v.isResult(name)) || new Set(names).size < names.length) return null;
  const grip = sheet.view.isFlat ? planeGrip : spaceGrip;
  return sheet.view.isFlat === (names.length === 2) ? grip(sheet, p, names, i + 1) : null;
}

// An outline by its lists. Vertices are numbered, and can be taken hold of where they are inputs.
export function polygon(
  text,
  count,
  { look = "", wash = true, numbers = true, name: called } = {},
) {
  const vertices = list(text, count);
  const places = (v) => vertices.items(v).filter(exists);
  const name = plainNames(vertices.names);
  return {
    terms: vertices.terms,
    span: places,
    say: (v) =>
      `outline ${name}: ${places(v)
        .map((p) => spoken(p, vertices.names.length === 2))
        .join(" ")}`,
    paint(sheet, v) {
      const all = places(v);
      const colour = toneOf(vertices.names, v);
      if (!all.length) return;
      if (wash) sheet.wash(all, wash === true ? `${colour}-wash` : wash);
      sheet.stroke(all, `${colour} ${look}`, { closed: true });
      if (called) sheet.label(called, [times(all.reduce((p, q) => add(p, q)), 1 / all.length)], colour);
      all.forEach((p, i) => {
        sheet.drop?.(p);
        sheet.dot(p, colour, gripOfEntry(sheet, vertices.names, p, v, i), 3.5);
        if (numbers && all.length <= 24) sheet.label(String(i + 1), [p], colour);
      });
    },
  };
}

// Parallel lines of lists, each with its place in the order.
export function parallels(text, count, order) {
  const names = text.split(" ");
  const all = (v) => {
    const arrays = names.map(v.array);
    const total = v.count(count, Math.min(...arrays.map((array) => array.length)));
    return Array.from({ length: total }, (_, i) => arrays.map((array) => array[i]));
  };
  // Where they cut the y axis, or if they do not, the x axis.
  const cuts = (v) => {
    const rows = all(v);
    const isUpright = rows.length > 0 && Math.abs(rows[0][1]) < 1e-5 * Math.abs(rows[0][0]);
    return rows.map(([a, b, c]) => (isUpright ? [-c / a, 0, 0] : [0, -c / b, 0]));
  };
  return {
    terms: [...names, count, order],
    span: (v) => cuts(v).filter(exists),
    say: (v) =>
      `lines ${all(v)
        .map((row) => spoken(row))
        .join(" ")} in the order ${v.array(order).map(number).join(", ")}`,
    paint(sheet, v) {
      const [rows, places] = [all(v), cuts(v)];
      rows.forEach((row, i) => {
        if (!exists(places[i])) return;
        const place = v.array(order).indexOf(i + 1) + 1;
        paintLine(sheet, places[i], unit([-row[1], row[0], 0]), "ink", `line ${i + 1}`);
        sheet.dot(places[i], "accent");
        if (place) sheet.label(`number ${place}`, [places[i]], "accent");
      });
      const ordered = v.array(order).map((i) => places[i - 1] ?? [NaN]);
      for (let i = 1; i < ordered.length; ++i) {
        if (exists(ordered[i - 1]) && exists(ordered[i]))
          sheet.arrow(ordered[i - 1], ordered[i], "accent", "accent thin");
      }
    },
  };
}

// Points of lists. `chosen` says which are results: by a list of positions, or by their flags.
export function points(text, count, { chosen, of, flags, named } = {}) {
  const all = list(text, count);
  const name = plainNames(all.names);
  const isChosen = (v) => {
    const found = new Set(chosen ? v.array(chosen).slice(0, v.count(of, 60)) : []);
    return (i) => found.has(i + 1);
  };
  const marks = flags ? flags.split(" ") : [];
  const wordOf = (v, i) =>
    flags
      ? marks.map((flag) => number(v.array(flag)[i] ?? NaN)).join(" ")
      : `${i + 1}${named === i + 1 ? `: ${name}` : ""}`;
  return {
    terms: [...all.terms, ...[chosen, of].filter(Boolean), ...marks],
    span: (v) => all.items(v).filter(exists),
    say: (v) =>
      `points ${name}: ${all
        .items(v)
        .map((p, i) => `${spoken(p, all.names.length === 2)}${flags ? ` has ${wordOf(v, i)}` : ""}`)
        .join(" ")}`,
    paint(sheet, v) {
      const inset = isChosen(v);
      const base = toneOf(all.names, v);
      const items = all.items(v);
      items.forEach((p, i) => {
        if (!exists(p)) return;
        const colour = inset(i) || (flags && !chosen) ? "accent" : base;
        sheet.drop?.(p);
        sheet.dot(p, colour, gripOfEntry(sheet, all.names, p, v, i), inset(i) ? 6 : 4.5);
        sheet.label(wordOf(v, i), [p], flags ? "accent" : colour);
      });
    },
  };
}
