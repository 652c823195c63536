// A small picture beside each worked call, drawn when the page has nothing else to do.

import { draw } from "../figures/draw.js";
import { textsInAddress } from "./address.js";
import { callWith, valuesOf } from "./call.js";

const soon = globalThis.requestIdleCallback ?? ((action) => setTimeout(action, 30));

function drawCall(routine, kez, link) {
  const texts = textsInAddress({ search: "", hash: new URL(link.href).hash });
  const values = valuesOf(routine, texts);
  const call = (name, inputs) => callWith(kez, { ...routine, name }, inputs);
  const results = callWith(kez, routine, values);
  const picture = draw(routine.name, values, results, {
    call: routine.keeps ? undefined : call,
    title: routine.sentence,
    small: true,
  });
  if (/<(path|circle) class/.test(picture)) link.querySelector(".thumb").innerHTML = picture;
}

// One after another, as they were computed: some keep values from call to call.
export function drawWorkedCalls(routine, kez) {
  const links = [...document.querySelectorAll(".worked .call")];
  const next = () => {
    const link = links.shift();
    if (!link) return;
    drawCall(routine, kez, link);
    soon(next);
  };
  soon(next);
}
