#include "protocol/verdict.hpp"

#include <array>
#include <cstdint>

namespace kestra {
namespace {

enum class Word { kPrinter, kFiscal };

struct Sign {
  Word word;
  std::uint16_t bit;
  bool refuses;  // the command was not carried out
  Cause cause;
};

// The first that is lit is told: what the command did wrong, what the machine lacks, what it warns of.
// A printer in trouble for want of paper is told of the paper.
constexpr std::array kSigns = {
    Sign{Word::kFiscal, 0x0008, true, Cause::kUnknownCommand},
    Sign{Word::kFiscal, 0x0010, true, Cause::kBadField},
    Sign{Word::kFiscal, 0x0040, true, Cause::kOverflow},
    Sign{Word::kFiscal, 0x0001, true, Cause::kFiscalMemory},
    Sign{Word::kFiscal, 0x0002, true, Cause::kWorkMemory},
    Sign{Word::kFiscal, 0x0080, true, Cause::kFiscalMemoryFull},
    Sign{Word::kFiscal, 0x0020, true, Cause::kWrongState},
    Sign{Word::kPrinter, 0x4000, false, Cause::kNoPaper},
    Sign{Word::kPrinter, 0x0010, false, Cause::kNoJournalPaper},
    Sign{Word::kPrinter, 0x0020, false, Cause::kNoReceiptPaper},
    Sign{Word::kPrinter, 0x0008, true, Cause::kPrinterOffLine},
    Sign{Word::kPrinter, 0x0004, true, Cause::kPrinterFault},
    Sign{Word::kFiscal, 0x0800, false, Cause::kDayTooLong},
    Sign{Word::kFiscal, 0x0004, false, Cause::kBatteryLow},
    Sign{Word::kFiscal, 0x0100, false, Cause::kFiscalMemoryLow},
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

Verdict JudgeWords(const Words& words) {
  Verdict verdict{Outcome::kDone};
  for (const auto& sign : kSigns) {
    const auto word = sign.word == Word::kPrinter ? words.printer : words.fiscal;
    if ((word & sign.bit) == 0) continue;
    if (sign.refuses) verdict.outcome = Outcome::kRefused;
    if (verdict.cause == Cause::kNone) verdict.cause = sign.cause;
  }
  return verdict;
}

Verdict JudgeHeard(const Heard& heard, bool leftover) {
  if (heard.answer.empty()) return {Outcome::kUnknown, DoubtOf(heard, leftover)};
  return JudgeWords(WordsOf(FieldsOf(heard.answer)));
}

}  // namespace kestra
