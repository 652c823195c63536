// A routine's page: its inputs can be changed, and the library runs in the page.

import { load } from "kezlib/browser.js";
import { draw } from "../figures/draw.js";
import { fragmentOf, textsInAddress } from "./address.js";
import { callWith, FieldError, resultTexts, valuesOf } from "./call.js";
import { startCopying } from "./clipboard.js";
import { asRow, asStatements } from "./copies.js";
import { Dragging } from "./drag.js";
import { checkSizes } from "./extents.js";
import { Fields, showResults } from "./fields.js";

const routine = JSON.parse(document.getElementById("routine").textContent);
const figure = document.getElementById("picture");
const content = document.getElementById("content");
const list = document.getElementById("results");
const message = document.getElementById("message");

class Live {
  // Curves have a library of their own: their calls are none of those whose values are kept.
  constructor(kez, forCurves) {
    Object.assign(this, { kez, forCurves });
    this.fields = new Fields(document.getElementById("fields"), () => this.changed());
    this.dragging = new Dragging(
      figure,
      (handle) => this.where(handle),
      (handle, texts) => this.dragged(handle, texts),
    );
  }

  // Shows what the address says, over the example.
  restore() {
    const texts = textsInAddress(location.hash);
    const known = Object.entries(texts).filter(([name]) => name in routine.example);
    this.fields.texts = { ...routine.example, ...Object.fromEntries(known) };
    this.compute();
  }

  changed() {
    const address = location.href.split("#")[0];
    history.replaceState(null, "", address + fragmentOf(this.fields.texts, routine.example));
    this.compute();
  }

  where({ x, y, entry }) {
    return [x, y].map((name) => this.fields.coordinate(name, entry));
  }

  dragged({ x, y, entry }, texts) {
    this.fields.setCoordinate(x, entry, texts.x);
    this.fields.setCoordinate(y, entry, texts.y);
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
    const texts = resultTexts(routine, results, this.fields.texts);
    showResults(list, routine, texts);
    this.drawPicture(values, results);
    this.writeCopies(texts);
  }

  drawPicture(values, results) {
    const call = (name, inputs) => callWith(this.forCurves, { ...routine, name }, inputs);
    const options = { call, title: routine.sentence, view: this.dragging.view };
    figure.innerHTML = draw(routine.name, values, results, options);
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
    message.textContent = error ? (field ? `${field}: ${error.message}` : error.message) : "";
    content.toggleAttribute("data-stale", Boolean(error)); // what is seen is of inputs before
  }
}

function startButtons(live) {
  document.getElementById("reset").addEventListener("click", () => live.reset());
  startCopying(document.getElementById("share"), () => location.href);
  for (const button of document.querySelectorAll(".copy")) {
    const code = button.closest(".copied").querySelector("code");
    startCopying(button, () => code.textContent);
  }
}

async function start() {
  const live = new Live(await load(), await load());
  startButtons(live);
  live.restore();
  addEventListener("hashchange", () => {
    if (location.hash === "" || location.hash.includes("=")) live.restore();
  });
  document.documentElement.dataset.live = "";
}

start();
