// The form with the inputs as text, and the list of the results.

import { isArray, outputsOf } from "./call.js";
import { tokens } from "./numbers.js";

export class Fields {
  constructor(form, changed) {
    this.inputs = new Map(
      [...form.elements].filter((e) => e.name).map((input) => [input.name, input]),
    );
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

  // Marks the one field that is at fault, or none.
  blame(name) {
    for (const [each, input] of this.inputs) {
      if (each === name) input.setAttribute("aria-invalid", "true");
      else input.removeAttribute("aria-invalid");
    }
  }

  // One coordinate, or one entry of an array of them.
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

const element = (tag, text) => Object.assign(document.createElement(tag), { textContent: text });

function resultEntry(argument, text) {
  const entry = document.createElement("div");
  const value = element("dd", text === null ? "kept" : text === "" ? "[]" : text);
  entry.classList.toggle("array", isArray(argument));
  value.classList.toggle("kept", text === null);
  entry.append(element("dt", argument.name), value);
  return entry;
}

export function showResults(list, routine, results) {
  list.replaceChildren(...outputsOf(routine).map((a) => resultEntry(a, results[a.name])));
}
