// Area, centroid and principal axes of a section's outline: a steel angle L 100 x 60 x 10.
import { load } from "kezlib";

const kez = await load();

/** The vertices in mm, counter-clockwise; the last place is for the first one again. */
const vertices = {
  X: Float32Array.of(0, 60, 60, 10, 10, 0, 0),
  Y: Float32Array.of(0, 0, 10, 10, 100, 100, 0),
  n: 6,
};

function centroid({ X, Y, n }) {
  const { area } = kez.kezapl(X, Y, n);
  const { Sx, Sy } = kez.kezspl(X, Y, n);
  return { area, x: Sy / area, y: Sx / area };
}

/** The outline with the point as its origin. */
function seenFrom({ x, y }, { X, Y, n }) {
  return { X: X.map((value) => value - x), Y: Y.map((value) => value - y), n };
}

const centre = centroid(vertices);
const { X, Y, n } = seenFrom(centre, vertices);
const { Ix, Iy, Ixy } = kez.kezipl(X, Y, n);
const { u, v, theta } = kez.kezinp(Ix, Iy, Ixy);

const cm4 = (moment) => `${(moment / 1e4).toFixed(1)} cm^4`;
const degrees = (angle) => ((angle * 180) / Math.PI).toFixed(1);
console.log(`area      ${(centre.area / 100).toFixed(1)} cm^2`);
console.log(`centroid  (${centre.x.toFixed(1)}, ${centre.y.toFixed(1)}) mm`);
console.log(`moments   Ix ${cm4(Ix)}, Iy ${cm4(Iy)}, Ixy ${cm4(Ixy)}`);
console.log(`principal ${cm4(u)} and ${cm4(v)}, at ${degrees(theta)} degrees`);
