// The package: KezLib's routines, computed by the WebAssembly module that lies beside this file.

import { instantiate } from "./call.js";

export { version } from "./routines.js";

const FILE = new URL("kezlib.wasm", import.meta.url);

/** The file that is loaded unless something else is given. */
export const library = FILE.href;

async function bytesBeside() {
  if (FILE.protocol === "file:") {
    const { readFile } = await import("node:fs/promises");
    return readFile(FILE);
  }
  const response = await fetch(FILE);
  if (!response.ok) throw new Error(`${FILE}: ${response.status} ${response.statusText}`);
  return response.arrayBuffer();
}

/** The module, which workers can share. */
export const compile = async () => WebAssembly.compile(await bytesBeside());

/** The routines by name. Each load has kept values of its own. */
export const load = async (from) => instantiate(from ?? (await bytesBeside()));
