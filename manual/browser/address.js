// The inputs in the page's address, so that it can be passed on.

// The texts that the address holds; none for an address that leads to a part of the page.
export function textsInAddress(hash) {
  if (!hash.includes("=")) return {};
  return Object.fromEntries(new URLSearchParams(hash.slice(1)));
}

// The fragment that holds those inputs that are not the example's.
export function fragmentOf(texts, example) {
  const changed = Object.entries(texts).filter(([name, text]) => text !== example[name]);
  return changed.length ? `#${new URLSearchParams(changed)}` : "";
}
