"""What a number, a character or a text may be changed into."""
import re

NUMBER = re.compile(r"(0[xX][0-9A-Fa-f']+|[\d'.]+(?:[eE][+-]?\d+)?)([uUlLfF]*)$")
UNIT = re.compile(r"\\x[0-9A-Fa-f]+|\\u[0-9A-Fa-f]{4}|\\.|.", re.DOTALL)
STRING = re.compile(r'"(.*)"(\w*)$', re.DOTALL)
# A text that is a table of characters: each of them counts.
TABLE = re.compile(r"(?:\\x[0-9A-Fa-f]{2}|[0-9A-Fa-f])+$")
ESCAPES = {"\\'": "'", '\\"': '"', "\\\\": "\\", "\\t": "\t", "\\n": "\n", "\\r": "\r", "\\0": "\0"}


def other_numbers(text):
    """One more, one less, zero."""
    digits, suffix = NUMBER.match(text).groups()
    if "." in digits or ("e" in digits.lower() and not digits.lower().startswith("0x")):
        return other_doubles(digits, suffix)
    value = int(digits.replace("'", ""), 0)
    width = len(digits) - 2 if digits.lower().startswith("0x") else 0
    others = []
    for other in (value + 1, value - 1, 0):
        if other != value and (other >= 0 or "u" not in suffix.lower()):
            shown = f"0x{other:0{width}X}" if width and other >= 0 else str(other)
            others.append(shown + suffix)
    return list(dict.fromkeys(others))


def other_doubles(digits, suffix):
    if "e" in digits.lower():
        return [f"({text} + 1)" for text in [digits + suffix]] + [f"({digits}{suffix} - 1)", "0.0"]
    others = [repr(float(digits) + step) + suffix for step in (1, -1)]
    return list(dict.fromkeys(other for other in [*others, "0.0" + suffix] if float(digits) != 0 or
                              other != "0.0" + suffix))


def code_of(unit):
    if unit.startswith(("\\x", "\\u")):
        return int(unit[2:], 16)
    return ord(ESCAPES.get(unit, unit))


def unit_of(code, quote):
    if code > 0xFF:
        return f"\\u{code:04X}"
    if not 32 <= code < 127:
        return f"\\x{code:02X}"
    c = chr(code)
    return "\\" + c if c in (quote, "\\") else c


def other_characters(text):
    """The next one and the one before."""
    code = code_of(text[1:-1])
    codes = 0x100 if code < 0x100 else 0x10000
    return [f"'{unit_of(other % codes, chr(39))}'" for other in (code + 1, code - 1)]


def other_strings(text):
    """With another character in the middle; of a table of characters, with another one at each place."""
    inside, suffix = STRING.match(text).groups()
    units = UNIT.findall(inside)
    if not units:
        return [f'"x"{suffix}']
    places = range(len(units)) if TABLE.match(inside) else [len(units) // 2]
    others = []
    for place in places:
        changed = [*units[:place], other_unit(units[place]), *units[place + 1:]]
        others.append(f'"{"".join(changed)}"{suffix}')
    return others


def other_unit(unit):
    if unit.startswith("\\"):
        return unit_of(code_of(unit) ^ 1, '"')
    return "y" if unit == "x" else "x"
