// A routine's page: its inputs can be changed, and the library runs in the page.

import { draw } from "../figures/draw.js";
import { fragmentOf, textsInAddress, unknownIn, writeAddress } from "./address.js";
import { callWith, FieldError, resultTexts, valuesOf } from "./call.js";
import { startCopying } from "./clipboard.js";
import { asRow, asStatements } from "./copies.js";
import { spreads, tolerancesLost } from "./digits.js";
import { Dragging } from "./drag.js";
import { checkSizes } from "./extents.js";
import { Fields, showResults } from "./fields.js";
import { load } from "./library.js";
import { remember, remembered } from "./memory.js";
import { drawWorkedCalls } from "./worked.js";

const routine = JSON.parse(document.getElementById("routine").textContent);
const element = (id) => document.getElementById(id);
const figure = element("picture");
const content = element("content");
const list = element("results");
const message = element("message");
const AGAIN = 1500; // ms until an address that was refused is written

const kinds = Object.fromEntries(routine.arguments.map(({ name, kind }) => [name, kind]));
const NARROW = matchMedia("(max-width: 30rem)");

class Live {
  // Curves and digits have a library of their own: their calls are none of those whose values are
  // kept.
  constructor(kez, forCurves) {
    Object.assign(this, { kez, forCurves, report: {}, notice: "" });
    this.fields = new Fields(element("fields"), () => this.changed());
    this.dragging = new Dragging(figure, {
      report: () => this.report,
      plane: () => this.plane,
      move: (handle, numbers) => this.moved(handle, numbers),
      dropped: () => this.dropped(),
    });
  }

  get plane() {
    return document.querySelector("#plane :checked")?.value;
  }

  get showsDigits() {
    return element("digits").checked;
  }

  // Shows what the address says, over the example.
  restore() {
    const texts = textsInAddress(location);
    const known = Object.entries(texts).filter(([name]) => name in routine.example);
    this.fields.texts = { ...routine.example, ...Object.fromEntries(known) };
    this.notice = unknownIn(texts, routine.example);
    this.compute();
  }

  changed() {
    this.notice = "";
    this.compute();
    this.address();
  }

  // Behind the computation, which it never stops.
  address() {
    clearTimeout(this.later);
    if (!writeAddress(fragmentOf(this.fields.texts, routine.example)))
      this.later = setTimeout(() => this.address(), AGAIN);
  }

  moved({ entry }, numbers) {
    for (const [name, value] of Object.entries(numbers))
      this.fields.setNumber(name, entry, String(kinds[name] === "integer" ? Math.round(value) : value));
    this.compute();
  }

  dropped() {
    this.changed();
  }

  reset() {
    this.fields.texts = routine.example;
    this.changed();
  }

  compute() {
    try {
      const values = valuesOf(routine, this.fields.texts);
      checkSizes(routine, this.fields.texts);
      this.show(values, callWith(this.kez, routine, values));
      this.fail(null);
    } catch (error) {
      this.fail(error);
    }
  }

  show(values, results) {
    this.shown = { values, results, texts: this.fields.texts };
    this.showResults();
    this.drawPicture();
    this.writeCopies(resultTexts(routine, results, this.fields.texts));
  }

  showResults() {
    const { values, results, texts } = this.shown;
    const found = resultTexts(routine, results, texts);
    const call = (given) => callWith(this.forCurves, routine, given);
    const moves = this.showsDigits ? spreads(routine, texts, values, results, call) : {};
    showResults(list, routine, found, moves);
    element("tolerance").textContent = this.showsDigits ? tolerancesLost(routine, values) : "";
  }

  drawPicture() {
    const { values, results } = this.shown;
    const call = (name, inputs) => callWith(this.forCurves, { ...routine, name }, inputs);
    this.report = {};
    figure.innerHTML = draw(routine.name, values, results, {
      call,
      title: routine.sentence,
      narrow: NARROW.matches,
      report: this.report,
      view: this.dragging.view,
      plane: this.plane,
    });
  }

  writeCopies(results) {
    const { texts } = this.fields;
    for (const code of document.querySelectorAll("[data-call]")) {
      const language = routine.languages.find(({ key }) => key === code.dataset.call);
      code.textContent = language
        ? asStatements(routine, texts, language)
        : asRow(routine, texts, results);
    }
  }

  // Says in words what is wrong, and with which field.
  fail(error) {
    const field = error instanceof FieldError ? error.field : undefined;
    this.fields.blame(field ?? error?.message.match(/^\w+: (\w+)\b/)?.[1]);
    const said = field ? `${field}: ${error.message}` : error?.message;
    message.textContent = said ?? this.notice;
    content.toggleAttribute("data-stale", Boolean(error)); // what is seen is of inputs before
  }
}

function startButtons(live) {
  element("reset").addEventListener("click", () => live.reset());
  startCopying(element("share"), () => location.href);
  for (const button of document.querySelectorAll(".copy")) {
    const code = button.closest(".copied").querySelector("code");
    startCopying(button, () => code.textContent);
  }
}

// Pictures and results as the reader wants to see them.
function startChoices(live) {
  const digits = element("digits");
  digits.checked = remembered("digits") === "yes";
  digits.addEventListener("change", () => {
    remember("digits", digits.checked ? "yes" : "no");
    live.showResults();
  });
  element("plane")?.addEventListener("change", () => live.drawPicture());
  NARROW.addEventListener("change", () => live.drawPicture());
}

const showsLive = () => element("picture").scrollIntoView({ block: "center" });

async function start() {
  const live = new Live(await load(), await load());
  startButtons(live);
  startChoices(live);
  live.restore();
  addEventListener("hashchange", () => {
    if (location.hash !== "" && !location.hash.includes("=")) return;
    live.restore();
    if (location.hash) showsLive();
  });
  document.documentElement.dataset.live = "";
  drawWorkedCalls(routine, await load());
}

start();
