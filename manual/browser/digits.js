// How far results move when the inputs move by half a last place: which digits are sure.

import { inputsOf, kindOf, kindOfWords, outputsOf } from "./call.js";

const CALLS = 32;
const TOLERANCE = 1e-5;

const word = new DataView(new ArrayBuffer(4));

// The distance from a single to the next one.
export function lastPlace(value) {
  const size = Math.abs(Math.fround(value));
  if (!Number.isFinite(size)) return NaN;
  word.setFloat32(0, size);
  word.setUint32(0, word.getUint32(0) + 1);
  return word.getFloat32(0) - size;
}

// Signs that are the same at each call of the page, and fall on all inputs alike.
function signs(seed) {
  let state = seed * 2654435761;
  return () => {
    state = (Math.imul(state, 1664525) + 1013904223) >>> 0;
    return state & 0x10000 ? 1 : -1;
  };
}

// The single on one side. Half as far there is none: half of what a result moves is counted.
const beside = (value, sign) => (value === 0 ? value : value + sign * lastPlace(value));

function moved(argument, value, kind, sign) {
  if (kind !== "real" || value === undefined) return value;
  if (typeof value === "number") return beside(value, sign());
  return typeof value === "function" ? value : value.map((entry) => beside(entry, sign()));
}

const entriesOf = (value) =>
  value === undefined ? [] : typeof value === "number" ? [value] : Array.from(value);

// By result, for each entry, how far it moves; not a number where it is not always there.
export function spreads(routine, texts, values, results, call) {
  const words = kindOfWords(routine, texts);
  const found = Object.fromEntries(
    outputsOf(routine).map(({ name }) => [name, entriesOf(results[name]).map(() => 0)]),
  );
  for (let i = 1; i <= CALLS; ++i) {
    const sign = signs(i);
    const given = Object.fromEntries(
      inputsOf(routine).map((a) => [
        a.name,
        moved(a, values[a.name], kindOf(a, words), sign),
      ]),
    );
    widen(found, results, call(given));
  }
  return found;
}

function widen(found, results, others) {
  for (const [name, all] of Object.entries(found)) {
    const [here, there] = [results[name], others[name]].map(entriesOf);
    all.forEach((spread, k) => {
      const gap = Object.is(here[k], there[k]) ? 0 : Math.abs(here[k] - (there[k] ?? NaN));
      all[k] = Number.isNaN(gap) || Number.isNaN(spread) ? NaN : Math.max(spread, gap / 2);
    });
  }
}

// A number's text in two: the digits that are sure, and the others.
export function parted(text, spread) {
  if (!(spread > 0)) return Number.isNaN(spread) ? ["", text] : [text, ""];
  const found = /^(-?)(\d+)\.?(\d*)(e-?\d+)?$/.exec(text.replace("e+", "e"));
  if (!found) return [text, ""];
  const [, minus, whole, , power = "e0"] = found;
  const place = Math.ceil(Math.log10(2 * spread)) - Number(power.slice(1)); // of the last sure one
  const keep = whole.length - place + (place < 0 ? 1 : 0);
  const start = minus.length;
  if (keep <= 0) return ["", text];
  const end = Math.min(start + keep, text.length - (power === "e0" ? 0 : power.length));
  return [text.slice(0, end), text.slice(end)];
}

// What is said where the tolerance is less than coordinates can tell.
export function tolerancesLost(routine, values) {
  const sizes = inputsOf(routine)
    .filter(({ length, kind }) => length && kind === "real")
    .flatMap(({ name }) => (typeof values[name] === "function" ? [] : entriesOf(values[name])))
    .map(Math.abs)
    .filter(Number.isFinite);
  const place = lastPlace(Math.max(0, ...sizes));
  if (!(place > TOLERANCE)) return "";
  return (
    `Lengths of up to ${Number(Math.max(...sizes).toPrecision(3))} are ` +
    `${Number(place.toPrecision(2))} apart. The tolerance of 1.0e-5 is less: ` +
    "among them, equal is equal to the last digit."
  );
}
