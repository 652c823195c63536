"""page.py PAGE LANGUAGE FOLDER SUFFIX: writes the programs of a binding's page, and beside each
what the page says that it prints: FOLDER/1.SUFFIX and FOLDER/1.txt, ..."""

import pathlib
import re
import sys


def programs(page, language):
    return re.findall(rf"```{language}\n(.*?)```\n\n```text\n(.*?)```", page, re.S)


def main():
    page, language, folder, suffix = sys.argv[1:]
    text = pathlib.Path(page).read_text()
    found = programs(text, language)
    if not found or len(found) != text.count(f"```{language}\n"):
        sys.exit(f"{page}: a program without what it prints, or none")
    for number, (program, printed) in enumerate(found, 1):
        (pathlib.Path(folder) / f"{number}.{suffix}").write_text(program)
        (pathlib.Path(folder) / f"{number}.txt").write_text(printed)


if __name__ == "__main__":
    main()
