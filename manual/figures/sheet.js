// The sheet a picture is drawn on: it turns places into positions of the page, remembers what
// labels have to keep away from, and puts the picture together.

import { placeLabels, textWidth } from "./labels.js";
import { DARK, element, escape, number, path, px, sizeOf, STYLE } from "./svg.js";

const LAYERS = ["wash", "back", "strokes", "dots"];
const LINE = 24; // of the words below the picture
const OFF = 1e5; // page positions beyond do not count

const HEIGHT_OF_TEXT = 17;
const SIZES = { vertex: 13, tick: 15, axis: 15 }; // by the class of words, of those that are smaller
const BOLD = 1.08; // as wide as plain words
const BESIDE = 3; // kept free beside words

// What is not a number has no place on the page.
const drawn = (points) => points.length > 0 && points.flat().every(Number.isFinite);

const near = ([x, y]) => Math.abs(x) < OFF && Math.abs(y) < OFF;

function boxOfTick({ text, x, y, anchor }) {
  const width = textWidth(text, 15);
  const left = x - width * { start: 0, middle: 0.5, end: 1 }[anchor];
  return { left, right: left + width, top: y - 13, bottom: y + 3 };
}

const meet = (p, q) =>
  p.left < q.right && q.left < p.right && p.top < q.bottom && q.top < p.bottom;

export class Sheet {
  constructor(view, frame, options) {
    Object.assign(this, { view, frame, options });
    this.layers = Object.fromEntries(LAYERS.map((name) => [name, []]));
    this.strokes = [];
    this.dots = [];
    this.labels = [];
    this.ticks = [];
    this.fixed = [];
    this.afterwards = [];
    this.size = sizeOf(options);
    this.handles = options.report ? (options.report.handles = []) : [];
  }

  get small() {
    return Boolean(this.options.small);
  }

  // Whether anything can be taken hold of: in a page.
  get holds() {
    return !this.small && !this.options.standalone;
  }

  to(place) {
    return this.view.to(place);
  }

  put(layer, text) {
    this.layers[layer].push(text);
  }

  // What matters least is placed when all else is.
  later(action) {
    this.afterwards.push(action);
  }

  // A stroke through positions of the page. Labels mind it by its weight.
  strokeAt(points, look, { closed = false, weight = 1, layer = "strokes" } = {}) {
    if (!drawn(points)) return;
    this.put(layer, element("path", { class: look.trim(), d: path(points, closed) }));
    const all = closed ? [...points, points[0]] : points;
    for (let i = 1; i < all.length; ++i) {
      if (near(all[i - 1]) && near(all[i])) this.strokes.push([all[i - 1], all[i], weight]);
    }
  }

  stroke(places, look, more) {
    this.strokeAt(
      places.map((place) => this.to(place)),
      look,
      more,
    );
  }

  washAt(points, look) {
    if (drawn(points)) this.put("wash", element("path", { class: look, d: path(points, true) }));
  }

  wash(places, look) {
    this.washAt(
      places.map((place) => this.to(place)),
      look,
    );
  }

  // A head at the second position, for a stroke that comes from the first.
  head(from, to, tone) {
    const way = Math.atan2(to[1] - from[1], to[0] - from[0]);
    const size = Math.min(this.small ? 26 : 12, Math.hypot(to[0] - from[0], to[1] - from[1]));
    const side = (turn) => [
      to[0] - size * Math.cos(way + turn),
      to[1] - size * Math.sin(way + turn),
    ];
    if (!(size > 1)) return;
    if (near(to)) this.strokes.push([to, [0, 1].map((i) => to[i] + (from[i] - to[i]) / 2), 4]);
    this.put(
      "dots",
      element("path", {
        class: `${tone}-fill`,
        d: path([to, side(0.38), side(-0.38)], true),
      }),
    );
  }

  arrowAt(from, to, tone, look = tone) {
    this.strokeAt([from, to], look);
    this.head(from, to, tone);
  }

  arrow(p, q, tone, look = tone) {
    this.arrowAt(this.to(p), this.to(q), tone, look);
  }

  dot(place, tone, grip, radius = 4.5) {
    const [x, y] = this.to(place);
    if (!drawn([[x, y]])) return;
    const spot = element("circle", {
      class: `${tone}-fill`,
      cx: px(x),
      cy: px(y),
      r: this.small ? 2.4 * radius : radius,
    });
    this.dots.push({ left: x - 6, right: x + 6, top: y - 6, bottom: y + 6 });
    this.put("dots", grip && this.holds ? this.handle([x, y], spot, grip) : spot);
  }

  ring(place, tone) {
    const [x, y] = this.to(place);
    if (!drawn([[x, y]])) return;
    const r = this.small ? 18 : 9;
    this.put("strokes", element("circle", { class: tone, cx: px(x), cy: px(y), r }));
  }

  // The first of some positions that is on no point, or the first of all.
  freeOf(positions) {
    const isFree = ([x, y]) =>
      this.dots.every(({ left, right, top, bottom }) =>
        x < left - 6 || x > right + 6 || y < top - 6 || y > bottom + 6);
    return positions.find(isFree) ?? positions[0];
  }

  // A place to take hold of where no point is.
  grip([x, y], grip) {
    if (!grip || !this.holds || !drawn([[x, y]])) return;
    this.dots.push({ left: x - 5, right: x + 5, top: y - 5, bottom: y + 5 });
    const ring = element("circle", { class: "accent thin paper-fill", cx: px(x), cy: px(y), r: 4 });
    this.put("dots", this.handle([x, y], ring, grip));
  }

  // The page that asks for a report moves what is held; the drawing says which it is.
  handle([x, y], spot, grip) {
    const { names, values, entry, lines } = grip;
    const reach = element("circle", { class: "reach", cx: px(x), cy: px(y), r: 14 });
    const piece = lines
      ? element("path", { class: "plane", d: path(lines(this.options.plane), true) })
      : "";
    const of = entry === undefined ? "" : ` of entry ${entry}`;
    const index = this.handles.push({ ...grip, at: [x, y] }) - 1;
    return element(
      "g",
      {
        class: "handle",
        tabindex: 0,
        role: "slider",
        "data-handle": index,
        "data-x": names[0],
        "data-y": names[1],
        "data-entry": entry,
        "aria-label": names.join(", ") + of,
        "aria-valuenow": Number(values[0].toPrecision(4)),
        "aria-valuetext": values.map(number).join(", "),
      },
      piece + reach + spot,
    );
  }

  // Words at the first anchor, a position of the page, or at a later one where that is worse.
  labelAt(text, anchors, tone) {
    const inside = anchors.filter(near);
    if (this.small || !text || !inside.length) return;
    this.labels.push({
      text,
      tone,
      anchors: inside,
      gaps: tone === "vertex" ? 2 : undefined, // there are many, which stay near
      width: textWidth(text, SIZES[tone]) * (tone === "accent" ? BOLD : 1) + 2 * BESIDE,
      height: (SIZES[tone] ?? HEIGHT_OF_TEXT) + 2,
    });
  }

  label(text, places, tone) {
    const anchors = places.map((place) => this.to(place));
    this.labelAt(text, anchors, tone);
  }

  // Beside the frame there is room for a few letters, and no more.
  tick(text, x, y, anchor, look = "tick") {
    const one = { text, x, y, anchor, look };
    const box = boxOfTick(one);
    const { width, height } = this.size;
    const fits = box.left > 0 && box.right < width && box.top > 0 && box.bottom < height;
    const isFree = !this.ticks.some((other) => meet(box, boxOfTick(other)));
    if (!this.small && fits && isFree) this.ticks.push(one);
  }

  // Words that stand where they are put.
  words(text, x, y, tone, anchor = "middle", size = HEIGHT_OF_TEXT) {
    if (this.small) return;
    const style = size < HEIGHT_OF_TEXT ? `font-size: ${px(size)}px` : undefined;
    this.fixed.push(
      element(
        "text",
        { class: tone, x: px(x), y: px(y), "text-anchor": anchor, style },
        escape(text),
      ),
    );
  }

  // The words of ticks, which stand where they stand.
  tickTexts() {
    return this.ticks
      .map(({ text, x, y, anchor, look }) =>
        element(
          "text",
          {
            class: look,
            x: px(x),
            y: px(y),
            "text-anchor": anchor,
          },
          escape(text),
        ),
      )
      .join("");
  }

  labelTexts() {
    const { frame } = this;
    const room = { left: 4, right: this.size.width - 4, top: 4, bottom: frame.bottom + 2 };
    const boxes = placeLabels(
      this.labels,
      this.strokes,
      this.dots,
      this.ticks.map(boxOfTick),
      room,
    );
    return this.labels
      .map(({ text, tone, width }, i) =>
        element(
          "text",
          {
            class: tone,
            x: px(boxes[i].left + BESIDE),
            y: px(boxes[i].bottom - 4),
            "data-width": Math.round(width - 2 * BESIDE),
          },
          escape(text),
        ),
      )
      .join("");
  }

  content() {
    for (const action of this.afterwards) action();
    const { left, top, right, bottom } = this.frame;
    const [width, height] = [right - left, bottom - top];
    const box = { x: left, y: top, width, height, viewBox: `${left} ${top} ${width} ${height}` };
    const layers = LAYERS.map((name) => this.layers[name].join("")).join("");
    return element("svg", box, layers) + this.fixed.join("") + this.tickTexts() + this.labelTexts();
  }
}

const widthOf = ({ text, tone }) => textWidth(text) * (tone === "accent" ? BOLD : 1);

// What is longer than the picture is wide, in parts of whole words.
function inParts(said, most) {
  const parts = [];
  for (const word of said.text.split(" ")) {
    const longer = { ...said, text: parts.length ? `${parts.at(-1).text} ${word}` : word };
    if (parts.length && widthOf(longer) <= most) parts[parts.length - 1] = longer;
    else parts.push({ ...said, text: word });
  }
  return widthOf(said) > most ? parts : [said];
}

// The words below the picture, in lines of its width.
export function stripLines(words, options) {
  const most = sizeOf(options).width - 8;
  const lines = [];
  let used = Infinity;
  for (const word of words.flatMap((said) => inParts(said, most - 12))) {
    const width = widthOf(word) + 18;
    if (used + width > most) {
      lines.push([]);
      used = 10;
    }
    lines.at(-1).push({ ...word, x: used });
    used += width;
  }
  return lines;
}

export const stripHeight = (lines) => (lines.length ? lines.length * LINE + 8 : 0);

const stripTexts = (lines, { height }) =>
  lines
    .map((line, i) =>
      line
        .map(({ text, tone, x }) =>
          element(
            "text",
            { class: tone, x: px(x), y: height - 9 - LINE * (lines.length - 1 - i) },
            escape(text),
          ),
        )
        .join(""),
    )
    .join("");

// The whole picture. `root` has further attributes of the svg. An image has no parts for those who
// hear it; one with handles is a group of them.
export function assemble({ title, says, content, lines = [], options, root = {} }) {
  const { width, height } = sizeOf(options);
  const words = element("title", {}, escape(title)) + element("desc", {}, escape(says.join(" ")));
  const style = options.standalone ? element("style", {}, STYLE + DARK) : "";
  return element(
    "svg",
    {
      xmlns: "http://www.w3.org/2000/svg",
      class: options.small ? "kez-figure small" : "kez-figure",
      role: content.includes('class="handle"') ? "group" : "img",
      viewBox: `0 0 ${width} ${height}`,
      "aria-label": title,
      ...root,
    },
    words + style + content + (options.small ? "" : stripTexts(lines, { height })),
  );
}

// In place of a picture: why there is none, above what is told in any case.
export function nothing(title, why, options, strip = []) {
  const { width, height } = sizeOf(options);
  const content = inParts({ text: why }, width - 20)
    .map(({ text }, i) =>
      element(
        "text",
        { class: "soft", x: width / 2, y: height / 2 + LINE * i, "text-anchor": "middle" },
        escape(text),
      ),
    )
    .join("");
  const says = [why, ...strip.map(({ text }) => `${text}.`)];
  return assemble({ title, says, content, lines: stripLines(strip, options), options });
}
