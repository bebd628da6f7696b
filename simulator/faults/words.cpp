#include "faults/words.hpp"

#include <algorithm>
#include <array>
#include <charconv>

namespace impresora {
namespace {

constexpr std::string_view kBlanks = " \t\r";
constexpr std::string_view kMarks = ":,;=%";
constexpr std::string_view kQuotes = "\"'";
constexpr std::size_t kMostDigits = 9;

struct Accent {
  std::string_view from;
  char to;
};

constexpr std::array<Accent, 12> kAccents{{{"á", 'a'},
                                           {"é", 'e'},
                                           {"í", 'i'},
                                           {"ó", 'o'},
                                           {"ú", 'u'},
                                           {"ü", 'u'},
                                           {"Á", 'a'},
                                           {"É", 'e'},
                                           {"Í", 'i'},
                                           {"Ó", 'o'},
                                           {"Ú", 'u'},
                                           {"Ü", 'u'}}};

bool IsOneOf(char c, std::string_view set) {
  return set.find(c) != std::string_view::npos;
}

std::optional<unsigned> HexDigit(char c) {
  if (c >= '0' && c <= '9') return static_cast<unsigned>(c - '0');
  if (c >= 'A' && c <= 'F') return static_cast<unsigned>(c - 'A' + 10);
  if (c >= 'a' && c <= 'f') return static_cast<unsigned>(c - 'a' + 10);
  return std::nullopt;
}

std::optional<char> HexByte(std::string_view pair) {
  if (pair.size() < 2) return std::nullopt;
  const auto high = HexDigit(pair[0]);
  const auto low = HexDigit(pair[1]);
  if (!high || !low) return std::nullopt;
  return static_cast<char>(*high * 16 + *low);
}

// A backslash and two hexadecimal digits are the byte that they name.
std::string Unescape(std::string_view text) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = text[i] == '\\' ? HexByte(text.substr(i + 1, 2)) : std::nullopt;
    bytes += byte.value_or(text[i]);
    if (byte) i += 2;
  }
  return bytes;
}

// The word that begins at `at`, where there is neither a blank nor the end.
RuleWord WordAt(std::string_view line, std::size_t at) {
  using Kind = RuleWord::Kind;
  const char first = line[at];
  if (IsOneOf(first, kMarks)) return {Kind::kMark, {first}, {first}, at, at + 1};
  if (IsOneOf(first, kQuotes)) {
    const std::size_t close = line.find(first, at + 1);
    const bool open = close == std::string_view::npos;
    const std::string_view inside = line.substr(at + 1, open ? close : close - at - 1);
    const std::size_t end = open ? line.size() : close + 1;
    return {open ? Kind::kOpenText : Kind::kText, Unescape(inside), "", at, end};
  }
  std::size_t end = at;
  while (end < line.size() && !IsOneOf(line[end], kBlanks) && !IsOneOf(line[end], kMarks)) ++end;
  const std::string_view word = line.substr(at, end - at);
  return {Kind::kWord, std::string(word), Fold(word), at, end};
}

}  // namespace

std::vector<RuleWord> SplitWords(std::string_view line) {
  std::vector<RuleWord> words;
  std::size_t at = 0;
  while ((at = line.find_first_not_of(kBlanks, at)) < line.size() && line[at] != '#') {
    words.push_back(WordAt(line, at));
    at = words.back().end;
  }
  RuleWord end;
  end.begin = end.end = std::min(at, line.size());
  words.push_back(end);
  return words;
}

std::optional<std::string> ReadHexBytes(std::string_view text) {
  std::string bytes;
  for (; !text.empty(); text.remove_prefix(2)) {
    const auto byte = HexByte(text);
    if (!byte) return std::nullopt;
    bytes += *byte;
  }
  return bytes;
}

std::string Fold(std::string_view utf8) {
  std::string folded;
  while (!utf8.empty()) {
    std::size_t length = 1;
    char c = utf8.front();
    for (const Accent& accent : kAccents) {
      if (utf8.substr(0, accent.from.size()) != accent.from) continue;
      c = accent.to;
      length = accent.from.size();
    }
    folded += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    utf8.remove_prefix(length);
  }
  return folded;
}

std::optional<std::int64_t> ReadInteger(std::string_view text) {
  const bool plus = !text.empty() && text.front() == '+';
  const bool minus = !text.empty() && text.front() == '-';
  if (plus || minus) text.remove_prefix(1);
  if (text.empty() || text.size() > kMostDigits) return std::nullopt;
  if (text.find_first_not_of("0123456789") != std::string_view::npos) return std::nullopt;
  std::int64_t value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return minus ? -value : value;
}

std::optional<std::int64_t> ReadThousandths(std::string_view text) {
  const std::size_t point = text.find('.');
  const std::string_view whole = text.substr(0, point);
  std::string decimals(point == std::string_view::npos ? "" : text.substr(point + 1));
  if (whole.find_first_of("+-") == 0 || decimals.find_first_of("+-") == 0) return std::nullopt;
  if (decimals.size() > 3 || (point != std::string_view::npos && decimals.empty())) {
    return std::nullopt;
  }
  decimals.resize(3, '0');
  const auto units = ReadInteger(whole);
  const auto rest = ReadInteger(decimals);
  if (!units || !rest) return std::nullopt;
  return *units * 1000 + *rest;
}

}  // namespace impresora
