// The status words, their flags, and what the operator is told about them.
#include "protocol/answer.hpp"

#include <string>

#include "base/failure.hpp"
#include "dialogs/conditions.hpp"
#include "dialogs/status_report.hpp"
#include "fuzz/input.hpp"

namespace kestra {
namespace {

using fuzz::Require;

constexpr std::string_view kDigits = "0123456789ABCDEF0123456789abcdef";
constexpr Boolean kAsBefore = 77;

constexpr std::uint16_t kFailingPrinterBits = 0x000C;
constexpr std::uint16_t kFailingFiscalBits = 0x08FF;

// The flag of a bit: the printer's have two of them the other way round.
std::size_t SlotOf(std::size_t bit, bool printer) {
  if (printer && (bit == 13 || bit == 14)) return 27 - bit;
  return bit;
}

// What the word should come to, digit by digit from its last; false at the first that is none.
bool Expect(std::string_view word, bool printer, Flags& flags) {
  for (std::size_t digit = 0; digit < 4; ++digit) {
    const auto place = 3 - digit;
    const auto value = place < word.size() ? kDigits.find(word[place]) : std::string_view::npos;
    if (value == std::string_view::npos) return false;
    for (std::size_t bit = 0; bit < 4; ++bit) {
      flags[SlotOf(digit * 4 + bit, printer)] = ToBoolean(((value >> bit) & 1U) != 0);
    }
  }
  return true;
}

bool Decode(std::string_view word, bool printer, Flags& flags) {
  try {
    printer ? DecodePrinter(word, flags) : DecodeFiscal(word, flags);
    return true;
  } catch (const Failure& failure) {
    Require(failure.Number() == 13, "a word that is none is a type mismatch");
    return false;
  }
}

Flags CheckWord(std::string_view word, bool printer) {
  Flags expected;
  expected.fill(kAsBefore);
  auto flags = expected;
  const bool readable = Expect(word, printer, expected);
  Require(Decode(word, printer, flags) == readable, "four digits can be read, nothing else");
  Require(flags == expected, "each flag, and those behind a bad digit as they were");
  return flags;
}

std::uint16_t ValueOf(std::string_view word) {
  return static_cast<std::uint16_t>(std::stoul(std::string(word.substr(0, 4)), nullptr, 16));
}

void CheckReport(const State& state) {
  const auto report = BuildReport(state);
  Require(report.rows.size() == kConditions.size(), "a row per condition");
  std::size_t lit = 0;
  for (std::size_t i = 0; i < report.rows.size(); ++i) {
    const auto& condition = kConditions[i];
    Require(report.rows[i].lit == IsLit(condition, state.BitImpresora, state.BitFiscal),
            "lit when it is set");
    if (!report.rows[i].lit) continue;
    lit += condition.message.empty() ? 0U : 1U;
    lit += condition.other_message.empty() ? 0U : 1U;
  }
  Require(StatusMessages(state.BitImpresora, state.BitFiscal).size() == lit,
          "a message for what is set and has one");
}

void CheckWords(std::string_view printer, std::string_view fiscal) {
  State state;
  state.BitImpresora = CheckWord(printer, true);
  state.BitFiscal = CheckWord(fiscal, false);
  CheckReport(state);
  Flags ignored;
  if (!Expect(printer, true, ignored) || !Expect(fiscal, false, ignored)) return;
  const bool fails =
      (ValueOf(printer) & kFailingPrinterBits) != 0 || (ValueOf(fiscal) & kFailingFiscalBits) != 0;
  Require(FailsCommand(state.BitImpresora, state.BitFiscal) == fails, "the verdict");
}

}  // namespace
}  // namespace kestra

FUZZ_TARGET(input) {
  const auto printer = input.Text(6);
  kestra::CheckWords(printer, input.Text(6));
}
