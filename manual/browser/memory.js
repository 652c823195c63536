// What a reader chose, from page to page. A browser may refuse to remember it.

export function remembered(key) {
  try {
    return localStorage.getItem(`kezlib-${key}`);
  } catch {
    return null;
  }
}

export function remember(key, value) {
  try {
    localStorage.setItem(`kezlib-${key}`, value);
  } catch {
    // Then it holds for this page.
  }
}
