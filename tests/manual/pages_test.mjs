// What holds for every page of the manual.

import assert from "node:assert/strict";
import { existsSync, readFileSync, readdirSync, statSync } from "node:fs";
import { after, before, test } from "node:test";
import { AXE, launch, open, pages, routines, textOf, watchedTab } from "./browser.mjs";

const LISTED = readFileSync(new URL("../routines.txt", import.meta.url), "utf8");
const ROUTINES = LISTED.match(/^kez\w+/gm).sort();

let browser;
before(async () => (browser = await launch()));
after(() => browser.close());

const median = (values) => values.sort((a, b) => a - b)[Math.floor(values.length / 2)];

// Those that show nothing, or say nothing of what they show. Small ones are of few strokes.
const emptyPictures = () =>
  [...document.querySelectorAll("svg.kez-figure")]
    .filter((svg) => {
      const shapes = svg.querySelectorAll("path, circle, text").length;
      return (
        shapes < (svg.closest("figure") ? 3 : 1) ||
        !svg.querySelector("desc")?.textContent ||
        svg.textContent.includes("Nothing to draw")
      );
    })
    .map((svg) => svg.getAttribute("aria-label"));

const DRAWN = '<figure id="picture"><svg'; // before any script runs

const sticksOut = () => document.documentElement.scrollWidth > innerWidth;

test("every page opens without a fault, has its pictures, and fits a narrow window", async () => {
  const { tab, faults } = await watchedTab(browser, { viewport: { width: 360, height: 800 } });
  const [times, wide] = [[], []];
  for (const page of pages) {
    const start = Date.now();
    await open(tab, page);
    times.push(Date.now() - start);
    assert.deepEqual(await tab.evaluate(emptyPictures), [], page);
    if (await tab.evaluate(sticksOut)) wide.push(page);
  }
  assert.deepEqual(wide, []);
  assert.deepEqual(faults, []);
  assert.deepEqual(
    routines.filter((page) => !textOf(page).includes(DRAWN)),
    [],
  );
  assert.deepEqual(routines.map((page) => page.replace(".html", "")).sort(), ROUTINES);
  assert.ok(median(times) < 1000, `a page takes ${median(times)} ms`);
});

// With all that it loads, in kB. What the search loads comes later.
test("a page weighs at most 500 kB, and the manual 8 MB", () => {
  const size = (file) => statSync(`${process.env.MANUAL}/${file}`).size / 1000;
  const heavy = pages
    .map((page) => [
      page,
      [...textOf(page).matchAll(/(?:src|href)="(assets\/[^"]+)"/g)]
        .map(([, file]) => file)
        .reduce((sum, file) => sum + size(file), size(page)),
    ])
    .filter(([, weight]) => weight > 500);
  assert.deepEqual(heavy, []);
  const all = readdirSync(process.env.MANUAL, { recursive: true }).filter((f) => f.includes("."));
  assert.ok(all.map(size).reduce((a, b) => a + b) < 8000);
});

test("no link is dead", () => {
  const texts = new Map(pages.map((page) => [page, textOf(page)]));
  const ids = new Map(
    [...texts].map(([page, text]) => [
      page,
      new Set([...text.matchAll(/ id="([^"]+)"/g)].map((match) => match[1])),
    ]),
  );
  const dead = [];
  for (const [page, text] of texts) {
    for (const [, target] of text.matchAll(/<[^<>]* (?:href|src)="([^"]+)"/g)) {
      if (/^(https?|data):/.test(target)) continue;
      const [file, anchor] = target.split("#");
      const there = file === "" ? page : file;
      const isThere = texts.has(there) || existsSync(`${process.env.MANUAL}/${there}`);
      const isPart = !anchor || anchor.includes("=") || ids.get(there)?.has(anchor);
      if (!isThere || !isPart) dead.push([page, target]);
    }
  }
  assert.deepEqual(dead, []);
});

// One of each kind of page, and those that have most on them.
const KINDS = ["index.html", "routines.html", "family-guides.html", "shapes.html",
  "same-answers.html", "language-csharp.html", "kezlci.html", "kezsec_c.html", "kezpnl.html", "statuses.html",
  "section-values.html", "a-to-z.html"];

for (const [width, colorScheme] of [[1280, "light"], [360, "dark"]]) {
  test(`no serious fault of access, ${width} wide and ${colorScheme}`, async () => {
    const { tab } = await watchedTab(
      browser, { colorScheme, viewport: { width, height: 800 }, reducedMotion: "reduce" });
    for (const page of KINDS) {
      await open(tab, page);
      assert.equal(await tab.evaluate(sticksOut), false, `${page} is wider than the window`);
      await tab.evaluate(AXE);
      const { violations } = await tab.evaluate("axe.run({ resultTypes: ['violations'] })");
      const serious = violations.filter(({ impact }) => ["serious", "critical"].includes(impact));
      assert.deepEqual(serious.map(({ id, nodes }) => [page, id, nodes[0].html.slice(0, 200)]), []);
    }
  });
}
