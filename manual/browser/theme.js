// Loaded before the page is painted, so that a chosen theme does not flash up the other first.

import { remembered } from "./memory.js";

const theme = remembered("theme");
if (theme) document.documentElement.dataset.theme = theme;
