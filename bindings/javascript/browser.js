// What kezlib.browser.js is bundled from: the package with the WebAssembly module in it, for pages
// that are opened from a file, where a browser loads no modules.

import embedded from "./kezlib.wasm";
import { instantiate } from "./call.js";

export { version } from "./routines.js";

/** Where the module is that is loaded unless something else is given. */
export const library = "kezlib.browser.js";

export const load = async (from) => instantiate(from ?? embedded);
