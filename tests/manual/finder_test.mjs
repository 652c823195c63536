// The finder of the first page: what remains of what is ticked.

import assert from "node:assert/strict";
import { after, before, test } from "node:test";
import { launch, open, watchedTab } from "./browser.mjs";

let browser;
before(async () => (browser = await launch()));
after(() => browser.close());

const remaining = () =>
  [...document.querySelectorAll("#finder li:not([hidden]) strong")].map((name) =>
    name.firstChild.data.trim(),
  );

test("what is ticked leaves the routines that take and give it", async () => {
  const { tab, faults } = await watchedTab(browser);
  await open(tab, "index.html");
  const tick = (key, kind) => tab.click(`fieldset[data-key=${key}] input[value=${kind}]`);
  assert.deepEqual(await tab.evaluate(remaining).then((found) => found.length), 0);
  assert.equal(await tab.isVisible("#finder .cards"), false);
  await tick("have", "lines");
  await tick("have", "circles");
  await tick("want", "points");
  const found = await tab.evaluate(remaining);
  assert.ok(found.includes("kezlci") && !found.includes("kezc12") && found.length < 10, `${found}`);
  assert.equal(await tab.textContent("#finder [role=status]"), `${found.length} routines`);
  assert.equal(await tab.isDisabled("fieldset[data-key=want] input[value=area]"), true);
  await tab.click("#finder button");
  await tab.waitForSelector("#finder .cards", { state: "hidden" });
  assert.deepEqual(faults, []);
});

test("where not all words are found, the list says so", async () => {
  const { tab, faults } = await watchedTab(browser);
  await open(tab, "kezlci.html");
  await tab.fill("#search", "circle xylophone");
  await tab.waitForSelector("#found [data-href]");
  assert.match(await tab.textContent("#found"), /^No page has all of these words/);
  await tab.fill("#search", "status 3");
  await tab.waitForFunction(() => !/^No page/.test(document.getElementById("found").textContent));
  await tab.press("#search", "Enter");
  await tab.waitForURL(/statuses\.html/);
  assert.deepEqual(faults, []);
});
