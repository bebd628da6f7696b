#include "words.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "platform/shared/text.hpp"

namespace kestra::tool {

std::size_t Columns(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
    return (static_cast<unsigned char>(c) & 0xC0u) != 0x80u;
  }));
}

std::string Padded(std::string_view text, std::size_t width) {
  std::string padded(text);
  return padded.append(width - std::min(width, Columns(text)), ' ');
}

std::string Wrapped(std::string_view text, std::size_t indent) {
  constexpr std::size_t kWidth = 100;
  std::string lines;
  std::size_t column = 0;
  while (!text.empty()) {
    const auto begin = std::min(text.find_first_not_of(' '), text.size());
    const auto end = std::min(text.find(' ', begin), text.size());
    const auto word = text.substr(0, end);  // with the blanks before it
    if (column > indent && column + Columns(word) > kWidth) {
      lines.append("\n").append(indent, ' ').append(word.substr(begin));
      column = indent + Columns(word) - begin;
    } else {
      lines += word;
      column += Columns(word);
    }
    text.remove_prefix(end);
  }
  return lines;
}

std::string Joined(const std::vector<std::string>& parts, std::string_view between) {
  std::string text;
  for (const auto& part : parts) text.append(text.empty() ? "" : between).append(part);
  return text;
}

std::string SpanInWords(double seconds) {
  const auto whole = static_cast<long>(std::abs(seconds));
  if (whole < 60) return std::to_string(whole) + " s";
  if (whole < 3600) return std::to_string(whole / 60) + " min";
  const long hours = whole / 3600;
  if (hours < 48) return std::to_string(hours) + " h " + std::to_string(whole % 3600 / 60) + " min";
  return std::to_string(hours / 24) + " días " + std::to_string(hours % 24) + " h";
}

std::string SecondsInWords(double seconds) {
  std::array<char, 32> text{};
  const int length = std::snprintf(text.data(), text.size(), "%.3f s", seconds);
  return {text.data(), static_cast<std::size_t>(length)};
}

bool SameWithoutCase(std::string_view a, std::string_view b) {
  return EqualWithoutCase(a, b);
}

}  // namespace kestra::tool
