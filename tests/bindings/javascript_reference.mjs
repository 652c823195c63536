// Makes the calls of `reference calls` with the WebAssembly module, and holds the hashes of what
// they leave against the list of all builds. Below the binding, whose numbers drop some bits.
//
//   node javascript_reference.mjs PACKAGE LIST SEEDED ROWS

import { readFileSync } from "node:fs";
import { join, resolve } from "node:path";
import { pathToFileURL } from "node:url";

const [folder, listFile, ...callFiles] = process.argv.slice(2);
const { routines } = await import(pathToFileURL(join(resolve(folder), "routines.js")));
const wasm = new WebAssembly.Module(readFileSync(join(folder, "kezlib.wasm")));

const POISON = 0x7fa5a5a5;
const LOAD = 0xffffffff;

function loaded() {
  const state = { values: new Float32Array() };
  const memory = () => new Int32Array(state.exports.memory.buffer);
  const z_callback = (i) => state.values[memory()[i / 4] - 1] ?? NaN;
  state.exports = new WebAssembly.Instance(wasm, { host: { z_callback } }).exports;
  state.exports._initialize();
  return state;
}

/** No standard says which not-a-number comes out of an operation; poison is what is unwritten. */
function comparable(word, kind) {
  const isNaN = kind === "real" && (word & 0x7fffffff) >>> 0 > 0x7f800000;
  return isNaN && word !== POISON ? 0x7fc00000 : word;
}

/** Makes a call, and returns the words of the arguments that it may write. */
function called(library, routine, lists) {
  const { exports } = library;
  const places = lists.map((list) => exports.malloc(Math.max(list.byteLength, 4)));
  lists.forEach((list, i) => new Uint32Array(exports.memory.buffer).set(list, places[i] / 4));
  const passed = places.map((place, i) => {
    if (routine.arguments[i].kind !== "callback") return place;
    library.values = new Float32Array(lists[i].buffer);
    return exports.z_callback();
  });
  exports[routine.name](...passed);
  const after = lists.map((list, i) =>
    new Uint32Array(exports.memory.buffer, places[i], list.length).slice());
  places.forEach((place) => exports.free(place));
  return routine.arguments.flatMap(({ kind, direction }, i) =>
    direction === "in" ? [] : Array.from(after[i], (word) => comparable(word, kind)));
}

// FNV-1a, by words.
const PRIME = 0x100000001b3n;
const START = 0xcbf29ce484222325n;
const hashed = (hash, word) => BigInt.asUintN(64, (hash ^ BigInt(word)) * PRIME);

function hashes(file) {
  const bytes = readFileSync(file);
  const words = new Uint32Array(bytes.buffer, bytes.byteOffset, bytes.length / 4);
  const all = routines.map(({ name, groups }) => ({
    name, hash: START,
    arguments: groups.flatMap(({ names, ...group }) => names.map(() => group)),
  }));
  for (let at = 0, library; at < words.length; ) {
    const place = words[at++];
    if (place === LOAD) {
      library = loaded();
      continue;
    }
    const lists = all[place].arguments.map(() => {
      const begin = at + 1;
      at = begin + words[at];
      return words.slice(begin, at);
    });
    all[place].hash = called(library, all[place], lists).reduce(hashed, all[place].hash);
  }
  return new Map(all.map(({ name, hash }) => [name, hash.toString(16).padStart(16, "0")]));
}

const [seeded, rows] = callFiles.map(hashes);
const wanted = readFileSync(listFile, "utf8").trim().split("\n");
const differing = wanted.filter((line) => {
  const [name] = line.split(" ");
  return line !== `${name} ${seeded.get(name)} ${rows.get(name)}`;
});
for (const line of differing) console.log(`another hash, wanted ${line}`);
if (differing.length > 0 || wanted.length === 0) process.exit(1);
console.log(`${wanted.length} reference hashes`);
