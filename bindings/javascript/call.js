// Calls the routines of one instance of the library, as routines.js describes them.

import { pairs } from "./arithmetic.js";
import { callMany } from "./batch.js";
import { routines, straightCalls, stridedCalls, version } from "./routines.js";
import {
  MOST_ENTRIES, array, checkLength, formOfLists, routineOfHost, scalar,
} from "./values.js";

// What no routine writes: a quiet not-a-number with a payload of its own, the smallest integer.
export const UNWRITTEN = { real: 0x7fe5a5a5, integer: -(2 ** 31) };

const WORD = 4;

// From so many entries on an output that holds pairs of two lists' entries is as long as there are
// pairs, and not as there could be, which is the product of the lists' counts.
const MANY = 2 ** 18;

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
    names.map((argument) => ({
      ...group,
      name: argument,
      place: `${name}: ${argument}`,
    })));
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
    least: all.filter((a) => a.direction !== "out" && !a.optional).length,
    places: Object.fromEntries(all.map((argument) => [argument.name, argument.index])),
  };
}

/** What the host gives, by argument, unchecked. */
function givenValues(routine, given) {
  const { inputs, kept, least, name } = routine;
  const most = inputs.length + (kept.length > 0 ? 1 : 0);
  if (given.length < least || given.length > most)
    throw new TypeError(`${name} takes ${inputs.length} arguments` +
      `${kept.length > 0 ? " and what it may keep" : ""}, not ${given.length}`);
  const values = new Array(routine.arguments.length).fill(undefined);
  inputs.forEach((argument, i) =>
    (values[argument.index] = given[i] === undefined && argument.optional ? 0 : given[i]));
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

/** The extent of an output that holds pairs of two lists' entries, if there are not more. */
function pairedExtent({ paired, pairs: names }, { places }, integers, values) {
  integers.pairs ??= pairs(...names.map((name) => values[places[name]]));
  return paired(integers);
}

function extentOf(argument, routine, integers, values) {
  const extent = Math.max(argument.extent(integers), 0);
  const given = values[argument.index];
  const isShort = given && given.length < extent;
  if (argument.pairs && (isShort || (!given && extent > MANY))) {
    const paired = pairedExtent(argument, routine, integers, values);
    if (given) checkLength(given, argument, paired, extent);
    return given ? given.length : paired;
  }
  if (isShort) {
    const least = argument.read ? Math.max(argument.read(integers), 1) : extent;
    checkLength(given, argument, least, extent);
  }
  return extent;
}

function extentsOf(routine, values) {
  const integers = {};
  for (const { name, index } of routine.integers) integers[name] = values[index];
  const extents = routine.arguments.map(() => 1);
  for (const argument of routine.arrays)
    extents[argument.index] = extentOf(argument, routine, integers, values);
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
      memory.of("integer").fill(UNWRITTEN[this.kinds[index]], position + value.length, end);
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
    if (value.length < written.length) {
      const isKept = memory.of("integer")[end - 1] === UNWRITTEN[this.kinds[index]];
      return written.slice(0, isKept ? -1 : undefined);
    }
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

function versionOf({ kezlib_version: place, memory }) {
  if (!place) throw new Error("the WebAssembly module is not KezLib's");
  const bytes = new Uint8Array(memory.buffer, place.value);
  return String.fromCharCode(...bytes.subarray(0, bytes.indexOf(0)));
}

/** Refuses a module that is older than the package, or has other routines by the same names. */
function checkVersion(exports) {
  const found = versionOf(exports);
  const [[major, minor], [wanted, least]] = [found, version].map((v) => v.split(".").map(Number));
  if (major !== wanted || minor < least)
    throw new Error(
      `the WebAssembly module is KezLib ${found}, and this package is for ${version}`);
}

/** A function of each routine, which has the routine's name. */
function byName(known, functionOf) {
  return Object.fromEntries(known.map((routine) =>
    [routine.name, Object.defineProperty(functionOf(routine), "name", { value: routine.name })]));
}

/** The routines of a new instance, made of the module or of its bytes: its kept values are its own.
 */
export async function instantiate(from) {
  let host;
  const imports = { host: { z_callback: (i) => host.called(i) } };
  const made = await WebAssembly.instantiate(from, imports);
  const { exports } = made.instance ?? made; // which of them is as `from` is bytes or a module
  checkVersion(exports);
  exports._initialize();
  const memory = new Memory(exports);
  host = new Host(memory);
  const known = routines.map(prepared);
  const checked = byName(known, (routine) => (...given) =>
    new Call(routine, given).run(memory, host, exports));
  const straight = straightCalls(exports, checked, UNWRITTEN);
  const strided = stridedCalls(exports);
  const batched = known.filter(({ words, callback }) => words.length === 0 && !callback);
  const batch = byName(batched, (routine) => (given) =>
    callMany(routine, given, { memory, strided, exports, unwritten: UNWRITTEN }));
  return Object.freeze({ ...checked, ...straight, batch: Object.freeze(batch) });
}
