// Results as a page shows them, and as kezcall prints them.

import assert from "node:assert/strict";

const written = (text) => text.split(" ").filter((token) => token !== ".");

function answeredLine(line) {
  const [, name, value] = /^(\w+) +(?:= )?(.*?)(?: +unchanged)?$/.exec(line);
  const shown = value === "not written" ? "kept" : value.replace(/^\[(.*)\]$/, "$1");
  return [name, written(shown).join(" ") || "kept"];
}

// Of kezcall's answer, by output what the page shows.
export const answered = (text) => Object.fromEntries(text.trim().split("\n").map(answeredLine));

// To some last places: sines and the like are the platform's.
function agree(one, other) {
  if (one === other || Object.is(Number(one), Number(other))) return true;
  const [a, b] = [Number(one), Number(other)];
  return Math.abs(a - b) <= 2e-6 * Math.max(Math.abs(a), Math.abs(b));
}

export function assertSame(found, wanted, what, same = agree) {
  assert.deepEqual(Object.keys(found), Object.keys(wanted), what);
  for (const [name, text] of Object.entries(wanted)) {
    const [ours, theirs] = [found[name], text].map(written);
    assert.ok(
      ours.length === theirs.length && ours.every((token, i) => same(token, theirs[i])),
      `${what}: ${name} is ${found[name]}, kezcall has ${text}`,
    );
  }
}
