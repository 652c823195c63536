// How well the entries of the search's index answer what was typed.

// They tell nothing in a question.
const SMALL = new Set(
  ("a am an and any are as at be been being but by calculate can cant compute could determine did " +
    "do does doesnt dont else find for from get give given gives got had has have having how i if " +
    "im in into is isnt it its just let like made make may me mean means might must my need needs " +
    "of on or please routine shall should show so some such tell than that the their them then " +
    "there these they this to try us use using very want was we were what whats when which why will " +
    "with would you your").split(" "),
);

const GREEK = { α: "alpha", β: "beta", ε: "epsilon", θ: "theta", λ: "lambda", π: "pi", ρ: "rho",
  σ: "sigma", φ: "phi", χ: "chi", ψ: "psi", ω: "omega" };

// Letters without accents; Greek ones by their names; "don't" as "dont"; "I_y" as "iy", but
// "intersect_lines" as two words.
const spelt = (text) =>
  text
    .toLowerCase()
    .normalize("NFD")
    .replace(/[\u0300-\u036f'’]/g, "")
    .replace(/[α-ω]/g, (letter) => ` ${GREEK[letter] ?? letter} `)
    .replace(/\b([a-z])_([a-z]{1,3})\b/g, "$1$2")
    .replaceAll("_", " ");

export const wordsOf = (text) =>
  spelt(text)
    .split(/\.*(?:[^a-z0-9#+.-]+|$)/)
    .filter(Boolean);

// What is asked with a hyphen may be written without. Numbers of standards are whole.
const partsOf = (word) => (/-[\d.-]*$/.test(word) ? [] : word.split("-").filter(Boolean));

const ENDINGS = ["izations", "ization", "izing", "izes", "ized", "ize", "ations", "ation", "ating",
  "ates", "ated", "ate", "ions", "ion", "ings", "ing", "ally", "ical", "ities", "ity", "ers", "ies",
  "ed", "er", "es", "al", "ly", "s", "e", "y"];
const ROOT = 4; // what an ending leaves has so many letters, of a plural one less

// "intersections", "intersecting" and "intersect" have one stem; so have "vertex" and "vertices",
// "normalise" and "normalized", "clip" and "clipping".
export function stemOf(word) {
  if (/[^a-z]|ss$|us$|is$/.test(word)) return word;
  const even = word
    .replace(/(.{3})(ices|exes|ex|ix)$/, "$1ic")
    .replace(/is(?=(e|ed|es|ing|ation)$)/, "iz");
  const left = (end) => even.length - end.length + (end === "s");
  const ending = ENDINGS.find((end) => even.endsWith(end) && left(end) >= ROOT);
  if (!ending) return even;
  const root = even.slice(0, -ending.length).replace(/([bdgmnpt])\1$/, "$1");
  return stemOf(root);
}

// The fields of an entry and what a word in them is worth.
const TITLE = { routine: 10, page: 7, section: 5, language: 2 };
const OWN = { routine: 40, page: 40, section: 12 }; // a word that is all of the title
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

// Neighbours among the words: "point in" is not "point on".
function pairsOf(words) {
  const stems = words.map(stemOf);
  return stems.slice(1).map((stem, i) => `${stems[i]} ${stem}`);
}

function prepared(row) {
  const [title, sentence, place, href, said, asked = ""] = row;
  const kind = kindOf(title, href);
  const texts = [title, asked, sentence, place, said];
  const fields = [TITLE[kind], ASKED, SENTENCE, PLACE, SAID].map((worth, i) => ({
    worth, words: new Set(wordsOf(texts[i])), stems: stemmed(texts[i]),
  }));
  const own = kind === "language" ? "" : title.toLowerCase();
  const pairs = new Set([own, asked, sentence].flatMap((text) => pairsOf(wordsOf(text))));
  return { row, own, worthOfOwn: OWN[kind], fields, pairs, isName: kind === "routine" };
}

// One word: 1 as it stands, less by its stem or its beginning, 0 when it is not there.
function likeness(word, stem, { words, stems }) {
  if (words.has(word)) return 1;
  if (stems.has(stem)) return 0.9;
  if (word.length < 2) return 0;
  for (const other of words) if (other.startsWith(word)) return 0.6;
  return 0;
}

function worthOfWord(word, stem, { own, worthOfOwn, fields, isName }) {
  if (own === word) return worthOfOwn;
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
const PAIR = 4; // what two neighbours are worth that stand so in what a reader asks
const PLAIN = 2.5; // a word worth so much is answered, not said in passing
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

  // Two words may be one, as in "mid point" and in what the synonyms know; "quick-sort" is two.
  phrased(words) {
    const found = [];
    for (let i = 0; i < words.length; ++i) {
      const [word, next] = [words[i], words[i + 1] ?? ""];
      const forms = [`${word} ${next}`, word + next].filter((form) => form.length > SHORTEST);
      const whole = forms.find((form) => next && this.known.has(form));
      if (whole) ++i;
      const parts = whole || this.known.has(word) ? [] : partsOf(word);
      found.push(...(parts.length ? parts : [whole ?? word]));
    }
    return found;
  }

  // The worth of a word by entry.
  worths(word) {
    const stem = stemOf(word);
    const said = [word, word.replace(/s$/, ""), `${word}s`].find((form) => this.synonyms.has(form));
    const also = (this.synonyms.get(said) ?? []).map((other) => [other, stemOf(other)]);
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
    const typed = wordsOf(text);
    const words = this.phrased(typed);
    const telling = words.filter((word) => !SMALL.has(word));
    const columns = (telling.length ? telling : words).map((word) => this.asked(word));
    const rare = columns.map((worths) =>
      Math.log(1 + this.entries.length / (1 + worths.filter(Boolean).length)),
    );
    const asked = rare.reduce((all, worth) => all + worth, 0);
    const pairs = pairsOf(typed);
    const scored = this.entries
      .map((entry, i) => {
        const hits = columns.map((worths) => worths[i]);
        const count = hits.filter(Boolean).length;
        const together = PAIR * pairs.filter((pair) => entry.pairs.has(pair)).length;
        const sum = hits.reduce((all, worth, k) => all + worth * rare[k], together);
        const isTitle = entry.own === text.trim().toLowerCase();
        const answered = hits.reduce((all, worth, k) => all + rare[k] * Math.min(1, worth / PLAIN), 0);
        const score = sum * (answered / asked) ** 2 + (isTitle ? TITLED + entry.worthOfOwn : 0);
        return { row: entry.row, count, score };
      })
      .filter(({ count }) => count > 0)
      .sort((a, b) => b.score - a.score);
    const isNear = !scored.some(({ count }) => count === columns.length);
    return { found: scored.slice(0, most).map(({ row }) => row), isNear };
  }
}
