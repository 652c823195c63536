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
