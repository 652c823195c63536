// Text of SVG: elements, numbers, and the one style sheet of all pictures.

// A narrow window has pictures of fewer units, so that words stay as large as they are.
export const sizeOf = ({ narrow }) => ({ width: narrow ? 380 : 560, height: 400 });

const ENTITIES = { "&": "&amp;", "<": "&lt;", ">": "&gt;", '"': "&quot;", "'": "&#39;" };

export const escape = (text) => String(text).replace(/[&<>"']/g, (letter) => ENTITIES[letter]);

// A coordinate of the page. What lies far outside is cut off in any case.
export const px = (value) => String(Math.round(Math.max(-1e5, Math.min(1e5, value)) * 10) / 10);

const signed = (text) => text.replace(/^-/, "\u2212");

const shortened = (value, digits = 4) => {
  const size = Math.abs(value);
  if (size === 0 || (size >= 1e-4 && size < 1e6)) return String(Number(value.toPrecision(digits)));
  return value.toExponential(digits - 1).replace(/\.?0*e\+?/, "e");
};

// A value in words, to four digits.
export function number(value) {
  if (Number.isNaN(value)) return "not a number";
  if (!Number.isFinite(value)) return value < 0 ? "minus infinity" : "infinity";
  return signed(shortened(value));
}

// A coordinate on an axis, which has more digits in common with the next one.
export const tickText = (value) => signed(shortened(value, 6));

// What coordinates on an axis are counted from, that few digits tell them apart: nearly always 0.
export function baseOf(low, high, step) {
  const largest = Math.max(Math.abs(low), Math.abs(high));
  if (!(largest >= 1e4 * step)) return 0;
  const round = 10 ** Math.ceil(Math.log10(high - low));
  return Math.floor(low / round) * round;
}

// The name of an axis, with what is to be added to its coordinates.
export const axisName = (name, base) =>
  base ? `${name} ${base < 0 ? "+" : "\u2212"} ${shortened(Math.abs(base), 12)}` : name;

// An entry of a list, in little room; its whole numbers have all digits.
export function entry(value) {
  if (Number.isNaN(value)) return "NaN";
  if (!Number.isFinite(value)) return value < 0 ? "\u2212∞" : "∞";
  return Number.isInteger(value) ? signed(String(value)) : number(value);
}

export function element(tag, attributes, content = "") {
  const given = Object.entries(attributes).filter(([, value]) => value !== undefined);
  const list = given.map(([name, value]) => ` ${name}="${escape(value)}"`).join("");
  return content === "" ? `<${tag}${list}/>` : `<${tag}${list}>${content}</${tag}>`;
}

export const path = (points, closed = false) =>
  points.map(([x, y], i) => `${i ? "L" : "M"}${px(x)} ${px(y)}`).join("") + (closed ? "Z" : "");

// Straight strokes along the page's axes.
export const level = (y, x1, x2) => [
  [x1, y],
  [x2, y],
];
export const upright = (x, y1, y2) => [
  [x, y1],
  [x, y2],
];

// The page sets the colours as custom properties; a picture that stands alone has those of light.
export const STYLE = `
.kez-figure { display: block; width: 100%; height: auto; font: 17px system-ui, sans-serif; }
.kez-figure path, .kez-figure circle { fill: none; stroke-linecap: round; stroke-linejoin: round; }
.kez-figure .ink { stroke: var(--ink, #1f2937); stroke-width: 2; }
.kez-figure .soft { stroke: var(--soft, #6b7280); stroke-width: 1.3; }
.kez-figure .faint { stroke: var(--faint, #e0e3e8); stroke-width: 1; }
.kez-figure .accent { stroke: var(--accent, #1d5fa5); stroke-width: 2.6; }
.kez-figure .thin { stroke-width: 1.4; }
.kez-figure .heavy { stroke-width: 8; stroke-linecap: butt !important; stroke-linejoin: miter; }
.kez-figure .dashed { stroke-dasharray: 5 5; }
.kez-figure .ink-fill { fill: var(--ink, #1f2937); }
.kez-figure .soft-fill { fill: var(--soft, #6b7280); }
.kez-figure .accent-fill { fill: var(--accent, #1d5fa5); }
.kez-figure .paper-fill { fill: var(--paper, #fff); }
.kez-figure .ink-wash { fill: var(--ink, #1f2937); fill-opacity: 0.08; }
.kez-figure .accent-wash { fill: var(--accent, #1d5fa5); fill-opacity: 0.16; }
.kez-figure.small .ink, .kez-figure.small .accent { stroke-width: 6; }
.kez-figure.small .thin, .kez-figure.small .soft { stroke-width: 3.5; }
.kez-figure.small .heavy { stroke-width: 18; }
.kez-figure.small .dashed { stroke-dasharray: 12 12; }
.kez-figure text[class] { stroke: var(--paper, #fff); stroke-width: 4; stroke-linejoin: round;
  paint-order: stroke; }
.kez-figure text.ink { fill: var(--ink, #1f2937); }
.kez-figure text.accent { fill: var(--accent, #1d5fa5); font-weight: 600; }
.kez-figure text.soft { fill: var(--soft, #6b7280); }
.kez-figure text.tick, .kez-figure text.axis, .kez-figure text.vertex {
  fill: var(--soft, #6b7280); font-size: 15px; }
.kez-figure text.axis { font-style: italic; }
.kez-figure text.vertex { font-size: 13px; stroke-width: 3; }
.kez-figure :is(path, circle, text) { pointer-events: none; }
.kez-figure .handle { cursor: grab; outline: none; }
.kez-figure .handle .reach { fill: transparent; pointer-events: all; }
.kez-figure .handle .plane { visibility: hidden; stroke: var(--accent, #1d5fa5); stroke-width: 1;
  fill: var(--accent, #1d5fa5); fill-opacity: 0.12; pointer-events: none; }
.kez-figure .handle:is(:focus, :hover, .held) .plane { visibility: visible; }
.kez-figure .handle:focus .reach, .kez-figure .handle:hover .reach {
  stroke: var(--accent, #1d5fa5); stroke-width: 2; }
`;

// Of a picture on its own, which has no page to say what dark looks like.
export const DARK = `
@media (prefers-color-scheme: dark) {
  .kez-figure { --ink: #e5e7eb; --soft: #9ca3af; --faint: #374151; --accent: #7cb7ff;
    --paper: #0d1117; }
}
`;
