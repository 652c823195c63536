"""Has the library compute what the pages show, and the figures drawn, by node."""

import json
import subprocess
from dataclasses import dataclass, field


@dataclass
class Drawn:
    picture: str
    small: str
    alone: str  # a file of its own
    calls: list  # by worked call the results, texts by output, none where it was kept
    copies: dict = field(default_factory=dict)  # the first call as text, by language
    data: dict = field(default_factory=dict)  # what the scripts of its page know of it


def draw_all(script, questions, work):
    """The answers by routine, and the pictures' style. The questions are the data of its page, and
    the inputs of its worked calls."""
    asked, answers = work / "questions.json", work / "answers.json"
    asked.write_text(json.dumps(questions))
    subprocess.run(["node", str(script), str(asked), str(answers)], check=True)
    answered = json.loads(answers.read_text())
    data = {question["routine"]["name"]: question["routine"] for question in questions}
    return ({name: Drawn(data=data[name], **drawn)
             for name, drawn in answered["routines"].items()}, answered["style"])
