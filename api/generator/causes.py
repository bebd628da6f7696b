"""The causes: they have a table of their own in the driver, and a page; their numbers and sentences are read there."""
import dataclasses
import re


@dataclasses.dataclass(frozen=True)
class Cause:
    name: str
    number: int
    what: str
    advice: str
    group: str


def read(root):
    """rules.causes_are_told holds that the page, the header and the driver say the same."""
    found, group = [], ""
    for line in (root / "docs/manual/causas.md").read_text(encoding="utf-8").splitlines():
        if heading := re.match(r"### \dxx: (.+)", line):
            group = heading[1]
        elif row := re.match(r"\| (\d+) \| `(KESTRA_CAUSA_\w+)` \| (.+?) \| (.+?) \|$", line):
            number, name, what, advice = row.groups()
            found.append(Cause(name, int(number), "" if what == "-" else what, "" if advice == "-" else advice, group))
    return tuple(found)
