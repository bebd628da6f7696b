#include "paper.hpp"

#include <utility>

#include "text.hpp"
#include "wire.hpp"

namespace impresora {
namespace {

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

bool IsDoubleWidth(std::string_view bytes) {
  return !bytes.empty() && bytes.front() == kDoubleWidth;
}

}  // namespace

Paper::Paper(std::size_t columns) : columns_(columns) {}

void Paper::Line(std::string_view utf8) {
  lines_.emplace_back(TrimRight(CutToColumns(utf8, columns_)));
}

void Paper::Center(std::string_view utf8) {
  const std::string_view text = CutToColumns(Trim(utf8), columns_);
  std::string line((columns_ - Columns(text)) / 2, ' ');
  line += text;
  Line(line);
}

void Paper::Wide(std::string_view utf8) {
  Center(SpacedOut(Trim(utf8)));
}

void Paper::Split(std::string_view left, std::string_view right) {
  const std::size_t taken = Columns(right);
  const std::size_t room = columns_ > taken ? columns_ - taken - 1 : 0;
  std::string line(CutToColumns(TrimRight(left), room));
  line.append(columns_ > taken ? columns_ - taken - Columns(line) : 0, ' ');
  line += right;
  Line(line);
}

void Paper::Rule(char with) {
  Line(std::string(columns_, with));
}

void Paper::Feed(int lines) {
  for (int i = 0; i < lines; ++i) Line("");
}

void Paper::CenterHostText(std::string_view bytes) {
  if (IsDoubleWidth(bytes)) return Wide(Utf8FromHost(bytes.substr(1)));
  Center(Utf8FromHost(bytes));
}

void Paper::HostText(std::string_view bytes) {
  if (IsDoubleWidth(bytes)) return Line(SpacedOut(Trim(Utf8FromHost(bytes.substr(1)))));
  Line(Utf8FromHost(bytes));
}

std::vector<std::string> Paper::Take() {
  return std::exchange(lines_, {});
}

}  // namespace impresora
