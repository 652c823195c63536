// What the pages show of given inputs: node calling.mjs < QUESTIONS, bundled with the library. Of
// each call the texts of its results, or what the page says instead.

import { readFileSync } from "node:fs";
import { load } from "kezlib/browser.js";
import { callWith, resultTexts, valuesOf } from "../../manual/browser/call.js";

// Each call has a library of its own, as kezcall has.
async function shown({ routine, texts }) {
  const kez = await load();
  return resultTexts(routine, callWith(kez, routine, valuesOf(routine, texts)), texts);
}

const found = [];
for (const question of JSON.parse(readFileSync(0, "utf8"))) found.push(await shown(question));
process.stdout.write(JSON.stringify(found));
