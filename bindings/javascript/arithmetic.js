// The arithmetic that extents are written in, as routines.js has it from the header.

/** An entry of an integer array, counted from 1; there are zeros around it. */
export const entry = (counts, i) => (i >= 1 && i <= counts.length ? counts[i - 1] : 0);

/** The sum of the first entries, as 32-bit integers wrap. */
export function sum(counts, n) {
  let total = 0;
  for (let i = 1; i <= Math.min(n, counts.length); ++i) total = (total + counts[i - 1]) | 0;
  return total;
}

export const { max, trunc } = Math;

const isFinite = (x) => x - x === 0;
const sorted = (list, n) => list.slice(0, max(n, 0)).filter(isFinite).sort();

/** At least as many as there are pairs of the first entries of two typed arrays that are within the
 * tolerance: those too that only rounding to single precision takes out of it. */
export function pairs(a, n1, b, n2, tolerance = 0) {
  if (tolerance === Infinity) return max(n1, 0) * max(n2, 0);
  const reach = tolerance + tolerance * 2 ** -24; // so much may be rounded to the tolerance
  const first = sorted(a, n1);
  const second = sorted(b, n2);
  let found = 0;
  let begin = 0;
  let end = 0;
  for (const x of first) {
    while (begin < second.length && x - second[begin] > reach) ++begin;
    while (end < second.length && second[end] - x <= reach) ++end;
    found += max(end - begin, 0);
  }
  return found;
}
