// One call of a routine with what stands in the fields: texts in, results out. The same code runs
// when the pages are made and in them.

import { UNWRITTEN } from "kezlib/call.js";
import { hasDecimalComma, looksReal, parse, ROOM, shown, tokens } from "./numbers.js";

const ARRAYS = { real: Float32Array, integer: Int32Array };

// What stands for an entry that is nothing but room: in texts a point, as in kezcall's rows. An
// argument that is nothing else has no value, and is called with this one.
const EMPTY = { real: NaN, integer: UNWRITTEN.integer };
const OTHER = 1; // in its place, where a result that is the same might have been written

// What is wrong with the text of one field.
export class FieldError extends Error {
  constructor(name, message) {
    super(message);
    this.field = name;
  }
}

export const inputsOf = (routine) => routine.arguments.filter((a) => a.direction !== "out");
export const outputsOf = (routine) => routine.arguments.filter((a) => a.direction !== "in");
export const isArray = (argument) => argument.extent !== "" && argument.kind !== "callback";

// Of lists of either kind: reals if anything in them is one.
export function kindOfWords(routine, texts) {
  const words = inputsOf(routine).filter((a) => a.kind === "word");
  return words.some((a) => looksReal(texts[a.name])) ? "real" : "integer";
}

export const kindOf = ({ kind }, words) => ({ word: words, callback: "real" })[kind] ?? kind;

const isRoom = (argument, token) => token === ROOM && argument.direction !== "in";

function arrayOf(numbers, text, kind) {
  const entries = ARRAYS[kind].from(numbers);
  const bits = new Int32Array(entries.buffer);
  tokens(text).forEach((token, i) => {
    if (token === ROOM) bits[i] = UNWRITTEN[kind];
  });
  return entries;
}

function numbersOf(argument, text, kind) {
  const isList = isArray(argument) || argument.kind === "callback";
  if (hasDecimalComma(text, isList)) {
    const [comma] = /\d+,\d+/.exec(text);
    const others = isList ? `, or “${comma.replace(",", " ")}” for two entries` : "";
    const message = `has a comma: write “${comma.replace(",", ".")}” with a point${others}`;
    throw new FieldError(argument.name, message);
  }
  try {
    return tokens(text).map((token) =>
      isRoom(argument, token) ? EMPTY[kind] : parse(token, kind),
    );
  } catch (error) {
    throw new FieldError(argument.name, error.message);
  }
}

// A routine of the host that has these values to give, and no others.
function giving(argument, numbers) {
  return (i) => {
    if (i <= numbers.length) return numbers[i - 1];
    throw new FieldError(argument.name, `has ${numbers.length} values and is asked for ${i}`);
  };
}

function valueOf(argument, text, words) {
  const kind = kindOf(argument, words);
  const numbers = numbersOf(argument, text, kind);
  if (argument.kind === "callback") return giving(argument, numbers);
  if (isArray(argument)) return arrayOf(numbers, text, kind);
  if (numbers.length !== 1)
    throw new FieldError(argument.name, numbers.length ? "is several numbers" : "is empty");
  if (isRoom(argument, tokens(text)[0])) return undefined;
  return argument.kind === "word" && kind === "real" ? ARRAYS.real.from(numbers)[0] : numbers[0];
}

// The values by argument that the binding takes; undefined is room and nothing more.
export function valuesOf(routine, texts) {
  const words = kindOfWords(routine, texts);
  return Object.fromEntries(
    inputsOf(routine).map((a) => [a.name, valueOf(a, texts[a.name], words)]),
  );
}

const called = (kez, routine, values, room) =>
  kez[routine.name](...inputsOf(routine).map((a) => values[a.name] ?? room(a)));

// The results by argument, undefined where nothing was written. Of room that looks as before,
// another call with something else in it says whether it was left so.
export function callWith(kez, routine, values) {
  const results = called(kez, routine, values, (a) => EMPTY[a.kind]);
  const doubtful = outputsOf(routine).filter(
    (a) =>
      a.direction !== "out" &&
      values[a.name] === undefined &&
      Object.is(results[a.name], EMPTY[a.kind]),
  );
  if (!doubtful.length) return results;
  const others = called(kez, routine, values, (a) => (doubtful.includes(a) ? OTHER : EMPTY[a.kind]));
  for (const { name } of doubtful) if (others[name] === OTHER) results[name] = undefined;
  return results;
}

function entryTexts(entries, mayBeRoom) {
  const kind = entries instanceof Float32Array ? "real" : "integer";
  const bits = new Int32Array(entries.buffer, entries.byteOffset, entries.length);
  return Array.from(entries, (value, i) =>
    mayBeRoom && bits[i] === UNWRITTEN[kind] ? ROOM : shown(value, kind),
  );
}

// Whether entries of a result may still hold what stood for nothing. The binding leaves out those
// behind the last that is written.
const mayBeRoom = ({ kept, beyond }, before) =>
  before === undefined ? kept !== "" && !beyond : tokens(before).includes(ROOM);

// A result as it is shown, null where nothing was written.
function resultText(argument, value, before) {
  if (value === undefined) return null;
  if (typeof value === "number") return shown(value, argument.kind);
  const texts = entryTexts(value, mayBeRoom(argument, before));
  return texts.length && texts.every((text) => text === ROOM) ? null : texts.join(" ");
}

export const resultTexts = (routine, results, inputs) =>
  Object.fromEntries(
    outputsOf(routine).map((a) => [a.name, resultText(a, results[a.name], inputs[a.name])]),
  );
