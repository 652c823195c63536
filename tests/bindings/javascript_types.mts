// What the declarations must accept with these types, and what they must refuse.
import { compile, library, load, version, type KezLib } from "kezlib";

const kez: KezLib = await load();
await load(new Uint8Array(8));
await load(new ArrayBuffer(8));
await load(new WebAssembly.Module(new Uint8Array(8)));
await load(await compile());
const said: string = `${library} ${version}`;
kez.kezsec_c(60, 150, 0, 2);
kez.kezsec_c(60, 150, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, { x: [] });

const cut: { n: number; x1: number | undefined } = kez.kezlci(0, 1, 0, 0, 0, -1, { x1: 2 });
const moved: { X: Float32Array; area: number } = kez.kezapl([0, 1, 0], new Float64Array(3), 2);
const reals: Float32Array = kez.kezinv(1, new Float32Array(1)).x;
const integers: Int32Array = kez.kezinv(1, new Int32Array(1)).x;
const either: Float32Array | Int32Array = kez.kezinv(1, [1]).x;
const positions: Int32Array = kez.kezpnl(0, 0, 0, 1, 0, 0, [0], [0], (i: number) => i, 1, 1).idx;
const many: { d: Float32Array } = kez.batch.kezpds(
  { x1: new Float32Array(2), y1: [1, 2], z1: 0, x2: 0, y2: 0, z2: 0 });
const inside: { status: Int32Array; X?: Float32Array } = kez.batch.kezppp(
  { n: 3, X: [0, 1, 0], Y: new Float32Array(3), px: [0, 1], py: 0 });
void [inside, many, said, cut, moved, reals, integers, either, positions];

// @ts-expect-error: an input of many calls is missing
kez.batch.kezpds({ x1: 0, y1: 0, z1: 0, x2: 0, y2: 0 });
// @ts-expect-error: a count of many calls is one number
kez.batch.kezord({ x: [1, 2], n: [1, 1] });
// @ts-expect-error: no such input
kez.batch.kezpds({ x1: 0, y1: 0, z1: 0, x2: 0, y2: 0, z2: 0, d: 0 });
// @ts-expect-error: text is no number
kez.kezpds("0", 0, 0, 0, 0, 0);
// @ts-expect-error: an argument is missing
kez.kezpds(0, 0, 0, 0, 0);
// @ts-expect-error: or one that may not
kez.kezsec_c(60, 150, 0);
// @ts-expect-error: and one is too many
kez.kezpds(0, 0, 0, 0, 0, 0, {});
// @ts-expect-error: a number is no array
kez.kezord(1, 1);
// @ts-expect-error: an array of texts
kez.kezord(["1"], 1);
// @ts-expect-error: no such output may be kept
kez.kezlci(0, 1, 0, 0, 0, -1, { n: 2 });
// @ts-expect-error: what may be kept need not be there
const x1: number = kez.kezlci(0, 1, 0, 0, 0, -1).x1;
// @ts-expect-error: no such output
kez.kezpds(0, 0, 0, 0, 0, 0).distance;
// @ts-expect-error: a list of reals comes back as one
const wrong: Int32Array = kez.kezinv(1, new Float32Array(1)).x;
// @ts-expect-error: a callback returns a number
kez.kezpnl(0, 0, 0, 1, 0, 0, [0], [0], (i: number) => `${i}`, 1, 1);
