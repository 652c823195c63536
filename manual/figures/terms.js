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
