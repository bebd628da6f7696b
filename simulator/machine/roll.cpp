#include "machine/roll.hpp"

#include <utility>

#include "text/text.hpp"
#include "wire/control_bytes.hpp"

namespace impresora {
namespace {

using Style = PaperLine::Style;

std::string SpacedOut(std::string_view utf8) {
  std::string text;
  while (!utf8.empty()) {
    const std::string_view letter = CutToColumns(utf8, 1);
    if (!text.empty()) text += ' ';
    text += letter;
    utf8.remove_prefix(letter.size());
  }
  return text;
}

std::string Fitted(std::string_view utf8, std::size_t columns) {
  return std::string(TrimRight(CutToColumns(utf8, columns)));
}

std::string Centred(std::string_view utf8, std::size_t columns) {
  const std::string_view text = CutToColumns(Trim(utf8), columns);
  std::string line((columns - Columns(text)) / 2, ' ');
  line += text;
  return Fitted(line, columns);
}

std::string Repeated(std::string_view character, std::size_t columns) {
  std::string line;
  for (std::size_t i = 0; i < columns; ++i) line += character;
  return line;
}

}  // namespace

bool IsDoubleWidth(std::string_view bytes) {
  return !bytes.empty() && bytes.front() == kDoubleWidth;
}

std::string AsText(const PaperLine& line, std::size_t columns) {
  switch (line.style) {
    case Style::kCentred:
    case Style::kStrongCentred:
      return Centred(line.text, columns);
    case Style::kWide:
      return Fitted(SpacedOut(line.text), columns);
    case Style::kWideCentred:
      return Centred(SpacedOut(line.text), columns);
    case Style::kRule:
    case Style::kCut:
      return Repeated(line.text, columns);
    case Style::kPlain:
    case Style::kStrong:
    case Style::kLogo:
    case Style::kFeed:
      break;
  }
  return Fitted(line.text, columns);
}

Paper::Paper(std::size_t columns) : columns_(columns) {}

// Blanks in front of a line are part of it only where it stands as it is.
void Paper::Line(std::string_view utf8, Style style) {
  const bool as_it_is = style == Style::kPlain || style == Style::kStrong || style == Style::kLogo;
  const bool wide = style == Style::kWide || style == Style::kWideCentred;
  std::string_view rest = as_it_is ? TrimRight(utf8) : Trim(utf8);
  do {
    const std::string_view part = CutToColumns(rest, wide ? columns_ / 2 : columns_);
    lines_.push_back({std::string(as_it_is ? TrimRight(part) : Trim(part)), style});
    rest.remove_prefix(part.size());
  } while (!rest.empty());
}

void Paper::Split(std::string_view left, std::string_view right, Style style) {
  const std::size_t taken = Columns(right);
  const std::size_t room = columns_ > taken ? columns_ - taken - 1 : 0;
  std::string_view rest = TrimRight(left);
  while (Columns(rest) > room) {
    const std::string_view part = CutToColumns(rest, columns_);
    Line(part);
    rest.remove_prefix(part.size());
  }
  std::string line(rest);
  line.append(columns_ > taken ? columns_ - taken - Columns(line) : 0, ' ');
  line += right;
  Line(line, style);
}

void Paper::Rule(char with) {
  lines_.push_back({std::string(1, with), Style::kRule});
}

void Paper::Cut() {
  lines_.push_back({"~", Style::kCut});
}

void Paper::Feed(int lines) {
  for (int i = 0; i < lines; ++i) lines_.push_back({"", Style::kFeed});
}

void Paper::CenterHostText(std::string_view bytes) {
  if (IsDoubleWidth(bytes)) return Wide(Utf8FromHost(bytes.substr(1)));
  Center(Utf8FromHost(bytes));
}

void Paper::HostText(std::string_view bytes) {
  if (IsDoubleWidth(bytes)) return Line(Utf8FromHost(bytes.substr(1)), Style::kWide);
  Line(Utf8FromHost(bytes));
}

void Paper::SplitHostText(std::string_view bytes, std::string_view right) {
  if (!IsDoubleWidth(bytes)) return Split(Utf8FromHost(bytes), right);
  HostText(bytes);
  Split("", right);
}

std::vector<PaperLine> Paper::Take() {
  return std::exchange(lines_, {});
}

}  // namespace impresora
