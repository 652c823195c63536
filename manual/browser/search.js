// The search: a combobox whose list shows what was found. "/" goes there from anywhere.

import { Ranking } from "./ranking.js";

function option([name, sentence, place, href], i) {
  const item = document.createElement("li");
  item.id = `found-${i}`;
  item.setAttribute("role", "option");
  item.dataset.href = href;
  const title = document.createElement("strong");
  const origin = document.createElement("small");
  title.textContent = name;
  origin.textContent = place;
  item.append(title, " ", sentence, " ", origin);
  return item;
}

function note(text) {
  const item = document.createElement("li");
  item.setAttribute("role", "option");
  item.setAttribute("aria-disabled", "true");
  item.className = "nothing";
  item.textContent = text;
  return item;
}

function items({ found, isNear }) {
  if (!found.length) return [note("Nothing is found.")];
  const near = isNear ? [note("No page has all of these words. The nearest are:")] : [];
  return [...near, ...found.map(option)];
}

// The index is large, so it is loaded when somebody begins to search. A page from a disk may load
// it as a script only.
function loadIndex() {
  return new Promise((resolve, reject) => {
    const script = document.createElement("script");
    script.src = "assets/index.js";
    script.onload = () => resolve(new Ranking(window.manualIndex));
    script.onerror = reject;
    document.head.append(script);
  });
}

class Search {
  constructor(input, list) {
    Object.assign(this, { input, list, chosen: -1 });
  }

  async ready() {
    this.loading ??= loadIndex();
    this.ranking = await this.loading;
  }

  get options() {
    return [...this.list.querySelectorAll("[data-href]")];
  }

  async show() {
    await this.ready();
    const answer = this.ranking.ranked(this.input.value);
    this.list.replaceChildren(...items(answer));
    this.open(this.input.value.trim() !== "" && document.activeElement === this.input);
    this.choose(answer.found.length ? 0 : -1);
  }

  open(isOpen) {
    this.list.hidden = !isOpen;
    this.input.setAttribute("aria-expanded", String(isOpen));
    if (!isOpen) this.input.removeAttribute("aria-activedescendant");
  }

  choose(i) {
    this.chosen = i;
    this.options.forEach((item, k) => item.setAttribute("aria-selected", String(k === i)));
    const item = this.options[i];
    if (!item || this.list.hidden) return;
    this.input.setAttribute("aria-activedescendant", item.id);
    item.scrollIntoView({ block: "nearest" });
  }

  move(step) {
    const { length } = this.options;
    if (length) this.choose((this.chosen + step + length) % length);
  }

  go(item) {
    if (item) location.href = item.dataset.href;
  }

  onKey(event) {
    const actions = {
      ArrowDown: () => this.move(1),
      ArrowUp: () => this.move(-1),
      Enter: () => this.go(this.options[this.chosen]),
      Escape: () => this.open(false),
    };
    if (!actions[event.key]) return;
    event.preventDefault();
    actions[event.key]();
  }
}

const isTyping = (element) => element.matches("input, textarea, [contenteditable]");

export function startSearch(input, list) {
  const search = new Search(input, list);
  input.addEventListener("input", () => search.show());
  input.addEventListener("focus", () => (input.value ? search.show() : search.ready()));
  input.addEventListener("blur", () => search.open(false));
  input.addEventListener("keydown", (event) => search.onKey(event));
  list.addEventListener("mousedown", (event) => {
    event.preventDefault();
    search.go(event.target.closest("[data-href]"));
  });
  document.addEventListener("keydown", (event) => {
    if (event.key !== "/" || event.ctrlKey || event.metaKey || isTyping(event.target)) return;
    event.preventDefault();
    input.focus();
    input.select();
  });
}
