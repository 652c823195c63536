// That the pages show what kezcall does, whatever the inputs are: not a number, infinite, huge,
// tiny, equal, zero.

import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { mkdtempSync, readFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { test } from "node:test";
import { fileURLToPath } from "node:url";
import { answered, assertSame } from "./answers.mjs";
import { dataOf, kezcall, routines } from "./browser.mjs";
import { generator } from "./drawn.mjs";

const CALLS = 8; // of each routine
const REALS = ["nan", "inf", "-inf", "3e38", "-3e38", "1e20", "12345678901234567890", "1e-5",
  "1e-30", "1e-45", "0", "-0", "1", "-1", "0.5"];
const WORDS = REALS.filter((text) => /[.en]/.test(text)); // that say that a list is of reals
const INTEGERS = ["0", "1", "-1", "2", "2147483647", "-2147483648"];

const bundled = `${mkdtempSync(`${tmpdir()}/manual-`)}/calling.mjs`;
const script = fileURLToPath(new URL("calling.mjs", import.meta.url));
execFileSync("esbuild", [script, "--bundle", "--platform=node", "--format=esm",
  "--log-level=warning", `--alias:kezlib=${process.env.LIBRARY}`, `--outfile=${bundled}`]);

const pageShows = (questions) =>
  JSON.parse(
    execFileSync("node", [bundled], { input: JSON.stringify(questions), maxBuffer: 1 << 28 }),
  );

// Array sizes stay as they are, or there are fewer entries than the arrays have room for.
function hostile(routine, random) {
  const isCount = ({ name }) =>
    routine.arguments.some(({ extent }) => new RegExp(`\\b${name}\\b`).test(extent));
  const one = (values) => values[random(values.length)];
  const stay = random(4); // of four
  const changed = (argument, token) => {
    if (token === "." || random(4) < stay) return token;
    if (argument.kind !== "integer") return one(argument.kind === "word" ? WORDS : REALS);
    if (isCount(argument)) return argument.extent ? token : one([token, "0", "-1", "1"]);
    return one(INTEGERS);
  };
  return Object.fromEntries(
    routine.arguments
      .filter(({ name }) => name in routine.example)
      .map((argument) => [
        argument.name,
        routine.example[argument.name]
          .split(" ")
          .filter(Boolean)
          .map((token) => changed(argument, token))
          .join(" "),
      ]),
  );
}

const operands = (routine, texts) =>
  routine.arguments
    .filter(({ name }) => name in texts)
    .flatMap(({ name, extent, kind }) =>
      extent || kind === "callback"
        ? ["[", ...texts[name].split(" ").filter(Boolean), "]"]
        : [texts[name]],
    );

// Of no entry kezcall says that it is not written.
const shownText = (text) => text || "kept";

// Of those whose last bits are the platform's, a difference may become any number.
const REFERENCE = readFileSync(new URL("../reference.cpp", import.meta.url), "utf8");
const approximate = new Set(
  /approximate = \{(.*?)\};/s.exec(REFERENCE)[1].match(/kez\w+/g),
);
const isNumber = (token) => token !== "kept" && token !== "nan";
const single = (text) => Math.fround(Number(text.replace("inf", "Infinity")));
const equal = (one, other) => one === other || Object.is(single(one), single(other));
const alike = (one, other) => one === other || (isNumber(one) && isNumber(other));

test("the pages show of hostile inputs what kezcall prints", () => {
  const random = generator(20261122);
  const questions = routines.flatMap((page) => {
    const routine = dataOf(page);
    return Array.from({ length: CALLS }, () => ({ routine, texts: hostile(routine, random) }));
  });
  const differing = [];
  pageShows(questions).forEach((results, i) => {
    const { routine, texts } = questions[i];
    const shown = Object.fromEntries(
      Object.entries(results).map(([name, text]) => [name, shownText(text)]),
    );
    const words = operands(routine, texts);
    const same = approximate.has(routine.name) ? alike : equal;
    try {
      assertSame(shown, answered(kezcall(routine.name, ...words)), words.join(" "), same);
    } catch (error) {
      differing.push(`${routine.name} ${error.message}`);
    }
  });
  assert.ok(questions.length >= 1000, `${questions.length} calls`);
  assert.deepEqual(differing, []);
});
