// Terms that the tables of more than one family have.

import { point } from "./marks.js";
import { at } from "./places.js";

export const P1 = at("x1 y1 z1");
export const P2 = at("x2 y2 z2");
export const P3 = at("x3 y3 z3");
export const P4 = at("x4 y4 z4");
export const P = at("x y z");
export const ENDS = [point(P1), point(P2)];

export const NO_YES = ["no", "yes"];

// What codes mean that more than one routine gives.
export const FOUND = { status: { 0: "rejected", 1: "found" } };
export const TURN = (back, on) => ({ mode: (value) => (value === 1 ? back : on) });
export const POSITIONS = ["off the line", "at the first end", "at the second end",
  "between the ends", "before the first end", "beyond the second end"];

const unless = (good, ...bad) => ({ status: Object.assign({ 0: good }, ...bad) });
const relations = { 3: "same line", 4: "same line, opposite" };

export const PLANE_THROUGH = unless("a plane", {
  1: "P3 is at P1", 2: "P3 is at P2", 3: "P3 is on P1 P2", 4: "P3 is on P1 P2",
  5: "P3 is on P1 P2" });
export const PLANE_OF_LINES = unless("a plane", relations, { 6: "skew", 7: "no direction" });
export const MEETING = unless("one point", relations, { 6: "skew", 7: "no direction" });
export const SYSTEM_FOUND = unless("a system", { "-2": "on one line" });
export const ALWAYS = { status: { 0: "always 0" } };
