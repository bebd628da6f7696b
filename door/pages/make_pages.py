"""Writes the C++ file that has the door's pages in it: make_pages.py OUTPUT CONTRACT PAGE..."""

import json
import os
import sys

import reference

FIRST_PAGE = "estado.html"  # what stands at "/"
KINDS = {"html": "text/html", "js": "text/javascript", "css": "text/css", "svg": "image/svg+xml"}
PIECE = 24  # bytes of a page on a line of the code


def literal(text):
    """The text as an array of its bytes: a literal of that length is more than every compiler takes."""
    data = text.encode("utf-8")
    lines = ("".join(f"'\\x{byte:02x}'," for byte in data[start:start + PIECE]) for start in range(0, len(data), PIECE))
    return f"std::array<char, {len(data)}>" + "{\n    " + "\n    ".join(lines) + "}"


def code(pages):
    texts = "".join(f"constexpr auto kText{at} = {literal(text)};\n\n"
                    for at, (_, _, text) in enumerate(pages))
    rows = "".join(f'    {{.path = "{path}", .page = {{.type = "{kind}", .body = {{kText{at}.data(), kText{at}.size()}}}}}},\n'
                   for at, (path, kind, _) in enumerate(pages))
    return f"""#include <algorithm>
#include <array>

#include "pages/pages.hpp"

namespace puerta {{
namespace {{

{texts}struct Row {{
  std::string_view path;
  Page page;
}};

constexpr std::array<Row, {len(pages)}> kPages{{{{
{rows}}}}};

}}  // namespace

std::optional<Page> FindPage(std::string_view path) {{
  const auto* const found =
      std::find_if(kPages.begin(), kPages.end(), [path](const Row& row) {{ return row.path == path; }});
  if (found == kPages.end()) return std::nullopt;
  return found->page;
}}

}}  // namespace puerta
"""


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def main():
    output, contract, *others = sys.argv[1:]
    text = read(contract)
    pages = [("/v1/openapi.json", "application/json", text),
             ("/documentacion", "text/html; charset=utf-8", reference.page(json.loads(text)))]
    for path in others:
        name = os.path.basename(path)
        pages.append(("/" if name == FIRST_PAGE else "/" + name,
                      KINDS[name.rsplit(".", 1)[1]] + "; charset=utf-8", read(path)))
    with open(output, "w", encoding="utf-8") as file:
        file.write(code(pages))


if __name__ == "__main__":
    main()
