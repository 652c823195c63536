"""Takes the programs out of a page, so that they can be run.

    page_blocks.py PAGE LANGUAGE FOLDER SUFFIX

Writes the code blocks of the language to FOLDER/1.SUFFIX, FOLDER/2.SUFFIX, ... and what the page
says behind each, "It prints `...`", to FOLDER/1.prints, ...
"""

import pathlib
import re
import sys

page, language, folder, suffix = sys.argv[1:]
pathlib.Path(folder).mkdir(exist_ok=True)
blocks = re.findall(rf"(?ms)^```{re.escape(language)}\n(.*?)^```\n(?:\nIt prints `([^`]+)`)?",
                    pathlib.Path(page).read_text())
for number, (program, prints) in enumerate(blocks, 1):
    if not prints:
        sys.exit(f"{page} does not say what its program {number} prints")
    pathlib.Path(folder, f"{number}.{suffix}").write_text(program)
    pathlib.Path(folder, f"{number}.prints").write_text(prints + "\n")
if not blocks:
    sys.exit(f"{page} has no block of {language}")
