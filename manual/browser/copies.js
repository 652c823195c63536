// A call as text that a reader takes with him: in each language by its template, whose holes
// «x1» and «#X» are what an argument holds and its number of entries; and as a row for kezcall.
import { inputsOf, isArray, kindOfWords, outputsOf } from "./call.js";
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

function held(routine, texts, literals) {
  const words = kindOfWords(routine, texts);
  const kinds = { word: words, callback: "real" };
  return Object.fromEntries(inputsOf(routine).map((a) => [a.name, tokens(texts[a.name])
    .map((token) => literal(token, kinds[a.kind] ?? a.kind, literals)).join(literals.joint)]));
}

/** The number of entries a host makes room for. */
function entries(argument, routine, texts) {
  if (argument.direction !== "out") return tokens(texts[argument.name]).length;
  return sizeOf(argument, routine, texts);
}

export function asStatements(routine, texts, { templates, literals }) {
  const template = templates[kindOfWords(routine, texts)];
  const values = held(routine, texts, literals);
  return template.replace(/«(#?)(\w+)\.?»/g, (hole, size, name) => {
    if (!size) return values[name];
    return String(entries(routine.arguments.find((a) => a.name === name), routine, texts));
  });
}

const operand = (argument, text) => (isArray(argument) || argument.kind === "callback"
  ? `[${tokens(text).join(" ")}]` : text.trim());

/** Entries that were not written, and those that the binding cuts off, are points. */
function wanted(argument, routine, texts, result) {
  if (!isArray(argument)) return result ?? ROOM;
  const written = tokens(result ?? "");
  const missing = Math.max(entries(argument, routine, texts) - written.length, 0);
  return `[${[...written, ...Array(missing).fill(ROOM)].join(" ")}]`;
}

export function asRow(routine, texts, results) {
  const given = inputsOf(routine).map((a) => operand(a, texts[a.name]));
  const outputs = outputsOf(routine).map((a) => wanted(a, routine, texts, results[a.name]));
  return `${routine.name}  ${given.join(" ")}  ->  ${outputs.join(" ")}`;
}
