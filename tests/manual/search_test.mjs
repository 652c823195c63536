// What a reader looks for, and what the search shows first.

import assert from "node:assert/strict";
import { readFileSync } from "node:fs";
import { test } from "node:test";
import { ranked } from "../../manual/browser/ranking.js";

const script = readFileSync(`${process.env.MANUAL}/assets/index.js`, "utf8");
const index = JSON.parse(script.slice(script.indexOf("["), script.lastIndexOf("]") + 1));
const found = (text) => ranked(index, text).map(([title]) => title);

for (const [asked, first] of [
  ["kezlci", "kezlci"], ["LCI", "kezlci"], ["circle line intersection", "kezlci"],
  ["area of an outline", "kezapl"], ["lip", "kezsec_c"], ["effective width", "kezef2"],
  ["fortran", "Fortran"], ["c#", "C#"], ["linking", "Linking and platforms"],
  ["cirlce of radius", "kezcer"], ["intersecton", "kezlni"], ["kezpdss", "kezpds"],
  ["kezlst", "Overview"], ["second moment of inertia", "kezipl"], ["numpy", "Python"],
  ["circles and arcs", "Circles and arcs"],
  ["distance", "kezpds"], ["intersect_line_circle", "kezlci"]]) {
  test(`“${asked}” finds ${first}`, () => assert.equal(found(asked)[0], first));
}

test("what no page has is not found", () => {
  for (const text of ["xylophone", "circle xylophone", "", "  ", "zzz"])
    assert.deepEqual(found(text), []);
});

test("every page can be found by its title", () => {
  const missing = index.map(([title]) => title).filter((title) => !found(title).includes(title));
  assert.deepEqual(missing, []);
});
