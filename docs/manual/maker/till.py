"""A till that makes calls of the library against the virtual printer, and keeps what each of them did."""
import contextlib
import ctypes
import dataclasses
import json
import multiprocessing
import os
import pathlib
import re
import subprocess
import time
import urllib.request


@dataclasses.dataclass(frozen=True)
class Tools:
    """What was built: the printer, the library and the tool for the shop."""
    printer: pathlib.Path
    library: pathlib.Path
    tool: pathlib.Path | None = None  # of the pages alone


@dataclasses.dataclass
class Call:
    """One call and what came of it."""
    name: str
    values: tuple
    result: int = 0
    written: dict = dataclasses.field(default_factory=dict)  # {argument: the text that came back}
    exchanges: list = dataclasses.field(default_factory=list)  # of the printer's trace
    log: list = dataclasses.field(default_factory=list)
    document: int = 0  # in which of the day's documents it printed
    rows: tuple = ()  # (first row, row behind the last) of what it printed there
    picture: pathlib.Path | None = None  # of that document


def settings(manual, changes):
    """The guide's smallest Fiscal.ini with some keys changed."""
    text = re.search(r"```ini\n(\[Epson_Fiscal\].*?)```", (manual / "guia.md").read_text(encoding="utf-8"), re.DOTALL)[1]
    for key, value in changes.items():
        line = f"{key}={value}"
        text, count = re.subn(rf"(?m)^{key}=.*$", line, text)
        text += "" if count else line + "\n"
    return text


@contextlib.contextmanager
def printer(tools, folder, *options):
    """The virtual printer behind folder/impresora, its day always the same; gives its panel's address."""
    line = () if "--tcp" in options else ("--enlace", "impresora")
    command = [tools.printer, "--ini", "Fiscal.ini", *line, "--papel", "papel/", "--traza", "traza.jsonl",
               "--panel", "127.0.0.1:0", "--estado", "reloj=2026-11-21 10:30:00", *options]
    told = folder / "impresora.txt"
    with told.open("w", encoding="utf-8") as said:
        running = subprocess.Popen(command, cwd=folder, stdout=said, stderr=subprocess.STDOUT)
        try:
            yield panel_of(running, told)
        finally:
            running.terminate()
            running.wait()


def wait_for(path):
    for _ in range(400):
        if path.exists():
            return
        time.sleep(0.05)
    raise RuntimeError(f"{path} does not come")


def panel_of(running, told):
    for _ in range(6000):  # a busy machine takes its time
        said = told.read_text(encoding="utf-8")
        if address := re.search(r"http://[\d.:]+", said):
            return address[0]
        if running.poll() is not None:
            raise RuntimeError(said)
        time.sleep(0.05)
    raise RuntimeError(f"the printer does not start: {said}")


def padded(text, size):
    return text.encode("cp1252").ljust(size)[:size]


def arguments(function, values):
    """What ctypes takes, and {name: buffer} of those that are written."""
    given, buffers, values = [], {}, list(values)
    for argument in function.arguments:
        if argument.kind in ("result", "buffer"):
            buffers[argument.name] = ctypes.create_string_buffer((argument.bytes or 400) + 1)
            given.append(buffers[argument.name])
        elif argument.kind == "length":
            given.append(ctypes.c_int32(400))
            values.pop(0)
        elif argument.kind == "text":
            given.append(padded(values.pop(0), argument.bytes))
        elif argument.kind == "terminated":
            given.append(values.pop(0).encode("cp1252"))
        elif argument.kind == "amount":
            given.append(ctypes.c_double(values.pop(0)))
        elif argument.kind == "integer":
            given.append(ctypes.c_int32(values.pop(0)))
        else:
            given.append(None)
    return given, buffers


def read_lines(path):
    """Its whole lines: the printer may be writing the next one."""
    return path.read_bytes().rpartition(b"\n")[0].decode("utf-8", "replace").splitlines() if path.exists() else []


def read_log(path):
    text = path.read_bytes().decode("cp1252", "replace") if path.exists() else ""
    return [line.rstrip("\r") for line in text.split("\n") if line.strip()]


class Paper:
    """What the panel tells of the roll: which rows of which document are new since the last look."""

    def __init__(self, panel, folder):
        self.panel = panel
        self.folder = folder
        self.start = self.end = self.done = 0

    def ask(self, path):
        with urllib.request.urlopen(self.panel + path, timeout=300) as answer:
            return answer.read().decode("utf-8")

    def news(self):
        """(document, rows); no rows where nothing was printed in a document."""
        document, end = self.done, len(self.ask("/api/papel").splitlines())
        done = len(list((self.folder / "papel").glob("*.svg")))
        is_open = json.loads(self.ask("/api/estado"))["abierto"]
        first, self.end = self.end, end
        rows = (first - self.start, end - self.start) if end != first and (is_open or done != document) else ()
        self.done = done
        if not is_open:
            self.start = end
        return document, rows


class Till:
    """Calls the library in a folder of its own; each Call tells what changed meanwhile."""

    def __init__(self, library, folder, functions, panel):
        self.library = ctypes.CDLL(str(library))
        self.folder = folder
        self.functions = functions
        self.paper = Paper(panel, folder)

    def told(self):
        return read_lines(self.folder / "traza.jsonl"), read_log(self.folder / "fiscal.log")

    def make(self, name, values):
        function = self.functions[name]
        given, buffers = arguments(function, values)
        trace, log = self.told()
        result = getattr(self.library, name)(*given)
        frames = self.library.Kestra_Intentos() if function.nature in ("operation", "question") else 0
        new_trace, new_log = self.told()
        for _ in range(3000):  # the trace is written behind the answer
            if len(new_trace) - len(trace) >= frames:
                break
            time.sleep(0.02)
            new_trace, new_log = self.told()
        document, rows = self.paper.news()
        return Call(name, values, result,
                    {name: buffer.raw.split(b"\0")[0].decode("cp1252") for name, buffer in buffers.items()},
                    [json.loads(line) for line in new_trace[len(trace):]], new_log[len(log):], document, rows)


def spoiled(calls, functions):
    """Calls that the pages must not tell of: a busy machine's printer may answer too late for the library."""
    for call in calls:
        function = functions[call.name]
        if function.nature == "operation" and call.result != function.done:
            yield f"{call.name} gave {call.result}"
        if any(line.endswith("- Respuesta : ") for line in call.log):
            yield f"{call.name} had no answer"


def live(tools, manual, folder, day, functions):
    """The calls of a day, with what each did."""
    folder.mkdir(parents=True)
    (folder / "Fiscal.ini").write_text(settings(manual, {"TipoComprobante": day.family, **day.settings}), encoding="cp1252")
    with printer(tools, folder, *day.options) as panel:
        calls = in_process_of_its_own(tools, folder, day, functions, panel)
    if wrong := list(spoiled(calls, functions)):
        raise RuntimeError(f"the day {day.name} went wrong: {', '.join(wrong)}")
    drawn = sorted((folder / "papel").glob("*.svg"))
    for call in calls:
        if call.rows:
            call.picture = drawn[call.document]
    return calls


def in_process_of_its_own(tools, folder, day, functions, panel):
    """The library reads its settings from the working directory, and keeps its state as long as the process lives."""
    fork = multiprocessing.get_context("fork")
    ours, theirs = fork.Pipe(duplex=False)

    def work():
        os.chdir(folder)
        os.setsid()  # no terminal: nobody is asked
        said = os.open("preguntas.txt", os.O_WRONLY | os.O_CREAT | os.O_TRUNC, 0o644)
        os.dup2(said, 2)
        till = Till(tools.library, folder, functions, panel)
        theirs.send([till.make(name, values) for name, values in day.calls])
        theirs.close()

    process = fork.Process(target=work)
    process.start()
    theirs.close()
    try:
        return ours.recv()
    except EOFError:
        said = (folder / "preguntas.txt").read_text(encoding="utf-8", errors="replace")
        raise RuntimeError(f"the till of the day {day.name} did not end it: {said}") from None
    finally:
        process.join()
