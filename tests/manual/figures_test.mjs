// The manual's pictures: that each shows what its call is about, and that no numbers break one.

import assert from "node:assert/strict";
import { test } from "node:test";
import { draw, NAMES, notShownBy, shownBy } from "../../manual/figures/draw.js";
import { attribute, callOf, callsOf, generator, pictureOf, ROUTINES, wordsOf } from "./drawn.mjs";

function assertSound(svg, about) {
  assert.match(svg, /^<svg [^>]*role="(img|group)"/, about);
  const unwritten = svg
    .replace(/<title>.*?<\/desc>|<text[^>]*>[^<]*<\/text>/gs, "")
    .replace(/aria-value\w+="[^"]*"/g, "");
  assert.ok(!/NaN|undefined|Infinity|null/.test(unwritten), about);
}

test("every routine has a picture, and every argument its place in it", () => {
  assert.deepEqual([...NAMES].sort(), Object.keys(ROUTINES).sort());
  for (const name of NAMES) {
    const known = [...shownBy(name), ...notShownBy(name)].sort();
    assert.deepEqual([...new Set(known)], [...ROUTINES[name].arguments].sort(), name);
  }
});

test("pictures have shapes, and words for those who cannot see", () => {
  for (const name of NAMES) {
    const svg = pictureOf(name, { title: `About ${name}` });
    assertSound(svg, name);
    assert.ok((svg.match(/<(path|circle) class/g) ?? []).length >= 3, `${name} has shapes`);
    assert.match(svg, new RegExp(`<title>About ${name}</title><desc>[^<]*\\d[^<]*</desc>`), name);
    assert.ok(!/<text|class="handle"/.test(pictureOf(name, { small: true })), name);
  }
});

const meet = (p, q) =>
  Math.min(p.right, q.right) - Math.max(p.left, q.left) > 1 &&
  Math.min(p.bottom, q.bottom) - Math.max(p.top, q.top) > 1;

function assertWordsInside(words, width, about) {
  for (const { text, left, right, top, bottom } of words)
    assert.ok(left >= 0 && right <= width && top >= -1 && bottom <= 400, `${about}: ${text}`);
}

test("every worked call has a picture, with its words in the frame", () => {
  for (const name of NAMES) {
    callsOf(name).forEach(({ inputs, results }, i) => {
      for (const narrow of [false, true]) {
        const about = `${name}, call ${i + 1}${narrow ? ", narrow" : ""}`;
        const svg = draw(name, inputs, results, { narrow, report: {} });
        assertSound(svg, about);
        assertWordsInside(wordsOf(svg), narrow ? 380 : 560, about);
      }
    });
  }
});

test("no words cover others in the picture of a page, wide and narrow", () => {
  for (const name of NAMES) {
    for (const narrow of [false, true]) {
      const words = wordsOf(pictureOf(name, { narrow, report: {} }));
      const pairs = words.flatMap((p, i) => words.slice(0, i).filter((q) => meet(p, q))
        .map((q) => `${q.text} and ${p.text}`));
      assert.deepEqual(pairs, [], name);
    }
  }
});

const CHANGES = [(x) => x + 1, (x) => x - 1, (x) => 1.5 * x, (x) => -x];

// What is kept has no meaning; and two names are codes elsewhere.
const isKnown = (name, text) =>
  !text.endsWith("kept") && !["kezro2 k", "kezmer16 pos"].includes(`${name} ${text.split(" ")[0]}`);

// Whether a change of an argument's value, before or after the call, gives another picture.
function matters(name, call, argument) {
  const before = draw(name, call.inputs, call.results);
  return ["inputs", "results"].some((side) =>
    CHANGES.some((change) => {
      const value = call[side][argument];
      if (value === undefined) return false;
      const other = Array.isArray(value) ? value.map(change) : change(value);
      const { inputs, results } = { ...call, [side]: { ...call[side], [argument]: other } };
      return draw(name, inputs, results) !== before;
    }),
  );
}

test("what a picture shows of a call changes the picture", () => {
  for (const name of NAMES) {
    const call = callOf(name);
    const given = { ...call.results, ...call.inputs };
    const unchanged = shownBy(name).filter(
      (argument) => given[argument] !== undefined && !matters(name, call, argument),
    );
    assert.deepEqual(unchanged, [], name);
  }
});

const CODES = "status|rel|code|mode|sense|kind|flag|pos|same|fail|k|side|zero|spans|onLine";
const textsOf = (svg) => [...svg.matchAll(/<text[^>]*>([^<]*)</g)].map(([, text]) => text);

test("codes are decoded, angles have degrees, and the axes names", () => {
  const bare = new RegExp(`^(?:${CODES}) (?:= \\S+|kept)$`);
  const undecoded = new Set();
  for (const name of NAMES) {
    callsOf(name).forEach(({ inputs, results }, i) => {
      const svg = draw(name, inputs, results);
      const texts = textsOf(svg);
      const about = `${name}, call ${i + 1}`;
      for (const text of texts)
        if (bare.test(text) && isKnown(name, text)) undecoded.add(`${about}: ${text}`);
      for (const text of texts)
        if (/^(theta|d?phi|angle|a[xyz]) = [^in]/.test(text)) assert.match(text, /°\)$/, about);
      if (svg.includes('class="tick"') && svg.includes("data-scale"))
        assert.equal((svg.match(/class="axis"/g) ?? []).length, 2, about);
    });
  }
  assert.deepEqual([...undecoded], []);
});

const SPECIAL = [0, -0, 1, -1, 1e-5, 1e-30, 0.5, 7, -3.25, 1e9, 1e20, -3.4e38, 3.4e38, Infinity,
  -Infinity, NaN, 2147483647, -2147483648];

test("no numbers break a picture", () => {
  const random = generator(20240229);
  const special = () => (random(4) ? SPECIAL[random(SPECIAL.length)] : random(2000) / 100 - 10);
  const hostile = (value) =>
    Array.isArray(value)
      ? Array.from({ length: random(2) ? value.length : random(80) }, special)
      : special();
  const mixed = (values) =>
    Object.fromEntries(
      Object.entries(values).map(([name, value]) => [
        name,
        random(3) ? hostile(value) : random(12) ? value : undefined,
      ]),
    );
  for (const name of NAMES) {
    const { inputs, results } = callOf(name);
    for (let i = 0; i < 30; ++i) {
      const [given, found] = [mixed(inputs), random(8) ? mixed(results) : null];
      const about = `${name} ${JSON.stringify([given, found])}`;
      const options = { small: random(4) === 0, call: () => found };
      assertSound(draw(name, given, found, options), about);
    }
  }
  assertSound(draw("no such routine", null, undefined), "an unknown name");
});
