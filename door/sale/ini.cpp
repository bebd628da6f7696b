#include "sale/ini.hpp"

#include <algorithm>
#include <charconv>

namespace puerta {
namespace {

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool SameWord(std::string_view a, std::string_view b) {
  return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(),
                                            [](char x, char y) { return Lower(x) == Lower(y); });
}

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view kBlanks = " \t\r";
  const auto first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string_view Unquoted(std::string_view text) {
  const bool quoted = text.size() >= 2 && text.front() == text.back() &&
                      (text.front() == '"' || text.front() == '\'');
  return quoted ? text.substr(1, text.size() - 2) : text;
}

std::string_view TakeLine(std::string_view& rest) {
  const auto end = rest.find('\n');
  const auto line = rest.substr(0, end);
  rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
  return Trimmed(line);
}

bool IsSection(std::string_view line) {
  return line.starts_with('[');
}

// What stands between the first heading of that name and the next heading.
std::string_view Section(std::string_view ini) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  if (ini.starts_with(kMark)) ini.remove_prefix(kMark.size());
  while (!ini.empty() && !SameWord(TakeLine(ini), "[Epson_Fiscal]")) {
  }
  return ini;
}

}  // namespace

std::optional<std::string> IniValue(std::string_view ini, std::string_view key) {
  auto rest = Section(ini);
  while (!rest.empty()) {
    const auto line = TakeLine(rest);
    if (IsSection(line)) break;
    const auto equals = line.find('=');
    if (equals == std::string_view::npos || line.starts_with(';')) continue;
    if (SameWord(Trimmed(line.substr(0, equals)), key))
      return std::string(Unquoted(Trimmed(line.substr(equals + 1))));
  }
  return std::nullopt;
}

int IniNumber(std::string_view ini, std::string_view key, int otherwise) {
  const auto text = IniValue(ini, key);
  if (!text) return otherwise;
  int number = otherwise;
  const auto read = std::from_chars(text->data(), text->data() + text->size(), number);
  return read.ptr == text->data() + text->size() ? number : otherwise;
}

}  // namespace puerta
