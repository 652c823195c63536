// Many calls of one routine, block by block.

import { array, scalar } from "./values.js";

// So many items are copied into the module's memory at a time: a few hundred kB.
const BLOCK = 4096;

const WORD = 4;

const isList = (value) => typeof value === "object" && value !== null;

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
    return isList(value) || argument.width > 1
      ? array(value, argument, argument.kind) : scalar(value, argument);
  });
}

/** How many items there are: one, if all that is given is numbers. */
function itemsOf({ name, arguments: all }, values) {
  let count;
  let first;
  all.forEach((argument, i) => {
    if (!isList(values[i])) return;
    const items = values[i].length / argument.width;
    if (!Number.isInteger(items))
      throw new RangeError(`${name}: ${argument.name} has ${counted(values[i].length, "number")}, ` +
        `and an item has ${argument.width}`);
    if (count !== undefined && items !== count)
      throw new RangeError(`${name}: ${argument.name} is for ${counted(items, "item")}, ` +
        `${first} for ${count}`);
    [count, first] = [items, argument.name];
  });
  return count ?? 1;
}

const ARRAYS = { real: Float32Array, integer: Int32Array };

/** Room for the arguments of some items, argument behind argument. */
class Block {
  constructor(memory, routine, items, unwritten) {
    this.memory = memory;
    this.unwritten = unwritten;
    this.items = items;
    this.all = routine.arguments;
    const words = this.all.reduce((sum, { width }) => sum + width, 0);
    this.begin = memory.allocated(words * items, routine);
    let next = this.begin;
    this.positions = this.all.map(({ width }) => (next += width * items) - width * items);
  }

  /** Puts in the values of items; a number fills its place, and only what a routine may write is
   * put in again. */
  enter(values, begin, end) {
    this.all.forEach(({ kind, width, direction, kept }, i) => {
      const position = this.positions[i];
      const last = position + width * (end - begin);
      if (isList(values[i]))
        this.memory.of(kind).set(values[i].subarray(width * begin, width * end), position);
      else if (begin > 0 && direction === "in") return;
      else if (values[i] !== undefined) this.memory.of(kind).fill(values[i], position, last);
      else if (kept) this.memory.of("integer").fill(this.unwritten[kind], position, last);
    });
  }

  call(strided, count) {
    strided(this.begin * WORD, this.items * WORD, count * WORD);
  }

  take(results, begin, end) {
    this.all.forEach(({ kind, width, name }, i) => {
      const position = this.positions[i];
      results[name]?.set(
        this.memory.of(kind).subarray(position, position + width * (end - begin)), width * begin);
    });
  }
}

/** The calls of all items in order, of arrays and numbers by name. */
export function callMany(routine, given, { memory, strided, unwritten }) {
  const values = checkedValues(routine, given);
  const items = itemsOf(routine, values);
  const results = Object.fromEntries(routine.outputs.map(({ name, kind, width }) =>
    [name, new ARRAYS[kind](items * width)]));
  const block = new Block(memory, routine, Math.min(items, BLOCK), unwritten);
  try {
    for (let begin = 0; begin < items; begin += BLOCK) {
      const end = Math.min(begin + BLOCK, items);
      block.enter(values, begin, end);
      block.call(strided[routine.name], end - begin);
      block.take(results, begin, end);
    }
  } finally {
    memory.free(block.begin);
  }
  return results;
}
