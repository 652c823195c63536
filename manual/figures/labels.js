// Where the words stand: each label takes the place around its anchor that covers least.

const DIRECTIONS = Array.from({ length: 16 }, (_, i) => (i * Math.PI) / 8);
const GAPS = [9, 16, 28, 44];
const MISREAD = { point: 150, vertex: 12 }; // what it costs
const BEYOND = 20; // what it costs that a number stands on the other side of a stroke
const FAR = 70; // where no number of a vertex stands
const LETTER = 0.56; // mean width of a letter, of the height

export const textWidth = (text, size = 17) => [...text].length * size * LETTER + 2;

// Around an anchor, with a corner towards it where it stands askew.
function boxAround([x, y], width, height, direction, gap) {
  const askew = (part) => Math.max(-1, Math.min(1, Math.SQRT2 * part));
  const [c, s] = [askew(Math.cos(direction)), askew(-Math.sin(direction))];
  const reach = (gap - 4) / Math.hypot(c, s);
  const left = x + c * (reach + width / 2) - width / 2;
  const top = y + s * (reach + height / 2) - height / 2;
  return { left, top, right: left + width, bottom: top + height };
}

const overlap = (p, q) =>
  Math.max(0, Math.min(p.right, q.right) - Math.max(p.left, q.left)) *
  Math.max(0, Math.min(p.bottom, q.bottom) - Math.max(p.top, q.top));

const outside = (box, frame) =>
  Math.max(0, frame.left - box.left) +
  Math.max(0, box.right - frame.right) +
  Math.max(0, frame.top - box.top) +
  Math.max(0, box.bottom - frame.bottom);

// Length of the part of a stroke that is within a box.
function lengthWithin(box, [x1, y1], [x2, y2]) {
  if (x1 < box.left && x2 < box.left) return 0;
  if (x1 > box.right && x2 > box.right) return 0;
  if (y1 < box.top && y2 < box.top) return 0;
  if (y1 > box.bottom && y2 > box.bottom) return 0;
  let [from, to] = [0, 1];
  const sides = [
    [x1 - x2, x1 - box.left],
    [x2 - x1, box.right - x1],
    [y1 - y2, y1 - box.top],
    [y2 - y1, box.bottom - y1],
  ];
  for (const [step, room] of sides) {
    if (step === 0 && room < 0) return 0;
    if (step < 0) from = Math.max(from, room / step);
    if (step > 0) to = Math.min(to, room / step);
  }
  return to > from ? (to - from) * Math.hypot(x2 - x1, y2 - y1) : 0;
}

const distance = ([x, y], box) =>
  Math.hypot(Math.max(box.left - x, 0, x - box.right), Math.max(box.top - y, 0, y - box.bottom));

const middleOf = ({ left, right, top, bottom }) => [(left + right) / 2, (top + bottom) / 2];

const isWithin = (reach, [x1, y1], [x2, y2]) => Math.hypot(x1 - x2, y1 - y2) < reach;
const isAt = (p, q) => isWithin(1, p, q);

// A point's name that stands as near to another point is read as the name of that one.
const misread = (box, anchor, points) =>
  points.some((point) => isAt(point, anchor)) &&
  points.some(
    (point) => !isAt(point, anchor) && distance(point, box) < 1.5 * distance(anchor, box),
  );

const side = ([x1, y1], [x2, y2], [x, y]) => Math.sign((x2 - x1) * (y - y1) - (y2 - y1) * (x - x1));

// The strokes that a vertex's number may touch, and of these the ones that may hide it.
const strokesNear = (anchors, strokes) =>
  strokes.filter(([p, q]) =>
    anchors.some((anchor) =>
      [0, 1].every(
        (i) => Math.min(p[i], q[i]) < anchor[i] + FAR && Math.max(p[i], q[i]) > anchor[i] - FAR,
      ),
    ),
  );

const wallsAt = (anchor, strokes) =>
  strokes.filter(([p, q, weight]) => weight >= 1 && !isAt(p, anchor) && !isAt(q, anchor));

const isBetween = ([p, q], anchor, centre) =>
  side(p, q, anchor) * side(p, q, centre) < 0 &&
  side(anchor, centre, p) * side(anchor, centre, q) < 0;

// What words cost by where they would be looked for.
function confusion(tone, anchor, box, points, walls) {
  const hidden = walls.filter((wall) => isBetween(wall, anchor, middleOf(box))).length;
  return BEYOND * hidden + (misread(box, anchor, points) ? (MISREAD[tone] ?? MISREAD.point) : 0);
}

// What it costs beyond `least`, or that it is no less than `most`: then it is not found out further.
function cost(box, taken, strokes, frame, least, most) {
  let total = least + 60 * outside(box, frame);
  for (let i = 0; i < taken.length && total < most; ++i) total += 3 * overlap(box, taken[i]);
  for (let i = 0; i < strokes.length && total < most; ++i) {
    const [p, q, weight] = strokes[i];
    total += weight * lengthWithin(box, p, q);
  }
  return total;
}

function candidates(label) {
  return label.anchors.flatMap((anchor, rank) =>
    GAPS.slice(0, label.gaps).flatMap((gap) =>
      DIRECTIONS.map((direction) => ({
        anchor,
        box: boxAround(anchor, label.width, label.height, direction, gap),
        penalty: gap * 0.7 + rank * 4 + (direction % Math.PI === 0 ? 0 : 1),
      })),
    ),
  );
}

const moved = (start, end, low, high) => Math.max(0, low - start) - Math.max(0, end - high);

// Whatever was found, the words stay in the picture as far as they fit.
function kept(box, frame) {
  const right = moved(box.left, box.right, frame.left, frame.right);
  const down = moved(box.top, box.bottom, frame.top, frame.bottom);
  return {
    left: box.left + right,
    right: box.right + right,
    top: box.top + down,
    bottom: box.bottom + down,
  };
}

// The labels' boxes, in the order of the labels.
export function placeLabels(labels, strokes, dots, ticks, frame) {
  const taken = [...dots, ...ticks];
  const numbered = labels.filter(({ tone, anchors }) => tone === "vertex" && anchors.length === 1);
  const points = [...dots.map(middleOf), ...numbered.map(({ anchors }) => anchors[0])];
  return labels.map((label) => {
    const isNumber = label.tone === "vertex";
    const about = isNumber ? strokesNear(label.anchors, strokes) : strokes;
    const walls = isNumber ? wallsAt(label.anchors[0], about) : [];
    const others = isNumber ? points.filter((p) => isWithin(FAR, p, label.anchors[0])) : points;
    let best = { total: Infinity };
    for (const { box, anchor, penalty } of candidates(label)) {
      const found = cost(box, taken, about, frame, penalty, best.total);
      if (found >= best.total) continue;
      const total = found + confusion(label.tone, anchor, box, others, walls);
      if (total < best.total) best = { total, box };
    }
    const box = kept(best.box, frame);
    taken.push(box);
    return box;
  });
}
