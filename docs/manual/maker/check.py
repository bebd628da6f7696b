"""What a built manual must hold: links, words, a page for each export, an index entry for each cause and message."""
import html
import html.parser
import re
import urllib.parse

CODE = ("pre", "code", "script", "style")
# Words that no Spanish page has, outside of code.
ENGLISH = re.compile(
    r"\b(next|previous|made with|search|home|contents|the|and|with|this page|copy|copied|toggle|hide|show|light|dark|mode|skip to|"
    r"permalink|back to top|theme|table of contents|expand|view|edit|click|page source|warning|note that|see also|built)\b", re.IGNORECASE)


class Page(html.parser.HTMLParser):
    def __init__(self, text):
        super().__init__()
        self.links, self.anchors, self.words, self.loads = [], set(), [], []
        self.inside = []
        self.feed(text)

    def handle_starttag(self, tag, attributes):
        of = dict(attributes)
        if tag in CODE:
            self.inside.append(tag)
        if "id" in of:
            self.anchors.add(of["id"])
        if tag == "a" and of.get("href"):
            self.links.append(of["href"])
        loaded = of.get("src") or (of.get("href") if tag == "link" else None)
        if loaded:
            self.loads.append(loaded)
        for name in ("title", "aria-label", "placeholder", "alt"):
            if of.get(name):
                self.words.append(of[name])

    def handle_endtag(self, tag):
        if tag in CODE and self.inside:
            self.inside.pop()

    def handle_data(self, data):
        if not self.inside and data.strip():
            self.words.append(" ".join(data.split()))


def read_pages(folder):
    return {path.relative_to(folder).as_posix(): Page(path.read_text(encoding="utf-8")) for path in sorted(folder.rglob("*.html"))}


def target_of(place, link):
    path, _, anchor = link.partition("#")
    path = urllib.parse.unquote(path.partition("?")[0])
    parts = place.split("/")[:-1] if path else []
    for part in (path or place).split("/"):
        parts = parts[:-1] if part == ".." else parts if part in (".", "") else [*parts, part]
    return "/".join(parts), urllib.parse.unquote(anchor)


def dead_links(folder, pages):
    for place, page in pages.items():
        for link in {*page.links, *page.loads}:
            if re.match(r"(https?:|mailto:|data:|javascript:)", link):
                continue
            path, anchor = target_of(place, link)
            if not (folder / path).exists():
                yield f"{place}: leads to {link}, which is not there"
            elif anchor and path in pages and anchor not in pages[path].anchors:
                yield f"{place}: leads to {link}, which has no such place"


def english(pages, messages):
    """The library's own messages stay as they are."""
    own = {entry_of(message) for message in messages}
    for place, page in pages.items():
        for words in page.words:
            if words not in own and (found := ENGLISH.search(words)):
                yield f"{place}: English: {found[0]!r} in {words[:80]!r}"


def network(folder, pages):
    for place, page in pages.items():
        for link in page.loads:
            if re.match(r"(https?:)?//", link):
                yield f"{place}: asks the network for {link}"
    for path in folder.rglob("*.css"):
        if found := re.search(r"(@import\s+|url\()['\"]?(https?:)?//[^)]*", path.read_text(encoding="utf-8")):
            yield f"{path.relative_to(folder)}: asks the network: {found[0]}"


def index_entries(folder):
    text = (folder / "genindex.html").read_text(encoding="utf-8")
    return {" ".join(html.unescape(re.sub(r"<[^>]+>", "", entry)).split()) for entry in re.findall(r"<li>(.*?)</?(?:li|ul)", text, re.DOTALL)}


def entry_of(message):
    """As markdown.index writes it."""
    return " ".join(message.lstrip("- ").replace(";", ",").replace("`", "'").split())


def told(folder, exports, messages):
    entries = index_entries(folder)
    for function in exports.functions:
        if not (folder / f"operaciones/{function.name}.html").exists():
            yield f"{function.name} has no page"
        if function.name not in entries:
            yield f"{function.name} is not in the index"
    for cause in exports.causes:
        if cause.what and f"Causa {cause.number}" not in entries:
            yield f"cause {cause.number} is not in the index"
    for message in messages:
        # The index puts "this (that)" as "(that)" below "this".
        entry, _, below = entry_of(message).partition(" (")
        if entry_of(message) not in entries and not {entry, f"({below}"} <= entries:
            yield f"the message {message!r} is not in the index"


def everything(folder, exports, messages):
    pages = read_pages(folder)
    return [*dead_links(folder, pages), *english(pages, messages), *network(folder, pages), *told(folder, exports, messages)]
