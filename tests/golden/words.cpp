#include "golden/words.hpp"

#include <charconv>
#include <stdexcept>

namespace kestra::golden {
namespace {

template <class Number>
Number Converted(std::string_view text) {
  Number value{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) {
    throw std::invalid_argument("not a number: " + std::string(text));
  }
  return value;
}

// A quote may have a letter before it.
std::size_t EndOfWord(std::string_view line) {
  const auto quote = line.find('"');
  if (quote > 1) return line.find(' ');
  const auto end = line.find('"', quote + 1);
  if (end == std::string_view::npos) throw std::invalid_argument("a quote without its end");
  return end + 1;
}

}  // namespace

std::vector<std::string_view> Split(std::string_view text, std::string_view separator) {
  std::vector<std::string_view> pieces;
  for (;;) {
    const auto end = text.find(separator);
    pieces.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return pieces;
    text.remove_prefix(end + separator.size());
  }
}

std::string_view TakeWord(std::string_view& text) {
  const std::string_view word = text.substr(0, text.find(' '));
  text.remove_prefix(word.size());
  const auto rest = text.find_first_not_of(' ');
  text = rest == std::string_view::npos ? std::string_view() : text.substr(rest);
  return word;
}

std::vector<std::string_view> Words(std::string_view line) {
  std::vector<std::string_view> words;
  for (;;) {
    const auto start = line.find_first_not_of(' ');
    if (start == std::string_view::npos) return words;
    line.remove_prefix(start);
    words.push_back(line.substr(0, EndOfWord(line)));
    line.remove_prefix(words.back().size());
  }
}

std::int32_t ToInteger(std::string_view text) {
  return Converted<std::int32_t>(text);
}

double ToNumber(std::string_view text) {
  return Converted<double>(text);
}

double ToTimeOfDay(std::string_view text) {
  const auto parts = Split(text, ":");
  if (parts.size() != 3) throw std::invalid_argument("a time reads HH:MM:SS");
  return ToInteger(parts[0]) * 3600.0 + ToInteger(parts[1]) * 60.0 + ToNumber(parts[2]);
}

}  // namespace kestra::golden
