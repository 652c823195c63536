// Lists, order, and polygons and points as a whole.

import { cells, joined, lists, mapped, merged, pairs } from "./lists.js";
import { circleAbout, line, parallels, plane, points, polygon } from "./plane.js";
import { angle, point, segment } from "./marks.js";
import { derived, mixed } from "./places.js";
import { newOrigin } from "./moves.js";
import { block, patch } from "./planes.js";
import { space } from "./space.js";

const before = cells("a", { count: "n" });

const reversed = lists([before, cells("a'", { count: "n", links: "mirror" })], { silent: "n" });

const joining = lists([cells("a", { count: "n1" }), cells("out", { links: joined("n1") }),
  cells("b", { count: "n2" })], { tell: "nout", silent: "n1 n2" });

const distinct = (tell, tolerance) =>
  lists([before, cells("a'", { stop: "n'" })], { links: [merged("n'", tolerance)], tell });

const LISTED = {
  kezmer1: joining,
  kezmer11: joining,
  kezmer2: distinct("n'"),
  kezmer3: distinct("n'"),
  kezmer4: lists([cells("a", { count: "n1", within: "com" }),
    cells("com", { count: "ncom", links: [{ by: "value", to: 0 }, { by: "value", to: 2 }] }),
    cells("b", { count: "n2", within: "com" }), cells("dif", { count: "ndif" })],
  { tell: "ncom ndif", silent: "n1 n2" }),
  kezmer12: distinct("n' tol", "tol"),
  kezmer13: lists([cells("a", { count: "n1" }), cells("b", { count: "n2", numbered: true }),
    cells("ia", { count: "nm" }), cells("ib", { count: "nm" })],
    { links: [pairs("ia", "ib", "nm")], tell: "nm tol", silent: "n1 n2" }),
  kezmer14: lists([before, cells("a'", { count: "n", chosen: "idx", of: "nd", links: "equal" }),
    cells("idx", { count: "nd" })], { tell: "nd big tol", silent: "n" }),
  kezmer15: lists([before, cells("a'", { count: "n", stop: "nout", links: "equal" })],
    { tell: "nout value tol", silent: "n" }),
  kezmer16: lists([before, cells("a'", { chosenAt: "pos", links: "equal" })],
    { tell: "value.1 pos", silent: "n" }),
  kezmer17: reversed,
  kezmer18: reversed,
  kezmer19: lists([before, cells("idx", { count: "n" }),
    cells("out", { count: "nout", numbered: true })],
    { links: [mapped("idx", 1)], tell: "nout value tol", silent: "n" }),
  kezordi: lists([cells("v", { count: "n" }), cells("iord", { count: "n", links: "position" })],
    { silent: "n" }),
  kezpor: plane([parallels("a b c", "n", "iord")], { tell: "status", silent: "n",
    meanings: { status: { 0: "ordered", "-1": "not to be ordered" } } }),
};

const CODES = ["1: on the first plane", "2: on the second", "3: between", "4: outside"];

// The circle of second moments: moments to the right, product moments upwards.
const CENTRE = derived("p q", (v) => [(v.scalar("p") + v.scalar("q")) / 2, 0, 0]);
const RADIUS = (v) => Math.hypot((v.scalar("p") - v.scalar("q")) / 2, v.scalar("r"));
const OF_U = mixed("u", 0);

const WHOLE = {
  kezinp: plane([circleAbout(CENTRE, { terms: ["p", "q", "r"], of: RADIUS }, "", { tone: "soft" }),
    segment("p r", mixed("q", "-r"), "", { look: "thin" }), point("p r", "p, r"),
    point(mixed("q", "-r"), "q, −r"), point(OF_U, "u"), point(mixed("v", 0), "v"),
    angle(CENTRE, "p r", OF_U, undefined, { name: "2 theta", tone: "accent" })],
  { tell: "u v theta", names: ["moment", "product"] }),
  kezppp: plane([newOrigin("px py", "X' Y'", "n", { flat: true }), polygon("X Y", "n"),
    point("px py")],
  { tell: "status", silent: "n",
    meanings: { status: { 0: "inside", "-1": "outside", 100: "on an edge" } } }),
  kezpin: plane([polygon("X1 Y1", "n1", { numbers: false, name: "part 1" }),
    polygon("X2 Y2", "n2", { numbers: false, wash: "ink-wash", name: "part 2" }),
    polygon("X Y", "n", { wash: false }), line("a b c")], { tell: "n1 n2 length", silent: "n",
    key: ["length: of the x axis inside"] }),
  kezptp1: space([patch("A1 B1 C1 D1"), patch("A2 B2 C2 D2"),
    points("X Y Z", "n", { flags: "code" })], { silent: "n", key: CODES }),
  kezptp2: space([block(["A1 B1 C1 D1", "A2 B2 C2 D2"], ["A3 B3 C3 D3", "A4 B4 C4 D4"],
    ["A5 B5 C5 D5", "A6 B6 C6 D6"]), points("X Y Z", "n", { chosen: "out", of: "nout",
    flags: "code1 code2 code3" })], { tell: "nout mode", silent: "n", key: CODES,
    meanings: { mode: (mode) => ["", "on the faces", "inside", "both"][mode] || "none" } }),
};

export const LISTS = { ...LISTED, ...WHOLE };
