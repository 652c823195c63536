// The numbers of a call by the names that rows use: `x1` is an input, or else a result; `x1'` the
// result of an argument that is both; `X.2` the second entry of an array; `-d` a negated value.

import { number } from "./svg.js";

const TERM = /^(-?)([A-Za-z]\w*?)(?:\.(\d+))?('?)$/;
const LARGEST = 1e30; // squares and products of a few of these are still numbers
const MOST = 60; // entries of a list that are drawn

export const nameOf = (term) => TERM.exec(term)[2];

// Angles are radians; degrees are what a reader sees.
const ANGLES = new Set(["theta", "phi", "dphi", "angle", "ax", "ay", "az"]);

export const inDegrees = (radians) =>
  `${number(Number(((radians * 180) / Math.PI).toPrecision(4)))}°`;

export const degreesBeside = (term, value) =>
  ANGLES.has(nameOf(term)) && Number.isFinite(value) ? ` (${inDegrees(value)})` : "";

// Names in words, before and after the call alike.
export const plainNames = (terms) => terms.join(", ").replaceAll("'", "");

// As it is written below a picture: `X.2` is X(2).
export function spelled(term) {
  const [, sign, name, entry] = TERM.exec(term);
  return sign + name + (entry ? `(${entry})` : "");
}

const isList = (value) => Array.isArray(value) || ArrayBuffer.isView(value);

const plainNumber = (value) => (typeof value === "number" ? value : NaN);

export const drawable = (value) => Math.abs(value) <= LARGEST;

// What a host's routine gives for each position.
const calledBack = (give, n) =>
  Array.from({ length: Math.max(0, Math.min(MOST, n || 0)) }, (_, i) => plainNumber(give(i + 1)));

export function callValues(inputs, results) {
  const given = Object(inputs ?? {});
  const found = Object(results ?? {});

  const holder = (name, after) => (!after && name in given ? given[name] : found[name]);

  const arrays = new Map(); // a picture asks for the entries of an array one by one

  const array = (term) => {
    if (!arrays.has(term)) arrays.set(term, arrayOf(term));
    return arrays.get(term);
  };

  const arrayOf = (term) => {
    const [, , name, , after] = TERM.exec(term);
    const value = holder(name, after);
    if (typeof value === "function") return calledBack(value, given.n);
    return isList(value) ? Array.from(Array.prototype.slice.call(value, 0, MOST), plainNumber) : [];
  };

  const scalar = (term) => {
    if (typeof term === "number") return term;
    const [, sign, name, entry, after] = TERM.exec(term);
    const value = entry ? array(name + after)[entry - 1] : plainNumber(holder(name, after));
    return sign ? -value : (value ?? NaN);
  };

  // How many entries a count speaks of, within the array; all of them without a count.
  const count = (term, available) => {
    const wanted = term === undefined ? available : Math.trunc(scalar(term));
    return wanted >= 1 ? Math.min(wanted, available) : 0;
  };

  const isResult = (term) => {
    if (typeof term === "number") return false;
    const [, , name, , after] = TERM.exec(term);
    return after !== "" || !(name in given);
  };

  return { inputs: given, results: found, array, scalar, count, isResult };
}
