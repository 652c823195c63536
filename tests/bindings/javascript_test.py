#!/usr/bin/env python3
"""The package for JavaScript: packed, installed in an empty folder and called from there by node,
and from pages by Chromium. Needs the programs of build/release.

Needs: nodejs npm node-typescript chromium
"""

import functools
import http.server
import json
import re
import shutil
import threading

import harness

# By hand: A = 600 + 900, Ix = 3350000 - A 35^2, Iy = 750000 - A 15^2, Ixy = 337500 - A 15 35.
SECTION = """area 15.0 cm^2 centroid (15.0, 35.0) mm
moments Ix 151.3 cm^4, Iy 41.3 cm^4, Ixy -45.0 cm^4
principal 167.3 cm^4 and 25.2 cm^4, at 19.6 degrees"""
SHOWN = "<p>2 0.866025, 1,2,3, no z, X has 1 entry</p>"  # by javascript_page.html
STRICT = ["--strict", "--target", "es2022", "--module", "nodenext", "--moduleResolution",
          "nodenext", "--lib", "es2022,dom"]
# All calls share an instance, and results are looked at before they would be printed in short.
CALLS = """\
import { readFileSync } from "node:fs";
const found = {}, text = (v) => Array.from(typeof v === "number" ? [v] : v, String);
for (const name of JSON.parse(readFileSync("names.json", "utf8"))) {
  console.log = (results) => (found[name] = Object.fromEntries(
    Object.entries(results).map(([key, v]) => [key, v === undefined ? null : text(v)])));
  try {
    await import(`./${name}.mjs`);
  } catch (error) {
    if (!(error instanceof RangeError)) throw error;
    found[name] = { refused: [error.message] };
  }
}
process.stdout.write(JSON.stringify(found));
"""


def with_package(place):
    """A folder in which all that load the package get one instance."""
    here = place.on("linux")
    shared = here.work / "node_modules/kezlib"
    shared.mkdir(parents=True, exist_ok=True)
    binding = place.binding("javascript")
    (shared / "shared.js").write_text(f'import {{ load as whole }} from "{binding}/kezlib.js";\n'
                                      "const kez = whole();\nexport const load = () => kez;\n")
    shutil.copy(binding / "kezlib.d.ts", shared)
    (shared / "package.json").write_text(json.dumps({"name": "kezlib", "type": "module", "exports": {
        ".": {"types": "./kezlib.d.ts", "default": "./shared.js"}}}))
    return here


def javascript(texts, place, suffix="mjs"):
    here = with_package(place)
    for name, text in texts.items():
        here.file(f"{name}.{suffix}", text)
    if suffix == "mts":
        here.run("tsc", *STRICT, *(f"{name}.mts" for name in texts))
    here.file("names.json", json.dumps(list(texts)))
    here.file("calls.mjs", CALLS)
    return json.loads(here.run("node", "calls.mjs"))


def typescript(texts, place):
    return javascript(texts, place, "mts")


def program(text, place):
    return place.run("node", place.file("program.mjs", text))


def check_reference(place):
    """The hashes of all builds."""
    calls = harness.ROOT / "build/release/tests/reference"
    place.run(calls, "calls", "seeded")
    place.run(calls, "calls", "worked", *sorted(harness.ROOT.glob("tests/cases/*.txt")))
    return place.run("node", harness.HERE / "javascript_reference.mjs", "node_modules/kezlib",
                     harness.ROOT / "tests/reference.txt", "seeded", "worked").strip()


class Quiet(http.server.SimpleHTTPRequestHandler):
    def log_message(self, *words):
        pass


def shown_by_browser(url, place):
    return place.run("chromium", "--headless", "--no-sandbox", "--disable-gpu",
                     f"--user-data-dir={place.work}/profile", "--virtual-time-budget=10000",
                     "--dump-dom", url)


def check_pages(place):
    """One that is opened from a file, and one that a server sends."""
    page = (harness.HERE / "javascript_page.html").read_text()
    place.file("page.html", page)
    shutil.copy(place.binding("javascript") / "kezlib.browser.js", place.work)
    loaded = '<script type="module">import * as kezlib from "./node_modules/kezlib/kezlib.js";'
    place.file("module.html", re.sub("<script src=.*\n", "", page).replace("<script>", loaded))
    handler = functools.partial(Quiet, directory=place.work)
    with http.server.ThreadingHTTPServer(("127.0.0.1", 0), handler) as server:
        threading.Thread(target=server.serve_forever, daemon=True).start()
        for url in (f"file://{place.work}/page.html",
                    f"http://127.0.0.1:{server.server_port}/module.html"):
            # On a busy machine the browser's own time may end before the module is compiled.
            said = (shown_by_browser(url, place) for _ in range(5))
            assert any(SHOWN in dom for dom in said), shown_by_browser(url, place)
        server.shutdown()


def main():
    (place,) = harness.places()
    assert (place.binding("javascript") / "kezlib.wasm").exists(), "build the preset wasm first"
    print(harness.check("javascript", javascript, place, says_kept=True, refuses=True, made=True))
    assert not [*place.work.rglob("OUTPUT.TXT")], "a file was written"
    print(harness.check("typescript", typescript, place, says_kept=True, one_each=True))
    place = harness.replace(place, work=place.work.parent / "installed")
    place.work.mkdir(exist_ok=True)
    place.run("npm", "pack", "--offline", place.binding("javascript"))
    place.file("package.json", '{"private": true}')
    place.run("npm", "install", "--offline", "--no-audit", "--no-fund",
              *place.work.glob("kezlib-*.tgz"))
    programs = [((harness.EXAMPLES / "host.mjs").read_text(), harness.FIRST_CALL),
                ((harness.EXAMPLES / "section.mjs").read_text(), SECTION)]
    harness.check_programs(program, programs + harness.page_programs(place, "javascript", "js"),
                           place)
    place.run("node", "--test", harness.HERE / "javascript_batch.mjs",
              harness.HERE / "javascript_lists.mjs", harness.HERE / "javascript_misuse.mjs")
    shutil.copy(harness.HERE / "javascript_types.mts", place.work)
    place.run("tsc", "--noEmit", *STRICT, "javascript_types.mts")
    print(check_reference(place))
    check_pages(place)


if __name__ == "__main__":
    main()
