// The package as it is installed in the folder in which a test runs.

import { readFileSync } from "node:fs";
import { createRequire } from "node:module";
import { join } from "node:path";
import { pathToFileURL } from "node:url";

const here = createRequire(join(process.cwd(), "host.js"));

export const place = pathToFileURL(here.resolve("kezlib"));
export const wasm = here.resolve("kezlib/kezlib.wasm");
export const kezlib = await import(place);
export const bytes = () => readFileSync(wasm);

/** A file of the package. */
export const file = (name) => import(new URL(name, place));

/** The routines of a new instance, and what the instance itself exports. */
export async function loadedWithExports() {
  let exports;
  const { instantiate } = WebAssembly;
  WebAssembly.instantiate = async (...given) => {
    const made = await instantiate(...given);
    ({ exports } = made.instance);
    return made;
  };
  const kez = await kezlib.load().finally(() => (WebAssembly.instantiate = instantiate));
  return { kez, exports };
}
