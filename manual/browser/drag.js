// Points of the picture that a pointer or the arrow keys move. The drawing says on its root how
// positions become coordinates, and on each handle which inputs it stands for.

const STEPS = { ArrowLeft: [-1, 0], ArrowRight: [1, 0], ArrowUp: [0, 1], ArrowDown: [0, -1] };
const KEY_STEP = 8; // of the picture's units

// The pointer in the units of the picture's viewBox.
function positionIn(svg, event) {
  const { x, y } = new DOMPoint(event.clientX, event.clientY).matrixTransform(
    svg.getScreenCTM().inverse(),
  );
  return [x, y];
}

const scaleOf = (svg) => {
  const { scale, left, top } = svg.dataset;
  return { scale: Number(scale), left: Number(left), top: Number(top) };
};

const coordinates = ({ scale, left, top }, [x, y]) => [(x - left) / scale, (top - y) / scale];

// As few digits as tell positions of the picture apart.
function rounded(value, scale) {
  const digits = Math.max(0, Math.min(9, Math.ceil(Math.log10(scale))));
  return String(Number(value.toFixed(digits)));
}

const handleOf = (event) => event.target.closest?.(".handle");

const sameHandle = (figure, { x, y, entry }) =>
  [...figure.querySelectorAll(".handle")].find(
    ({ dataset }) => dataset.x === x && dataset.y === y && dataset.entry === entry,
  );

export class Dragging {
  // `where(names)` says where the inputs of a handle are, `move(names, texts)` is told what they
  // become.
  constructor(figure, where, move) {
    Object.assign(this, { figure, where, move, held: null });
    figure.addEventListener("pointerdown", (event) => this.take(event));
    figure.addEventListener("pointermove", (event) => this.drag(event));
    for (const type of ["pointerup", "pointercancel"])
      figure.addEventListener(type, () => this.drop());
    figure.addEventListener("keydown", (event) => this.step(event));
  }

  take(event) {
    const handle = handleOf(event);
    const svg = this.figure.querySelector("svg");
    if (!handle || !svg.dataset.scale) return;
    event.preventDefault();
    this.held = { ...handle.dataset, view: scaleOf(svg) };
    this.figure.setPointerCapture(event.pointerId);
  }

  drag(event) {
    if (!this.held) return;
    const svg = this.figure.querySelector("svg");
    this.place(this.held, this.held.view, coordinates(this.held.view, positionIn(svg, event)));
  }

  drop() {
    this.held = null;
  }

  place({ x, y, entry }, { scale }, [atX, atY]) {
    this.move({ x, y, entry }, { x: rounded(atX, scale), y: rounded(atY, scale) });
  }

  step(event) {
    const handle = handleOf(event);
    const svg = this.figure.querySelector("svg");
    if (!handle || !STEPS[event.key] || !svg.dataset.scale) return;
    event.preventDefault();
    const view = scaleOf(svg);
    const [right, up] = STEPS[event.key].map((step) => (step * KEY_STEP) / view.scale);
    const names = { ...handle.dataset };
    const [atX, atY] = this.where(names);
    this.place(names, view, [atX + right, atY + up]);
    sameHandle(this.figure, names)?.focus();
  }

  // What the drawing is held to while a handle is, so that nothing moves under the pointer.
  get view() {
    if (!this.held) return undefined;
    const { scale, left, top } = this.held.view;
    return { sx: scale, sy: scale, left, top };
  }
}
