"""A flowchart as a table of its steps: pages that open from a file have nobody to draw it."""
import re

from maker.markdown import table

CHART = re.compile(r"(?ms)^```mermaid\n(.*?)^```$")
NODE = re.compile(r'(\w+)(?:[\[({]+"([^"]*)"[\])}]+)?')
STEP = re.compile(r'\s*-->(?:\|([^|]*)\|)?\s*')


def as_table(found):
    names, steps = {}, []
    for line in found[1].splitlines()[1:]:
        node = NODE.match(line.strip())
        rest, before = line.strip()[node.end():], node[1]
        names.setdefault(before, node[2]) if node[2] is None else names.update({before: node[2]})
        while step := STEP.match(rest):
            node = NODE.match(rest, step.end())
            if node[2]:
                names[node[1]] = node[2]
            steps.append((before, step[1] or "después", node[1]))
            before, rest = node[1], rest[node.end():]

    def said(name):
        return (names.get(name) or name).replace("<br/>", ": ")

    def short(name):
        return said(name).partition(": ")[0]

    rows, last = [("Desde", "Cuándo", "Sigue en")], None
    for start, when, end in steps:
        rows.append(("" if start == last else said(start), when, short(end)))
        last = start
    return table(rows)


def without_charts(text):
    return CHART.sub(as_table, text)
