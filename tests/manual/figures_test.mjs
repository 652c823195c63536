// The manual's pictures: that each shows what its call is about, and that no numbers break one.

import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { test } from "node:test";
import { fileURLToPath } from "node:url";

import { dimensionsOf, draw, NAMES, notShownBy, shownBy } from "../../manual/figures/draw.js";

const SCRIPT = fileURLToPath(new URL("calls.py", import.meta.url));
const ROUTINES = JSON.parse(execFileSync("python3", ["-B", SCRIPT], { maxBuffer: 1 << 26 }));

// A number; what is kept is undefined, of a list the entry that was there before.
const numberOf = (value, before) =>
  value === null
    ? before
    : typeof value === "string"
      ? Number(value.replace("inf", "Infinity"))
      : value;

const valuesOf = (given, before = {}) =>
  Object.fromEntries(
    Object.entries(given).map(([name, value]) => [
      name,
      Array.isArray(value)
        ? value.map((entry, i) => numberOf(entry, before[name]?.[i] ?? 0))
        : numberOf(value, before[name]),
    ]),
  );

const callsOf = (name) =>
  ROUTINES[name].calls.map((call) => {
    const inputs = valuesOf(call.inputs);
    return { inputs, results: valuesOf(call.results, inputs) };
  });

const callOf = (name) => callsOf(name)[0];

const pictureOf = (name, options) => {
  const { inputs, results } = callOf(name);
  return draw(name, inputs, results, options);
};

const attribute = (text, name) => new RegExp(`(?:^|\\s)${name}="([^"]*)"`).exec(text)?.[1];

// Seeded, as the library's own: the same numbers on every machine.
function generator(seed) {
  let state = seed;
  return (below) => {
    state = (Math.imul(state, 1664525) + 1013904223) >>> 0;
    return Math.floor((state / 2 ** 32) * below);
  };
}

function assertSound(svg, about) {
  assert.match(svg, /^<svg [^>]*role="(img|group)"/, about);
  const unwritten = svg
    .replace(/<title>.*?<\/desc>|<text[^>]*>[^<]*<\/text>/gs, "")
    .replace(/aria-value\w+="[^"]*"/g, "");
  assert.ok(!/NaN|undefined|Infinity|null/.test(unwritten), about);
}

test("every routine has a picture, and every argument its place in it", () => {
  assert.deepEqual([...NAMES].sort(), Object.keys(ROUTINES).sort());
  for (const name of NAMES) {
    const known = [...shownBy(name), ...notShownBy(name)].sort();
    const declared = ROUTINES[name].arguments.map((argument) => argument.name).sort();
    assert.deepEqual([...new Set(known)], declared, name);
  }
});

test("pictures have shapes, and words for those who cannot see", () => {
  for (const name of NAMES) {
    const svg = pictureOf(name, { title: `About ${name}` });
    assertSound(svg, name);
    assert.ok((svg.match(/<(path|circle) class/g) ?? []).length >= 3, `${name} has shapes`);
    assert.match(svg, new RegExp(`<title>About ${name}</title><desc>[^<]*\\d[^<]*</desc>`), name);
    assert.ok(!/<text|class="handle"/.test(pictureOf(name, { small: true })), name);
  }
});

function assertWordsInside(svg, about) {
  for (const [label] of svg.matchAll(/<text [^>]*>/g)) {
    const [x, y] = [Number(attribute(label, "x")), Number(attribute(label, "y"))];
    const width = Number(attribute(label, "data-width") ?? 0);
    assert.ok(x >= 0 && x + width <= 560 && y >= 12 && y <= 400, `${about}: ${label}`);
  }
}

test("every worked call has a picture, with its words in the frame", () => {
  for (const name of NAMES) {
    callsOf(name).forEach(({ inputs, results }, i) => {
      const about = `${name}, call ${i + 1}`;
      const svg = draw(name, inputs, results);
      assertSound(svg, about);
      assertWordsInside(svg, about);
    });
  }
});

const CHANGES = [(x) => x + 1, (x) => x - 1, (x) => 1.5 * x, (x) => -x];

// Whether a change of an argument's value, before or after the call, gives another picture.
function matters(name, call, argument) {
  const before = draw(name, call.inputs, call.results);
  return ["inputs", "results"].some((side) =>
    CHANGES.some((change) => {
      const value = call[side][argument];
      if (value === undefined) return false;
      const other = Array.isArray(value) ? value.map(change) : change(value);
      const { inputs, results } = { ...call, [side]: { ...call[side], [argument]: other } };
      return draw(name, inputs, results) !== before;
    }),
  );
}

test("what a picture shows of a call changes the picture", () => {
  for (const name of NAMES) {
    const call = callOf(name);
    const given = { ...call.results, ...call.inputs };
    const unchanged = shownBy(name).filter(
      (argument) => given[argument] !== undefined && !matters(name, call, argument),
    );
    assert.deepEqual(unchanged, [], name);
  }
});

const SPECIAL = [
  0,
  -0,
  1,
  -1,
  1e-5,
  1e-30,
  0.5,
  7,
  -3.25,
  1e9,
  1e20,
  -3.4e38,
  3.4e38,
  Infinity,
  -Infinity,
  NaN,
  2147483647,
  -2147483648,
];

test("no numbers break a picture", () => {
  const random = generator(20240229);
  const special = () => (random(4) ? SPECIAL[random(SPECIAL.length)] : random(2000) / 100 - 10);
  const hostile = (value) =>
    Array.isArray(value)
      ? Array.from({ length: random(2) ? value.length : random(80) }, special)
      : special();
  const mixed = (values) =>
    Object.fromEntries(
      Object.entries(values).map(([name, value]) => [
        name,
        random(3) ? hostile(value) : random(12) ? value : undefined,
      ]),
    );
  for (const name of NAMES) {
    const { inputs, results } = callOf(name);
    for (let i = 0; i < 30; i += 1) {
      const [given, found] = [mixed(inputs), random(8) ? mixed(results) : null];
      const about = `${name} ${JSON.stringify([given, found])}`;
      const options = { small: random(4) === 0, call: () => found };
      assertSound(draw(name, given, found, options), about);
    }
  }
  assertSound(draw("no such routine", null, undefined), "an unknown name");
});

test("a handle stands where its inputs say, by the picture's scale", () => {
  let count = 0;
  for (const name of NAMES) {
    const svg = pictureOf(name);
    const root = /^<svg [^>]*>/.exec(svg)[0];
    const [scale, left, top] = ["scale", "left", "top"].map((part) =>
      Number(attribute(root, `data-${part}`)),
    );
    const { inputs } = callOf(name);
    for (const [, group, spot] of svg.matchAll(
      /(<g class="handle"[^>]*>)<circle[^>]*>(<circle[^>]*>)/g,
    )) {
      const place = ["x", "y"].map((axis) => {
        const value = inputs[attribute(group, `data-${axis}`)];
        return Array.isArray(value) ? value[attribute(group, "data-entry") - 1] : value;
      });
      assert.ok(
        Math.abs(left + scale * place[0] - attribute(spot, "cx")) < 0.2,
        `${name}: ${group}`,
      );
      assert.ok(
        Math.abs(top - scale * place[1] - attribute(spot, "cy")) < 0.2,
        `${name}: ${group}`,
      );
      assert.match(group, /tabindex="0" role="slider".*aria-label="[^"]+".*aria-valuenow="/, name);
      count += 1;
    }
  }
  assert.ok(count > 60, `${count} handles`);
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
  assert.equal(builders.length, 12);
  for (const name of builders) {
    const found = callsOf(name).map((call) => assertDimensions(name, call));
    const wanted = Object.keys(callOf(name).inputs).filter(
      (argument) => !["value", "nw", "nf"].includes(argument),
    );
    assert.deepEqual([...new Set(found[0])].sort(), wanted.sort(), name);
  }
});

const shapesOf = (svg) =>
  [...svg.matchAll(/<path class="([^"]*)" d="([^"]*)"/g)].map(([, look, d]) => ({
    look,
    points: [...d.matchAll(/[ML](\S+) ([^MLZ]+)/g)].map(([, x, y]) => [Number(x), Number(y)]),
  }));

const dotsOf = (svg, tone) =>
  [...svg.matchAll(new RegExp(`<circle class="${tone}-fill" cx="([^"]*)" cy="([^"]*)"`, "g"))].map(
    ([, x, y]) => [Number(x), Number(y)],
  );

const resultsOf = (svg) => dotsOf(svg, "accent");

function distanceToStroke([x, y], { points }) {
  const gaps = points.slice(1).map(([x2, y2], i) => {
    const [x1, y1] = points[i];
    const [dx, dy] = [x2 - x1, y2 - y1];
    const t = ((x - x1) * dx + (y - y1) * dy) / (dx * dx + dy * dy || 1);
    const [px, py] = [x1 + Math.max(0, Math.min(1, t)) * dx, y1 + Math.max(0, Math.min(1, t)) * dy];
    return Math.hypot(x - px, y - py);
  });
  return Math.min(...gaps);
}

test("results stand on the lines and circles on which they are found", () => {
  const found = {
    kezlci: 2,
    kezc12: 2,
    kezlni: 2,
    kezcin: 2,
    kezcer4: 2,
    kezcer5: 2,
    kezcer6: 2,
    kezcer8: 2,
    kezcer9: 2,
    kezcer10: 2,
    kez3lni: 2,
    kezmed: 1,
    kez123: 1,
  };
  for (const [name, lines] of Object.entries(found)) {
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
    assert.ok(arcs.length > 0, name);
    for (const { points } of arcs) {
      const [x, y] = points.at(-1);
      assert.ok(
        resultsOf(svg).some(([X, Y]) => Math.hypot(X - x, Y - y) < 1),
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
      count += 1;
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
      assert.ok(dotsOf(svg, "ink").some(([X, Y]) => Math.hypot(X - x, Y - y) < 1), name);
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
      const onLine = [[inputs.x1, inputs.y1], [inputs.x2, inputs.y2]].some(([x, y]) =>
        Math.abs((x - x0) * (Y[i] - y0) - (y - y0) * (X[i] - x0)) < 1e-3);
      const onEdge = shaded.some(({ points }) => distanceToStroke(dot, { points }) < 1);
      if (onLine || onEdge || results.flag[i] < 1) return;
      const inside = shaded.some(({ points }) => isWithin(dot, points));
      assert.equal(inside, results.flag[i] === 1, `${JSON.stringify(inputs)}, point ${i + 1}`);
      count += 1;
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
    const words = new Map([...svg.matchAll(/<text ([^>]*)>([^<]*)</g)].map(([, given, text]) =>
      [text, ["x", "y", "data-width"].map((key) => Number(attribute(given, key)))]));
    for (const [, label, x, y] of svg.matchAll(
      /aria-label="([^"]*)"[^>]*><circle class="reach" cx="([^"]*)" cy="([^"]*)"/g,
    )) {
      if (!words.has(label)) continue;
      const [left, bottom, width] = words.get(label);
      const gap = ([X, Y]) => Math.hypot(Math.max(left - X, 0, X - left - width),
        Math.max(bottom - 13 - Y, 0, Y - bottom));
      const own = gap([Number(x), Number(y)]);
      const others = ["ink", "accent"].flatMap((tone) => dotsOf(svg, tone))
        .filter(([X, Y]) => Math.hypot(X - x, Y - y) > 1);
      assert.ok(others.every((other) => gap(other) > 1.4 * own), `${name}: ${label}`);
      count += 1;
    }
  }
  assert.ok(count > 50, `${count} names`);
});
