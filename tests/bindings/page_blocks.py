"""Takes the programs out of a page, so that they can be run.

    page_blocks.py PAGE LANGUAGE FOLDER

Writes the code blocks of the language to FOLDER/1, FOLDER/2, ... and what the page says behind
one, "It prints `...`", to FOLDER/1.prints, ...
"""

import pathlib
import re
import sys

page, language, folder = sys.argv[1:]
pathlib.Path(folder).mkdir(exist_ok=True)
blocks = re.findall(rf"(?ms)^```{re.escape(language)}\n(.*?)^```\n(?:\nIt prints `([^`]+)`)?",
                    pathlib.Path(page).read_text())
for number, (program, prints) in enumerate(blocks, 1):
    pathlib.Path(folder, str(number)).write_text(program)
    if prints:
        pathlib.Path(folder, f"{number}.prints").write_text(prints + "\n")
if not blocks:
    sys.exit(f"{page} has no block of {language}")
