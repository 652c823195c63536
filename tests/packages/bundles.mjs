// The package for npm in bundles: those that esbuild, webpack, rollup and vite make of the documented
// import run in an empty folder in node, and in Chromium.
//
//   node bundles.mjs BUNDLERS, in a folder in which the package is installed; BUNDLERS has the
//   packages of package.json installed

import assert from "node:assert/strict";
import { execFileSync } from "node:child_process";
import { cpSync, mkdirSync, mkdtempSync, readFileSync, rmSync, writeFileSync } from "node:fs";
import { createServer } from "node:http";
import { createRequire } from "node:module";
import { tmpdir } from "node:os";
import { join } from "node:path";
import { pathToFileURL } from "node:url";

const tools = createRequire(join(process.argv[2], "any.js"));
const tool = (name) => import(pathToFileURL(tools.resolve(name)));
const ENTRY = join(process.cwd(), "entry.mjs");
const ANSWER = "2 points, the first at (0.866025, 0.500000); 5 5 10; 7";

writeFileSync(ENTRY, `
import { compile, library, load } from "kezlib";

const kez = await load();
const { n, x1, y1 } = kez.kezlci(0, 1, -0.5, 0, 0, -1);
const { d } = kez.batch.kezpds({ x1: [3, 0, 6], y1: [4, 5, 8], z1: 0, x2: 0, y2: 0, z2: 0 });
const shared = await load(await compile());
if (library !== "embedded") throw new Error(library);
console.log(\`\${n} points, the first at (\${x1.toFixed(6)}, \${y1.toFixed(6)}); \${d.join(" ")}; \${
  shared.kezpds(0, 0, 0, 2, 3, 6).d}\`);
`);

/** The bundlers: each makes DIR/bundle.mjs of the entry, as its own documents say. */
const bundlers = {
  async esbuild(dir, platform) {
    const { build } = await tool("esbuild");
    await build({ entryPoints: [ENTRY], bundle: true, format: "esm", platform, logLevel: "error",
      outfile: join(dir, "bundle.mjs") });
  },
  async webpack(dir, platform) {
    const { default: webpack } = await tool("webpack");
    const compiler = webpack({ mode: "production", context: process.cwd(), entry: ENTRY,
      target: platform === "node" ? "node20" : "web",
      output: { path: dir, filename: "bundle.mjs" } });
    const stats = await new Promise((resolve, reject) =>
      compiler.run((error, found) => (error ? reject(error) : resolve(found))));
    assert(!stats.hasErrors(), stats.toString());
  },
  async rollup(dir, platform) {
    const { rollup } = await tool("rollup");
    const { nodeResolve } = await tool("@rollup/plugin-node-resolve");
    const bundle = await rollup({ input: ENTRY,
      plugins: [nodeResolve({ browser: platform === "browser" })],
      onLog: (level, log) => assert.fail(`${level}: ${log.message}`) });
    await bundle.write({ file: join(dir, "bundle.mjs"), format: "es" });
  },
  async vite(dir, platform) {
    const { build } = await tool("vite");
    await build({ root: process.cwd(), configFile: false, logLevel: "error",
      build: { outDir: dir, ssr: platform === "node", minify: true,
        rollupOptions: { input: ENTRY, output: { entryFileNames: "bundle.mjs" } } },
      ssr: { noExternal: true } });
  },
};

const PAGE = '<!doctype html><link rel="icon" href="data:,">' +
  '<script type="module" src="bundle.mjs"></script>';

/** What the bundle says in a page whose server has nothing else. */
async function saidInBrowser(browser, dir) {
  const server = createServer((request, response) => {
    const isPage = request.url === "/";
    response.setHeader("Content-Type", isPage ? "text/html" : "text/javascript");
    response.statusCode = isPage || request.url === "/bundle.mjs" ? 200 : 404;
    response.end(isPage ? PAGE : response.statusCode === 200
      ? readFileSync(join(dir, "bundle.mjs")) : "");
  });
  await new Promise((resolve) => server.listen(0, "127.0.0.1", resolve));
  const tab = await browser.newPage();
  const said = new Promise((resolve) => {
    tab.on("console", (message) => resolve(message.text()));
    tab.on("pageerror", (error) => resolve(error.message));
  });
  await tab.goto(`http://127.0.0.1:${server.address().port}/`);
  const found = await said;
  await tab.close();
  server.close();
  return found;
}

const { chromium } = tools("playwright-core");
const browser = await chromium.launch({
  executablePath: process.env.CHROMIUM ?? "/usr/bin/chromium",
  args: ["--no-sandbox", "--disable-gpu"],
});
const empty = mkdtempSync(join(tmpdir(), "kezlib-bundles-"));
try {
  for (const [name, bundle] of Object.entries(bundlers))
    for (const platform of ["node", "browser"]) {
      const dir = join(process.cwd(), "bundles", name, platform);
      mkdirSync(dir, { recursive: true });
      await bundle(dir, platform);
      const alone = join(empty, name, platform);
      cpSync(dir, alone, { recursive: true });
      const said = platform === "browser" ? await saidInBrowser(browser, alone)
        : execFileSync(process.execPath, ["bundle.mjs"], { cwd: alone, encoding: "utf8" }).trim();
      assert.equal(said, ANSWER, `${name} for ${platform}`);
      console.log(`${name}: the bundle for ${platform} runs`);
    }
} finally {
  await browser.close();
  rmSync(empty, { recursive: true });
}
