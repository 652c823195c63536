// What a pointer or the arrow keys move in the picture. The drawing's report says what can be moved,
// and what its inputs become at a position.

const STEPS = { ArrowLeft: [-1, 0], ArrowRight: [1, 0], ArrowUp: [0, -1], ArrowDown: [0, 1] };
const KEY_STEP = 8; // of the picture's units

// The pointer in the units of the picture's viewBox.
function positionIn(svg, event) {
  const { x, y } = new DOMPoint(event.clientX, event.clientY).matrixTransform(
    svg.getScreenCTM().inverse(),
  );
  return [x, y];
}

const handleOf = (event) => event.target.closest?.(".handle");

// As a picture shows it again: the same inputs of the same entry, and of several the one nearest.
function sameHandle(figure, report, { names, entry }, [x, y]) {
  const all = report.handles.map((handle, index) => ({ ...handle, index }));
  const same = all.filter((one) => `${one.names}` === `${names}` && one.entry === entry);
  const gap = ({ at }) => Math.hypot(at[0] - x, at[1] - y);
  const [found] = same.sort((one, other) => gap(one) - gap(other));
  return found && figure.querySelector(`.handle[data-handle="${found.index}"]`);
}

export class Dragging {
  // `report` gives what the last drawing said, `move(handle, numbers)` is told what inputs become,
  // and `dropped` that it is over.
  constructor(figure, { report, plane, move, dropped }) {
    Object.assign(this, { figure, report, plane, move, dropped, held: null });
    figure.addEventListener("pointerdown", (event) => this.take(event));
    figure.addEventListener("pointermove", (event) => this.drag(event));
    for (const type of ["pointerup", "pointercancel"])
      figure.addEventListener(type, () => this.drop());
    figure.addEventListener("keydown", (event) => this.step(event));
  }

  handleAt(element) {
    return element && this.report().handles?.[Number(element.dataset.handle)];
  }

  take(event) {
    const handle = this.handleAt(handleOf(event));
    if (!handle) return;
    event.preventDefault();
    const start = positionIn(this.figure.querySelector("svg"), event);
    const beside = handle.at.map((value, i) => value - start[i]);
    this.held = { handle, beside, view: this.report().view };
    this.figure.setPointerCapture(event.pointerId);
  }

  drag(event) {
    if (!this.held) return;
    const { handle, beside } = this.held;
    const position = positionIn(this.figure.querySelector("svg"), event);
    const wanted = position.map((value, i) => value + beside[i]);
    this.move(handle, handle.move(wanted, this.plane()));
    sameHandle(this.figure, this.report(), handle, wanted)?.classList.add("held");
  }

  // What was held beyond the frame comes back into it: the picture is drawn anew.
  drop() {
    if (!this.held) return;
    this.held = null;
    this.dropped();
  }

  step(event) {
    const handle = this.handleAt(handleOf(event));
    if (!handle || !STEPS[event.key]) return;
    event.preventDefault();
    const wanted = handle.at.map((value, i) => value + STEPS[event.key][i] * KEY_STEP);
    this.move(handle, handle.move(wanted, this.plane()));
    this.dropped();
    sameHandle(this.figure, this.report(), handle, wanted)?.focus();
  }

  // What the drawing is held to while a handle is, so that nothing moves under the pointer.
  get view() {
    return this.held?.view;
  }
}
