// What a reader does on the pages: changing numbers, dragging, copying, searching.

import assert from "node:assert/strict";
import { mkdtempSync, writeFileSync } from "node:fs";
import { tmpdir } from "node:os";
import { after, afterEach, before, beforeEach, test } from "node:test";
import { answered, assertSame } from "./answers.mjs";
import { address, kezcall, launch, open, ready, watchedTab } from "./browser.mjs";

let browser;
let tab;
let faults;
before(async () => (browser = await launch()));
after(() => browser.close());
beforeEach(async () => ({ tab, faults } = await watchedTab(browser)));
afterEach(async () => {
  assert.deepEqual(faults, []);
  await tab.context().close();
});

const field = (name) => tab.locator(`#fields [name="${name}"]`);
const picture = () => tab.locator("#picture").innerHTML();
const message = () => tab.locator("#message").textContent();

const fields = () =>
  tab.evaluate(() =>
    [...document.querySelectorAll("#fields input")].map((input) => [input.name, input.value]),
  );

const results = async () =>
  Object.fromEntries(
    await tab.evaluate(() =>
      [...document.querySelectorAll("#results > div")].map((entry) =>
        [...entry.children].map((child) => child.textContent),
      ),
    ),
  );

const isArray = async (name) =>
  (await field(name).locator("xpath=..").getAttribute("class")) === "array";

async function askedOfKezcall() {
  const words = [];
  for (const [name, text] of await fields()) {
    if (await isArray(name)) words.push("[", ...text.split(" ").filter(Boolean), "]");
    else words.push(text);
  }
  return words;
}

const LIVE = [["kezpds", "x2", 0.25], ["kezlci", "c", 0.25], ["kezc12", "F2", 0.25],
  ["kezcer2", "R", 0.25], ["kezln5", "x1", 0.5], ["kezphi", "x1", 0.5], ["kezpsl", "x", 9],
  ["kezapl", "X", 0.5], ["kezipl", "X", 0.5], ["kezord", "x", 7], ["kezord1", "ia", 7],
  ["kezpos", "v", 1], ["kezpas", "step", 0.5], ["kezaxe", "xa", 0.5], ["kezpli", "x0", 0.5],
  ["kezpnl", "zof", 9], ["kezsec_ia", "b1", 0.5], ["kezsec_i", "r", 0.5], ["kezchi", "t", 0.01],
  ["kezef2", "s2", -0.1], ["kezmer1", "a", 2], ["kezmer13", "tol", 1], ["kezadr", "source", 3],
  ["kezppp", "px", 0.5], ["kezptp2", "X", 0.5]];

for (const [name, input, step] of LIVE) {
  test(`${name}: a changed number gives kezcall's results, and another picture`, async () => {
    await open(tab, `${name}.html`);
    const before = await picture();
    const [first, ...rest] = (await field(input).inputValue()).split(" ");
    await field(input).fill([Number(first) + step, ...rest].join(" "));
    const asked = await askedOfKezcall();
    assertSame(await results(), answered(kezcall(name, ...asked)), `${name} ${asked.join(" ")}`);
    assert.notEqual(await picture(), before, "the picture is the same");
    assert.equal(await message(), "");
  });
}

test("what a routine keeps is of the reader's calls, not of those for its curve", async () => {
  await open(tab, "kezefr.html");
  await field("d").fill("100");
  await field("b").fill("20");
  await field("b").fill("70");
  const [b, , ...others] = await askedOfKezcall();
  const sameCoefficient = kezcall("kezefr", b, "350", ...others); // 70 / 350 as 20 / 100
  assertSame(await results(), answered(sameCoefficient), "kept");
});

test("the address keeps the inputs", async () => {
  await open(tab, "kezlci.html");
  await field("c").fill("-0.25");
  const [shown, drawn] = [await results(), await picture()];
  await tab.reload();
  await ready(tab);
  assert.equal(await field("c").inputValue(), "-0.25");
  assert.deepEqual([await results(), await picture()], [shown, drawn]);
  await tab.locator("#reset").click();
  assert.equal(tab.url(), address("kezlci.html"));
});

test("a worked call goes into the fields, and the way back out of them", async () => {
  await open(tab, "kezlci.html");
  const example = await fields();
  const call = tab.locator(".worked .call").nth(3);
  const href = await call.getAttribute("href");
  await call.click();
  await tab.waitForURL((url) => url.hash === href);
  await tab.waitForTimeout(100);
  const wanted = Object.fromEntries(new URLSearchParams(href.slice(1)));
  assert.deepEqual(Object.fromEntries(await fields()), wanted);
  await tab.goBack();
  await tab.waitForURL(address("kezlci.html"));
  await tab.waitForTimeout(100);
  assert.deepEqual(await fields(), example);
});

test("a browser that remembers nothing shows what is chosen all the same", async () => {
  await tab.addInitScript(() =>
    Object.defineProperty(window, "localStorage", {
      get() {
        throw new DOMException("refused", "SecurityError");
      },
    }),
  );
  await open(tab, "kezlci.html");
  await tab.locator("#tab-fortran").click();
  assert.ok(await tab.locator("#panel-fortran").isVisible());
  await tab.locator("#theme").click();
  assert.equal(await tab.evaluate(() => document.documentElement.dataset.theme), "dark");
});

test("bad input is said in words, and the field is marked", async () => {
  await open(tab, "kezapl.html");
  const shown = await results();
  await field("n").fill("many");
  assert.match(await message(), /n: “many” is no integer/);
  assert.equal(await field("n").getAttribute("aria-invalid"), "true");
  assert.equal(await tab.locator("main[data-stale]").count(), 1);
  await field("n").fill("1000");
  assert.match(await message(), /entries.*asks for 1001/);
  await field("n").fill("");
  assert.match(await message(), /n: is empty/);
  await tab.locator("#reset").click();
  assert.equal(await message(), "");
  assert.equal(await field("n").getAttribute("aria-invalid"), null);
  assert.equal(await tab.locator("main[data-stale]").count(), 0);
  assert.deepEqual(await results(), shown);
});

test("what would fill the page for ever is refused", async () => {
  await open(tab, "keznst.html");
  await field("n").fill("2000000000");
  assert.match(await message(), /more than a page can show/);
});

test("a routine of the host that has too few values is said", async () => {
  await open(tab, "kezpnl.html");
  await field("zof").fill("0 0 1");
  assert.equal(await message(), "zof: has 3 values and is asked for 4");
  assert.equal(await field("zof").getAttribute("aria-invalid"), "true");
});

test("degenerate input shows what the library does with it", async () => {
  await open(tab, "kezlci.html");
  await field("c").fill("-1000");
  assert.deepEqual(await results(), { n: "0", x1: "kept", y1: "kept", x2: "kept", y2: "kept" });
  for (const text of ["nan", "inf", "-inf", "1e38", "1e-45", "\u22121e99"])
    await field("c").fill(text);
  assert.equal(await message(), "");
});

const point = async () => [await field("x2").inputValue(), await field("y2").inputValue()];

test("a point of the picture is dragged", async () => {
  await open(tab, "kezln3.html");
  const handle = () => tab.locator('#picture .handle[data-x="x2"]');
  const from = await handle().boundingBox();
  const [before, distance] = [await point(), await results()];
  const middle = [from.x + from.width / 2, from.y + from.height / 2];
  await tab.mouse.move(...middle);
  await tab.mouse.down();
  await tab.mouse.move(middle[0] - 40, middle[1] + 20, { steps: 4 });
  const held = await handle().boundingBox();
  await tab.mouse.up();
  const [[x, y], [oldX, oldY]] = [(await point()).map(Number), before.map(Number)];
  assert.ok(x < oldX && y < oldY, `(${oldX}, ${oldY}) became (${x}, ${y})`);
  assert.ok(Math.abs((oldX - x) / (oldY - y) - 2) < 0.2, "not along the pointer's way");
  assert.ok(Math.abs(held.x - from.x + 40) < 3, "the point is not under the pointer");
  assert.notDeepEqual(await results(), distance);
});

test("a point of a list is moved by the arrow keys, alone", async () => {
  await open(tab, "kezapl.html");
  const entries = async (name) => (await field(name).inputValue()).split(" ");
  const [x, y] = [await entries("X"), await entries("Y")];
  await tab.locator('#picture .handle[data-entry="2"]').focus();
  await tab.keyboard.press("ArrowUp");
  assert.deepEqual(await entries("X"), x);
  const moved = await entries("Y");
  assert.ok(Number(moved[1]) > Number(y[1]), `${y} became ${moved}`);
  assert.deepEqual(
    moved.filter((_, i) => i !== 1),
    y.filter((_, i) => i !== 1),
  );
});

test("every language's call follows the numbers, and kezcall takes its row", async () => {
  await open(tab, "kezlci.html");
  await field("c").fill("-0.125");
  const codes = await tab.locator("[data-call]").allTextContents();
  assert.ok(codes.length >= 2 && codes.every((code) => code.includes("0.125")), codes.join("\n"));
  const row = await tab.locator('[data-call="kezcall"]').textContent();
  const file = `${mkdtempSync(`${tmpdir()}/manual-`)}/row.txt`;
  writeFileSync(file, `${row}\n`);
  assert.match(kezcall(file), /1 passed/);
});

test("lists of either kind are copied as what they hold", async () => {
  await open(tab, "kezmer1.html");
  const copied = (language) => tab.locator(`[data-call="${language}"]`).textContent();
  assert.match(await copied("c"), /int32_t a\[/);
  assert.match(await copied("fortran"), /integer :: a\(/);
  await field("b").fill("1.5 2");
  assert.match(await copied("c"), /float a\[/);
  assert.match(await copied("kezcall"), /\[10\.0 20\.0 30\.0\]/);
  assert.match(await copied("fortran"), /real :: a\(/);
});

test("the keyboard alone: search, a tab that is remembered, a point, the theme", async () => {
  await open(tab, "index.html");
  await tab.keyboard.press("/");
  await tab.keyboard.type("line circle");
  const found = await tab.locator("#found [role=option]").allTextContents();
  assert.ok(
    found.some((text) => text.includes("kezlci")),
    found.join("\n"),
  );
  await tab.locator("#search").fill("kezln3");
  await tab.keyboard.press("ArrowDown");
  await tab.keyboard.press("ArrowUp");
  await tab.keyboard.press("Enter");
  await tab.waitForURL(/kezln3/);
  await ready(tab);

  const selected = () => tab.locator('[role=tab][aria-selected="true"]').textContent();
  await tab.locator('[role=tab][aria-selected="true"]').focus();
  await tab.keyboard.press("End");
  assert.equal(await selected(), "kezcall");
  await tab.keyboard.press("Tab");
  assert.equal(await tab.evaluate(() => document.activeElement.id), "panel-kezcall");

  const [x] = (await point()).map(Number);
  await tab.locator('#picture .handle[data-x="x2"]').focus();
  await tab.keyboard.press("ArrowRight");
  await tab.keyboard.press("ArrowRight");
  assert.ok(Number(await field("x2").inputValue()) > x);

  await tab.locator("#theme").focus();
  await tab.keyboard.press("Enter");
  await open(tab, "kezlci.html");
  assert.equal(await selected(), "kezcall");
  assert.equal(await tab.evaluate(() => document.documentElement.dataset.theme), "dark");
});

test("what is not there is not found", async () => {
  await open(tab, "index.html");
  await tab.locator("#search").fill("xylophone");
  assert.deepEqual(await tab.locator("#found li").allTextContents(), ["Nothing is found."]);
  await tab.keyboard.press("Enter");
  assert.match(tab.url(), /index\.html$/);
});

test("fields take expressions, and say what to write instead of a comma", async () => {
  await open(tab, "kezpds.html");
  for (const [name, text] of [["x1", "3/4"], ["y1", "2*(1+sqrt(4))"], ["z1", "-pi/6"]])
    await field(name).fill(text);
  for (const [name, text] of [["x2", "0.75"], ["y2", "6"], ["z2", "-30deg"]])
    await field(name).fill(text);
  assert.deepEqual(await results(), { d: "0" });
  await field("x1").fill("1,5");
  assert.equal(await message(), "x1: has a comma: write “1.5” with a point");
  await field("x1").fill("3/");
  assert.equal(await message(), "x1: “3/” is no number");
  await open(tab, "kezord.html");
  await field("n").fill("3.0");
  await field("x").fill("3,1,2");
  assert.deepEqual(await results(), { x: "1 2 3" });
  await field("x").fill("3,1 2,5 7");
  assert.match(await message(), /“3\.1” with a point, or “3 1” for two entries/);
});

test("an address may name inputs behind ?, and is told of what there is not", async () => {
  await tab.goto(`${address("kezpds.html")}?x1=5&foo=1#y1=7&toString=2`);
  await ready(tab);
  assert.deepEqual([await field("x1").inputValue(), await field("y1").inputValue()], ["5", "7"]);
  assert.match(await message(), /“foo”, “toString”; the inputs are x1, y1, z1, x2/);
  await field("x1").fill("6");
  assert.equal(await message(), "");
  assert.equal(tab.url(), `${address("kezpds.html")}#x1=6&y1=7`);
});

test("an address that the browser refuses to write stops nothing", async () => {
  await open(tab, "kezpds.html");
  await tab.evaluate(() => {
    history.replaceState = () => {
      throw new DOMException("too often", "SecurityError");
    };
  });
  await field("x1").fill("100");
  assert.ok(Number((await results()).d) > 90);
  assert.equal(await message(), "");
});

// What is grey of the results.
const unsure = () =>
  tab.evaluate(() =>
    Object.fromEntries(
      [...document.querySelectorAll("#results > div")].map((entry) => [
        entry.firstChild.textContent,
        [...entry.querySelectorAll(".unsure")].map((part) => part.textContent).join(""),
      ]),
    ),
  );

test("digits that the inputs' last places change are grey, and others are not", async () => {
  await open(tab, "kezpds.html");
  await tab.locator("#digits").check();
  assert.deepEqual(await results(), { d: "5" });
  assert.equal(await tab.locator("#tolerance").textContent(), "");
  await field("x1").fill("100000.11");
  await field("x2").fill("100000.52");
  for (const name of ["y1", "z1", "y2", "z2"]) await field(name).fill("0");
  const [all, grey] = [(await results()).d, (await unsure()).d];
  const difference = 2 ** -7; // what singles of this size are apart
  assert.ok(all.endsWith(grey) && grey.length > 3, `${all}, of which ${grey}`);
  assert.ok(Math.abs(all - 0.41) <= difference);
  assert.match(await tab.locator("#tolerance").textContent(), /0\.0078 apart.*1\.0e-5 is less/);
  await tab.locator("#digits").uncheck();
  assert.equal((await unsure()).d, "");
});

async function dragged(selector, [dx, dy]) {
  const box = await tab.locator(selector).boundingBox();
  const middle = [box.x + box.width / 2, box.y + box.height / 2];
  await tab.mouse.move(...middle);
  await tab.mouse.down();
  await tab.mouse.move(middle[0] + dx, middle[1] + dy, { steps: 4 });
  await tab.mouse.up();
}

const valuesNow = async () => Object.fromEntries(await fields());
const changedNames = (before, now) => Object.keys(now).filter((name) => now[name] !== before[name]);

test("points in space move in the plane that is chosen and shown", async () => {
  await open(tab, "kezpds.html");
  const handle = '#picture .handle[data-x="x2"]';
  await tab.locator(handle).focus();
  assert.ok(await tab.locator(`${handle} .plane`).isVisible());
  for (const [plane, names] of [["xy", ["x2", "y2"]], ["yz", ["y2", "z2"]]]) {
    await tab.locator(`#plane [value=${plane}]`).check();
    const before = await valuesNow();
    await dragged(handle, [25, -5]);
    assert.deepEqual(changedNames(before, await valuesNow()), names);
  }
});

for (const [name, selector, changes] of [
  ["kezlci", '[data-x="D"] >> nth=0', ["D", "E", "F"]],
  ["kezlci", '[data-x="a"] >> nth=0', ["c"]],
  ["kezsec_t", '[data-x="b"]', ["b"]],
  ["kezefr", '[data-x="b"]', ["b"]],
  ["kezpos", '[data-x="v"]', ["v"]],
]) {
  test(`${name}: dragging changes ${changes}, and what is beyond the frame comes back`, async () => {
    await open(tab, `${name}.html`);
    const before = await valuesNow();
    const handle = `#picture .handle${selector}`;
    await dragged(handle, [22, -14]);
    assert.deepEqual(changedNames(before, await valuesNow()), changes);
    await dragged(handle, [600, -300]);
    const box = await tab.locator(handle).boundingBox();
    const frame = await tab.locator("#picture").boundingBox();
    assert.ok(box.x > frame.x - 20 && box.x < frame.x + frame.width + 20, JSON.stringify(box));
    assert.equal(await message(), "");
  });
}

test("each worked call has a small picture, and one that is tried brings the large one", async () => {
  await open(tab, "kezlci.html");
  const calls = tab.locator(".worked .call");
  await tab.waitForFunction(() =>
    document.querySelectorAll(".worked .call .thumb svg").length > 8,
  );
  await calls.nth(4).click();
  await tab.waitForFunction(() => document.getElementById("picture").getBoundingClientRect().top >= 0);
});

test("print shows all worked calls, and no form", async () => {
  await open(tab, "kezlci.html");
  await tab.evaluate(() => dispatchEvent(new Event("beforeprint")));
  await tab.emulateMedia({ media: "print" });
  const calls = await tab.locator(".worked .call").all();
  assert.ok(calls.length > 8);
  for (const call of calls) assert.ok(await call.isVisible());
  assert.equal(await tab.locator("#fields").isVisible(), false);
});
