// A call as text that a reader takes with him: in each language by its template, whose holes
// «x1» and «#X» are what an argument holds and its number of entries; and as a row for kezcall.

import { inputsOf, isArray, kindOf, kindOfWords, outputsOf } from "./call.js";
import { parse, ROOM, shortest, tokens } from "./numbers.js";
import { sizeOf } from "./extents.js";

function literal(token, kind, literals) {
  const value = token === ROOM ? 0 : parse(token, kind);
  if (kind === "integer" && value === -(2 ** 31)) return literals.least_integer;
  if (kind === "integer") return literals.integer.replace("{}", String(value));
  const single = Math.fround(value);
  if (Number.isNaN(single)) return literals.not_a_number;
  if (!Number.isFinite(single)) return (single < 0 ? "-" : "") + literals.infinity;
  const digits = shortest(single);
  return literals.real.replace("{}", /[.e]/.test(digits) ? digits : `${digits}.0`);
}

function inRows(entries, { joint, row, row_joint: rowJoint }) {
  const rows = [];
  for (let at = 0; at < entries.length; at += row)
    rows.push(entries.slice(at, at + row).join(joint));
  return rows.join(rowJoint);
}

function held(routine, texts, literals) {
  const words = kindOfWords(routine, texts);
  return Object.fromEntries(
    inputsOf(routine).map((a) => {
      const entries = tokens(texts[a.name]).map((token) =>
        literal(token, kindOf(a, words), literals),
      );
      return [a.name, inRows(entries, literals) || literals.filler];
    }),
  );
}

// The number of entries a host makes room for.
function roomOf(argument, routine, texts) {
  if (argument.direction !== "out") return tokens(texts[argument.name]).length;
  return sizeOf(argument, routine, texts);
}

export function asStatements(routine, texts, { templates, literals }) {
  const template = templates[kindOfWords(routine, texts)] ?? templates.real;
  const values = held(routine, texts, literals);
  return template.replace(/«(#?)(\w+)\.?»/g, (hole, size, name) => {
    if (!size) return values[name];
    const argument = routine.arguments.find((a) => a.name === name);
    return String(Math.max(roomOf(argument, routine, texts), literals.filler ? 1 : 0));
  });
}

// Digits as kezcall reads them, which knows a list of reals by a point.
function operandToken(token, kind, isWord) {
  if (token === ROOM) return token;
  const value = parse(token, kind);
  if (kind === "integer") return String(value);
  const digits = shortest(Math.fround(value));
  return isWord && /^-?\d+$/.test(digits) ? `${digits}.0` : digits;
}

function operand(argument, texts, words) {
  const kind = kindOf(argument, words);
  const found = tokens(texts[argument.name]).map((token) =>
    operandToken(token, kind, argument.kind === "word"),
  );
  return isArray(argument) || argument.kind === "callback" ? `[${found.join(" ")}]` : found[0];
}

// Entries that were not written, and those that the binding cuts off, are points.
function wanted(argument, routine, texts, result) {
  if (!isArray(argument)) return result ?? ROOM;
  const written = tokens(result ?? "");
  const missing = Math.max(roomOf(argument, routine, texts) - written.length, 0);
  return `[${[...written, ...Array(missing).fill(ROOM)].join(" ")}]`;
}

export function asRow(routine, texts, results) {
  const words = kindOfWords(routine, texts);
  const given = inputsOf(routine).map((a) => operand(a, texts, words));
  const outputs = outputsOf(routine).map((a) => wanted(a, routine, texts, results[a.name]));
  return `${routine.name}  ${given.join(" ")}  ->  ${outputs.join(" ")}`;
}
