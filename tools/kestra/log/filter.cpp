#include "log/filter.hpp"

#include <algorithm>
#include <cstddef>

namespace kestra::tool {
namespace {

std::string_view WithoutZeros(std::string_view digits) {
  const auto first = digits.find_first_not_of('0');
  return first == std::string_view::npos ? std::string_view() : digits.substr(first);
}

char Upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

}  // namespace

bool Filter::Wants(const Entry& entry, DateOrder order) const {
  if (failures && !WordsOf(entry.outcome).failed) return false;
  if (day && ReadDay(entry.stamp.date, order) != day) return false;
  if (!letter.empty() && entry.document.letter != letter) return false;
  return number.empty() ||
         (!entry.document.number.empty() && WithoutZeros(entry.document.number) == number);
}

bool ReadDocument(std::string_view text, Filter& filter) {
  constexpr std::string_view kDigits = "0123456789";
  if (!text.empty() && kDigits.find(text.front()) == std::string_view::npos) {
    const char letter = Upper(text.front());
    if (letter < 'A' || letter > 'Z') return false;
    filter.letter = letter;
    text.remove_prefix(std::min(text.find_first_not_of(" -", 1), text.size()));
  }
  const auto number = WithoutZeros(text);
  filter.number = number;
  return !number.empty() && text.find_first_not_of(kDigits) == std::string_view::npos;
}

}  // namespace kestra::tool
