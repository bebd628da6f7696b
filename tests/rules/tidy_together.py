"""Looks at sources with clang-tidy, many in one unit: most of its time goes into what they include.

    tidy_together.py BUILD SOURCE...

BUILD has the compiler's commands, made without precompiled headers. Those that are compiled alike stand together as far
as cmake/together.py lets them; if they cannot after all, they are looked at in smaller units. Each unit includes
nothing but the sources, and a finding in any of them counts. Ends with 1 when there is one.
"""
import collections
import concurrent.futures
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "cmake"))
import together  # noqa: E402

MOST = 24  # sources in one: all cores have something to do until the end
# What only says how much was not said.
CHATTER = re.compile(r"\d+ (warnings?|errors?)( and \d+ errors?)? (generated|treated as errors?)\.?$"
                     r"|Suppressed \d+ warnings|Use -header-filter=")


def flags_of(entry):
    """The compiler's flags, without what is read and written."""
    words = shlex.split(entry["command"])
    kept, skipped = [], 0
    for word in words[1:]:
        if skipped:
            skipped -= 1
        elif word in ("-o", "-MF", "-MT", "-c"):
            skipped = 1
        elif word not in ("-MD", entry["file"]):
            kept.append(word)
    return tuple(kept)


def groups(build, sources):
    """[(flags, sources)] of those that the build knows, each once, what takes longest first; and the others."""
    wanted = {str(pathlib.Path(source).resolve()) for source in sources}
    alike = collections.defaultdict(list)
    for entry in json.loads((build / "compile_commands.json").read_text(encoding="utf-8")):
        if entry["file"] in wanted:
            wanted.remove(entry["file"])
            alike[flags_of(entry)].append(pathlib.Path(entry["file"]))
    found = [(flags, unit) for flags, paths in alike.items() for unit in together.units(sorted(paths), MOST)]
    return sorted(found, key=lambda item: -len(item[1])), wanted


def look(flags, sources):
    """(number of units, what clang-tidy found) about the sources."""
    name = "_".join([*sources[0].with_suffix("").parts[-3:], str(len(sources))])
    unit = folder_of_units / (name + ".cpp")
    unit.write_text("".join(f'#include "{source}"  // NOLINT\n' for source in sources), encoding="utf-8")
    ended = subprocess.run(["clang-tidy", "--quiet", f"--config-file={os.path.abspath('.clang-tidy')}", str(unit),
                            "--", *flags], cwd=folder_of_units.parent, capture_output=True, text=True, check=False)
    said = ended.stdout + ended.stderr
    if "clang-diagnostic-error" in said and len(sources) > 1:
        half = len(sources) // 2
        parts = [look(flags, sources[:half]), look(flags, sources[half:])]
        return sum(units for units, _ in parts), "".join(found for _, found in parts)
    found = "".join(line + "\n" for line in said.splitlines() if line.strip() and not CHATTER.match(line))
    if ended.returncode and not found:
        found = f"clang-tidy ended with {ended.returncode} on {unit}\n"
    return 1, found if ended.returncode else ""


def main():
    global folder_of_units
    build = pathlib.Path(sys.argv[1]).resolve()
    folder_of_units = build / "units"
    folder_of_units.mkdir(exist_ok=True)
    found, unknown = groups(build, sys.argv[2:])
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as workers:
        tasks = [workers.submit(look, flags, unit) for flags, unit in found]
        results = [task.result() for task in tasks]
    texts = [text for _, text in results if text]
    print("".join(texts), end="")
    if unknown:
        print("Not built here: " + ", ".join(os.path.relpath(source) for source in sorted(unknown)))
    print(f"{sum(len(unit) for _, unit in found)} sources looked at in {sum(units for units, _ in results)} units")
    return 1 if texts or not found else 0


if __name__ == "__main__":
    sys.exit(main())
