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
const SETTLED = 100; // ms without a change, until what can wait is done
const AGAIN = 1500; // ms until an address that was refused is written

const kinds = Object.fromEntries(routine.arguments.map(({ name, kind }) => [name, kind]));
const NARROW = matchMedia("(max-width: 30rem)");

class Live {
  // Where values are kept, curves and digits have a library of their own: their calls are none of
  // the reader's.
  constructor(kez, forCurves) {
    Object.assign(this, { kez, forCurves, report: {}, notice: "", spreads: {}, isWritten: true });
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
    this.isWritten = false;
    this.compute();
    this.settle(SETTLED);
  }

  // The address, the copies and the digits follow when the picture is painted and nothing moves.
  settle(wait) {
    clearTimeout(this.waiting);
    this.waiting = setTimeout(() => this.finish(), wait);
  }

  finish() {
    clearTimeout(this.waiting);
    if (this.shown) {
      this.writeCopies();
      this.showDigits();
    }
    if (this.isWritten) return;
    this.isWritten = writeAddress(fragmentOf(this.fields.texts, routine.example));
    if (!this.isWritten) this.settle(AGAIN);
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
    const { texts } = this.fields;
    this.shown = { values, results, texts, found: resultTexts(routine, results, texts) };
    this.showResults();
    this.drawPicture();
  }

  // With the digits of the call before, until those of this one are known.
  showResults() {
    showResults(list, routine, this.shown.found, this.showsDigits ? this.spreads : {});
  }

  showDigits() {
    const { values, results, texts } = this.shown;
    const call = (given) => callWith(this.forCurves, routine, given);
    if (this.showsDigits) this.spreads = spreads(routine, texts, values, results, call);
    this.showResults();
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

  writeCopies() {
    const { texts, found } = this.shown;
    for (const code of document.querySelectorAll("[data-call]")) {
      const language = routine.languages.find(({ key }) => key === code.dataset.call);
      code.textContent = language
        ? asStatements(routine, texts, language)
        : asRow(routine, texts, found);
    }
  }

  // Says in words what is wrong, and with which field.
  fail(error) {
    const field = error instanceof FieldError ? error.field : undefined;
    this.fields.blame(field ?? error?.message.match(/^\w+: (\w+)\b/)?.[1]);
    const said = field ? `${field}: ${error.message}` : error?.message;
    const text = said ?? this.notice;
    if (message.textContent !== text) message.textContent = text;
    content.toggleAttribute("data-stale", Boolean(error)); // what is seen is of inputs before
  }
}

function startButtons(live) {
  element("reset").addEventListener("click", () => live.reset());
  startCopying(element("share"), () => {
    live.finish();
    return location.href;
  });
  for (const button of document.querySelectorAll(".copy")) {
    const code = button.closest(".copied").querySelector("code");
    startCopying(button, () => {
      live.finish();
      return code.textContent;
    });
  }
}

// Pictures and results as the reader wants to see them.
function startChoices(live) {
  const digits = element("digits");
  digits.checked = remembered("digits") === "yes";
  digits.addEventListener("change", () => {
    remember("digits", digits.checked ? "yes" : "no");
    live.showDigits();
  });
  element("plane")?.addEventListener("change", () => live.drawPicture());
  NARROW.addEventListener("change", () => live.drawPicture());
}

const showsLive = () => element("picture").scrollIntoView({ block: "center" });

async function start() {
  const kez = await load();
  const another = async () => (routine.keeps ? load() : kez);
  const live = new Live(kez, await another());
  startButtons(live);
  startChoices(live);
  live.restore();
  live.finish();
  addEventListener("pagehide", () => live.finish());
  addEventListener("hashchange", () => {
    if (location.hash !== "" && !location.hash.includes("=")) return;
    live.restore();
    live.finish();
    if (location.hash) showsLive();
  });
  document.documentElement.dataset.live = "";
  drawWorkedCalls(routine, await another());
}

start();
