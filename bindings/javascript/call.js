// Calls the routines of one instance of the library, as routines.js describes them.

import { routines } from "./routines.js";
import {
  MOST_ENTRIES, array, checkLength, formOfLists, routineOfHost, scalar,
} from "./values.js";

// What no routine writes: a quiet not-a-number with a payload of its own, the smallest integer.
export const UNWRITTEN = { real: 0x7fe5a5a5, integer: -(2 ** 31) };

const WORD = 4;

/** The memory of an instance. Its views end with the buffer, which is another once it has grown. */
class Memory {
  #exports;
  #reals = new Float32Array();
  #integers = new Int32Array();

  constructor(exports) {
    this.#exports = exports;
  }

  #renew() {
    const { buffer } = this.#exports.memory;
    if (this.#integers.buffer === buffer) return;
    this.#reals = new Float32Array(buffer);
    this.#integers = new Int32Array(buffer);
  }

  /** All of it, as entries of a kind. */
  of(kind) {
    this.#renew();
    return kind === "real" ? this.#reals : this.#integers;
  }

  /** The position of as many words, to be freed. */
  allocated(words, routine) {
    const address = words > MOST_ENTRIES ? 0 : this.#exports.malloc(words * WORD);
    if (address === 0)
      throw new RangeError(`${routine.name}: its arrays take ${words * WORD} bytes, too many`);
    return address / WORD;
  }

  free(position) {
    this.#exports.free(position * WORD);
  }
}

/** The routine of a host that the library calls while it runs, and what it threw. */
class Host {
  #memory;
  #routine;
  #thrown;

  constructor(memory) {
    this.#memory = memory;
  }

  /** The library goes on with not-a-number, and calls no more, once the routine has thrown. */
  called(address) {
    if (this.#thrown) return NaN;
    try {
      return this.#routine(this.#memory.of("integer")[address / WORD]);
    } catch (error) {
      this.#thrown = { error };
      return NaN;
    }
  }

  /** Calls may be nested, by a routine that calls the library itself. */
  during(routine, call) {
    const outer = [this.#routine, this.#thrown];
    [this.#routine, this.#thrown] = [routine, undefined];
    try {
      call();
      if (this.#thrown) throw this.#thrown.error;
    } finally {
      [this.#routine, this.#thrown] = outer;
    }
  }
}

/** The routine with what every call of it would find out again. */
function prepared({ name, groups }) {
  const described = groups.flatMap(({ names, ...group }) =>
    names.map((argument) => ({ ...group, name: argument, place: `${name}: ${argument}` })));
  const all = described.map((argument, index) => ({ ...argument, index }));
  return {
    name,
    arguments: all,
    inputs: all.filter((argument) => argument.direction !== "out"),
    outputs: all.filter((argument) => argument.direction !== "in"),
    kept: all.filter((argument) => argument.kept),
    arrays: all.filter((argument) => argument.extent),
    words: all.filter((argument) => argument.kind === "word"),
    integers: all.filter((argument) => argument.kind === "integer"),
    callback: all.find((argument) => argument.kind === "callback"),
  };
}

/** What the host gives, by argument, unchecked. */
function givenValues(routine, given) {
  const { inputs, kept, name } = routine;
  const most = inputs.length + (kept.length > 0 ? 1 : 0);
  if (given.length < inputs.length || given.length > most)
    throw new TypeError(`${name} takes ${inputs.length} arguments` +
      `${kept.length > 0 ? " and what it may keep" : ""}, not ${given.length}`);
  const values = new Array(routine.arguments.length).fill(undefined);
  inputs.forEach((argument, i) => (values[argument.index] = given[i]));
  enterKept(routine, given[inputs.length], values);
  return values;
}

function enterKept({ name, kept }, options, values) {
  if (options === undefined) return;
  if (typeof options !== "object" || options === null)
    throw new TypeError(`${name}: what it may keep is an object`);
  for (const key of Object.keys(options)) {
    const argument = kept.find((known) => known.name === key);
    if (!argument) throw new TypeError(`${name} has no output ${key} that it may keep`);
    values[argument.index] = options[key];
  }
}

const isMissing = (argument, value) => argument.direction === "out" && value === undefined;

function checked(argument, value, kind) {
  if (isMissing(argument, value)) return undefined;
  if (argument.kind === "callback") return routineOfHost(value, argument);
  return argument.extent ? array(value, argument, kind) : scalar(value, argument);
}

function formOfWords(routine, values) {
  return formOfLists(routine.words
    .filter((argument) => !isMissing(argument, values[argument.index]))
    .map((argument) => [values[argument.index], argument]));
}

function extentsOf(routine, values) {
  const integers = {};
  for (const { name, index } of routine.integers) integers[name] = values[index];
  const extents = routine.arguments.map(() => 1);
  for (const argument of routine.arrays) {
    const extent = Math.max(argument.extent(integers), 0);
    if (values[argument.index]) checkLength(values[argument.index], argument, extent);
    extents[argument.index] = extent;
  }
  return extents;
}

/** One call: what its arguments hold before it, how many words they are, and where they lie. */
class Call {
  constructor(routine, given) {
    this.routine = routine;
    const values = givenValues(routine, given);
    const words = routine.words.length > 0 ? formOfWords(routine, values) : undefined;
    this.kinds = routine.arguments.map(({ kind }) => (kind === "word" ? words : kind));
    this.values = values.map((v, i) => checked(routine.arguments[i], v, this.kinds[i]));
    this.extents = extentsOf(routine, this.values);
    this.positions = [];
    this.words = 0;
    for (const extent of this.extents) {
      this.positions.push(this.words);
      this.words += extent;
    }
  }

  run(memory, host, exports) {
    const block = memory.allocated(this.words, this.routine);
    const stack = exports.stackSave();
    try {
      this.positions = this.positions.map((position) => block + position);
      for (const argument of this.routine.arguments) this.#write(memory, argument);
      this.#enter(host, exports);
      return this.#results(memory);
    } finally {
      exports.stackRestore(stack);
      memory.free(block);
    }
  }

  #write(memory, { index, extent, kind, kept }) {
    const [value, position, end] = this.#place(index);
    if (kind === "callback") return;
    if (value === undefined) {
      if (kept) memory.of("integer").fill(UNWRITTEN[this.kinds[index]], position, end);
    } else if (extent) {
      memory.of(this.kinds[index]).set(value.subarray(0, end - position), position);
    } else {
      memory.of(kind)[position] = value;
    }
  }

  #place(index) {
    const position = this.positions[index];
    return [this.values[index], position, position + this.extents[index]];
  }

  #enter(host, exports) {
    const { name, callback } = this.routine;
    const addresses = this.positions.map((position) => position * WORD);
    if (!callback) {
      exports[name](...addresses);
      return;
    }
    addresses[callback.index] = exports.z_callback();
    host.during(this.values[callback.index], () => exports[name](...addresses));
  }

  #results(memory) {
    const results = {};
    for (const argument of this.routine.outputs)
      results[argument.name] = argument.extent
        ? this.#list(memory, argument) : this.#scalar(memory, argument);
    this.#trim(results);
    return results;
  }

  #scalar(memory, { index, kind, kept }) {
    const [value, position] = this.#place(index);
    const isHeld = kept && value === undefined &&
      memory.of("integer")[position] === UNWRITTEN[kind];
    return isHeld ? undefined : memory.of(kind)[position];
  }

  #list(memory, { index }) {
    const [value, position, end] = this.#place(index);
    const written = memory.of(this.kinds[index]).subarray(position, end);
    if (value === undefined) return written.slice();
    const whole = value.slice();
    whole.set(written);
    return whole;
  }

  /** Leaves only what is written of arrays whose first entries are. */
  #trim(results) {
    const trimmed = this.routine.outputs.filter(
      ({ written, index }) => written && this.values[index] === undefined);
    if (trimmed.length === 0) return;
    const integers = {};
    for (const { name, index } of this.routine.integers)
      integers[name] = results[name] ?? this.values[index];
    for (const { name, written } of trimmed)
      results[name] = results[name].slice(0, Math.max(written(integers), 0));
  }
}

/** The routines of a new instance, made of the module's bytes: its kept values are its own. */
export async function instantiate(bytes) {
  let host;
  const imports = { host: { z_callback: (i) => host.called(i) } };
  const { instance: { exports } } = await WebAssembly.instantiate(bytes, imports);
  exports._initialize();
  const memory = new Memory(exports);
  host = new Host(memory);
  const entries = routines.map(prepared).map((routine) =>
    [routine.name, (...given) => new Call(routine, given).run(memory, host, exports)]);
  return Object.freeze(Object.fromEntries(entries));
}
