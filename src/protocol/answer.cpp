#include "protocol/answer.hpp"

#include <algorithm>

#include "base/failure.hpp"
#include "protocol/packet.hpp"

namespace kestra {

std::string SiguienteCampo(std::string& answers) {
  const auto separator = answers.find(kFs);
  const auto from = separator == std::string::npos ? 0 : separator + 1;
  auto to = answers.find(kFs, from);
  if (to == std::string::npos) to = answers.find(kEtx, from);
  if (to == std::string::npos) return {};
  auto field = answers.substr(from, to - from);
  answers.erase(0, to);  // the separator stays: the next field begins at it
  return field;
}

Fields CutFields(std::string& answers) {
  Fields fields;
  for (auto& field : fields) field = SiguienteCampo(answers);
  return fields;
}

std::string ListingText(const Fields& fields) {
  std::string text = "Respuestas al ultimo comando: ";
  text.append(2, kCr);
  for (std::size_t k = 0; k < fields.size(); ++k) {
    if (k != 0) text += kCr;
    text.append("Respuesta_").append(std::to_string(k + 1)).append(": ").append(fields[k]);
  }
  return text;
}

namespace {

// The slots of one digit's flags, lowest weight first.
using Digit = std::array<std::size_t, 4>;
// The digits of a word from the last to the first.
using Layout = std::array<Digit, 4>;

constexpr Layout kFiscalLayout = {{{0, 1, 2, 3}, {4, 5, 6, 7}, {8, 9, 10, 11}, {12, 13, 14, 15}}};

// Kept as is: "out of paper" (0x4000) lives in slot 13 and its neighbour (0x2000) in slot 14;
// verdict, messages and report all read the slots so.
constexpr Layout kPrinterLayout = {{{0, 1, 2, 3}, {4, 5, 6, 7}, {8, 9, 10, 11}, {12, 14, 13, 15}}};

void Decode(std::string_view word, const Layout& layout, Flags& flags) {
  auto position = layout.size();
  for (const auto& slots : layout) {
    --position;
    const auto digit = position < word.size() ? word.substr(position, 1) : "";
    const auto bits = ValorDigitoHex(digit);
    for (std::size_t k = 0; k < slots.size(); ++k) flags[slots[k]] = bits[k];
  }
}

}  // namespace

std::array<Boolean, 4> ValorDigitoHex(std::string_view digit) {
  constexpr std::string_view kUpperCase = "0123456789ABCDEF";
  constexpr std::string_view kLowerCase = "0123456789abcdef";
  if (digit.size() != 1) throw TypeMismatch();
  const auto value = std::min(kUpperCase.find(digit), kLowerCase.find(digit));
  if (value == std::string_view::npos) throw TypeMismatch();
  std::array<Boolean, 4> bits{};
  for (std::size_t k = 0; k < bits.size(); ++k) bits[k] = ToBoolean(((value >> k) & 1) != 0);
  return bits;
}

void DecodePrinter(std::string_view word, Flags& flags) {
  Decode(word, kPrinterLayout, flags);
}

void DecodeFiscal(std::string_view word, Flags& flags) {
  Decode(word, kFiscalLayout, flags);
}

}  // namespace kestra
