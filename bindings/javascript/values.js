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
  return value;
}

const ARRAYS = { real: Float32Array, integer: Int32Array };
const REAL_ARRAYS = [Float32Array, Float64Array];
const INTEGER_ARRAYS = [
  Int32Array, Uint32Array, Int16Array, Uint16Array, Int8Array, Uint8Array, Uint8ClampedArray,
];

const isOneOf = (value, types) => types.some((type) => value instanceof type);

/** Whatever has entries but is no text. */
function checkedList(value, argument) {
  if (typeof value !== "object" || value === null || !Number.isInteger(value.length))
    throw new TypeError(`${argument.place} is ${described(value)}, no array`);
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

function formOf(list) {
  if (isOneOf(list, REAL_ARRAYS)) return "real";
  if (isOneOf(list, INTEGER_ARRAYS)) return "integer";
  return undefined;
}

const looksInteger = (value) => isInteger(value) && !Object.is(value, -0);

/** Whether a call's lists of either kind hold reals or integers: as typed arrays say, or else reals
 * if any number is no 32-bit integer. */
export function formOfLists(given) {
  const lists = given.map(([value, argument]) => checkedList(value, argument));
  const forms = new Set(lists.map(formOf).filter(Boolean));
  if (forms.size > 1) {
    const places = given.map(([, argument]) => argument.place).join(", ");
    throw new TypeError(`${places}: arrays of reals and of integers`);
  }
  if (forms.size === 1) return [...forms][0];
  return lists.every((list) => Array.prototype.every.call(list, looksInteger)) ? "integer" : "real";
}

const counted = (n) => `${n} ${n === 1 ? "entry" : "entries"}`;

export function checkLength(list, argument, extent) {
  if (list.length < extent)
    throw new RangeError(
      `${argument.place} has ${counted(list.length)}, [${argument.asks}] asks for ${extent}`);
}
