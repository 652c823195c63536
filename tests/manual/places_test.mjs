// Where things stand in the manual's pictures: as the library has them, and where they can be read.

import assert from "node:assert/strict";
import { test } from "node:test";
import { dimensionsOf, draw, NAMES } from "../../manual/figures/draw.js";
import {
  attribute,
  callOf,
  callsOf,
  distanceToStroke,
  dotsOf,
  pictureOf,
  resultsOf,
  shapesOf,
} from "./drawn.mjs";

// Of a picture that says how it is scaled, else no numbers.
function scaleOf(svg) {
  const root = /^<svg [^>]*>/.exec(svg)[0];
  return ["scale", "left", "top"].map((part) => Number(attribute(root, `data-${part}`)));
}

const near = (value, wanted, scale) => Math.abs(value - wanted) <= 2e-3 * Math.max(scale, 0.05);

// What a handle gives at a position of the page, and what its inputs hold.
function assertMoves(name, inputs, { names, entry, at, move }, plane) {
  const held = (term) => (entry === undefined ? inputs[term] : inputs[term][entry - 1]);
  const stays = move(at, plane);
  const values = names.map(held);
  const scale = Math.max(...values.map(Math.abs));
  assert.ok(Object.keys(stays).length > 0, `${name}: ${names} gives nothing`);
  for (const [term, value] of Object.entries(stays))
    assert.ok(near(value, held(term), scale), `${name}: ${term} ${held(term)} becomes ${value}`);
  const moves = [
    [at[0] + 30, at[1] - 12],
    [at[0] - 12, at[1] + 30],
  ].some((place) => Object.entries(move(place, plane)).some(([t, value]) => value !== stays[t]));
  assert.ok(moves, `${name}: ${names} cannot be moved`);
}

test("a handle stands where its inputs say, and moves them", () => {
  const held = new Map();
  for (const name of NAMES) {
    const { inputs } = callOf(name);
    const report = {};
    const svg = pictureOf(name, { report });
    for (const handle of report.handles ?? []) {
      const planes = handle.lines ? ["xy", "xz", "yz"] : [undefined];
      for (const plane of planes) assertMoves(name, inputs, handle, plane);
    }
    const groups = svg.match(/<g class="handle"[^>]*>/g) ?? [];
    assert.equal(groups.length, report.handles?.length ?? 0, name);
    for (const group of groups)
      assert.match(group, /tabindex="0" role="slider".*aria-label="[^"]+".*aria-valuenow="/, name);
    if (groups.length) held.set(name, groups.length);
  }
  assert.ok(held.size > 100, `${held.size} pictures have handles`);
});

test("a held picture stays where it is while a point of it moves", () => {
  for (const name of ["kezln3", "kezpds", "kezlds", "kezpos"]) {
    const { inputs, results } = callOf(name);
    const report = {};
    draw(name, inputs, results, { report });
    const { names, entry, at, move } = report.handles.find((one) => one.names.length < 3 || one.lines);
    const { view } = report;
    const moved = structuredClone(inputs);
    for (const [term, value] of Object.entries(move([at[0] + 9, at[1] - 9], "xy")))
      if (entry === undefined) moved[term] = value;
      else moved[term][entry - 1] = value;
    draw(name, moved, results, { report, view });
    const found = report.handles.find((one) => `${one.names}` === `${names}` && one.entry === entry);
    const way = Math.hypot(found.at[0] - at[0], found.at[1] - at[1]);
    assert.ok(way > 4 && way < 14, `${name}: ${names} went ${way}`);
  }
});

// How far a handle goes on the page when it is moved by so much, and the library has computed again.
function wayOf(name, handle, [dx, dy]) {
  const { inputs, results } = callOf(name);
  const report = {};
  draw(name, inputs, results, { report });
  const { names, at, move } = report.handles[handle];
  const moved = { ...inputs, ...move([at[0] + dx, at[1] + dy]) };
  const { view } = report;
  draw(name, moved, results, { report, view });
  const gaps = report.handles
    .filter((other) => `${other.names}` === `${names}`)
    .map((other) => Math.hypot(other.at[0] - at[0] - dx, other.at[1] - at[1] - dy));
  return { gap: Math.min(...gaps), moved };
}

test("a plane follows its handles: it is moved along its normal, and tilted by its corners", () => {
  for (const [name, terms] of [["kezpld", "A B C D"], ["kezdirp", "A1 B1 C1 D1"],
    ["kezpli", "A B C D"], ["kezptp1", "A2 B2 C2 D2"], ["kezln7", "a1 b1 c1 d1"]]) {
    const names = terms.split(" ");
    const report = {};
    const { inputs, results } = callOf(name);
    draw(name, inputs, results, { report });
    const size = (values) => Math.hypot(...names.slice(0, 3).map((term) => values[term]));
    const held = report.handles.flatMap((one, i) => (one.names.at(-1) === names[3] ? [i] : []));
    assert.equal(held.length, 3, name);
    held.forEach((handle, i) => {
      const { gap, moved } = wayOf(name, handle, [0, -8]);
      const changed = names.filter((term) => Math.abs(moved[term] - inputs[term]) > 1e-4);
      assert.ok(gap < 7, `${name}: handle ${i + 1} of the plane is ${gap} off`);
      assert.ok(Math.abs(size(moved) / size(inputs) - 1) < 1e-3, `${name}: the normal's length`);
      if (i === 0) assert.deepEqual(changed, names.slice(3), name);
      else assert.ok(changed.length > 1, `${name}: ${changed}`);
    });
  }
});

test("each face of a box moves along its normal", () => {
  const report = {};
  pictureOf("kezptp2", { report });
  const faces = report.handles.filter(({ names }) => /^D\d$/.test(names));
  assert.deepEqual(faces.map(({ names }) => names[0]).sort(), ["D1", "D2", "D3", "D4", "D5", "D6"]);
  faces.forEach(({ names }) => {
    const { gap } = wayOf("kezptp2", report.handles.findIndex((one) => one.names === names), [0, -8]);
    assert.ok(gap < 8, `${names} is ${gap} off`);
  });
});

test("the grid's lines stand where their coordinates say", () => {
  let count = 0;
  for (const name of NAMES) {
    const svg = pictureOf(name);
    const [scale, left, top] = scaleOf(svg);
    const grid = shapesOf(svg).filter(({ look }) => ["soft", "faint"].includes(look));
    for (const [, given, text] of svg.matchAll(/<text class="tick"([^>]*)>([^<]*)/g)) {
      if (!scale) continue;
      const value = Number(text.replace("\u2212", "-"));
      const isBelow = attribute(given, "text-anchor") === "middle";
      const [axis, place] = isBelow ? [0, left + scale * value] : [1, top - scale * value];
      const isThere = grid.some(({ points }) =>
        points.every((point) => Math.abs(point[axis] - place) < 0.2),
      );
      assert.ok(isThere, `${name}: no line at ${text}`);
      ++count;
    }
  }
  assert.ok(count > 300, `${count} lines`);
});

// The dimensions of a call that have a line.
function assertDimensions(name, { inputs, results }) {
  const found = dimensionsOf(name, inputs, results);
  for (const { name: argument, length } of found) {
    const wanted = Math.abs(inputs[argument]);
    assert.ok(
      Math.abs(length - wanted) <= 1e-3 + 1e-6 * wanted,
      `${name}: ${argument}, ${length} for ${wanted}`,
    );
  }
  return found.map((one) => one.name);
}

test("a dimension line is as long as the dimension", () => {
  const builders = NAMES.filter((name) => name.startsWith("kezsec_"));
  assert.ok(builders.length >= 12);
  for (const name of builders) {
    const found = callsOf(name).map((call) => assertDimensions(name, call));
    const wanted = Object.keys(callOf(name).inputs).filter(
      (argument) => !["value", "nw", "nf"].includes(argument),
    );
    assert.deepEqual([...new Set(found[0])].sort(), wanted.sort(), name);
  }
});

// By routine, on how many lines and circles.
const CROSSED = {
  kezlci: 2, kezc12: 2, kezlni: 2, kezcin: 2, kezcer4: 2, kezcer5: 2, kezcer6: 2, kezcer8: 2,
  kezcer9: 2, kezcer10: 2, kez3lni: 2, kezmed: 1, kez123: 1,
};

test("results stand on the lines and circles on which they are found", () => {
  for (const [name, lines] of Object.entries(CROSSED)) {
    const svg = pictureOf(name);
    const strokes = shapesOf(svg).filter(({ look }) => /^ink|dashed/.test(look));
    assert.ok(resultsOf(svg).length > 0, name);
    for (const dot of resultsOf(svg)) {
      const near = strokes.filter((stroke) => distanceToStroke(dot, stroke) < 1);
      assert.ok(near.length >= lines, `${name}: ${dot} is on ${near.length} of ${lines}`);
    }
  }
});

test("turns end where the results are", () => {
  for (const name of ["kezrot", "kezcer3", "kezrotx", "kezroty", "kezrotz"]) {
    const svg = pictureOf(name);
    const arcs = shapesOf(svg).filter(
      ({ look, points }) => /dashed/.test(look) && points.length > 4,
    );
    const tips = shapesOf(svg)
      .filter(({ look }) => look.endsWith("-fill"))
      .map(({ points }) => points[0]);
    assert.ok(arcs.length > 0, name);
    for (const { points } of arcs) {
      const [x, y] = points.at(-1);
      for (const ends of [resultsOf(svg), tips])
        assert.ok(
          ends.some(([X, Y]) => Math.hypot(X - x, Y - y) < 1),
          `${name}: ${[x, y]}`,
        );
    }
  }
});

test("three turns, one after another, end where the first point is placed", () => {
  let count = 0;
  for (const name of ["kezptr", "kezptrl"]) {
    for (const { inputs, results } of callsOf(name)) {
      const svg = draw(name, inputs, results);
      const arcs = shapesOf(svg).filter(({ look }) => look === "accent thin dashed");
      if (!arcs.length || results.status === -2) continue;
      const [x, y] = arcs.at(-1).points.at(-1);
      const [X, Y] = resultsOf(svg)[0];
      assert.ok(Math.hypot(X - x, Y - y) < 1.5, `${name} ${JSON.stringify(inputs)}`);
      ++count;
    }
  }
  assert.ok(count >= 8, `${count} calls`);
});

test("from their new origin points are where they were", () => {
  for (const name of ["keztra", "kez3tra", "kezppp"]) {
    const svg = pictureOf(name);
    const ways = shapesOf(svg).filter(({ look }) => look === "accent thin dashed");
    assert.ok(ways.length >= 3, name);
    for (const { points } of ways) {
      const [x, y] = points.at(-1);
      assert.ok(
        dotsOf(svg, "ink").some(([X, Y]) => Math.hypot(X - x, Y - y) < 1),
        name,
      );
    }
  }
});

function isWithin([x, y], points) {
  const crossings = points.filter(([x1, y1], i) => {
    const [x2, y2] = points[(i + 1) % points.length];
    return y1 > y !== y2 > y && x < x1 + ((y - y1) * (x2 - x1)) / (y2 - y1);
  });
  return crossings.length % 2 === 1;
}

// More than a right angle: the second ray's line comes back on the other side of the first ray.
const OBTUSE = {
  inputs: { x0: 0, y0: 0, x1: 1, y1: 0, x2: -1, y2: 2, n: 4, X: [1, 0.2, 1, -1],
    Y: [-0.2, -1, 0.5, -0.5] },
  results: { flag: [1, 2, 2, 2] },
};

test("kezapp: those points stand in what is shaded that have its flag", () => {
  let count = 0;
  for (const { inputs, results } of [...callsOf("kezapp"), OBTUSE]) {
    const svg = draw("kezapp", inputs, results);
    const shaded = shapesOf(svg).filter(({ look }) => look === "accent-wash");
    dotsOf(svg, "accent").forEach((dot, i) => {
      const { x0, y0, X, Y } = inputs;
      const onLine = [
        [inputs.x1, inputs.y1],
        [inputs.x2, inputs.y2],
      ].some(([x, y]) => Math.abs((x - x0) * (Y[i] - y0) - (y - y0) * (X[i] - x0)) < 1e-3);
      const onEdge = shaded.some(({ points }) => distanceToStroke(dot, { points }) < 1);
      if (onLine || onEdge || results.flag[i] < 1) return;
      const inside = shaded.some(({ points }) => isWithin(dot, points));
      assert.equal(inside, results.flag[i] === 1, `${JSON.stringify(inputs)}, point ${i + 1}`);
      ++count;
    });
  }
  assert.ok(count >= 8, `${count} points`);
});

test("kezpnp: the sums end at the constant that comes back, and are zero where it is said", () => {
  for (const { inputs, results } of callsOf("kezpnp")) {
    const said = /sums ([^.]*(?:\.\d[^.]*)*)\./.exec(draw("kezpnp", inputs, results))[1];
    const sums = said.replaceAll("\u2212", "-").split(", ").map(Number);
    assert.ok(Math.abs(sums.at(-1) - results.D) <= 1e-3 * Math.abs(results.D), said);
    const zeros = sums.flatMap((sum, i) => (i > 0 && sum === 0 ? [i] : []));
    assert.deepEqual(results.idx.slice(0, results.count), zeros, said);
  }
});

test("a point's name stands nearer to it by far than to any other point", () => {
  let count = 0;
  for (const name of NAMES) {
    const svg = pictureOf(name);
    const words = new Map(
      [...svg.matchAll(/<text ([^>]*)>([^<]*)</g)].map(([, given, text]) => [
        text,
        ["x", "y", "data-width"].map((key) => Number(attribute(given, key))),
      ]),
    );
    for (const [, label, x, y] of svg.matchAll(
      /aria-label="([^"]*)"[^>]*>(?:<path[^>]*>)?<circle class="reach" cx="([^"]*)" cy="([^"]*)"[^>]*><circle class="\w+-fill"[^>]*r="4.5"/g,
    )) {
      if (!words.has(label)) continue;
      const [left, bottom, width] = words.get(label);
      const gap = ([X, Y]) =>
        Math.hypot(
          Math.max(left - X, 0, X - left - width),
          Math.max(bottom - 13 - Y, 0, Y - bottom),
        );
      const own = gap([Number(x), Number(y)]);
      const others = ["ink", "accent"]
        .flatMap((tone) => dotsOf(svg, tone))
        .filter(([X, Y]) => Math.hypot(X - x, Y - y) > 1);
      assert.ok(
        others.every((other) => gap(other) > 1.4 * own),
        `${name}: ${label}`,
      );
      ++count;
    }
  }
  assert.ok(count > 50, `${count} names`);
});
