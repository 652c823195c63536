// Sketches of what design values belong to: channels, edge stiffeners and stressed panels.

import { equation } from "./marks.js";
import { add, exists, minus } from "./places.js";

// The wall of a channel, web at the left, lips at the right: the outline, and its centre-line.
function wall(v) {
  const [B, H, C, t] = ["B", "H", "C", "t"].map(v.scalar);
  const [h, lip] = [H / 2, C > 1e-5 ? Math.max(C, t) : t];
  const outer = [
    [B, h - lip, 0],
    [B, h, 0],
    [0, h, 0],
    [0, -h, 0],
    [B, -h, 0],
    [B, lip - h, 0],
  ];
  const inner =
    C > 1e-5
      ? [
          [B - t, lip - h, 0],
          [B - t, t - h, 0],
          [t, t - h, 0],
          [t, h - t, 0],
          [B - t, h - t, 0],
          [B - t, h - lip, 0],
        ]
      : [
          [t, t - h, 0],
          [t, h - t, 0],
        ];
  return [...outer, ...inner];
}

// From the web's centre-line to the centroid, of the thin wall.
function centroid(v) {
  const [B, H, C, t] = ["B", "H", "C", "t"].map(v.scalar);
  const [b, h, c] = [B - t, H - t, C > 1e-5 ? C - t / 2 : 0];
  return (b * b + 2 * b * c) / (h + 2 * b + 2 * c) + t / 2;
}

export const CHANNEL = {
  terms: ["B", "H", "C", "t"],
  span: (v) => wall(v).filter(exists),
  say: (v) => `channel of ${["B", "H", "C", "t"].map((term) => equation(term, v)).join(", ")}`,
  paint(sheet, v) {
    const all = wall(v);
    if (!all.every(exists)) return;
    sheet.wash(all, "ink-wash");
    sheet.stroke(all, "ink", { closed: true });
  },
};

// What is called what, where there is no room for dimensions.
export const CHANNEL_NAMES = {
  terms: [],
  span: () => [],
  paint(sheet, v) {
    const [B, H, C] = ["B", "H", "C"].map(v.scalar);
    const at = [
      ["B", [B / 2, H / 2, 0]],
      ["H", [0, 0, 0]],
      ["C", [B, (C - H) / 2, 0]],
    ];
    for (const [name, place] of at) if (exists(place)) sheet.label(name, [place], "ink");
  },
};

export const corner = (i) => (v) => wall(v)[i - 1] ?? [NaN, NaN, NaN];

const centre = (v) => [centroid(v), 0, 0];
const shear = (v) => [centroid(v) - v.scalar("x0"), 0, 0];

// Centroid and shear centre of a channel, and how far they are apart.
export const CENTRES = {
  terms: ["x0"],
  span: (v) => [centre(v), shear(v)].filter(exists),
  say: (v) => `${equation("x0", v)} from the centroid to the shear centre`,
  paint(sheet, v) {
    const [g, s] = [centre(v), shear(v)];
    if (!exists(g) || !exists(s)) return;
    sheet.arrow(g, s, "accent");
    for (const [p, name, tone] of [
      [g, "centroid", "ink"],
      [s, "shear centre", "accent"],
    ]) {
      sheet.dot(p, tone, null, 6);
      sheet.label(name, [p], tone);
    }
    sheet.label(equation("x0", v), [add(g, minus(s, g), 0.5)], "accent");
  },
};
