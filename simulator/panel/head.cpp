#include "panel/head.hpp"

#include <algorithm>

namespace impresora {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

bool IsToken(std::string_view text) {
  constexpr std::string_view kAllowed =
      "!#$%&'*+-.^_`|~0123456789"
      "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
  return !text.empty() && text.find_first_not_of(kAllowed) == std::string_view::npos;
}

bool IsVisible(char c) {
  return c > ' ' && c < '\x7F';
}

bool IsFieldByte(char c) {
  return c == '\t' || (static_cast<unsigned char>(c) >= ' ' && c != '\x7F');
}

std::string_view WithoutBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::string LowerCase(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return lower;
}

bool ReadRequestLine(std::string_view line, Head& head) {
  const std::size_t first = line.find(' ');
  const std::size_t last = line.rfind(' ');
  if (first == std::string_view::npos || last == first) return false;
  const std::string_view target = line.substr(first + 1, last - first - 1);
  const std::string_view version = line.substr(last + 1);
  head.method = line.substr(0, first);
  head.target = target;
  return IsToken(head.method) && target.starts_with('/') &&
         std::all_of(target.begin(), target.end(), IsVisible) &&
         (version == "HTTP/1.1" || version == "HTTP/1.0");
}

bool ReadHeadField(std::string_view line, Head& head) {
  const std::size_t colon = line.find(':');
  if (colon == std::string_view::npos || !IsToken(line.substr(0, colon))) return false;
  const std::string_view value = WithoutBlanks(line.substr(colon + 1));
  if (!std::all_of(value.begin(), value.end(), IsFieldByte)) return false;
  head.fields.emplace_back(LowerCase(line.substr(0, colon)), value);
  return true;
}

}  // namespace

std::size_t Head::Count(std::string_view name) const {
  return static_cast<std::size_t>(std::count_if(
      fields.begin(), fields.end(), [name](const auto& field) { return field.first == name; }));
}

std::string_view Head::Value(std::string_view name) const {
  for (const auto& [key, value] : fields) {
    if (key == name) return value;
  }
  return {};
}

std::optional<Head> ParseHead(std::string_view bytes) {
  Head head;
  bool first = true;
  while (true) {
    const std::size_t end = bytes.find(kLineEnd);
    if (end == std::string_view::npos) return std::nullopt;
    const std::string_view line = bytes.substr(0, end);
    bytes.remove_prefix(end + kLineEnd.size());
    if (first ? !ReadRequestLine(line, head) : !line.empty() && !ReadHeadField(line, head)) {
      return std::nullopt;
    }
    if (!first && line.empty()) return head;
    first = false;
  }
}

}  // namespace impresora
