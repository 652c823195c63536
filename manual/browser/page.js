import { remember } from "./memory.js";
import { startSearch } from "./search.js";
import { startTabs } from "./tabs.js";

const NARROW = "(max-width: 60rem)";

function startTheme(button) {
  const root = document.documentElement;
  const isDark = () =>
    root.dataset.theme
      ? root.dataset.theme === "dark"
      : matchMedia("(prefers-color-scheme: dark)").matches;
  const label = () => {
    button.textContent = isDark() ? "Light" : "Dark";
    button.setAttribute("aria-label", `Change to ${button.textContent.toLowerCase()} colours`);
  };
  button.addEventListener("click", () => {
    root.dataset.theme = isDark() ? "light" : "dark";
    remember("theme", root.dataset.theme);
    label();
  });
  label();
}

// The table of contents stands open where there is room beside the text.
function foldContents(details) {
  const narrow = matchMedia(NARROW);
  const fold = () => {
    details.open = !narrow.matches;
  };
  narrow.addEventListener("change", fold);
  fold();
}

// Without moving the page itself.
function showCurrent(contents) {
  const current = contents.querySelector(".members [aria-current]");
  if (current) contents.scrollTop = current.offsetTop - contents.clientHeight / 2;
}

const contents = document.querySelector(".side > details");
startTheme(document.getElementById("theme"));
foldContents(contents);
showCurrent(contents);
startSearch(document.getElementById("search"), document.getElementById("found"));
document.querySelectorAll(".tabs").forEach(startTabs);
addEventListener("beforeprint", () => {
  for (const details of document.querySelectorAll("main details")) details.open = true;
});
