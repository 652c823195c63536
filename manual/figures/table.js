// What the arguments of each routine are.

import { CIRCLES } from "./table-circles.js";
import { FRAME } from "./table-frame.js";
import { LISTS } from "./table-lists.js";
import { SECTIONS } from "./table-sections.js";
import { SPACE } from "./table-space.js";

export const TABLE = { ...FRAME, ...CIRCLES, ...SPACE, ...SECTIONS, ...LISTS };
