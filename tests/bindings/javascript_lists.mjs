// Outputs that hold pairs, outlines without the closing entry, what may be left out, and which
// module is loaded.
//
//   node --test javascript_lists.mjs, in a folder in which the package is installed

import assert from "node:assert/strict";
import { test } from "node:test";
import { pathToFileURL } from "node:url";
import { bytes, file, kezlib, wasm } from "./javascript_package.mjs";

const { library, load, version } = kezlib;
const { pairs } = await file("arithmetic.js");
const kez = await load();

test("100,000 by 100,000 entries", () => {
  const n = 100_000;
  const a = Int32Array.from({ length: n }, (_, i) => i);
  const common = kez.kezmer4(n, a, n, a.map((i) => i + n - 1));
  assert.deepEqual([common.ncom, [...common.com], common.dif.length], [1, [n - 1], 2 * n - 2]);
  const x = Float32Array.from(a, (i) => 2 * i);
  const near = kez.kezmer13(n, x, n, x.map((v) => v + 0.5), 0.5);
  assert.deepEqual([near.nm, near.ia.length, near.ib[n - 1]], [n, 2 * n, n]);
});

test("as many pairs as are found, with outputs that are given too", () => {
  const values = [0, -0, 1, 1.5, 3.4e38, -3.4e38, 1e-45, Infinity, -Infinity, NaN, 2 ** 24, -1e-9];
  const tolerances = [0, 1e-45, 0.5, 1, 1e-7, 3.4e38, Infinity, NaN, -1];
  let seed = 7;
  const next = (n) => (seed = (seed * 48271) % 2147483647) % n;
  const list = () => Float32Array.from({ length: next(9) }, () => values[next(values.length)]);
  for (let i = 0; i < 3000; ++i) {
    const [a, b, tolerance] = [list(), list(), Math.fround(tolerances[next(tolerances.length)])];
    const { nm } = kez.kezmer13(a.length, a, b.length, b, tolerance);
    assert(nm <= pairs(a, a.length, b, b.length, tolerance), `${a}; ${b}; ${tolerance}`);
  }
  const { com } = kez.kezmer4(3, [1, 2, 3], 3, [3, 4, 1], { com: [0, 0] });
  assert.deepEqual([...com], [1, 3]);
  assert.throws(() => kez.kezmer4(3, [1, 2, 3], 3, [3, 4, 1], { com: [0] }), /com has 1 entry/);
});

test("the entry that is only written may be missing", () => {
  const outline = kez.kezsec_c(60, 150, 0, 2); // of which the detail is left out
  const { X, area } = kez.kezapl(outline.x, outline.y, outline.nv[0]);
  assert.deepEqual([X.length, X[8], area], [9, X[0], 532]);
  assert.deepEqual([...kez.kezmer16(2, [1, 2], 1, [7]).a], [7, 1, 2]);
  assert.deepEqual([...kez.kezmer16(2, [1, 2], 9, [7]).a], [1, 2]); // unchanged
});

test("a compiled module, and of another version", async () => {
  const module = new WebAssembly.Module(bytes());
  assert.equal((await load(module)).kezpds(0, 0, 0, 2, 3, 6).d, 7);
  assert.equal(library, pathToFileURL(wasm).href);
  for (const [other, isTaken] of [["1.9.7", true], ["2.0.0", false], ["0.9.0", false]]) {
    const changed = bytes();
    changed.write(other, changed.indexOf(`${version}\0`), "latin1");
    const message =
      `the WebAssembly module is KezLib ${other}, and this package is for ${version}`;
    if (isTaken) await load(changed);
    else await assert.rejects(load(changed), { message });
  }
  const empty = Uint8Array.of(0, 0x61, 0x73, 0x6d, 1, 0, 0, 0);
  await assert.rejects(load(empty), /is not KezLib's/);
});
