#!/usr/bin/env python3
"""Calls in C.

Needs: gcc
"""

import re

import harness

HEAD = "#include <kezlib.h>\n#include <math.h>\n#include <stdio.h>\n"
STRICT = "-std=c99 -Wall -Wextra -Werror".split()


def program(text, place):
    source = place.file("program.c", text)
    place.run("cc", *STRICT, f"-I{place.package}/include", source, place.library, "-lm", "-o",
              "program")
    return place.execute("program")


def c(texts, place):
    def function(name, text):
        """The routine that is called back stands above, by a name of its own."""
        above = (re.match(r"/\*(?:.|\n)*?\n}\n", text) or [""])[0]
        whole = f"{above}static void call_{name}(void) {{\n{text[len(above):]}\n}}\n"
        called = re.search(r"static float (\w+)", above)
        return re.sub(rf"\b{called[1]}\b", f"{called[1]}_{name}", whole) if called else whole

    calls = "".join(f'puts("@{name}");\ncall_{name}();\n' for name in texts)
    return harness.parts(program(HEAD + "".join(function(*item) for item in texts.items())
                                 + f"int main(void) {{\n{calls}return 0;\n}}\n", place))


def main():
    (place,) = harness.places()
    said = harness.check("c", c, place)
    programs = [((harness.EXAMPLES / "host.c").read_text(), harness.FIRST_CALL)]
    programs += harness.page_programs(place, "c", "c")
    programs += harness.programs_in(harness.ROOT / "manual/pages/kezbatch.md", "c")
    harness.check_programs(program, programs, place)
    print(said)


if __name__ == "__main__":
    main()
