// The picture of a call: `draw(name, inputs, results, options)` gives the text of an SVG.
//
// `inputs` and `results` hold numbers and arrays by argument, as the JavaScript binding takes and
// gives them; a result that was kept is undefined. Options:
//   title       the picture's name, e.g. the first sentence on the routine
//   small       for tables: no words, no axes
//   standalone  with the style sheet inside; a page has STYLE once
//   narrow      for narrow windows: less wide, the words as large
//   report      an object that gets `view` and the `handles` (grips.js), in their order
//   view        held, as of a picture before, while a point is dragged
//   plane       in which points in space move: xy, xz or yz
//   call        (name, inputs) => results, for curves
//
// A picture of the plane says how it is scaled: x of the page, in units of its viewBox, is
// data-left + data-scale x, and y is data-top - data-scale y. An element of class `handle` can be
// moved: data-handle is its place in the report, data-x and data-y name the first inputs that it
// changes, and data-entry, 1-based, their entry where these are arrays. The root is an image, or
// with handles a group.
//
// Whatever the numbers are, there is a picture, if only of words.

import { nothing } from "./sheet.js";
import { TABLE } from "./table.js";
import { callValues, nameOf } from "./values.js";

export { STYLE } from "./svg.js";

export const NAMES = Object.keys(TABLE);

const namesOf = (terms) => [...new Set(terms.map(nameOf))];

// The arguments that a routine's picture shows, and those that it deliberately does not.
export const notShownBy = (name) => namesOf(TABLE[name].silent);
export const shownBy = (name) =>
  namesOf(TABLE[name].shown).filter((shown) => !notShownBy(name).includes(shown));

// What a section's dimension lines measure, by argument.
export const dimensionsOf = (name, inputs, results) => {
  const v = callValues(inputs, results);
  return TABLE[name].marks
    .filter((mark) => mark.dimension?.(v) !== undefined)
    .map((mark) => ({ name: mark.terms[0], length: mark.dimension(v) }));
};

export function draw(name, inputs, results, options = {}) {
  const row = Object.hasOwn(TABLE, name) ? TABLE[name] : undefined;
  const title = options.title ?? name;
  if (!row) return nothing(title, "Nothing to draw.", options);
  return row.draw(title, callValues(inputs, results), options);
}
