// Tabs as the ARIA practices have them: one is in the order of the Tab key, arrows move between
// them. The language is remembered for the next page.

import { remember, remembered } from "./memory.js";

const MOVES = { ArrowLeft: -1, ArrowRight: 1, Home: -Infinity, End: Infinity };

function select(tabs, chosen) {
  for (const tab of tabs) {
    const isChosen = tab === chosen;
    tab.setAttribute("aria-selected", String(isChosen));
    tab.tabIndex = isChosen ? 0 : -1;
    document.getElementById(tab.getAttribute("aria-controls")).hidden = !isChosen;
  }
}

function target(tabs, from, move) {
  if (!Number.isFinite(move)) return move < 0 ? tabs[0] : tabs.at(-1);
  return tabs[(tabs.indexOf(from) + move + tabs.length) % tabs.length];
}

export function startTabs(element) {
  const tabs = [...element.querySelectorAll('[role="tab"]')];
  const choose = (tab) => {
    select(tabs, tab);
    remember("language", tab.id);
  };
  for (const tab of tabs) {
    tab.addEventListener("click", () => choose(tab));
    tab.addEventListener("keydown", (event) => {
      if (!(event.key in MOVES)) return;
      event.preventDefault();
      const next = target(tabs, tab, MOVES[event.key]);
      choose(next);
      next.focus();
    });
  }
  select(tabs, tabs.find((tab) => tab.id === remembered("language")) ?? tabs[0]);
}
