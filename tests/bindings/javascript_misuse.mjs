// What the package says to wrong calls, and that it stands whatever a host does.
//
//   node --test javascript_misuse.mjs, in a folder in which the package is installed

import assert from "node:assert/strict";
import { test } from "node:test";
import { bytes, file, kezlib, loadedWithExports } from "./javascript_package.mjs";

const { load } = kezlib;
const { kez, exports } = await loadedWithExports();

const refused = (call, type, message) =>
  assert.throws(call, (error) => {
    assert.equal(error.constructor, type);
    assert.equal(error.message, message);
    return true;
  });

const SQUARE = [[0, 2, 2, 0, 0], [0, 0, 2, 2, 0]];

/** The points that lie along the x axis, whose z the callback gives. */
const near = (zof, n = 3, x = [0, 1, 2, 3], y = [0, 0, 0, 0]) =>
  kez.kezpnl(0, 0, 0, 9, 0, 0, x, y, zof, n, 0.5);

test("wrong types", () => {
  refused(() => kez.kezlci(0, 1, -0.5, 0, 0, "-1"), TypeError,
    "kezlci: F is of type string, no number");
  refused(() => kez.kezpds(0, 0, 0, 1, 1, null), TypeError, "kezpds: z2 is null, no number");
  refused(() => kez.kezpds(0, 0, 0, 1, 1, undefined), TypeError,
    "kezpds: z2 is missing, no number");
  refused(() => kez.kezpds(0, 0, 0, 1, 1, 1n), TypeError,
    "kezpds: z2 is of type bigint, no number");
  refused(() => kez.kezord(1, 1), TypeError, "kezord: x is of type number, no array");
  refused(() => kez.kezord("12", 2), TypeError, "kezord: x is of type string, no array");
  refused(() => kez.kezord({}, 0), TypeError, "kezord: x is of type object, no array");
  refused(() => kez.kezord([1, "2"], 2), TypeError, "kezord: x[1] is of type string, no number");
  refused(() => kez.kezord([1, , 3], 3), TypeError, "kezord: x[1] is missing, no number");
  refused(() => kez.kezord(new BigInt64Array(2), 2), TypeError,
    "kezord: x[0] is of type bigint, no number");
  refused(() => kez.kezord({ length: -1 }, 0), TypeError, "kezord: x is of type object, no array");
  refused(() => near(1), TypeError, "kezpnl: zof is of type number, no function");
});

test("integers that are none", () => {
  const outside = (value) => `kezord: n is ${value}, no 32-bit integer`;
  for (const value of [1.5, NaN, Infinity, 2 ** 31, -(2 ** 31) - 1])
    refused(() => kez.kezord([], value), RangeError, outside(value));
  refused(() => kez.kezsel1(2, [1, 2.5], 1), RangeError,
    "kezsel1: ia[1] is 2.5, no 32-bit integer");
  refused(() => kez.kezsel1(1, Uint32Array.of(2 ** 31), 1), RangeError,
    "kezsel1: ia[0] is 2147483648, no 32-bit integer");
});

test("a wrong number of arguments or entries", () => {
  refused(() => kez.kezpds(0, 0, 0, 1, 1), TypeError, "kezpds takes 6 arguments, not 5");
  refused(() => kez.kezpds(0, 0, 0, 1, 1, 1, {}), TypeError, "kezpds takes 6 arguments, not 7");
  refused(() => kez.kezlci(0), TypeError, "kezlci takes 6 arguments and what it may keep, not 1");
  refused(() => kez.kezapl(SQUARE[0].slice(0, 3), SQUARE[1], 4), RangeError,
    "kezapl: X has 3 entries, [n + 1] asks for 5");
  refused(() => kez.kezapl(new Float32Array(1), [], 0), RangeError,
    "kezapl: Y has 0 entries, [n + 1] asks for 1");
  refused(() => kez.kezsel1(2, [1, 2], 1, { idx: [1] }), RangeError,
    "kezsel1: idx has 1 entry, [n] asks for 2");
  refused(() => kez.kezadr(0, [2, 2], 2, [1, 2, 3]), RangeError,
    "kezadr: source has 3 entries, [sum(counts, n)] asks for 4");
});

test("what may be kept", () => {
  refused(() => kez.kezlci(0, 1, 9, 0, 0, -1, { x3: 1 }), TypeError,
    "kezlci has no output x3 that it may keep");
  refused(() => kez.kezlci(0, 1, 9, 0, 0, -1, 1), TypeError,
    "kezlci: what it may keep is an object");
  refused(() => kez.kezlci(0, 1, 9, 0, 0, -1, null), TypeError,
    "kezlci: what it may keep is an object");
  refused(() => kez.kezlci(0, 1, 9, 0, 0, -1, { x1: "1" }), TypeError,
    "kezlci: x1 is of type string, no number");
  assert.deepEqual(kez.kezlci(0, 1, 9, 0, 0, -1, { x1: 7, y2: undefined }),
    { n: 0, x1: 7, y1: undefined, x2: undefined, y2: undefined });
  const { count, idx } = kez.kezsel1(3, [5, 1, 5], 5, { idx: [7, 8, 9, 10] });
  assert.deepEqual([count, [...idx]], [2, [1, 3, 9, 10]]);
});

test("lists of either kind", () => {
  const reversed = (list) => kez.kezinv(list.length, list).x;
  assert.deepEqual(reversed([1, 2]), Int32Array.of(2, 1));
  assert.deepEqual(reversed([1, 2.5]), Float32Array.of(2.5, 1));
  assert.deepEqual(reversed([1, -0]), Float32Array.of(-0, 1));
  assert.deepEqual(reversed([1, 2 ** 31]), Float32Array.of(2 ** 31, 1));
  assert.deepEqual(reversed(Float64Array.of(1, 2)), Float32Array.of(2, 1));
  assert.deepEqual(reversed(Uint32Array.of(9, 1, 0xffffffff).subarray(1)), Int32Array.of(-1, 1));
  assert.deepEqual(kez.kezmer16(2, [1, 2, 0], 1, Float32Array.of(3)).a, Float32Array.of(3, 1, 2));
  assert.deepEqual(kez.kezmer16(2, Int32Array.of(1, 2, 0), 1, [2.5]).a, Float32Array.of(2.5, 1, 2));
});

test("a callback that throws", () => {
  const error = new Error("no such point");
  let calls = 0;
  const zof = (i) => {
    ++calls;
    if (i === 2) throw error;
    return 0;
  };
  assert.throws(() => near(zof), (thrown) => thrown === error);
  assert.equal(calls, 2);
  refused(() => near(() => "0"), TypeError, "kezpnl: zof's result is of type string, no number");
  refused(() => near(() => {}), TypeError, "kezpnl: zof's result is missing, no number");
  assert.deepEqual([...near((i) => i - 1).idx], [1]);
});

test("a callback that calls", () => {
  const outer = (i) => (near((k) => k - 1).count === 1 ? (i - 1) / 4 : NaN);
  assert.deepEqual([...near(outer).idx], [1, 2, 3]);
  const endless = () => near(endless, 1).count;
  assert.throws(() => near(endless), RangeError);
  assert.equal(kez.kezpds(0, 0, 0, 3, 4, 0).d, 5);
  const grows = () => kez.kezord(new Float32Array(5e6), 5e6).x[0];
  assert.deepEqual([...near(grows).idx], [1, 2, 3]);
});

test("results are the host's own", () => {
  const cross = () => kez.kezpre(0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 1, 0).c;
  const c = cross();
  cross().fill(9);
  assert.deepEqual(c, Float32Array.of(0, 0, 1));
  assert.notEqual(c.buffer, exports.memory.buffer);
});

test("entries around a list", async () => {
  const { entry, sum } = await file("arithmetic.js");
  assert.deepEqual([-1, 0, 1, 2, 3].map((i) => entry([5, 6], i)), [0, 0, 5, 6, 0]);
  assert.deepEqual([-1, 0, 1, 2, 3].map((i) => sum([5, 6], i)), [0, 0, 5, 11, 11]);
});

test("memory grows, and is given back", () => {
  const n = 3e6;
  const ascending = kez.kezord(Float32Array.from({ length: n }, (_, i) => n - i), n).x;
  assert.deepEqual([ascending[0], ascending[n - 1], ascending.length], [1, n, n]);
  const list = new Float32Array(1e5);
  const fails = () => near(() => { throw new Error("no z"); }, 1e5, list, list);
  const held = () => exports.memory.buffer.byteLength;
  const before = held();
  for (let i = 0; i < 100; ++i) {
    assert.throws(fails, /no z/);
    kez.kezinv(n, ascending);
  }
  assert.equal(held(), before);
});

test("more than there is memory for", () => {
  refused(() => kez.kezpar(1, 2, 2 ** 31 - 1), RangeError,
    "kezpar: its arrays take 8589934608 bytes, too many");
  refused(() => kez.kezpar(1, 2, 2 ** 29 - 60000), RangeError,
    "kezpar: its arrays take 2147243668 bytes, too many");
  refused(() => kez.kezord({ length: 2 ** 29 }, 1), RangeError,
    "kezord: x has 536870912 entries, too many");
  refused(() => kez.kezinv(1, { length: 2 ** 53 }), RangeError,
    "kezinv: x has 9007199254740992 entries, too many");
  assert.deepEqual([...kez.kezpar(1, 3, 4).list1], [1, 3]);
});

test("instances of their own", async () => {
  const copy = await load(Uint8Array.from(bytes()).buffer);
  const keptPoint = (of) => of.keznst(1, 1, 1, 1, 1, 1, 1, 3).xs[1];
  kez.keznst(2, 2, 2, 8, 2, 2, 1, 3);
  assert.deepEqual([keptPoint(kez), keptPoint(copy)], [3, 0]);
  await assert.rejects(load(Uint8Array.of(1, 2, 3, 4)), WebAssembly.CompileError);
});
