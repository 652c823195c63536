// Computes the calls of the guides: node guide_calls.mjs QUESTIONS ANSWERS. The calls of a page
// follow one another, and use results of earlier ones by name.

import { readFileSync, writeFileSync } from "node:fs";
import { load } from "kezlib/browser.js";
import { callWith, inputsOf, outputsOf, resultTexts, valuesOf } from "./browser/call.js";
import { shown } from "./browser/numbers.js";
import { draw } from "./figures/draw.js";

// Names become the results of earlier calls, and a quotient of two of them its value.
function filled(text, known) {
  const numbers = text.replace(/[A-Za-z_]\w*/g, (name) => {
    if (name in known) return known[name];
    throw new Error(`no earlier call gives ${name}`);
  });
  const [, above, below] = /^(\S+)\/(\S+)$/.exec(numbers) ?? [];
  return below ? shown(Math.fround(above / below), "real") : numbers;
}

function answered(kez, { routine, given, names }, known) {
  const inputs = inputsOf(routine);
  if (given.length !== inputs.length)
    throw new Error(`${routine.name} takes ${inputs.length} inputs, not ${given.length}`);
  const texts = Object.fromEntries(inputs.map(({ name }, i) => [name, filled(given[i], known)]));
  const values = valuesOf(routine, texts);
  const results = callWith(kez, routine, values);
  const texted = resultTexts(routine, results, texts);
  outputsOf(routine).forEach(({ name }, i) => {
    if (texted[name] !== null) known[names[i] ?? name] = texted[name];
  });
  const call = (name, others) => callWith(kez, { ...routine, name }, others);
  const picture = draw(routine.name, values, results, { call, title: routine.sentence });
  return { inputs: texts, results: texted, picture };
}

async function page(calls) {
  const kez = await load();
  const known = {};
  return calls.map((call) => answered(kez, call, known));
}

const [questions, answers] = process.argv.slice(2);
const found = {};
for (const [name, calls] of Object.entries(JSON.parse(readFileSync(questions, "utf8"))))
  found[name] = await page(calls);
writeFileSync(answers, JSON.stringify(found));
