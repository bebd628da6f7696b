#include "platform/shared/profile_text.hpp"

#include <optional>

#include "platform/seam/files.hpp"
#include "platform/shared/text.hpp"

namespace kestra {
namespace {

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

std::string_view WithoutQuotes(std::string_view value) {
  const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                      (value.front() == '"' || value.front() == '\'');
  return quoted ? value.substr(1, value.size() - 2) : value;
}

std::string_view WithoutMark(std::string_view text) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.substr(0, kByteOrderMark.size()) == kByteOrderMark) {
    text.remove_prefix(kByteOrderMark.size());
  }
  return text;
}

// Removes the first line from the text and returns it, without its end and the blanks around it.
std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = text.find_first_of("\r\n");
  const std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  return Trimmed(line);
}

// Name of the section that this line begins.
std::optional<std::string_view> SectionOf(std::string_view line) {
  const std::size_t end = line.find(']');
  if (line.empty() || line.front() != '[' || end == std::string_view::npos) return std::nullopt;
  return Trimmed(line.substr(1, end - 1));
}

// Value that this line gives to the key.
std::optional<std::string_view> ValueOf(std::string_view line, std::string_view key) {
  const std::size_t sign = line.find('=');
  if (sign == std::string_view::npos || line.front() == ';') return std::nullopt;
  if (!EqualWithoutCase(Trimmed(line.substr(0, sign)), key)) return std::nullopt;
  return WithoutQuotes(Trimmed(line.substr(sign + 1)));
}

}  // namespace

std::string FindInProfile(std::string_view text, std::string_view section, std::string_view key) {
  text = WithoutMark(text);
  bool inside = false;
  while (!text.empty()) {
    const std::string_view line = TakeLine(text);
    if (const auto name = SectionOf(line)) {
      if (inside) break;
      inside = EqualWithoutCase(*name, section);
    } else if (const auto value = inside ? ValueOf(line, key) : std::nullopt) {
      return std::string(value->substr(0, kLongestProfileValue));
    }
  }
  return {};
}

}  // namespace kestra
