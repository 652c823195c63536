// What a pointer or the arrow keys take hold of: for a position of the page, what the inputs become.
// A grip has the `names` of the inputs, their `values`, their `entry` where these are arrays, and
// `move`, which gives the texts of what it changes by name.

import { add, dot, exists, length, minus, times, unit } from "./places.js";

// As few digits as tell positions of the page apart; of what is not measured there, a few.
function rounded(value, scale) {
  if (!scale) return Number(value.toPrecision(5));
  const digits = Math.max(0, Math.min(9, Math.ceil(Math.log10(scale))));
  return Number(value.toFixed(digits));
}

const gripOf = (names, values, change, { scales = [], entry, lines } = {}) => ({
  names,
  values,
  entry,
  lines,
  move: (position, plane) =>
    Object.fromEntries(
      change(position, plane).flatMap((value, i) =>
        value === undefined ? [] : [[names[i], rounded(value, scales[i])]],
      ),
    ),
});

// A point of the plane; a name that is missing is a coordinate that no input holds.
export function planeGrip({ view }, place, [x, y], entry) {
  const at = ([X, Y]) => [(X - view.left) / view.sx, (view.top - Y) / view.sy];
  const held = [x, y].map((name, i) => (name ? i : -1)).filter((i) => i >= 0);
  const pick = (all) => held.map((i) => all[i]);
  return gripOf(pick([x, y]), pick(place), (position) => pick(at(position)), {
    scales: pick([view.sx, view.sy]),
    entry,
  });
}

const AXES = { xy: [0, 1], xz: [0, 2], yz: [1, 2] };

export const PLANES = Object.keys(AXES);

// What a step along each axis is on the page.
function steps({ view }) {
  const [x0, y0] = view.to([0, 0, 0]);
  return [0, 1, 2].map((axis) => {
    const [x, y] = view.to([0, 1, 2].map((i) => (i === axis ? 1 : 0)));
    return [x - x0, y - y0];
  });
}

// A point in space, which moves in a plane parallel to those of the axes; `lines` draw its piece.
export function spaceGrip(sheet, place, names, entry) {
  const ways = steps(sheet);
  const [X, Y] = sheet.to(place);
  const change = ([x, y], plane = "xy") => {
    const [first, second] = AXES[plane];
    const [u, w] = [ways[first], ways[second]];
    const size = u[0] * w[1] - u[1] * w[0];
    const moved = place.map(() => undefined);
    if (Math.abs(size) < 1e-3 * Math.hypot(...u) * Math.hypot(...w)) return moved;
    const [dx, dy] = [x - X, y - Y];
    moved[first] = place[first] + (dx * w[1] - dy * w[0]) / size;
    moved[second] = place[second] + (u[0] * dy - u[1] * dx) / size;
    return moved;
  };
  const reach = 0.3 * sheet.whole.reach;
  const lines = (plane = "xy") => {
    const [first, second] = AXES[plane];
    return [
      [1, 1],
      [-1, 1],
      [-1, -1],
      [1, -1],
    ].map((signs) => {
      const corner = [...place];
      corner[first] += signs[0] * reach;
      corner[second] += signs[1] * reach;
      return sheet.to(corner);
    });
  };
  return gripOf(names, place, change, { scales: ways.map((way) => Math.hypot(...way)), entry, lines });
}

// A length that is drawn from one position of the page to another.
export function lengthGrip(from, to, name, value, entry) {
  const way = [to[0] - from[0], to[1] - from[1]];
  const size = way[0] ** 2 + way[1] ** 2;
  if (!(size > 1) || !exists([value])) return null;
  const share = ([x, y]) => ((x - from[0]) * way[0] + (y - from[1]) * way[1]) / size;
  return gripOf([name], [value], (position) => [value * share(position)], {
    scales: [Math.sqrt(size) / Math.abs(value)],
    entry,
  });
}

// An angle at a position of the page, counter-clockwise, by the place where its arc ends.
export function angleGrip(centre, end, name, value) {
  const towards = ([x, y]) => Math.atan2(centre[1] - y, x - centre[0]);
  const start = towards(end);
  const change = (position) => {
    const more = towards(position) - start;
    return [value + more - 2 * Math.PI * Math.round(more / (2 * Math.PI))];
  };
  return gripOf([name], [value], change, { scales: [500] });
}

const plain = ({ view }, [X, Y]) => [(X - view.left) / view.sx, (view.top - Y) / view.sy];

// Moves the line a x + b y + c = 0 to where the pointer is.
export function shiftGrip(sheet, names, [a, b, c]) {
  const change = (position) => {
    const [x, y] = plain(sheet, position);
    return [undefined, undefined, -(a * x + b * y)];
  };
  return gripOf(names, [a, b, c], change);
}

// Turns the line about a place of it.
export function slopeGrip(sheet, names, [a, b, c], pivot, end) {
  const size = Math.hypot(a, b);
  const side = Math.sign(-b * (end[0] - pivot[0]) + a * (end[1] - pivot[1])) || 1;
  const change = (position) => {
    const [x, y] = plain(sheet, position);
    const way = [x - pivot[0], y - pivot[1]];
    const length = Math.hypot(...way) || 1;
    const [A, B] = [(side * size * way[1]) / length, (-side * size * way[0]) / length];
    return [A, B, -(A * pivot[0] + B * pivot[1])];
  };
  return gripOf(names, [a, b, c], change);
}

// The circle x^2 + y^2 + D x + E y + F = 0 by its centre, and by its radius.
export function centreGrip(sheet, names, values, radius) {
  const change = (position) => {
    const [x, y] = plain(sheet, position);
    return [-2 * x, -2 * y, x * x + y * y - radius * radius];
  };
  return gripOf(names, values, change);
}

export function radiusGrip(sheet, names, values, [x, y]) {
  const change = (position) => {
    const [X, Y] = plain(sheet, position);
    return [undefined, undefined, x * x + y * y - ((X - x) ** 2 + (Y - y) ** 2)];
  };
  return gripOf(names, values, change);
}

// How far along a way in space the pointer has come from a position, or null where one looks along it.
function alongWay(sheet, from, way) {
  const [X, Y] = sheet.to(from);
  const [x, y] = sheet.to(add(from, way)).map((value, i) => value - [X, Y][i]);
  const size = x * x + y * y;
  if (!(size > (0.05 * length(way) * sheet.view.sx) ** 2)) return null;
  return ([px, py]) => ((px - X) * x + (py - Y) * y) / size;
}

// Moves the plane A x + B y + C z + D = 0 along its normal, by a place of it.
export function offsetGrip(sheet, names, values, place) {
  const normal = values.slice(0, 3);
  const share = alongWay(sheet, place, normal);
  const change = (position) => [values[3] - share(position) * dot(normal, normal)];
  return share && gripOf(names.slice(3), values.slice(3), change);
}

// Lifts a corner of a plane's patch: it turns about the line through the middle that is
// perpendicular to the way there.
export function tiltGrip(sheet, names, values, corner, middle) {
  const normal = values.slice(0, 3);
  const out = minus(corner, middle);
  const share = alongWay(sheet, corner, normal);
  const change = (position) => {
    const lean = (share(position) * dot(normal, normal)) / dot(out, out);
    const way = times(unit(add(normal, out, -lean)), length(normal));
    return [...way, -dot(way, middle)];
  };
  return share && gripOf(names, values, change);
}
