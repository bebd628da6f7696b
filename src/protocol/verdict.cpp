#include "protocol/verdict.hpp"

#include <array>
#include <cstdint>

namespace kestra {
namespace {

// How heavy a sign is: a word to the operator; a machine that does nothing but answer questions; a command
// that was not carried out.
enum class Weight { kTells, kStops, kRefuses };

// Bits of both words that together mean something.
struct Sign {
  std::uint16_t printer;
  std::uint16_t fiscal;
  Weight weight;
  Cause cause;
};

// The first that is lit is told: what the command did wrong, what the machine lacks, what it warns of. A
// command out of place because the day is over is told of the day, a printer that stops for want of paper of
// the paper.
constexpr std::array kSigns = {
    Sign{0, 0x0008, Weight::kRefuses, Cause::kUnknownCommand},
    Sign{0, 0x0010, Weight::kRefuses, Cause::kBadField},
    Sign{0, 0x0040, Weight::kRefuses, Cause::kOverflow},
    Sign{0, 0x0001, Weight::kStops, Cause::kFiscalMemory},
    Sign{0, 0x0002, Weight::kStops, Cause::kWorkMemory},
    Sign{0, 0x0080, Weight::kStops, Cause::kFiscalMemoryFull},
    Sign{0, 0x0820, Weight::kRefuses, Cause::kDayTooLong},
    Sign{0, 0x0020, Weight::kRefuses, Cause::kWrongState},
    Sign{0x4004, 0, Weight::kStops, Cause::kNoPaper},
    Sign{0x4008, 0, Weight::kStops, Cause::kNoPaper},
    Sign{0x0014, 0, Weight::kStops, Cause::kNoJournalPaper},
    Sign{0x0018, 0, Weight::kStops, Cause::kNoJournalPaper},
    Sign{0x0024, 0, Weight::kStops, Cause::kNoReceiptPaper},
    Sign{0x0028, 0, Weight::kStops, Cause::kNoReceiptPaper},
    Sign{0x0008, 0, Weight::kStops, Cause::kPrinterOffLine},
    Sign{0x0004, 0, Weight::kStops, Cause::kPrinterFault},
    Sign{0x4000, 0, Weight::kTells, Cause::kNoPaper},
    Sign{0x0010, 0, Weight::kTells, Cause::kNoJournalPaper},
    Sign{0x0020, 0, Weight::kTells, Cause::kNoReceiptPaper},
    Sign{0, 0x0800, Weight::kTells, Cause::kDayTooLong},
    Sign{0, 0x0004, Weight::kTells, Cause::kBatteryLow},
    Sign{0, 0x0100, Weight::kTells, Cause::kFiscalMemoryLow},
};

bool IsGiven(const Sign& sign, const Words& words) {
  return (words.printer & sign.printer) == sign.printer &&
         (words.fiscal & sign.fiscal) == sign.fiscal;
}

Cause CauseOfDoubt(const Heard& heard, bool leftover) {
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
    if (!IsGiven(sign, words)) continue;
    if (sign.weight >= limit) verdict.outcome = Outcome::kRefused;
    if (verdict.cause == Cause::kNone) verdict.cause = sign.cause;
  }
  return verdict;
}

Verdict JudgeHeard(const Heard& heard, bool leftover, Errand errand) {
  if (heard.answer.empty()) return {Outcome::kUnknown, CauseOfDoubt(heard, leftover)};
  return JudgeWords(WordsOf(FieldsOf(heard.answer)), errand);
}

}  // namespace kestra
