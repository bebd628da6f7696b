#include "machine/status.hpp"

namespace impresora {
namespace {

template <std::size_t N>
std::uint16_t WithSummary(std::uint16_t bits, const std::array<Condition, N>& conditions) {
  unsigned word = bits & ~unsigned{kSummary};
  for (const Condition& condition : conditions) {
    if (condition.error && (word & condition.bit) != 0) word |= kSummary;
  }
  return static_cast<std::uint16_t>(word);
}

template <std::size_t N>
std::string LitWords(std::uint16_t word, const std::array<Condition, N>& conditions) {
  std::string text;
  for (const Condition& condition : conditions) {
    if ((word & condition.bit) == 0) continue;
    if (!text.empty()) text += ", ";
    text += condition.words;
  }
  return text.empty() ? "en orden" : text;
}

}  // namespace

std::uint16_t WithSummaryPrinter(std::uint16_t bits) {
  return WithSummary(bits, kPrinterConditions);
}

std::uint16_t WithSummaryFiscal(std::uint16_t bits) {
  return WithSummary(bits, kFiscalConditions);
}

std::string PrinterWords(std::uint16_t word) {
  return LitWords(word, kPrinterConditions);
}

std::string FiscalWords(std::uint16_t word) {
  const unsigned changing = word & ~unsigned{kCertified | kFiscalised};
  return LitWords(static_cast<std::uint16_t>(changing), kFiscalConditions);
}

}  // namespace impresora
