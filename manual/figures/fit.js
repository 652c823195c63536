// How places come onto the page: as large as the frame allows, upright, and about its middle.

// Steps of 1, 2 or 5 that divide a length into about so many parts.
export function niceStep(length, parts) {
  const rough = length / parts;
  const power = 10 ** Math.floor(Math.log10(rough));
  return power * ([1, 2, 5].find((factor) => factor * power >= rough) ?? 10);
}

export function ticksWithin(low, high, step) {
  const first = Math.ceil(low / step - 1e-9);
  const last = Math.floor(high / step + 1e-9);
  if (!(last - first <= 60)) return [];
  return Array.from({ length: last - first + 1 }, (_, i) => (first + i) * step);
}

function range(values) {
  const low = Math.min(...values);
  const high = Math.max(...values);
  return { middle: low / 2 + high / 2, size: high - low };
}

// Of rounding noise nothing is made a picture of.
const usable = (size, middle) => (size > 1e-7 * Math.abs(middle) ? size : 0);

// The part of a frame that a margin leaves, which is one for all sides or has one for each.
function within(frame, margin) {
  const { left, right, top, bottom } =
    typeof margin === "number"
      ? { left: margin, right: margin, top: margin, bottom: margin }
      : margin;
  return {
    left: frame.left + left,
    right: frame.right - right,
    top: frame.top + top,
    bottom: frame.bottom - bottom,
  };
}

// `project` gives two coordinates of a place, the second one upwards. Scales are equal unless
// `stretched`. The view may be held from outside, so that it does not move under a pointer.
export function fit(places, project, whole, { margin, stretched = false, held, isFlat }) {
  const frame = within(whole, margin);
  const flat = places.map(project);
  const [u, w] = [range(flat.map((p) => p[0])), range(flat.map((p) => p[1]))];
  const room = [frame.right - frame.left, frame.bottom - frame.top];
  const sizes = [usable(u.size, u.middle), usable(w.size, w.middle)];
  const largest = Math.max(...sizes) || Math.max(Math.abs(u.middle), Math.abs(w.middle)) / 4 || 2;
  const scales = sizes.map((size, i) => room[i] / (size || largest));
  const one = Math.min(...scales);
  const [sx, sy] = stretched ? scales : [one, one];
  const centre = [(frame.left + frame.right) / 2, (frame.top + frame.bottom) / 2];
  const view = { sx, sy, left: centre[0] - sx * u.middle, top: centre[1] + sy * w.middle };
  return {
    isFlat,
    project,
    ...view,
    patches: {}, // of planes, where they are drawn
    ...held,
    to(place) {
      const [x, y] = this.project(place);
      return [this.left + this.sx * x, this.top - this.sy * y];
    },
  };
}
