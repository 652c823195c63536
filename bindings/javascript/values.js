// What a host gives for an argument, checked and as the library takes it. A wrong type is a
// TypeError; a number that the type does not have, and a wrong number of entries, a RangeError.

const LEAST_INTEGER = -(2 ** 31);
const LARGEST_INTEGER = 2 ** 31 - 1;

export const isInteger = (value) =>
  Number.isInteger(value) && value >= LEAST_INTEGER && value <= LARGEST_INTEGER;

/** What a message calls a value. */
function described(value) {
  if (value === undefined) return "missing";
  if (value === null) return "null";
  return `of type ${typeof value}`;
}

function checkedNumber(value, what, kind) {
  if (typeof value !== "number") throw new TypeError(`${what} is ${described(value)}, no number`);
  if (kind === "integer" && !isInteger(value))
    throw new RangeError(`${what} is ${value}, no 32-bit integer`);
  return value;
}

export const scalar = (value, argument) => checkedNumber(value, argument.place, argument.kind);

export function routineOfHost(value, argument) {
  if (typeof value !== "function")
    throw new TypeError(`${argument.place} is ${described(value)}, no function`);
  return (i) => checkedNumber(value(i), `${argument.place}'s result`, "real");
}

const ARRAYS = { real: Float32Array, integer: Int32Array };
const REAL_ARRAYS = [Float32Array, Float64Array];
const INTEGER_ARRAYS = [
  Int32Array, Uint32Array, Int16Array, Uint16Array, Int8Array, Uint8Array, Uint8ClampedArray,
];

/** More entries the module's memory cannot hold. */
export const MOST_ENTRIES = 2 ** 29 - 1;

const isOneOf = (value, types) => types.some((type) => value instanceof type);

/** Whatever has entries but is no text. */
function checkedList(value, argument) {
  if (typeof value !== "object" || value === null || !(value.length >= 0))
    throw new TypeError(`${argument.place} is ${described(value)}, no array`);
  if (!(value.length <= MOST_ENTRIES))
    throw new RangeError(`${argument.place} has ${value.length} entries, too many`);
  return value;
}

/** The library's kind of array: the very one if it is one, whose bits stay as they are. */
export function array(value, argument, kind) {
  const list = checkedList(value, argument);
  if (list instanceof ARRAYS[kind]) return list;
  if (argument.kind === "word" && kind === "integer" && list instanceof Uint32Array)
    return new Int32Array(list.buffer, list.byteOffset, list.length);
  const entries = new ARRAYS[kind](list.length);
  for (let i = 0; i < list.length; ++i)
    entries[i] = checkedNumber(list[i], `${argument.place}[${i}]`, kind);
  return entries;
}

const looksInteger = (value) => isInteger(value) && !Object.is(value, -0);

function isReal(list) {
  if (isOneOf(list, REAL_ARRAYS)) return true;
  if (isOneOf(list, INTEGER_ARRAYS)) return false;
  for (let i = 0; i < list.length; ++i) if (!looksInteger(list[i])) return true;
  return false;
}

/** Whether a call's lists of either kind hold reals or integers: reals if any of them does, as
 * typed arrays say, or else if any number is no 32-bit integer. */
export const formOfLists = (given) =>
  given.some(([value, argument]) => isReal(checkedList(value, argument))) ? "real" : "integer";

const counted = (n) => `${n} ${n === 1 ? "entry" : "entries"}`;

/** Refuses fewer entries than the least that will do; the extent is what is asked for. */
export function checkLength(list, argument, least, extent) {
  if (list.length < least)
    throw new RangeError(
      `${argument.place} has ${counted(list.length)}, [${argument.asks}] asks for ${extent}`);
}
