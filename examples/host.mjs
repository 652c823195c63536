import { load } from "kezlib";

const kez = await load();
const [a, b, c] = [0, 1, -0.5]; // the line y = 0.5
const [d, e, f] = [0, 0, -1]; // the unit circle x^2 + y^2 - 1 = 0
const { n, x1, y1, x2, y2 } = kez.kezlci(a, b, c, d, e, f);
const shown = (x, y) => `(${+x.toFixed(6)}, ${+y.toFixed(6)})`;
if (n === 2) console.log(`${shown(x1, y1)} and ${shown(x2, y2)}`);
