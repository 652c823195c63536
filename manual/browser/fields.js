// The form with the inputs as text, and the table of the results.
import { outputsOf } from "./call.js";
import { tokens } from "./numbers.js";

export class Fields {
  constructor(form, changed) {
    this.inputs = new Map(
      [...form.elements].filter((e) => e.name).map((input) => [input.name, input]));
    form.addEventListener("input", changed);
    form.addEventListener("submit", (event) => event.preventDefault());
  }

  get texts() {
    return Object.fromEntries([...this.inputs].map(([name, input]) => [name, input.value]));
  }

  set texts(texts) {
    for (const [name, text] of Object.entries(texts)) {
      const input = this.inputs.get(name);
      if (input && input.value !== text) input.value = text;
    }
  }

  /** Marks the one field that is at fault, or none. */
  blame(name) {
    for (const [each, input] of this.inputs) {
      const isAtFault = each === name;
      input.toggleAttribute("aria-invalid", isAtFault);
      if (isAtFault) input.setAttribute("aria-invalid", "true");
    }
  }

  /** One coordinate, or one entry of an array of them. */
  coordinate(name, entry) {
    const entries = tokens(this.inputs.get(name)?.value ?? "");
    return Number(entries[entry === undefined ? 0 : Number(entry) - 1]);
  }

  setCoordinate(name, entry, text) {
    const input = this.inputs.get(name);
    if (!input) return;
    if (entry === undefined) {
      input.value = text;
      return;
    }
    const entries = tokens(input.value);
    entries[Number(entry) - 1] = text;
    input.value = entries.join(" ");
  }
}

const cell = (tag, text) => Object.assign(document.createElement(tag), { textContent: text });

function resultRow(argument, text) {
  const row = document.createElement("tr");
  const head = cell("th", argument.name);
  const value = cell("td", text === null ? "kept" : text === "" ? "[]" : text);
  head.scope = "row";
  value.classList.toggle("kept", text === null);
  row.append(head, value);
  return row;
}

export function showResults(table, routine, results) {
  delete table.dataset.stale;
  table.tBodies[0].replaceChildren(
    ...outputsOf(routine).map((a) => resultRow(a, results[a.name])));
}

/** Results of inputs that were before. */
export function fadeResults(table) {
  table.dataset.stale = "";
}
