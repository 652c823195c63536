// Makes the calls of FOLDER/calls.json in the three ways of javascript_calls.py, and writes what
// they give to FOLDER/results.json. The package is found as a host finds it.
//
//   node javascript_rows.mjs FOLDER

import assert from "node:assert/strict";
import { readFileSync, writeFileSync } from "node:fs";
import { createRequire } from "node:module";
import { join, resolve } from "node:path";
import { pathToFileURL } from "node:url";

const folder = resolve(process.argv[2]);
const here = createRequire(join(folder, "host.js"));
const { load } = await import(pathToFileURL(here.resolve("kezlib")));
const calls = JSON.parse(readFileSync(join(folder, "calls.json"), "utf8"));

const ARRAYS = { real: Float32Array, integer: Int32Array };

const typed = (words, kind) => new ARRAYS[kind](Uint32Array.from(words).buffer);
const plain = (words, kind) => Array.from(typed(words, kind));

const valueOf = ({ kind, array }, words, list) => {
  if (kind === "callback") return (i) => typed(words, "real")[i - 1] ?? NaN;
  return array ? list(words, kind) : typed(words, kind)[0];
};

function wordsOf(value, { kind, array }) {
  const list = array ? value : ARRAYS[kind].of(value ?? 0);
  const found = list instanceof Float32Array ? "real" : "integer";
  assert(list instanceof ARRAYS[found]);
  const words = Array.from(new Uint32Array(list.buffer, list.byteOffset, list.length));
  return { kind: found, words: value === undefined ? [null] : words };
}

const resultsOf = (returned, { form }) => Object.fromEntries(
  Object.entries(returned).map(([name, value]) => [name, wordsOf(value, form[name])]));

/** Calls with what the row gives, which must be the same afterwards. */
function callWith(kez, { routine, given, form }, list, options) {
  const values = Object.entries(given).map(([name, words]) => valueOf(form[name], words, list));
  const copies = values.map((value) => (typeof value === "object" ? value.slice() : value));
  const returned = kez[routine](...values, ...options);
  assert.deepEqual(values, copies, `${routine} has changed what it was given`);
  return returned;
}

function keptOptions({ kept, form }) {
  const options = Object.entries(kept).map(
    ([name, words]) => [name, valueOf(form[name], words, plain)]);
  return options.length > 0 ? [Object.fromEntries(options)] : [];
}

const AsyncFunction = (async () => {}).constructor;

/** Runs a text that a user copies, and returns what it prints. */
async function printed(kez, text) {
  const program = text.replace('import { load } from "kezlib";', "");
  assert.notEqual(program, text);
  let shown;
  await new AsyncFunction("load", "console", program)(
    async () => kez, { log: (value) => (shown = value) });
  return shown;
}

const WAYS = {
  typed: (kez, call) => callWith(kez, call, typed, []),
  plain: (kez, call) => callWith(kez, call, plain, keptOptions(call)),
  text: (kez, call) => printed(kez, call.text),
};

/** One instance a file of rows, in which some look back to the row before. */
async function run(way) {
  const instances = new Map();
  const results = [];
  for (const call of calls) {
    if (!instances.has(call.file)) instances.set(call.file, await load());
    const returned = await way(instances.get(call.file), call);
    results.push(resultsOf(returned, call));
  }
  return results;
}

const results = {};
for (const [name, way] of Object.entries(WAYS)) results[name] = await run(way);
writeFileSync(join(folder, "results.json"), JSON.stringify(results));
