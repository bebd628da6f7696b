"""Every command in the manual's chapter about the door is run, and answers what the chapter says.

KESTRA_GOLDEN_UPDATE=1 writes what came into the chapter; every line of it is to be read then.
"""

import json
import pathlib
import re
import subprocess
import threading
import unittest

from counter import ENV, until
from doorway import Doorway

CHAPTER = pathlib.Path(ENV["KESTRA_SOURCE"]) / "docs" / "manual" / "puerta.md"
PORT = "8470"  # of the chapter
PIECE = re.compile(r"^% prueba: (?P<deed>[^\n]*)$|^```console\n(?P<console>.*?)^```$", re.DOTALL | re.MULTILINE)
MOMENT = re.compile(r"\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d(\.\d+)?(Z|[+-]\d\d:\d\d)")
WIDTH = 110


def steady(text):
    return MOMENT.sub("2026-11-22T21:30:00.000Z", text).replace("\r", "")


def commands(console):
    """(command as the shell wants it, its lines in the chapter, the answer that the chapter has)."""
    rows = []
    for line in console.splitlines():
        if line.startswith("$ "):
            rows.append(([line], []))
        elif line.startswith("> ") and rows and not rows[-1][1]:
            rows[-1][0].append(line)
        else:
            rows[-1][1].append(line)
    return [("\n".join(line[2:] for line in asked), asked, told) for asked, told in rows]


def laid_out(text):
    """An answer as it fits on a page: JSON with a member of its top on a line, shorter ones together."""
    try:
        value = json.loads(text)
    except ValueError:
        return text.rstrip("\n").split("\n") if text.strip() else []
    lines, row = [], "{"
    members = [json.dumps(key, ensure_ascii=False) + ": " + json.dumps(item, ensure_ascii=False) for key, item in value.items()]
    for at, member in enumerate(members):
        word = member + (", " if at + 1 < len(members) else "}")
        if len(row) + len(word) > WIDTH and row.strip("{ "):
            lines.append(row.rstrip())
            row = " "
        row += word
    return [*lines, row]


class TheChapter(Doorway):
    def cut_the_closing(self):
        self.wait_for_printer()
        done = len(self.printer.documents())
        self.printer.fault("respuesta de cierre: callar")
        threading.Thread(target=self.unplug_after, args=(done,)).start()

    def unplug_after(self, done):
        until(lambda: len(self.printer.documents()) > done, "the closing")
        self.unplug()

    def wait_for_printer(self):
        until(lambda: self.door.ask("GET", "/v1/impresoras/caja1/estado").body["contesta"], "the printer")

    def wait_for_job(self, number, state):
        until(lambda: self.door.job(number).get("estado") == state, f"job {number} {state}: {self.door.job(number)}")

    def configure(self, text):
        """The chapter's own configuration is one that the door takes, in folders of the test."""
        own = json.loads(re.search(r"(?s)```json\n(.*?)```", text)[1])
        self.assertEqual([printer["id"] for printer in own["impresoras"]], ["caja1"])
        self.assertEqual(set(own) - set(self.door.settings), set())
        self.assertEqual(own["escuchar"], {"direccion": "127.0.0.1", "puerto": int(PORT)})

    def run_one(self, command):
        here = command.replace(f":{PORT}/", f":{self.witness.port}/")
        ended = subprocess.run(["bash", "-c", here], cwd=self.folder, capture_output=True, text=True, timeout=120, check=False)
        self.assertEqual(ended.stderr, "", command)
        return steady(ended.stdout.replace(str(self.witness.port), PORT))

    def test_says_what_the_door_says(self):
        text = CHAPTER.read_text(encoding="utf-8")
        self.configure(text)
        made, end, count = "", 0, 0
        for piece in PIECE.finditer(text):
            made += text[end:piece.start()]
            end = piece.end()
            if piece["deed"]:
                exec(piece["deed"], {"self": self})
                made += piece[0]
                continue
            lines = []
            for command, asked, told in commands(piece["console"]):
                count += 1
                came = laid_out(self.run_one(command))
                lines += [*asked, *came]
                if not ENV.get("KESTRA_GOLDEN_UPDATE"):
                    self.assertEqual("\n".join(told), "\n".join(came), command)
            made += "```console\n" + "\n".join(lines) + "\n```"
        made += text[end:]
        self.assertGreater(count, 15)
        if ENV.get("KESTRA_GOLDEN_UPDATE"):
            CHAPTER.write_text(made, encoding="utf-8")


if __name__ == "__main__":
    unittest.main()
