#include "ini_text.hpp"

#include <algorithm>

#include "words.hpp"

namespace kestra::tool {
namespace {

constexpr std::string_view kSection = "Epson_Fiscal";

std::string_view Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::string_view WithoutQuotes(std::string_view value) {
  const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                      (value.front() == '"' || value.front() == '\'');
  return quoted ? value.substr(1, value.size() - 2) : value;
}

// A line of the text, with where it begins and ends there.
struct Line {
  std::size_t begin;
  std::size_t end;
  std::string_view text;
};

std::vector<Line> LinesOf(std::string_view text) {
  std::vector<Line> lines;
  std::size_t begin = text.substr(0, 3) == "\xEF\xBB\xBF" ? 3 : 0;
  while (begin < text.size()) {
    const auto end = std::min(text.find_first_of("\r\n", begin), text.size());
    lines.push_back({begin, end, Trimmed(text.substr(begin, end - begin))});
    begin = end + (text.substr(end, 2) == "\r\n" ? 2 : 1);
  }
  return lines;
}

// What a line of the section is, one by one: visit(number, line, key, value) of each that gives a value.
template <typename Visit>
bool ForEachValue(std::string_view text, Visit visit) {
  bool inside = false;
  std::size_t number = 0;
  for (const Line& line : LinesOf(text)) {
    ++number;
    if (line.text.empty() || line.text.front() == ';') continue;
    const auto close = line.text.find(']');
    if (line.text.front() == '[' && close != std::string_view::npos) {
      if (inside) break;
      inside = SameWithoutCase(Trimmed(line.text.substr(1, close - 1)), kSection);
      if (inside) visit(number, line, {}, {});
      continue;
    }
    const auto sign = line.text.find('=');
    if (!inside || sign == std::string_view::npos) continue;
    visit(number, line, Trimmed(line.text.substr(0, sign)),
          WithoutQuotes(Trimmed(line.text.substr(sign + 1))));
  }
  return inside;
}

}  // namespace

IniText ReadIniText(std::string_view text) {
  IniText read;
  ForEachValue(text,
               [&](std::size_t number, const Line&, std::string_view key, std::string_view value) {
                 read.has_section = true;
                 if (!key.empty())
                   read.lines.push_back({number, std::string(key), std::string(value)});
               });
  return read;
}

std::optional<std::string> WithKey(std::string_view text, std::string_view key,
                                   std::string_view value) {
  std::optional<Line> place;
  std::size_t behind = 0;  // where the section's last value ends
  bool found = false;
  ForEachValue(text, [&](std::size_t, const Line& line, std::string_view name, std::string_view) {
    behind = line.end;
    if (!place && SameWithoutCase(name, key)) place = line;
    found = true;
  });
  if (!found) return std::nullopt;
  std::string changed(text);
  const auto row = std::string(key).append("=").append(value);
  if (place) return changed.replace(place->begin, place->end - place->begin, row);
  const std::string_view newline = text.find("\r\n") == std::string_view::npos ? "\n" : "\r\n";
  return changed.insert(behind, std::string(newline).append(row));
}

}  // namespace kestra::tool
