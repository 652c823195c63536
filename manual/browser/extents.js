// How many entries the header asks an array for, by the package's own arithmetic.

import { routines } from "kezlib/routines.js";
import { parse, tokens } from "./numbers.js";

const groupOf = (routine, name) =>
  routines
    .find((each) => each.name === routine.name)
    .groups.find((group) => group.names.includes(name));

function integersOf(routine, texts) {
  const integers = routine.arguments.filter(
    (a) => a.kind === "integer" && texts[a.name] !== undefined,
  );
  return Object.fromEntries(
    integers.map((a) => {
      const entries = tokens(texts[a.name]).map((token) => parse(token, "integer"));
      return [a.name, a.extent ? entries : entries[0]];
    }),
  );
}

const MOST = 100000;

// Refuses a call whose results would be too many to show.
export function checkSizes(routine, texts) {
  const largest = routine.arguments
    .filter((a) => a.extent && a.direction === "out")
    .map((a) => [a.name, sizeOf(a, routine, texts)])
    .find(([, size]) => size > MOST);
  if (largest)
    throw new RangeError(`${largest[0]} gets ${largest[1]} entries, more than a page can show`);
}

export function sizeOf(argument, routine, texts) {
  const { extent } = groupOf(routine, argument.name);
  return Math.max(extent(integersOf(routine, texts)), 0);
}
