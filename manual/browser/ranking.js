// How well an entry of the search's index answers what was typed.

const wordsOf = (text) => text.toLowerCase().split(/[^a-z0-9_#+.-]+/).filter(Boolean);

/** Of one word: the better the higher, 0 when it is nowhere. */
function worth(word, [name, sentence, place]) {
  const title = name.toLowerCase();
  if (title === word) return 100;
  if (title.startsWith(word)) return 60;
  if (title.startsWith(`kez${word}`)) return 50;
  const words = wordsOf(sentence);
  const at = words.findIndex((other) => other.startsWith(word));
  if (at >= 0) return (words[at] === word ? 40 : 30) - Math.min(at, 20) / 2;
  if (title.includes(word)) return 20;
  if (wordsOf(place).some((other) => other.startsWith(word))) return 10;
  return sentence.toLowerCase().includes(word) ? 5 : 0;
}

/** The entries that have every word, best first; those of equal worth in their own order. */
export function ranked(index, text, most = 30) {
  const words = wordsOf(text);
  if (words.length === 0) return [];
  const worthOf = (entry) => {
    const worths = words.map((word) => worth(word, entry));
    return worths.includes(0) ? 0 : worths.reduce((sum, each) => sum + each, 0);
  };
  return index
    .map((entry) => ({ entry, worth: worthOf(entry) }))
    .filter((each) => each.worth > 0)
    .sort((a, b) => b.worth - a.worth)
    .slice(0, most)
    .map((each) => each.entry);
}
