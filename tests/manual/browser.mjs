// A real browser, and the manual that it is to show: the folders come in the environment.

import { execFileSync } from "node:child_process";
import { readdirSync, readFileSync } from "node:fs";
import { createRequire } from "node:module";
import { pathToFileURL } from "node:url";

const { MANUAL, PACKAGES, KEZCALL, CHROMIUM = "/usr/bin/chromium" } = process.env;
const require = createRequire(`${PACKAGES}/`);
const { chromium } = require("playwright-core");

export const AXE = readFileSync(require.resolve("axe-core/axe.min.js"), "utf8");

export const pages = readdirSync(MANUAL).filter((file) => file.endsWith(".html"));
export const textOf = (page) => readFileSync(`${MANUAL}/${page}`, "utf8");
export const address = (page) => `${pathToFileURL(MANUAL)}/${page}`;
export const dataOf = (page) =>
  JSON.parse(/id="routine">(.*?)<\/script>/s.exec(textOf(page))[1]);
export const routines = pages.filter((page) => textOf(page).includes('id="routine"'));

export const kezcall = (...words) => execFileSync(KEZCALL, words, { encoding: "utf8" });

export const launch = () =>
  chromium.launch({ executablePath: CHROMIUM, args: ["--no-sandbox", "--disable-gpu"] });

export const ready = (tab) => tab.waitForSelector("html[data-live]", { state: "attached" });

// Opens a page, and waits for the library where it runs in it.
export async function open(tab, page) {
  await tab.goto(address(page));
  if (routines.includes(page)) await ready(tab);
}

// A tab that notes what must not happen in it.
export async function watchedTab(browser, options = {}) {
  const context = await browser.newContext(options);
  const tab = await context.newPage();
  const faults = [];
  tab.setDefaultTimeout(10000);
  tab.on("console", (said) => {
    if (["error", "warning"].includes(said.type())) faults.push(`${tab.url()}: ${said.text()}`);
  });
  tab.on("pageerror", (error) => faults.push(`${tab.url()}: ${error.message}`));
  tab.on("request", (request) => {
    if (!/^(file|data|about|blob):/.test(request.url())) faults.push(`asks for ${request.url()}`);
  });
  tab.on("requestfailed", (request) => faults.push(`${request.url()} is not there`));
  return { tab, faults };
}
