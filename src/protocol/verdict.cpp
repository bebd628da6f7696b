#include "protocol/verdict.hpp"

#include <array>
#include <cstdint>

namespace kestra {
namespace {

enum class Word { kPrinter, kFiscal };

// How heavy a sign is: a word to the operator; a machine that does nothing but answer questions; a command
// that was not carried out.
enum class Weight { kTells, kStops, kRefuses };

struct Sign {
  Word word;
  std::uint16_t bit;
  Weight weight;
  Cause cause;
};

// The first that is lit is told: what the command did wrong, what the machine lacks, what it warns of.
// A printer in trouble for want of paper is told of the paper.
constexpr std::array kSigns = {
    Sign{Word::kFiscal, 0x0008, Weight::kRefuses, Cause::kUnknownCommand},
    Sign{Word::kFiscal, 0x0010, Weight::kRefuses, Cause::kBadField},
    Sign{Word::kFiscal, 0x0040, Weight::kRefuses, Cause::kOverflow},
    Sign{Word::kFiscal, 0x0001, Weight::kStops, Cause::kFiscalMemory},
    Sign{Word::kFiscal, 0x0002, Weight::kStops, Cause::kWorkMemory},
    Sign{Word::kFiscal, 0x0080, Weight::kStops, Cause::kFiscalMemoryFull},
    Sign{Word::kFiscal, 0x0020, Weight::kRefuses, Cause::kWrongState},
    Sign{Word::kPrinter, 0x4000, Weight::kTells, Cause::kNoPaper},
    Sign{Word::kPrinter, 0x0010, Weight::kTells, Cause::kNoJournalPaper},
    Sign{Word::kPrinter, 0x0020, Weight::kTells, Cause::kNoReceiptPaper},
    Sign{Word::kPrinter, 0x0008, Weight::kStops, Cause::kPrinterOffLine},
    Sign{Word::kPrinter, 0x0004, Weight::kStops, Cause::kPrinterFault},
    Sign{Word::kFiscal, 0x0800, Weight::kTells, Cause::kDayTooLong},
    Sign{Word::kFiscal, 0x0004, Weight::kTells, Cause::kBatteryLow},
    Sign{Word::kFiscal, 0x0100, Weight::kTells, Cause::kFiscalMemoryLow},
};

Cause DoubtOf(const Heard& heard, bool leftover) {
  if (heard.foreign) return Cause::kForeign;
  if (heard.damaged) return Cause::kDamaged;
  if (heard.refused) return Cause::kNotUnderstood;
  return leftover ? Cause::kDamaged : Cause::kSilence;
}

}  // namespace

Errand ErrandOf(std::string_view command) {
  const bool asks = MethodOf(command).method == Method::kQuestion;
  return asks ? Errand::kQuestion : Errand::kCommand;
}

Verdict JudgeWords(const Words& words, Errand errand) {
  const auto limit = errand == Errand::kQuestion ? Weight::kRefuses : Weight::kStops;
  Verdict verdict{Outcome::kDone};
  for (const auto& sign : kSigns) {
    const auto word = sign.word == Word::kPrinter ? words.printer : words.fiscal;
    if ((word & sign.bit) == 0) continue;
    if (sign.weight >= limit) verdict.outcome = Outcome::kRefused;
    if (verdict.cause == Cause::kNone) verdict.cause = sign.cause;
  }
  return verdict;
}

Verdict JudgeHeard(const Heard& heard, bool leftover, Errand errand) {
  if (heard.answer.empty()) return {Outcome::kUnknown, DoubtOf(heard, leftover)};
  return JudgeWords(WordsOf(FieldsOf(heard.answer)), errand);
}

}  // namespace kestra
