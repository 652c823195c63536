// Many calls of one routine, block by block.

import { array, scalar } from "./values.js";

// So many items are copied into the module's memory at a time, and no more than so many words: a few
// hundred kB.
const BLOCK = 4096;
const WORDS = 2 ** 17;

const WORD = 4;
const NAME = 3; // words of a routine's name, which has 11 characters at most

const isList = (value) => typeof value === "object" && value !== null;

const ARRAYS = { real: Float32Array, integer: Int32Array };

const counted = (n, what) => `${n} ${what}${n === 1 ? "" : "s"}`;

function checkNames({ name, arguments: all }, given) {
  if (!isList(given)) throw new TypeError(`batch.${name} takes an object with the inputs by name`);
  for (const key of Object.keys(given))
    if (!all.some((a) => a.name === key && (a.direction !== "out" || a.kept)))
      throw new TypeError(`${name} has no input ${key}`);
}

/** Each argument's value: a number for all items, or an array of the library's type. */
function checkedValues(routine, given) {
  checkNames(routine, given);
  return routine.arguments.map((argument) => {
    const value = given[argument.name] ?? (argument.optional ? 0 : given[argument.name]);
    if (value === undefined && argument.direction === "out") return undefined;
    return isList(value) || argument.extent
      ? array(value, argument, argument.kind) : scalar(value, argument);
  });
}

/** The integers that extents are made of: numbers, as all items have the same extents. */
function countsOf({ arguments: all }, values) {
  const counts = {};
  all.forEach(({ name, kind }, i) => {
    if (kind === "integer" && !isList(values[i])) counts[name] = values[i];
  });
  return counts;
}

function widthOf(argument, counts) {
  if (!argument.extent) return 1;
  const width = Math.max(argument.extent(counts), 0);
  if (Number.isNaN(width))
    throw new TypeError(`${argument.place}: [${argument.asks}] wants one number for all items`);
  return width;
}

/** A list that is given once for all items, at its full width; of some the last entry may be missing,
 * which is only written. */
function sharedList(value, argument, width, counts) {
  if (!argument.extent || !isList(value)) return undefined;
  if (value.length === width) return value;
  if (!argument.read || value.length !== argument.read(counts)) return undefined;
  const whole = new ARRAYS[argument.kind](width);
  whole.set(value.subarray(0, width));
  return whole;
}

/** The arguments with what they have in a call: their widths, and the list that all items get. */
function argumentsOf(routine, values) {
  const counts = countsOf(routine, values);
  return routine.arguments.map((argument, i) => {
    const width = widthOf(argument, counts);
    const shared = sharedList(values[i], argument, width, counts);
    return { ...argument, width, shared, value: shared ?? values[i] };
  });
}

/** How many items there are: one, if all that is given is for all of them. */
function itemsOf(name, all) {
  let count;
  let first;
  for (const { name: argument, value, width, shared } of all) {
    if (!isList(value) || shared) continue;
    const items = value.length / width;
    if (!Number.isInteger(items))
      throw new RangeError(`${name}: ${argument} has ${counted(value.length, "number")}, ` +
        `and an item has ${width}`);
    if (count !== undefined && items !== count)
      throw new RangeError(`${name}: ${argument} is for ${counted(items, "item")}, ` +
        `${first} for ${count}`);
    [count, first] = [items, argument];
  }
  return count ?? 1;
}

/** Room for the arguments of some items, argument behind argument, and for kezbatch's own. */
class Block {
  constructor(memory, routine, all, items) {
    this.memory = memory;
    this.items = items;
    this.all = all;
    const words = all.reduce((sum, { width }) => sum + width, 0);
    this.begin = memory.allocated(words * items + NAME + 3 + 2 * all.length, routine);
    this.end = this.begin;
    this.positions = all.map(({ width }) => (this.end += width * items) - width * items);
  }

  /** Puts in the values of items. What is for all of them fills its place, and only what a routine
   * may change is put in again. */
  enter(begin, end, unwritten) {
    this.all.forEach(({ kind, width, direction, kept, shared, value }, i) => {
      const position = this.positions[i];
      const last = position + width * (end - begin);
      if (isList(value) && !shared)
        this.memory.of(kind).set(value.subarray(width * begin, width * end), position);
      else if (begin > 0 && direction === "in") return;
      else if (shared) this.#repeat(shared, kind, position, last);
      else if (value !== undefined) this.memory.of(kind).fill(value, position, last);
      else if (kept) this.memory.of("integer").fill(unwritten[kind], position, last);
    });
  }

  #repeat(list, kind, position, last) {
    const whole = this.memory.of(kind).subarray(position, last);
    whole.set(list);
    for (let n = list.length; n < whole.length; n *= 2) whole.copyWithin(n, 0, n);
  }

  /** By statements of the routine's own where its arguments have fixed numbers of entries. */
  call(name, { strided, exports }, count) {
    if (strided[name]) strided[name](this.begin * WORD, this.items * WORD, count * WORD);
    else this.#callTogether(name, exports, count);
  }

  #callTogether(name, { kezbatch }, count) {
    const integers = this.memory.of("integer");
    const text = new Uint8Array(integers.buffer, this.end * WORD, NAME * WORD);
    text.fill(0).set(Array.from(name, (letter) => letter.charCodeAt(0)));
    const own = this.end + NAME; // the numbers of arguments and of items, the status
    const addresses = own + 3;
    const steps = addresses + this.all.length;
    integers.set([this.all.length, count, 0], own);
    integers.set(this.positions.map((position) => position * WORD), addresses);
    integers.set(this.all.map(({ width }) => width * WORD), steps);
    kezbatch(...[this.end, own, own + 1, addresses, steps, own + 2].map((at) => at * WORD));
  }

  take(results, begin, end) {
    this.all.forEach(({ kind, width, name }, i) => {
      const position = this.positions[i];
      results[name]?.set(
        this.memory.of(kind).subarray(position, position + width * (end - begin)), width * begin);
    });
  }
}

/** Room for what comes back: not for lists to change that were given once for many items. */
function roomFor(all, items) {
  const outputs = all.filter(({ direction, shared }) =>
    direction === "out" || (direction === "in,out" && !(shared && items > 1)));
  return Object.fromEntries(outputs.map(({ name, kind, width }) =>
    [name, new ARRAYS[kind](items * width)]));
}

/** The calls of all items in order, of arrays and numbers by name. */
export function callMany(routine, given, { memory, unwritten, ...calls }) {
  const all = argumentsOf(routine, checkedValues(routine, given));
  const items = itemsOf(routine.name, all);
  const results = roomFor(all, items);
  const words = all.reduce((sum, { width }) => sum + width, 1);
  const size = Math.max(Math.min(items, BLOCK, Math.floor(WORDS / words)), 1);
  const block = new Block(memory, routine, all, size);
  try {
    for (let begin = 0; begin < items; begin += size) {
      const end = Math.min(begin + size, items);
      block.enter(begin, end, unwritten);
      block.call(routine.name, calls, end - begin);
      block.take(results, begin, end);
    }
  } finally {
    memory.free(block.begin);
  }
  return results;
}
