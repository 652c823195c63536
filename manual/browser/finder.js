// The finder of the first page: of what is ticked, the routines that take and give all remain.

const section = document.getElementById("finder");
const form = section.querySelector("form");
const list = section.querySelector(".cards");
const said = section.querySelector("[role=status]");
const boxes = [...form.querySelectorAll("input")];
const keyOf = (box) => box.closest("fieldset").dataset.key;
const items = [...list.children];
const routines = items.map(({ dataset }) => ({
  have: dataset.have.split(" "),
  want: dataset.want.split(" "),
}));

const fits = (routine, asked) =>
  ["have", "want"].every((key) => asked[key].every((kind) => routine[key].includes(kind)));

function ticked() {
  const asked = { have: [], want: [] };
  for (const box of boxes) if (box.checked) asked[keyOf(box)].push(box.value);
  return asked;
}

// How many would remain if the box were ticked too; one that leaves none cannot be ticked.
function count(box, asked) {
  const key = keyOf(box);
  const more = { ...asked, [key]: [...asked[key], box.value] };
  const number = routines.filter((routine) => fits(routine, more)).length;
  box.disabled = number === 0;
  box.parentElement.querySelector("small").textContent = number;
}

function show() {
  const asked = ticked();
  boxes.forEach((box) => count(box, asked));
  const isAsked = boxes.some((box) => box.checked);
  const found = routines.map((routine) => isAsked && fits(routine, asked));
  items.forEach((item, i) => (item.hidden = !found[i]));
  list.hidden = !isAsked;
  const { length } = found.filter(Boolean);
  said.textContent = isAsked ? `${length} routine${length === 1 ? "" : "s"}` : "";
}

form.addEventListener("change", show);
form.addEventListener("submit", (event) => event.preventDefault());
form.addEventListener("reset", () => setTimeout(show));
section.hidden = false;
show();
