// Numbers as they are typed and shown: single precision and 32-bit integers, as kezcall has them.

import { valueOf } from "./expression.js";

const REAL = /^[+-]?(\d+\.?\d*|\.\d+)(e[+-]?\d+)?$/i;
const INTEGER = /^[+-]?\d+$/;
const WORDS = { nan: NaN, inf: Infinity, infinity: Infinity };

function parseReal(text) {
  if (REAL.test(text)) return Number(text);
  const word = WORDS[text.toLowerCase().replace(/^[+-]/, "")];
  if (word !== undefined) return text.startsWith("-") ? -word : word;
  const value = valueOf(text);
  if (value === undefined) throw new RangeError(`“${text}” is no number`);
  return value;
}

function parseInteger(text) {
  const value = INTEGER.test(text) ? Number(text) : valueOf(text);
  if (!Number.isInteger(value)) throw new RangeError(`“${text}” is no integer`);
  return value;
}

export const parse = (text, kind) => (kind === "integer" ? parseInteger(text) : parseReal(text));

// What stands for an entry that is only room, or was not written.
export const ROOM = ".";

// A comma between digits: of a list without spaces it parts the entries, else what it means is open.
export const hasDecimalComma = (text, isList) =>
  /\d,\d/.test(text) && (!isList || /[\s;.]/.test(text.trim()));

// A minus sign may be pasted as well as typed.
export const tokens = (text) =>
  text
    .replaceAll("−", "-")
    .split(/[\s,;]+/)
    .filter(Boolean);

// Whether what stands in a list of either kind makes it one of reals.
export const looksReal = (text) =>
  tokens(text).some((token) => token !== ROOM && /[.enp/]/i.test(token));

const same = (text, value) => Math.fround(Number(text)) === value;

// The shortest text that is read as this single again.
export function shortest(value) {
  if (Number.isNaN(value)) return "nan";
  if (!Number.isFinite(value)) return value < 0 ? "-inf" : "inf";
  if (value === 0) return Object.is(value, -0) ? "-0" : "0";
  for (let digits = 1; digits < 9; ++digits) {
    const text = String(Number(value.toPrecision(digits)));
    if (same(text, value)) return text;
  }
  return String(Number(value.toPrecision(9)));
}

export const shown = (value, kind) => (kind === "integer" ? String(value) : shortest(value));
