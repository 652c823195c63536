// The form with the inputs as text, and the list of the results.

import { isArray, outputsOf } from "./call.js";
import { parted } from "./digits.js";
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

  // A number, or one entry of a list of them.
  setNumber(name, entry, text) {
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

// A value with the digits that are not sure apart; `spreads` are those of its entries.
function valueElement(text, spreads) {
  const value = document.createElement("dd");
  if (text === null || text === "" || !spreads) {
    value.textContent = text === null ? "kept" : text || "[]";
    return value;
  }
  text.split(" ").forEach((token, i) => {
    const [sure, unsure] = parted(token, spreads[i]);
    value.append(i ? " " : "", sure);
    if (unsure) value.append(Object.assign(element("span", unsure), { className: "unsure" }));
  });
  return value;
}

function resultEntry(argument, text, spreads) {
  const entry = document.createElement("div");
  const value = valueElement(text, spreads);
  entry.classList.toggle("array", isArray(argument));
  value.classList.toggle("kept", text === null);
  entry.append(element("dt", argument.name), value);
  return entry;
}

export function showResults(list, routine, results, spreads = {}) {
  list.replaceChildren(
    ...outputsOf(routine).map((a) => resultEntry(a, results[a.name], spreads[a.name])),
  );
}
