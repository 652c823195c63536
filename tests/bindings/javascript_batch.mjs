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

/** The routine's arguments; where extents depend on counts, integers are small numbers in `counts`. */
function argumentsOf({ groups }) {
  const all = groups.flatMap(({ names, ...group }) => names.map((name) => ({ ...group, name })));
  const hasLists = groups.some(({ extent }) => extent?.length > 0);
  const scalars = all.filter(({ kind, extent }) => hasLists && kind === "integer" && !extent);
  const counts = Object.fromEntries(scalars.map(({ name }) => [name, next(4) + 1]));
  return { counts, all: all.map((argument) => ({ ...argument, array: Boolean(argument.extent),
    width: argument.extent ? Math.max(argument.extent(counts), 0) : 1 })) };
}

/** A routine's inputs by name: of every third a number or one list, of the others an entry an item. */
function inputsOf({ all, counts }, items) {
  const found = {};
  all.forEach(({ name, kind, direction, width, kept, array }, i) => {
    if (direction === "out") {
      if (kept && i % 2) found[name] = array ? new LISTS[kind](width).fill(HELD[kind]) : HELD[kind];
      return;
    }
    found[name] = counts[name] ?? (!array && i % 3 === 0 ? one(kind) : LISTS[kind].from(
      { length: width * (array && i % 3 === 0 ? 1 : items) }, () => one(kind)));
  });
  return found;
}

const entryOf = (value, { width, array }, i) => typeof value === "number" ? value
  : !array ? value[i]
    : value.length === width ? value : value.subarray(width * i, width * (i + 1));

// Numbers need not carry the bits of a not-a-number.
const plain = (value) => (typeof value === "number" ? value : [...value]);

test("the results of single calls, kept values too", () => {
  const batched = routines.filter((r) => kez.batch[r.name]);
  assert.equal(batched.length, routines.filter(({ groups }) =>
    !groups.some(({ kind }) => ["word", "callback"].includes(kind))).length);
  for (const routine of batched) {
    const { name } = routine;
    const { all, counts } = argumentsOf(routine);
    const given = inputsOf({ all, counts }, N);
    const found = kez.batch[name](given);
    const isShared = (a) => typeof given[a.name] === "number" || given[a.name]?.length === a.width;
    const items = all.every((a) => given[a.name] === undefined || isShared(a)) ? 1 : N;
    const outputs = all.filter((a) => a.direction === "out" || (a.direction === "in,out" &&
      !(items > 1 && a.array && isShared(a))));
    assert.deepEqual(Object.keys(found), outputs.map((a) => a.name));
    for (let i = 0; i < items; ++i) {
      const single = all.filter((a) => a.direction !== "out").map((a) =>
        entryOf(given[a.name], a, i));
      const kept = all.filter((a) => a.kept && given[a.name] !== undefined);
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
  assert(kezpre && keztrn && !kez.batch.kezinv && !kez.batch.kezpnl);
  const outline = { n: 4, X: [0, 2, 2, 0], Y: [0, 0, 2, 2] };
  const { status, ...others } = kez.batch.kezppp({ ...outline, px: [1, 3, 2], py: 1 });
  assert.deepEqual([[...status], others], [[0, -1, 100], {}]);
  const { X, area } = kez.batch.kezapl(outline); // one item: what it changes comes back
  assert.deepEqual([[...X], [...area]], [[0, 2, 2, 0, 0], [4]]);
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
  assert.throws(() => kez.batch.kezord({ x: [1, 2], n: [2] }), { name: "TypeError",
    message: "kezord: x: [n] wants one number for all items" });
  assert.throws(() => kez.batch.kezord({ x: [1, 2, 3], n: 2 }), RangeError);
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
