// The package with the WebAssembly module in it, for bundles, and for pages where a browser loads no
// files.

import embedded from "./embedded.js";
import { instantiate } from "./call.js";

export { version } from "./routines.js";

/** Where the module is that is loaded unless something else is given. */
export const library = "embedded";

export const compile = async () => WebAssembly.compile(embedded);

export const load = async (from) => instantiate(from ?? embedded);
