// Space, in axonometry: x comes forward, y goes to the right, z up. Points stand on a floor, so
// that one sees where they are.

import { niceStep, ticksWithin } from "./fit.js";
import { arcBetween, equation, mark, spoken, toneOf, turningArc } from "./marks.js";
import { add, at, cross, exists, footOn, length, list, minus, times, unit } from "./places.js";
import { scene } from "./scene.js";
import { axisName, baseOf, level, tickText } from "./svg.js";

// Where one looks from, the first as long as it shows the points apart.
const AZIMUTHS = [0.62, 0.95, 0.35, 1.25, 0.15];
// How steeply one looks down, the first that fills most of the height.
const ELEVATIONS = [0.4, 0.6, 0.8];
const FILLED = 0.75;

const projection = (azimuth, elevation = ELEVATIONS[0]) => {
  const [c, s] = [Math.cos(azimuth), Math.sin(azimuth)];
  const [ce, se] = [Math.cos(elevation), Math.sin(elevation)];
  return ([x, y, z]) => [y * c - x * s, z * ce - (x * c + y * s) * se];
};

// Height of what is seen, as a part of its width.
function aspect(places, project) {
  const [width, height] = extremes(places.map((p) => [...project(p), 0]))
    .reduce((low, high) => minus(high, low));
  return height / width;
}

// How far apart the nearest two of the points look, as a part of how far apart they are.
function clearness(places, project) {
  let least = 1;
  places.forEach((p, i) =>
    places.slice(0, i).forEach((q) => {
      const real = length(minus(p, q));
      const [[x1, y1], [x2, y2]] = [project(p), project(q)];
      if (real > 0) least = Math.min(least, Math.hypot(x1 - x2, y1 - y2) / real);
    }),
  );
  return least;
}

// How far a plane is turned towards the eye.
function openness([x, y, z], azimuth) {
  const [ce, se] = [Math.cos(ELEVATIONS[0]), Math.sin(ELEVATIONS[0])];
  return Math.abs(x * ce * Math.cos(azimuth) + y * ce * Math.sin(azimuth) + z * se);
}

// Whether an arrow along a normal does not come straight towards the eye.
const isSeen = (normal, view) => Math.hypot(...view(normal)) > 0.35;

function chooseView(places, points, normals, frame) {
  const some = points.slice(0, 16);
  const clear = AZIMUTHS.map((azimuth) =>
    Math.min(
      clearness(some, projection(azimuth)),
      ...normals.map((normal) => 1.5 * openness(normal, azimuth)),
    ),
  );
  const best = clear[0] > 0.45 ? 0 : clear.indexOf(Math.max(...clear));
  const views = ELEVATIONS.map((elevation) => projection(AZIMUTHS[best], elevation));
  const wanted = (FILLED * (frame.bottom - frame.top)) / (frame.right - frame.left);
  const shown = views.filter((view, i) => i === 0 || normals.every((way) => isSeen(way, view)));
  return shown.find((view) => aspect(around(places), view) >= wanted) ?? shown.at(-1);
}

const boxOf = (low, high) =>
  [0, 1, 2, 3, 4, 5, 6, 7].map((i) =>
    [0, 1, 2].map((axis) => ((i >> axis) & 1 ? high[axis] : low[axis])),
  );

const extremes = (places) =>
  [Math.min, Math.max].map((pick) => [0, 1, 2].map((i) => pick(...places.map((p) => p[i]))));

// The floor, a little larger than what stands on it.
function around(places) {
  const [low, high] = extremes(places);
  const room = 0.08 * length(minus(high, low)) || 0.5;
  const [first, last] = [
    [low[0] - room, low[1] - room, low[2]],
    [high[0] + room, high[1] + room, high[2]],
  ];
  const { from, tips } = triad(first, last);
  return [...boxOf(first, [last[0], last[1], low[2]]), from, ...tips, ...places];
}

function paintFloor(sheet, low, high) {
  const step = niceStep(Math.max(high[0] - low[0], high[1] - low[1]), 7);
  const line = (p, q, look) => sheet.stroke([p, q], look, { weight: 0.1, layer: "back" });
  for (const x of ticksWithin(low[0], high[0], step)) {
    line([x, low[1], low[2]], [x, high[1], low[2]], "faint");
  }
  for (const y of ticksWithin(low[1], high[1], step)) {
    line([low[0], y, low[2]], [high[0], y, low[2]], "faint");
  }
  paintAxes(sheet, low, high, step);
}

// The axes stand at the origin where it is in the picture, else at the floor's corner.
function triad(low, high) {
  const size = 0.5 * Math.max(high[0] - low[0], high[1] - low[1]);
  const isIn = [0, 1, 2].every((i) => low[i] <= 0 && high[i] >= 0);
  const from = isIn ? [0, 0, 0] : low;
  const top = Math.max(high[2], from[2] + size * 0.4);
  const tips = [
    [high[0], from[1], from[2]],
    [from[0], high[1], from[2]],
    [from[0], from[1], top],
  ];
  return { from, tips, isIn };
}

function paintAxes(sheet, low, high, step) {
  const { from, tips, isIn } = triad(low, high);
  const p = sheet.to(from);
  if (isIn) sheet.labelAt("0", [p], "axis");
  ["x", "y", "z"].forEach((name, i) => {
    const q = belowTop(p, sheet.to(tips[i]), sheet.frame.top + 18);
    sheet.strokeAt([p, q], "soft", { weight: 0.5, layer: "back" });
    sheet.head(p, q, "soft");
    sheet.labelAt(name, [q], "soft");
  });
  if (sheet.small) return;
  tickAlong(sheet, "x", ticksWithin(low[0], high[0], step), (x) => [x, high[1], low[2]]);
  tickAlong(sheet, "y", ticksWithin(low[1], high[1], step), (y) => [high[0], y, low[2]]);
}

// The end of an axis, or where it would leave the picture at the top.
function belowTop([x1, y1], [x2, y2], top) {
  const part = y2 < top && y1 > top ? (y1 - top) / (y1 - y2) : 1;
  return [x1 + part * (x2 - x1), y1 + part * (y2 - y1)];
}

// Ticks stand in front, where they are free; the axis is behind, so that one of them names it.
function tickAlong(sheet, name, ticks, where) {
  const [anchor, beside] = name === "x" ? ["start", 5] : ["end", -5];
  const base = ticks.length ? baseOf(ticks[0], ticks.at(-1), ticks[1] - ticks[0] || 1) : 0;
  const axis = axisName(name, base);
  const [a, b] = [ticks[0], ticks[1]].map((t) => sheet.to(where(t ?? 0)));
  const gap = Math.hypot(a[0] - b[0], a[1] - b[1]) || 1e9;
  const every = Math.max(1, Math.ceil(34 / gap));
  const shown = ticks.filter((_, i) => i % every === 0);
  const named = shown.length >> 1;
  shown.forEach((t, i) => {
    const [x, y] = sheet.to(where(t));
    const text = i === named ? `${axis} = ${tickText(t - base)}` : tickText(t - base);
    const hasRoom = i !== named - 1 || gap * every > 60; // beside the longer one
    if (hasRoom) sheet.tick(text, x + beside, y + 15, anchor);
  });
}

function backdrop(sheet, whole) {
  const room = 0.08 * 2 * whole.reach || 0.5;
  const low = [whole.low[0] - room, whole.low[1] - room, whole.low[2]];
  const high = [whole.high[0] + room, whole.high[1] + room, whole.high[2]];
  paintFloor(sheet, low, high);
  sheet.drop = (p) => {
    const below = [p[0], p[1], whole.low[2]];
    if (sheet.small || Math.abs(p[2] - whole.low[2]) < 1e-3 * whole.reach) return;
    sheet.stroke([p, below], "soft dashed", { weight: 0.2, layer: "back" });
    const [x, y] = sheet.to(below);
    sheet.strokeAt(level(y, x - 3, x + 3), "soft", { weight: 0.1, layer: "back" });
  };
}

const SPACE = { margin: 40, chooseView, backdrop, around };

export const space = (marks, more) => scene(SPACE, marks, more);

// A line by two places, or by one and a direction, beyond both by a part of the picture.
export function beyond(from, to, label = "", { tone, look = "" } = {}) {
  const parts = [at(from), at(to)];
  const terms = parts.flatMap((part) => part.terms);
  const ends = (v, whole) => {
    const [p, q] = parts.map((part) => part.where(v));
    const way = unit(minus(q, p));
    const reach = 0.3 * whole.reach;
    return [add(p, way, -reach), add(q, way, reach)];
  };
  return {
    terms,
    span: (v) => parts.map((part) => part.where(v)).filter(exists),
    late: (v, whole) => ends(v, whole).filter(exists),
    paint(sheet, v) {
      const [p, q] = ends(v, sheet.whole);
      const colour = toneOf(terms, v, tone);
      if (!exists(p) || !exists(q)) return;
      sheet.stroke([p, q], `${colour} ${look}`);
      sheet.label(label, [add(times(p, 0.1), q, 0.9), q], colour);
    },
  };
}

// An axis through the origin, along a unit vector.
export function axisLine(axis) {
  const ends = (whole) => [times(axis, -0.25 * whole.reach), times(axis, 1.1 * whole.reach)];
  return {
    terms: [],
    span: () => [[0, 0, 0]],
    late: (_, whole) => ends(whole),
    paint(sheet) {
      const [p, q] = ends(sheet.whole);
      sheet.arrow(p, q, "ink", "ink thin");
    },
  };
}

// The perpendiculars from the points of a list on a line.
export function toLine(text, count, from, to, within) {
  const places = list(text, count);
  return {
    terms: [...places.terms, ...at(from).terms, ...at(to).terms, within],
    paint(sheet, v) {
      paintAround(sheet, [from, to].map((place) => at(place).where(v)), v.scalar(within));
      for (const p of places.items(v)) {
        const foot = footOn({ terms: [], where: () => p }, from, to).where(v);
        if (exists(p) && exists(foot)) sheet.stroke([p, foot], "accent thin", { weight: 0.3 });
      }
    },
  };
}

// What is nearer to a line than a distance, by circles about it and the lines that touch them.
function paintAround(sheet, [p, q], radius) {
  const way = unit(minus(q, p));
  if (!exists([...way, radius]) || !(radius > 0)) return;
  const side = unit(cross(way, Math.abs(way[2]) > 0.9 ? [1, 0, 0] : [0, 0, 1]));
  const ring = (centre) => turningArc(centre, times(side, radius), way, 2 * Math.PI);
  for (const centre of [p, q]) {
    sheet.wash(ring(centre), "accent-wash");
    sheet.stroke(ring(centre), "accent thin dashed", { weight: 0.2, closed: true });
  }
  const steps = ring([0, 0, 0]);
  const [o, w] = [sheet.to([0, 0, 0]), sheet.to(way)];
  const across = (place) => {
    const [x, y] = sheet.to(place);
    return (x - o[0]) * (w[1] - o[1]) - (y - o[1]) * (w[0] - o[0]);
  };
  const ordered = [...steps].sort((a, b) => across(a) - across(b));
  for (const edge of [ordered[0], ordered.at(-1)])
    sheet.stroke([add(p, edge), add(q, edge)], "accent thin dashed", { weight: 0.2 });
  sheet.label("tol", [add(q, ordered[0]), add(p, ordered[0])], "ink");
}

// The legs of a vector along the axes.
export function legs(from, to, names = []) {
  return mark(
    [at(from), at(to)],
    (sheet, [p, q]) => {
      const stops = [p, [q[0], p[1], p[2]], [q[0], q[1], p[2]], q];
      for (let i = 0; i < 3; ++i) {
        sheet.stroke([stops[i], stops[i + 1]], "accent thin dashed", { weight: 0.5 });
        sheet.label(names[i], [times(add(stops[i], stops[i + 1]), 0.5)], "accent");
      }
    },
    { terms: names },
  );
}

// An axis system at a place: the nine numbers by their names.
export function axes(origin, names, { tone = "accent", share = 0.5 } = {}) {
  const terms = names.split(" ");
  const ways = (v) => [0, 3, 6].map((i) => terms.slice(i, i + 3).map(v.scalar));
  return {
    terms: [...at(origin).terms, ...terms],
    span: (v) => [at(origin).where(v)].filter(exists),
    late: (v, whole) =>
      ways(v)
        .map((way) => add(at(origin).where(v), way, share * whole.reach))
        .filter(exists),
    say: (v) =>
      `axes ${ways(v)
        .map((way) => spoken(way))
        .join(" ")}`,
    paint(sheet, v) {
      const p = at(origin).where(v);
      ways(v).forEach((way, i) => {
        const tip = add(p, way, share * sheet.whole.reach);
        if (!exists(tip) || !exists(p)) return;
        sheet.arrow(p, tip, tone);
        sheet.label(`${terms[3 * i]}..${terms[3 * i + 2]}`, [tip], tone);
      });
    },
  };
}

// A place as it is seen along an axis, on a wall well behind everything.
const onWall = (place, axis, whole) =>
  place.map((value, i) => (i === axis ? whole.low[i] - 0.8 * whole.reach : value));

// What two vectors at one place look like along the three axes: on two walls and on the floor.
export function shadows(from, first, second, names) {
  const parts = [at(from), at(first), at(second)];
  const places = (v) => parts.map((part) => part.where(v));
  const walls = (v, whole) =>
    names.map((_, axis) => places(v).map((place) => onWall(place, axis, whole)));
  const say = (v) => names.map((name) => equation(name, v)).join(", ");
  return {
    terms: [...parts.flatMap((part) => part.terms), ...names],
    span: (v) => places(v).filter(exists),
    late: (v, whole) => (whole.low ? walls(v, whole).flat().filter(exists) : []),
    say,
    paint(sheet, v) {
      if (!sheet.whole.low) return;
      walls(v, sheet.whole).forEach((wall, axis) => {
        if (wall.every(exists)) paintShadow(sheet, wall, places(v), names[axis], v);
      });
    },
  };
}

function paintShadow(sheet, [vertex, first, second], places, name, v) {
  sheet.wash([vertex, first, second], "accent-wash");
  [vertex, first, second].forEach((shadow, i) =>
    sheet.stroke([places[i], shadow], "soft thin dashed", { weight: 0.1, layer: "back" }),
  );
  for (const tip of [first, second]) sheet.arrow(vertex, tip, "accent", "accent thin");
  const size = 34 / sheet.view.sx;
  const arc = arcBetween(vertex, minus(first, vertex), minus(second, vertex), size);
  sheet.stroke(arc, "accent thin");
  const middle = arc[arc.length >> 1];
  sheet.label(equation(name, v), [middle], "accent");
}
