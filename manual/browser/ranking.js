// How well an entry of the search's index answers what was typed.

const SMALL = new Set("a an and as at by for from in is of on or the to with".split(" "));

// What readers say, and what the texts say for it.
const ALSO = { rotate: "turn", rotation: "turn", translate: "move", inertia: "second",
  polygon: "outline", buckling: "buckle", sort: "order" };

const wordsOf = (text) =>
  text
    .toLowerCase()
    .split(/\.*(?:[^a-z0-9_#+.-]+|$)/)
    .filter(Boolean);

// Those that tell something, if any does.
function asked(text) {
  const words = wordsOf(text);
  const telling = words.filter((word) => !SMALL.has(word));
  return telling.length ? telling : words;
}

// Of one word, or what says the same: the better the higher, 0 when it is nowhere.
const worth = (word, entry) =>
  Math.max(worthOfText(word, entry), ALSO[word] ? worthOfText(ALSO[word], entry) / 2 : 0);

function worthOfText(word, [name, sentence, place, , said]) {
  const title = name.toLowerCase();
  if (title === word) return 100;
  const isName = !title.includes(" ");
  if (isName ? title.startsWith(word) : wordsOf(title).includes(word)) return 60;
  if (title.startsWith(`kez${word}`)) return 50;
  const words = wordsOf(sentence);
  const at = words.findIndex((other) => other.startsWith(word));
  if (at >= 0) return (words[at] === word ? 40 : 30) - Math.min(at, 20) / 2;
  if (title.includes(word)) return 20;
  if (wordsOf(place).some((other) => other.startsWith(word))) return 10;
  if (sentence.toLowerCase().includes(word)) return 5;
  return ` ${said}`.includes(` ${word}`) ? 3 : 0;
}

// The entries that have every word, best first; those of equal worth in their own order.
function having(words, index) {
  const worthOf = (entry) => {
    const worths = words.map((word) => worth(word, entry));
    return worths.includes(0) ? 0 : worths.reduce((sum, each) => sum + each, 0);
  };
  return index
    .map((entry) => ({ entry, worth: worthOf(entry) }))
    .filter((each) => each.worth > 0)
    .sort((a, b) => b.worth - a.worth)
    .map((each) => each.entry);
}

// Whether a letter too many, too few, another or two exchanged make the difference.
function isSlip(word, other) {
  let same = 0;
  while (same < word.length && word[same] === other[same]) ++same;
  const [a, b] = [word.slice(same), other.slice(same)];
  const exchanged = a[0] === b[1] && a[1] === b[0] && a.slice(2) === b.slice(2);
  return exchanged || a.slice(1) === b || a === b.slice(1) || a.slice(1) === b.slice(1);
}

const SHORTEST = 4; // of the words that are corrected

function corrected(word, index) {
  if (word.length < SHORTEST || index.some((entry) => worth(word, entry))) return word;
  const known = index.flatMap(([name, sentence, , , said]) =>
    wordsOf(`${name} ${sentence} ${said}`),
  );
  return known.find((other) => isSlip(word, other)) ?? word;
}

export function ranked(index, text, most = 30) {
  const words = asked(text);
  if (words.length === 0) return [];
  const found = having(words, index);
  if (found.length) return found.slice(0, most);
  const meant = words.map((word) => corrected(word, index));
  return having(meant, index).slice(0, most);
}
