// Sketches of plates that buckle: a panel under a stress that varies, and an edge stiffener.

import { equation } from "./marks.js";
import { exists } from "./places.js";
import { dim } from "./section.js";

const onPlate = (reach) => (v) => [reach(v), 0, 0];
const scalar = (term) => (v) => v.scalar(term);
const zero = () => 0;

// Where compression ends, and with it the part next to the edge of the lesser stress.
const compressed = (v) => (v.scalar("s2") < 0 ? v.scalar("bbar") : v.scalar("b"));
const secondPart = (v) => compressed(v) - v.scalar("be2");

// The stresses over the plate, compression upwards.
function stresses(v) {
  const [b, s1, s2] = ["b", "s1", "s2"].map(v.scalar);
  const scale = (0.34 * b) / Math.max(Math.abs(s1), Math.abs(s2));
  const ground = s2 < 0 ? 0.12 * b - s2 * scale : 0.12 * b;
  return [
    [0, ground, 0],
    [0, ground + s1 * scale, 0],
    [b, ground + s2 * scale, 0],
    [b, ground, 0],
  ];
}

function plate(sheet, from, to, look) {
  const ends = [
    [from, 0, 0],
    [to, 0, 0],
  ];
  if (ends.every(exists)) sheet.stroke(ends, look);
}

export const PANEL = {
  terms: ["s1", "s2"],
  span: (v) => [[0, 0, 0], [v.scalar("b"), 0, 0], ...stresses(v)].filter(exists),
  say: (v) => `stresses at the edges ${equation("s1", v)}, ${equation("s2", v)}`,
  paint(sheet, v) {
    const b = v.scalar("b");
    const diagram = stresses(v);
    if (diagram.every(exists)) {
      sheet.wash(diagram, "ink-wash");
      sheet.stroke(diagram, "ink thin", { closed: true });
      sheet.label(equation("s1", v), [diagram[1]], "ink");
      sheet.label(equation("s2", v), [diagram[2]], "ink");
    }
    plate(sheet, 0, b, "soft dashed");
    plate(sheet, compressed(v), b, "ink heavy");
    plate(sheet, 0, v.scalar("be1"), "accent heavy");
    plate(sheet, secondPart(v), compressed(v), "accent heavy");
  },
};

// The stresses at a panel's edges by their ratio.
export const STRESSED = {
  terms: ["b", "psi"],
  span: (v) =>
    [
      [0, 0, 0],
      [1, 0, 0],
      [0, 0.5, 0],
      [1, 0.5 * v.scalar("psi"), 0],
    ].filter(exists),
  paint(sheet, v) {
    const psi = v.scalar("psi");
    const diagram = [
      [0, 0, 0],
      [0, 0.5, 0],
      [1, 0.5 * psi, 0],
      [1, 0, 0],
    ];
    if (!diagram.every(exists)) return;
    sheet.wash(diagram, "ink-wash");
    sheet.stroke(diagram, "ink thin", { closed: true });
    plate(sheet, 0, 1, "ink heavy");
    sheet.label("1", [diagram[1]], "ink");
    sheet.label("psi", [diagram[2]], "ink");
    sheet.label("b", [[0.5, 0, 0]], "ink");
  },
};

const below = (level) => ({ side: "bottom", level: level + 0.4 }); // clear of the thick plate

export const panelDims = [
  dim("be1", onPlate(zero), onPlate(scalar("be1")), below(1)),
  dim("be2", onPlate(secondPart), onPlate(compressed), below(1)),
  dim("bbar", onPlate(zero), onPlate(scalar("bbar")), below(2)),
  dim("b", onPlate(zero), onPlate(scalar("b")), below(3)),
];

const CORNER = () => [0, 0, 0];
const FAR = (v) => [v.scalar("z"), 0, 0];
const START = (v) => [v.scalar("z") - v.scalar("b"), 0, 0];
const FOOT = (v) => [0, -v.scalar("s"), 0];
const TIP = (v) => [v.scalar("z"), -v.scalar("a"), 0];

const DROP = 0.16; // of the buckled shape, as a slope

// Web, flange and lip by their centre-lines, and how the stiffener swings out when it buckles.
export const STIFFENER = {
  terms: ["b", "z", "a", "s"],
  span: (v) => [CORNER, FAR, FOOT, TIP].map((place) => place(v)).filter(exists),
  paint(sheet, v) {
    const [corner, far, start, foot, tip] = [CORNER, FAR, START, FOOT, TIP].map((place) =>
      place(v),
    );
    if (![corner, far, start, foot, tip].every(exists)) return;
    sheet.stroke([foot, corner, start], "ink");
    sheet.stroke([start, far, tip], "accent heavy");
    const [z, a] = [v.scalar("z"), v.scalar("a")];
    sheet.stroke(
      [corner, [z, -z * DROP, 0], [z - a * DROP, -z * DROP - a, 0]],
      "accent thin dashed",
    );
  },
};

export const stiffenerDims = [
  dim("s", CORNER, FOOT, { side: "left" }),
  dim("a", FAR, TIP, { side: "right" }),
  dim("b", START, FAR, { side: "top" }),
  dim("z", CORNER, FAR, { side: "top", level: 2 }),
];
