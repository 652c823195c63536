// What a reader looks for, and what the search shows first.

import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { test } from "node:test";
import { Ranking } from "../../manual/browser/ranking.js";

const script = readFileSync(`${process.env.MANUAL}/assets/index.js`, "utf8");
const index = JSON.parse(script.slice(script.indexOf("{"), script.lastIndexOf("}") + 1));
const ranking = new Ranking(index);
const found = (text) => ranking.ranked(text).found.map(([title]) => title);

const lines = readFileSync(new URL("queries.txt", import.meta.url), "utf8").split("\n");
const QUERIES = lines
  .filter((line) => line && !line.startsWith("#"))
  .map((line) => line.split(" -> "))
  .map(([text, titles]) => ({ text, titles: titles.split(" | ") }));

test("what readers ask for is first or among the first three", () => {
  assert.ok(QUERIES.length >= 150, `${QUERIES.length} queries`);
  const missed = QUERIES.filter(({ text, titles }) => {
    const first = found(text.replace(/^= /, "")).slice(0, text.startsWith("= ") ? 1 : 3);
    return !first.some((title) => titles.includes(title));
  });
  const told = missed.map(
    ({ text, titles }) => `${text}: ${titles}, not ${found(text.replace(/^= /, "")).slice(0, 4)}`,
  );
  assert.deepEqual(told, []);
});

test("where no page has all words, the nearest are shown and marked", () => {
  const near = ranking.ranked("circle xylophone");
  assert.ok(near.isNear && near.found.length > 0);
  assert.equal(ranking.ranked("circle line").isNear, false);
  for (const text of ["xylophone", "", "  ", "zzz"]) assert.deepEqual(found(text), []);
});

test("what has a title of its own is found by it", () => {
  const titles = index.entries.map(([title]) => title);
  const own = titles.filter((title) => titles.indexOf(title) === titles.lastIndexOf(title));
  assert.deepEqual(own.filter((title) => !found(title).slice(0, 3).includes(title)), []);
});

test("words of readers belong to what there is", () => {
  const text = readFileSync(new URL("../../manual/synonyms.txt", import.meta.url), "utf8");
  const titles = new Set(index.entries.map(([title]) => title));
  const said = text.split("\n").filter((line) => line.includes(": ") && !line.startsWith("#"));
  const lost = said.map((line) => line.slice(0, line.lastIndexOf(": ")));
  assert.deepEqual(lost.filter((title) => !titles.has(title)), []);
});
