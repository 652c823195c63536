// What a field may say instead of a number: 3/4, pi/6, 30deg, 2*(1+sqrt(2)).

const TOKEN = /\d+\.?\d*(?:e[+-]?\d+)?|\.\d+(?:e[+-]?\d+)?|[a-z]+|[-+*/()]/giy;
const FUNCTIONS = { sqrt: Math.sqrt, sin: Math.sin, cos: Math.cos, tan: Math.tan };
const BINARY = {
  "+": [1, (a, b) => a + b],
  "-": [1, (a, b) => a - b],
  "*": [2, (a, b) => a * b],
  "/": [2, (a, b) => a / b],
};

function tokensOf(text) {
  const found = text.toLowerCase().match(TOKEN) ?? [];
  if (found.join("").length !== text.length) throw new SyntaxError(text);
  return found;
}

function reader(found) {
  const fail = () => {
    throw new SyntaxError(found.join(""));
  };
  const take = (wanted) => (found[0] === wanted ? found.shift() : fail());

  function inside() {
    take("(");
    const value = sum(1);
    take(")");
    return value;
  }

  function one() {
    const token = found.shift() ?? fail();
    if (token === "-") return -one();
    if (token === "+") return one();
    if (token === "pi") return Math.PI;
    if (Object.hasOwn(FUNCTIONS, token)) return FUNCTIONS[token](inside());
    if (token === "(") {
      found.unshift(token);
      return inside();
    }
    return /^[\d.]/.test(token) ? Number(token) : fail();
  }

  function withUnit() {
    const value = one();
    if (found[0] !== "deg") return value;
    found.shift();
    return (value * Math.PI) / 180;
  }

  // Operators that bind at least as tightly.
  function sum(least) {
    let value = withUnit();
    for (;;) {
      const [rank, apply] = BINARY[found[0]] ?? [0];
      if (rank < least) return value;
      found.shift();
      value = apply(value, sum(rank + 1));
    }
  }

  const value = sum(1);
  return found.length ? fail() : value;
}

// Its value, or undefined where it is none.
export function valueOf(text) {
  try {
    return reader(tokensOf(text));
  } catch {
    return undefined;
  }
}
