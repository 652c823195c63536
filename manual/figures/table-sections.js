// Steel sections and design values.

import { CENTRES, CHANNEL, CHANNEL_NAMES, corner } from "./channel.js";
import { curve, inset } from "./chart.js";
import { cells, lists } from "./lists.js";
import { PANEL, panelDims, STIFFENER, stiffenerDims, STRESSED } from "./panel.js";
import { entries, gap, range, ruler } from "./ruler.js";
import { contourKey, contours, dim, mid, OUTLINE, section, share, vertices } from "./section.js";

const PASSED = "kind v1 v2 v3 v4 v5 v6 v7 value";

const builder = (dimensions, { also = "" } = {}) =>
  section([OUTLINE, ...dimensions], { tell: "nc", silent: `${PASSED}${also}`, key: contourKey });

const top = { side: "top" };
const bottom = { side: "bottom" };
const left = { side: "left" };
const right = { side: "right" };
const second = (side) => ({ ...side, level: 2 });
const third = (side) => ({ ...side, level: 3 });
const upright = { upright: true };

const LYING = [dim("d", 2, 7, bottom), dim("b1", 1, 2, left), dim("b2", 8, 7, right),
  dim("t1", 1, 12, top), dim("t2", 9, 8, top)];

const STANDING = [dim("d", 1, 6, left), dim("b1", 1, 12, top), dim("t1", 12, 11, right),
  dim("t2", 8, 7, right), dim("tw", 3, 10, { at: share(3, 4, 0.4) })];

const NOWHERE = [NaN, NaN, NaN];

// A vertex of a slot of the channel: those in the web come first.
const slot = (number, vertex) => (v) => contours(v)[number(v)]?.places[vertex - 1] ?? NOWHERE;
const webSlots = (v) => Math.round(v.scalar("nw"));
const inWeb = (vertex) => slot(() => 1, vertex);
const inFlange = (vertex) => slot((v) => 1 + Math.max(0, Math.min(2, webSlots(v) || 0)), vertex);
const hasWebSlot = { when: (v) => v.scalar("nw") >= 0.5 };
const hasFlangeSlot = { when: (v) => v.scalar("nf") >= 0.5 };
const isLipped = (v) => v.scalar("c") > 1e-5;
const lipped = { when: isLipped };
const plain = { when: (v) => !isLipped(v) };
// Where a dimension stands beside what it measures, towards the lips.
const inFrontOf = (where) => (v) => {
  const [x, y] = typeof where === "number" ? (vertices(v)[where - 1] ?? NOWHERE) : where(v);
  return [x + 0.12 * v.scalar("b"), y, 0];
};
const atWeb = (place) => (v) => [v.array("x")[0] ?? NaN, place(v)[1], 0];

const BUILDERS = {
  kezsec_b: builder([dim("b", 1, 4, top), dim("h", 1, 2, left)], { also: " nv" }),
  kezsec_t: builder([dim("b", 1, 8, top), dim("h", 1, 4, left), dim("tf", 8, 7, right),
    dim("tw", 4, 5, bottom)]),
  kezsec_h: builder([...LYING, dim("tw", 11, 4, { ...upright, at: mid(11, 10) })]),
  kezsec_ia: builder([...STANDING, dim("b2", 6, 7, bottom)]),
  kezsec_h1b: builder([...LYING, dim("tw", 11, 13, { ...upright, at: share(11, 10, 0.3) }),
    dim("s", 13, 14, { ...upright, at: share(13, 16, 0.6) })]),
  kezsec_h2b: builder([...LYING, dim("tw", 11, 13, { ...upright, at: share(11, 10, 0.3) }),
    dim("s", 13, 14, { ...upright, at: share(13, 16, 0.6) })]),
  kezsec_box: builder([dim("bt", 1, 12, top), dim("bb", 6, 7, bottom), dim("tt", 12, 11, right),
    dim("tb", 8, 7, right), dim("h", 1, 6, left), dim("tw", 3, 13, { at: share(3, 4, 0.3) }),
    dim("s", 13, 16, { at: share(13, 14, 0.6) })]),
  kezsec_tab: builder([dim("b", 1, 12, top), dim("h", 1, 6, second(left)),
    dim("w", 3, 2, second(top)), dim("tt", 3, 4, left),
    dim("tf", 12, 16, { ...upright, at: mid(13, 16) }),
    dim("tw", 15, 7, bottom), dim("y0", (v) => [mid(10, 9)(v)[0], 0, 0], mid(10, 9), right)]),
  kezsec_rhs: builder([dim("b", 1, 4, top), dim("h", 1, 2, left),
    dim("t", 8, 4, { at: mid(1, 2) })]),
  kezsec_l2: builder([dim("a", 1, 6, top), dim("h", 1, 4, left), dim("s", 6, 7, second(top)),
    dim("th", 12, 11, right), dim("tv", 4, 5, bottom)]),
  kezsec_c: builder([dim("b", 6, 7, { ...bottom, ...lipped }),
    dim("b", 2, 3, { ...bottom, ...plain }), dim("h", 1, 6, { ...third(left), ...lipped }),
    dim("h", 1, 2, { ...third(left), ...plain }), dim("c", 24, 23, { ...right, ...lipped }),
    dim("t", 6, 13, { ...lipped, at: share(1, 2, 0.82) }),
    dim("t", 5, 2, { ...plain, at: share(3, 5, 0.2) }),
    dim("r", 21, 20, { ...lipped, at: share(21, 22, 0.5) }),
    dim("gd", 2, 3, { ...lipped, at: mid(3, 4) }), dim("gw", 2, 5, { ...left, ...lipped }),
    dim("gb", 3, 4, { ...upright, ...lipped, at: inFrontOf(3) }),
    dim("sw", inWeb(4), inWeb(3), { ...upright, ...hasWebSlot, at: inFrontOf(inWeb(4)) }),
    dim("yw", (v) => [inWeb(1)(v)[0], 0, 0], mid(inWeb(1), inWeb(2)),
      { ...second(left), ...hasWebSlot }),
    dim("sf", inFlange(1), inFlange(4), { ...top, ...hasFlangeSlot }),
    dim("xf", atWeb(inFlange(1)), mid(inFlange(1), inFlange(4)),
      { ...second(top), ...hasFlangeSlot })], { also: " nw nf" }),
  kezsec_i: builder([...STANDING, dim("b2", 6, 7, second(bottom)),
    dim("r", 25, 15, { at: mid(25, 28) }), dim("dh", 37, 40, { at: 37 }),
    dim("g", mid(37, 40), mid(41, 44), bottom)]),
};

const upTo = (term, times) => (v) => [0, times * v.scalar(term)];

const DESIGN = {
  kezro2: curve("kezro2", "b", "rho", upTo("b", 1.7),
    { marks: [inset([STRESSED], { left: 0.12, top: 0.52 })], tell: "rho t e1 e2 psi k" }),
  kezef2: section([PANEL, ...panelDims], { tell: "be1 be2 t e1 e2" }),
  kezefr: curve("kezefr", "b", "beff", upTo("d", 0.6), { tell: "beff d t e1 e2" }),
  kezchi: section([STIFFENER, ...stiffenerDims], { tell: "chi tred t fy E nu n" }),
  kezshc_c: section([CHANNEL, CENTRES, dim("B", corner(3), corner(2), top),
    dim("H", corner(2), corner(5), right)], { tell: "x0 C t" }),
  kezwar_c: curve("kezwar_c", "C", "Iw", upTo("H", 0.45),
    { marks: [inset([CHANNEL, CHANNEL_NAMES], { left: 0.14 })], tell: "Iw B H t" }),
  kezlul: ruler([range("lo", "hi"), entries("x", "n", { chosen: "idx", of: "count" }),
    gap("d1", "lo", (v) => v.array("x")[v.array("idx")[0] - 1]),
    gap("d2", "hi", (v) => v.array("x")[v.array("idx")[v.scalar("count") - 1] - 1])],
  { tell: "count", silent: "n" }),
  kezadr: lists([cells("counts", { count: "n" }), cells("source", { block: ["counts", "n"] }),
    cells("target", { links: "block", from: ["counts", "n"] })], { tell: "n", silent: "a" }),
};

export const SECTIONS = { ...BUILDERS, ...DESIGN };
