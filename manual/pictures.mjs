// Computes what the pages show: node pictures.mjs QUESTIONS ANSWERS. Of each routine the results of
// its worked calls, in their order, by a library of its own, and the pictures of the first; and the
// pictures' style.

import { readFileSync, writeFileSync } from "node:fs";
import { load } from "kezlib/browser.js";
import { callWith, resultTexts, valuesOf } from "./browser/call.js";
import { asRow, asStatements } from "./browser/copies.js";
import { draw, STYLE } from "./figures/draw.js";

function answered(kez, routine, texts) {
  const values = valuesOf(routine, texts);
  const results = callWith(kez, routine, values);
  return { values, results, texts: resultTexts(routine, results, texts) };
}

function pictures(kez, routine, { values, results }) {
  const call = (name, inputs) => callWith(kez, { ...routine, name }, inputs);
  const drawn = (options) =>
    draw(routine.name, values, results, { call, title: routine.sentence, ...options });
  return {
    picture: drawn({}),
    small: drawn({ small: true }),
    alone: drawn({ standalone: true }),
  };
}

function copies(routine, texts, results) {
  const statements = routine.languages.map((language) => [
    language.key,
    asStatements(routine, texts, language),
  ]);
  return { ...Object.fromEntries(statements), kezcall: asRow(routine, texts, results) };
}

async function answer({ routine, calls }) {
  const kez = await load();
  const answers = calls.map((texts) => answered(kez, routine, texts));
  return {
    ...pictures(await load(), routine, answers[0]),
    calls: answers.map(({ texts }) => texts),
    copies: copies(routine, calls[0], answers[0].texts),
  };
}

const [questions, answers] = process.argv.slice(2);
const found = {};
for (const question of JSON.parse(readFileSync(questions, "utf8")))
  found[question.routine.name] = await answer(question);
writeFileSync(answers, JSON.stringify({ style: STYLE, routines: found }));
