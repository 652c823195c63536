// Copying, from pages of a disk too, where a browser may refuse its clipboard to scripts.

async function copyText(text) {
  try {
    await navigator.clipboard.writeText(text);
  } catch {
    const area = Object.assign(document.createElement("textarea"), { value: text });
    document.body.append(area);
    area.select();
    document.execCommand("copy");
    area.remove();
  }
}

// A button that copies what `text` gives, and says so.
export function startCopying(button, text) {
  const label = button.textContent;
  button.addEventListener("click", async () => {
    await copyText(text());
    button.focus();
    button.textContent = "Copied";
    setTimeout(() => (button.textContent = label), 1500);
  });
}
