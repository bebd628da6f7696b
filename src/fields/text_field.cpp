#include "fields/text_field.hpp"

#include <algorithm>
#include <limits>

#include "base/failure.hpp"

namespace kestra {
std::string_view TrimBlanks(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string FixedWidth(std::string_view text, std::size_t length) {
  std::string fixed(text.substr(0, length));
  fixed.resize(length, ' ');
  return fixed;
}

std::string PadLeft(std::string_view text, std::size_t length, char filler) {
  const auto missing = length > text.size() ? length - text.size() : 0;
  return std::string(missing, filler).append(text);
}

std::string LimpiarCaracteres(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](char c) { return !PrinterAccepts(c); }, kStandIn);
  return text;
}

std::string AjustarTexto(std::string_view text, std::int32_t length) {
  if (length > std::numeric_limits<std::int16_t>::max() ||
      length < std::numeric_limits<std::int16_t>::min()) {
    throw Overflow();
  }
  const auto trimmed = TrimBlanks(text);
  if (trimmed.empty()) return {kEmptyField};
  if (length < 0) throw InvalidCall();
  return FixedWidth(trimmed, static_cast<std::size_t>(length));
}

}  // namespace kestra
