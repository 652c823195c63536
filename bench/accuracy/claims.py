"""The figures of accuracy in the header, each beside its measurement, and whether they hold.

A claim is a sentence of the header with its figures replaced by {kind:measurement}: the figures
themselves are read from the header. The kinds, and what holds:

    t  the typical error: within a factor of 3 of the median measured
    b  a bound of the typical error: not below the median measured
    w  the worst error: not below the largest measured, and at most 10 times as large
    v  a value: within half a unit of its last digit
    s  a share: within a quarter of it, and 0.02, of that measured
    m  the largest share: as s, and not below that measured
    n  words for none: the share measured is 0
    o  words for most: the share measured is over a half
    a  words for all: the share measured is 1
"""

import re

# A word that says so permits calls without a number.
PERMITS_NONE = re.compile(r"not-a-number|and the status")

CLAIMS = {
    "kez3sp": ["count as {n:kez3sp 2} only up to a size of about 2 units; from 10 units on, "
               "{o:kez3sp 10} of them span."],
    "kezln3": ["With coordinates of 100 times the distance d of the points, the line is typically "
               "{t:kezln3 100} d off the points, at worst {w:kezln3 100} d.",
               "With 1000 times d it is typically {t:kezln3 1000} d off, at worst "
               "{w:kezln3 1000} d."],
    "kezlds": ["the distance is typically {t:kezlds} of itself off, at worst {w:kezlds}."],
    "kezlni": ["can count as crossing: {s:kezlni 10} at a size of 10 units, at least "
               "{o:kezlni 100} of them from 100 units on."],
    "kezhin": ["a0 should be 0. It is typically below {b:kezhin a0} h0, at worst {w:kezhin a0} h0 "
               "or not-a-number.",
               "It is typically below {b:kezhin a3} h0, at worst {w:kezhin a3} h0 or "
               "not-a-number. The same holds for a3 - L and h3"],
    "angles": ["An angle below 0.0003 typically comes out as {o:angle below 0.0003 is 0 or "
               "0.00035}, at worst as {w:angle below 0.0003} or not-a-number.",
               "from 0.001 on the error is typically {t:angle from 0.001} / phi, at worst "
               "{w:angle from 0.001} / phi; near pi the same holds"],
    "keztrg": ["its error is typically {t:keztrg} rad, at worst {w:keztrg} rad."],
    "kezaxph": ["the error is typically {t:kezaxph}, at worst {w:kezaxph}."],
    "kezlci": ["a line that rises 1 in 100 are typically {t:kezlci 1 in 100} off the circle, at "
               "worst {w:kezlci 1 in 100}.",
               "With coordinates of 100 R the points are typically {t:kezlci 100} off the circle, "
               "at worst {w:kezlci 100}; with 1000 R typically {t:kezlci 1000}, at worst "
               "{w:kezlci 1000}."],
    "kezcer2": ["spoil the centres and the status, above all for nearly level chords. With "
                "coordinates of 100 R and a chord that rises 1 in 10 the centres are typically "
                "{t:kezcer2 100 R, 1 in 10} off, at worst {w:kezcer2 100 R, 1 in 10}.",
                "spoil the centres and the status, above all for nearly level chords. With "
                "coordinates of 100 R and a chord that rises 1 in 10 the centres are typically "
                "{t:kezcer2 10 R, 1 in 100} off, at worst {w:kezcer2 10 R, 1 in 100}. The same "
                "holds with 10 R and 1 in 100.",
                "they are typically {t:kezcer2 middle} R off, at worst {w:kezcer2 middle} R,"],
    "kezcer1": ["Its relative error is typically {t:kezcer1}, at worst {w:kezcer1}, times"],
    "kezarc1": ["is typically {t:kezarc1} R off, at worst {w:kezarc1} R or not-a-number."],
    "kezcer4": ["the line is typically {t:kezcer4 level} off theta, at worst {w:kezcer4 level} "
                "(`kezphi`).",
                "their own rounding: typically {t:kezcer4 100} R, at worst {w:kezcer4 100} R."],
    "kezcer5": ["their own rounding: typically {t:kezcer5 100} R, at worst {w:kezcer5 100} R."],
    "kezapl": ["at 10 depths from the origin: typically {t:kezapl 10}, at worst {w:kezapl 10}.",
               "At 100 depths: typically {t:kezapl 100}, at worst {w:kezapl 100}.",
               "near the middle: typically {t:kezapl middle}, at worst {w:kezapl middle}."],
    "kezspl": ["at 10 depths from the origin: typically {t:kezspl 10}, at worst {w:kezspl 10}.",
               "At 100 depths: typically {t:kezspl 100}, at worst {w:kezspl 100}.",
               "near the middle: typically {t:kezspl middle}, at worst {w:kezspl middle}."],
    "kezipl": ["at 3 depths is typically {t:kezipl 3}, at worst {w:kezipl 3}.",
               "At 10 depths it is typically {t:kezipl 10}, at worst {w:kezipl 10},",
               "at 30 depths typically {t:kezipl 30}, at worst {w:kezipl 30}.",
               "near the middle it is typically {t:kezipl middle}, at worst {w:kezipl middle}."],
    "kezacp": [f"At {phi} rad the area is typically {{t:kezacp {phi} area}} off, at worst "
               f"{{w:kezacp {phi} area}}, and the centroid typically {{t:kezacp {phi} centroid}} "
               f"R, at worst {{w:kezacp {phi} centroid}} R." for phi in ("0.03", "0.01")],
    "kezpsl": ["Beside the middle of the segment a point up to 1/900 of its length away "
               "{a:kezpsl} on the line."],
    "kezdirl": ["count as {n:kezdirl 2} only up to coordinates of about 2 units. About "
                "{s:kezdirl 5} of such pairs count as skew at 5 units, {s:kezdirl 10} at 10 and "
                "{s:kezdirl 30} from 30 on."],
    "kez3lda": ["the error is typically {t:kez3lda 100} d, at worst {w:kez3lda 100} d. With 1000 d "
                "it is typically {t:kez3lda 1000} d, at worst {w:kez3lda 1000} d."],
    "kezpl7": ["up to 1000 its direction is typically {t:kezpl7 1000} rad off, at worst "
               "{w:kezpl7 1000} rad. Up to 100000 it is typically {t:kezpl7 100000} rad off, at "
               "worst {w:kezpl7 100000} rad.",
               "between P2 and P3 it is typically {t:kezpl7 0} rad off, at worst {w:kezpl7 0} "
               "rad."],
    "kezpld": ["whose relative error is typically {t:kezpld}, at worst {w:kezpld}."],
    "kezchi": ["at a slenderness of 1.1 it is {v:kezchi} against"],
    "kezpor": ["Typically such pairs are {n:kezpor 3} if the points have coordinates up to 3. At "
               "worst {m:kezpor 1000} pairs are not, from coordinates of 100 on. Divided first, "
               "they are {n:kezpor divided} ordered"],
    "kezcnv": ["Typically it does so to {n:kezcnv 14} outline of up to 14 vertices, to "
               "{s:kezcnv 20} of 20, {s:kezcnv 30} of 30, and {s:kezcnv 60} of 60. At worst it "
               "does so to {m:kezcnv straight} of those"],
    "kezpin": ["The relative error is typically {t:kezpin 1000} with 1,000 pieces and "
               "{t:kezpin 100000} with 100,000. At worst it is {w:kezpin 1000} and "
               "{w:kezpin 100000}."],
    "kezptp1": ["a unit normal typically count as on it: {n:kezptp1 30} of them up to coordinates "
                "of 30. At worst {m:kezptp1 300} is missed up to coordinates of 300, and "
                "{m:kezptp1 1000} up to 1,000."],
}

FIGURE = re.compile(r"\{(\w):([^}]+)\}")
COMMENT = re.compile(r"/\*\*(.*?)\*/\s*(?:KEZ_API void KEZ_CALL (\w+)\()?", re.S)
WORDS = {"half": 0.5, "a few pairs in 100": 0.03}


def comments(header):
    """The comments of routines and groups in one line each, by name."""
    found = {}
    for text, routine in COMMENT.findall(header):
        group = re.search(r"@defgroup (\w+)", text)
        if routine or group:
            found[routine or group[1]] = " ".join(re.sub(r"\n \*", "\n", text).split())
    return found


def value(text):
    """Of 0.0005, 5e-8, 20 per cent, R / 50, R, 1 in 7, 4 of 5, half."""
    if text in WORDS:
        return WORDS[text]
    text = re.sub(r" per cent\b", " / 100", re.sub(r" (in|of) ", " / ", text))
    parts = [float(part) if part != "R" else 1 for part in text.split(" / ")]
    return parts[0] / (parts[1] if len(parts) > 1 else 1)


def stated(sentence, comment):
    """The sentence's figures as (kind, measurement, words), and where it is; None if it is not."""
    pieces = FIGURE.split(sentence)
    pattern = "".join("(.+?)" if i % 3 == 1 else re.sub(r"\\\.$", r"[.](?!\\d)", re.escape(piece))
                      for i, piece in enumerate(pieces) if i % 3 != 2)
    match = re.search(pattern, comment)
    return match and (list(zip(pieces[1::3], pieces[2::3], match.groups())), match.span())


def about(measured, share):
    return abs(measured - share) <= share / 4 + 0.02


def holds(kind, words, found):
    """Whether the header's words agree with a measurement, a share or (median, worst, none)."""
    if kind in "noa":
        return {"n": found == 0, "o": found > 0.5, "a": found == 1}[kind]
    said = value(words)
    if kind in "sm":
        return about(found, said) and (kind == "s" or found <= said)
    median, worst, _ = found
    return {"t": said / 3 <= median <= said * 3, "b": median <= said,
            "w": said / 10 <= worst <= said,
            "v": abs(median - said) <= 0.5 * 10.0 ** -len(words.partition(".")[2])}[kind]


def check(header, measurements, claims=CLAIMS):
    """What is wrong, and a row (where, words, measurement) for each figure."""
    texts, faults, rows, used = comments(header), [], [], set()
    for name, sentences in claims.items():
        text = texts.get(name, "")
        spans = []
        for sentence in sentences:
            used |= {key for _, key in FIGURE.findall(sentence)}
            match = stated(sentence, text)
            if not match:
                faults.append(f"{name}: the header does not say: {sentence}")
                continue
            figures, span = match
            spans.append(span)
            for kind, key, words in figures:
                found = measurements[key]
                rows.append((name, key, kind, words, found))
                if not holds(kind, words, found):
                    faults.append(f"{name}: the header says {words} ({kind}), but {key} measures "
                                  f"{found}")
                if kind in "tbw" and found[2] and not PERMITS_NONE.search(text[slice(*span)]):
                    faults.append(f"{name}: {found[2]:.2%} of the calls of {key} give no number")
        for start, end in spans:
            text = text[:start] + " " * (end - start) + text[end:]
        texts[name] = text
    for name, text in texts.items():
        faults += [f"{name}: nothing measures: {rest}"
                   for rest in re.findall(r"\b(?:[Tt]ypically|[Aa]t worst)\b[^.]*", text)]
    faults += [f"no claim uses the measurement {key}" for key in measurements.keys() - used]
    return faults, rows
