// The library in a page: compressed, for a page that comes from a disk has it in its script.

import packed from "packed-library";
import { instantiate } from "kezlib/call.js";

const unpacked = async () =>
  new Response(
    new Blob([packed]).stream().pipeThrough(new DecompressionStream("gzip")),
  ).arrayBuffer();

let bytes;

// An instance of its own, with kept values of its own.
export async function load() {
  bytes ??= unpacked();
  return instantiate(await bytes);
}
