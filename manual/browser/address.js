// The inputs in the page's address, so that it can be passed on.

const pairs = (text) => (text.includes("=") ? [...new URLSearchParams(text.slice(1))] : []);

// The texts that the address holds behind ? or #; none where it leads to a part of the page.
export const textsInAddress = ({ search, hash }) =>
  Object.fromEntries([...pairs(search), ...pairs(hash)]);

// What is said of those that the page does not know.
export function unknownIn(texts, example) {
  const names = Object.keys(texts).filter((name) => !Object.hasOwn(example, name));
  if (!names.length) return "";
  const known = Object.keys(example).join(", ");
  return `The address gives ${names.map((name) => `“${name}”`).join(", ")}; the inputs are ${known}.`;
}

// Writes the address. A browser that limits how often refuses now and then.
export function writeAddress(fragment) {
  try {
    history.replaceState(null, "", location.href.split(/[?#]/)[0] + fragment);
    return true;
  } catch {
    return false;
  }
}

// The fragment that holds those inputs that are not the example's.
export function fragmentOf(texts, example) {
  const changed = Object.entries(texts).filter(([name, text]) => text !== example[name]);
  return changed.length ? `#${new URLSearchParams(changed)}` : "";
}
