// Many calls in one: the results of single calls, what is refused, and a module for workers.
//
//   node --test javascript_batch.mjs, in a folder in which the package is installed

import assert from "node:assert/strict";
import { test } from "node:test";
import { Worker } from "node:worker_threads";
import { file, kezlib, loadedWithExports, place } from "./javascript_package.mjs";

const { load } = kezlib;
const { routines } = await file("routines.js");
const [kez, other] = [await load(), await load()];

const N = 4097; // more than one block
const HELD = { real: -77.25, integer: -77 };

let seed = 7;
const next = (n) => (seed = (seed * 48271) % 2147483647) % n;
const VALUES = [0, -0, 1, 1, 2, 3, 0.5, 1e30, Infinity, NaN];
const one = (kind) => (kind === "integer" ? next(4) - 1
  : next(3) ? Math.fround(next(2000) / 250 - 4) : VALUES[next(VALUES.length)]);

const LISTS = { real: Float32Array, integer: Int32Array };

/** A routine's inputs by name: of every third a number, of the others an entry an item. */
function inputsOf(all, items) {
  const found = {};
  all.forEach(({ name, kind, direction, width, kept, array }, i) => {
    if (direction === "out") {
      if (kept && !array && i % 2) found[name] = HELD[kind];
      return;
    }
    found[name] = width === 1 && i % 3 === 0 ? one(kind)
      : LISTS[kind].from({ length: width * items }, () => one(kind));
  });
  return found;
}

const entryOf = (value, { width, array }, i) => typeof value === "number" ? value
  : array ? value.subarray(width * i, width * (i + 1)) : value[i];

// Numbers need not carry the bits of a not-a-number.
const plain = (value) => (typeof value === "number" ? value : [...value]);

test("the results of single calls, kept values too", () => {
  for (const { name, groups } of routines.filter((r) => kez.batch[r.name])) {
    const all = groups.flatMap(({ names, ...group }) => names.map((argument) =>
      ({ ...group, name: argument, width: group.extent?.() ?? 1, array: Boolean(group.extent) })));
    const given = inputsOf(all, N);
    const found = kez.batch[name](given);
    const outputs = all.filter(({ direction }) => direction !== "in");
    assert.deepEqual(Object.keys(found), outputs.map((a) => a.name));
    for (let i = 0; i < N; ++i) {
      const single = all.filter((a) => a.direction !== "out").map((a) =>
        entryOf(given[a.name], a, i));
      const kept = all.filter((a) => a.kept && given[a.name] !== undefined && !a.array);
      const options = kept.map((a) => [a.name, given[a.name]]);
      const wanted = other[name](...single, ...(kept.length ? [Object.fromEntries(options)] : []));
      for (const a of outputs) {
        const got = entryOf(found[a.name], a, i);
        const expected = wanted[a.name] ?? (a.kind === "real" ? NaN : -(2 ** 31));
        // Single calls cut off what is not written.
        const cut = a.kept && a.array ? got.subarray(0, expected.length) : got;
        assert.deepEqual(plain(cut), plain(expected), `${name}: ${a.name} of item ${i}`);
      }
    }
  }
});

test("forms of what is given", () => {
  const { kezpds, kezpre, keztrn } = kez.batch;
  assert.deepEqual(kezpds({ x1: [3, 0], y1: 4, z1: Float64Array.of(0, 5), x2: 0, y2: 0, z2: 0 }).d,
    Float32Array.of(5, Math.fround(Math.sqrt(41))));
  assert.deepEqual(kezpds({ x1: 3, y1: 4, z1: 0, x2: 0, y2: 0, z2: 0 }).d, Float32Array.of(5));
  assert.deepEqual(kezpds({ x1: [], y1: 4, z1: 0, x2: 0, y2: 0, z2: 0 }).d, new Float32Array());
  assert.equal(kezpds.name, "kezpds");
  for (const name of ["kezpds", "kezapl"]) assert.equal(kez[name].name, name);
  assert(kezpre && keztrn && !kez.batch.kezapl);
});

test("what is refused", () => {
  const point = { x1: [1, 2], y1: 0, z1: 0, x2: 0, y2: 0, z2: 0 };
  const refused = (given, error, message) =>
    assert.throws(() => kez.batch.kezpds({ ...point, ...given }), { name: error, message });
  refused({ z2: undefined }, "TypeError", "kezpds: z2 is missing, no number");
  refused({ z2: "1" }, "TypeError", "kezpds: z2 is of type string, no number");
  refused({ z2: [1, "2"] }, "TypeError", "kezpds: z2[1] is of type string, no number");
  refused({ d: 1 }, "TypeError", "kezpds has no input d");
  refused({ y2: [1, 2, 3] }, "RangeError", "kezpds: y2 is for 3 items, x1 for 2");
  assert.throws(() => kez.batch.kezpds(1, 2), /batch.kezpds takes an object/);
  assert.throws(() => kez.batch.keztrn({ p: [1, 2, 3, 4] }), /keztrn: /);
});

test("memory that grows between calls", async () => {
  const fresh = await load();
  assert.equal(fresh.kezpds(0, 0, 0, 3, 4, 0).d, 5);
  fresh.kezord(new Float32Array(3e6), 3e6);
  assert.equal(fresh.kezpds(0, 0, 0, 3, 4, 0).d, 5);
});

test("the library's stack after the host's has ended", async () => {
  const { kez: fresh, exports } = await loadedWithExports();
  const before = exports.stackSave();
  for (let k = 0; k < 200; ++k) {
    const deep = (n) => fresh.kezsec_box(9, 8, 1, 1, 9, 1, 1, n) && deep(n);
    assert.throws(() => deep(k), RangeError);
  }
  assert.equal(exports.stackSave(), before);
});

test("a module that workers share, of a file or embedded", async () => {
  const program = `
    const { parentPort, workerData: { module, place, x1 } } = require("node:worker_threads");
    import(place).then(async ({ load }) => {
      const kez = await load(module);
      parentPort.postMessage(kez.batch.kezpds({ x1, y1: 0, z1: 0, x2: 0, y2: 4, z2: 0 }).d);
    });`;
  const answer = (module, place, x1) => new Promise((resolve, reject) => {
    const worker = new Worker(program, { eval: true, workerData: { module, place, x1 } });
    worker.on("message", resolve).on("error", reject);
  });
  for (const { href } of [place, new URL("browser.js", place)]) {
    const { compile } = await import(href);
    const module = await compile();
    const found = await Promise.all([answer(module, href, Float32Array.of(3)),
      answer(module, href, Float32Array.of(0, -3))]);
    assert.deepEqual(found, [Float32Array.of(5), Float32Array.of(4, 5)]);
  }
});
