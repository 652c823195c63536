// How well the entries of the search's index answer what was typed.

// They tell nothing in a question.
const SMALL = new Set(
  ("a an and are as at be by calculate can compute could determine do does find for from get give " +
    "given gives have how i if in is it its let me mean means my of on or please routine should " +
    "than that the their them then there these this to use using want we what when which will " +
    "with you your").split(" "),
);

export const wordsOf = (text) =>
  text
    .toLowerCase()
    .replaceAll("_", " ")
    .split(/\.*(?:[^a-z0-9#+.-]+|$)/)
    .filter(Boolean);

const ENDINGS = ["ations", "ation", "ating", "ates", "ated", "ate", "ions", "ion", "ings", "ing",
  "ally", "ical", "ers", "ies", "ed", "er", "es", "al", "ly", "s", "e", "y"];
const ROOT = 4; // what an ending leaves has so many letters

// "intersections", "intersecting" and "intersect" have one stem.
export function stemOf(word) {
  if (/[^a-z]|ss$|us$|is$/.test(word)) return word;
  const ending = ENDINGS.find((end) => word.endsWith(end) && word.length - end.length >= ROOT);
  return ending ? word.slice(0, -ending.length) : word;
}

// The fields of an entry and what a word in them is worth.
const TITLE = { routine: 10, page: 7, section: 5, language: 2 };
const ASKED = 7;
const SENTENCE = 6;
const PLACE = 2.5;
const SAID = 1;

const stemmed = (text) => new Set(wordsOf(text).map(stemOf));

// The pages of languages have the same headings, so these tell little.
function kindOf(title, href) {
  if (href === `${title}.html`) return "routine";
  if (!href.includes("#")) return "page";
  return href.startsWith("language-") ? "language" : "section";
}

function prepared(row) {
  const [title, sentence, place, href, said, asked = ""] = row;
  const kind = kindOf(title, href);
  const fields = [[title, TITLE[kind]], [asked, ASKED], [sentence, SENTENCE], [place, PLACE], [said, SAID]]
    .map(([text, worth]) => ({ worth, words: new Set(wordsOf(text)), stems: stemmed(text) }));
  const own = kind === "language" ? "" : title.toLowerCase();
  return { row, own, fields, isName: kind === "routine" };
}

// One word: 1 as it stands, less by its stem or its beginning, 0 when it is not there.
function likeness(word, stem, { words, stems }) {
  if (words.has(word)) return 1;
  if (stems.has(stem)) return 0.9;
  if (word.length < 2) return 0;
  for (const other of words) if (other.startsWith(word)) return 0.6;
  return 0;
}

function worthOfWord(word, stem, { own, fields, isName }) {
  if (own === word) return 40;
  if (isName && own === `kez${word}`) return 30;
  if (isName && word.length > 1 && own.startsWith(`kez${word}`)) return 20;
  let best = isName && word.length > 2 && own.includes(word) ? 8 : 0;
  for (const field of fields)
    if (field.worth > best) best = Math.max(best, field.worth * likeness(word, stem, field));
  return best;
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
const SYNONYM = 0.6; // what a word that says the same is worth
const TITLED = 1000; // what was typed is the title
const MOST = 30;

export class Ranking {
  constructor({ entries, synonyms }) {
    this.entries = entries.map(prepared);
    this.synonyms = new Map(Object.entries(synonyms));
    this.known = new Set([
      ...this.synonyms.keys(),
      ...this.entries.flatMap(({ fields }) => fields.flatMap(({ words }) => [...words])),
    ]);
  }

  // The worth of a word by entry.
  worths(word) {
    const stem = stemOf(word);
    const also = (this.synonyms.get(word) ?? []).map((other) => [other, stemOf(other)]);
    return this.entries.map((entry) =>
      Math.max(
        worthOfWord(word, stem, entry),
        ...also.map(([other, root]) => SYNONYM * Math.min(ASKED, worthOfWord(other, root, entry))),
      ),
    );
  }

  corrected(word) {
    if (word.length < SHORTEST) return word;
    return [...this.known].find((other) => isSlip(word, other)) ?? word;
  }

  // A word that is nowhere may be written wrongly.
  asked(word) {
    const worths = this.worths(word);
    if (worths.some(Boolean)) return worths;
    const meant = this.corrected(word);
    return meant === word ? worths : this.worths(meant);
  }

  // What was found, best first, and whether it is only near: no entry has all words.
  ranked(text, most = MOST) {
    const words = wordsOf(text);
    const telling = words.filter((word) => !SMALL.has(word));
    const columns = (telling.length ? telling : words).map((word) => this.asked(word));
    const rare = columns.map((worths) =>
      Math.log(1 + this.entries.length / (1 + worths.filter(Boolean).length)),
    );
    const scored = this.entries
      .map((entry, i) => {
        const hits = columns.map((worths) => worths[i]);
        const count = hits.filter(Boolean).length;
        const sum = hits.reduce((all, worth, k) => all + worth * rare[k], 0);
        const isTitle = entry.own === text.trim().toLowerCase();
        const score = sum * (count / columns.length) ** 2 + (isTitle ? TITLED : 0);
        return { row: entry.row, count, score };
      })
      .filter(({ count }) => count > 0)
      .sort((a, b) => b.score - a.score);
    const isNear = !scored.some(({ count }) => count === columns.length);
    return { found: scored.slice(0, most).map(({ row }) => row), isNear };
  }
}
