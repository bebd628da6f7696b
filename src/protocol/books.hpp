#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "protocol/answer.hpp"
#include "state/certainty.hpp"

namespace kestra {

// By what it shows whether the printer has carried a command out.
enum class Method : std::uint8_t {
  kNotOurs,      // no command that an operation builds: it is not sent
  kQuestion,     // it prints nothing, and may be asked again
  kNoBook,       // nothing shows it
  kOpening,      // a document is open
  kLine,         // the subtotal has one line more
  kCorrection,   // its total is another
  kPayment,      // so much more is paid
  kPerception,   // perceptions have grown
  kCancel,       // no document is open any more
  kClosing,      // the same, and its number has been given
  kDay,          // one daily closing more
  kHeader,       // the line reads so
  kClock,        // so does the clock
  kSheetEnds,    // there is no subtotal between two sheets
  kSheetBegins,  // and there is one again
};

struct MethodRow {
  char byte;
  std::uint8_t field;  // the field that tells rows of one byte apart, from 1; 0: none
  char letter;         // what it holds
  Method method;
  bool prints;  // without paper it is not carried out
};

// The row of a command; one of kNotOurs for a command that has none.
const MethodRow& MethodOf(std::string_view command);

// Field n of a command, from 1; empty when it has not so many, or holds the mark of an empty one.
std::string_view CommandField(std::string_view command, std::size_t n);

// The questions that show the books.
std::string CountersQuestion();
std::string DayQuestion();
std::string SubtotalQuestion(std::string_view command);  // of the family that calls it by this byte
std::string QuestionFor(std::string_view command);       // by the command's method
bool AsksForCounters(std::string_view command);
bool AsksForSubtotal(std::string_view command);

// What an answer's status words say.
struct Words {
  std::uint16_t printer = 0;
  std::uint16_t fiscal = 0;
};
Words WordsOf(const Fields& fields);

namespace printer_word {
inline constexpr std::uint16_t kFailure = 0x0004;
inline constexpr std::uint16_t kOffLine = 0x0008;
inline constexpr std::uint16_t kPaper = 0x4030;  // of any of its rolls
}  // namespace printer_word
namespace fiscal_word {
inline constexpr std::uint16_t kWrongState = 0x0020;
inline constexpr std::uint16_t kRefusal = 0x0078;  // what says that the command was not carried out
inline constexpr std::uint16_t kNotUnderstood = 0x0018;  // of that, what a zero byte in it can do
inline constexpr std::uint16_t kMachine = 0x0887;        // what says something of the machine
inline constexpr std::uint16_t kDocumentOpen = 0x1000;
inline constexpr std::uint16_t kSummary = 0x8000;  // some of them say so
}  // namespace fiscal_word

// A field of digits alone.
std::optional<std::int64_t> WholeNumber(std::string_view field);

// Of the numbering query's answer, in its order. A model with another layout shows none.
using Counters = std::array<std::optional<std::int64_t>, kCounters>;
std::optional<Counters> ReadCounters(const Fields& answer, std::string_view model);

// Places in the counters.
inline constexpr std::size_t kDailyClosings = 0;
inline constexpr std::size_t kTickets = 1;
inline constexpr std::size_t kCancelledToday = 5;
inline constexpr std::size_t kNonFiscalToday = 6;

// The place of the documents that a command closes, or of a kind and letter; none where the printer keeps
// no count of them.
std::optional<std::size_t> CounterOf(char kind, char letter);
std::optional<std::size_t> CounterOfClosing(std::string_view command);

struct Subtotal {
  std::int64_t lines = 0;
  std::int64_t total = 0;  // hundredths, as all that follow
  std::int64_t iva = 0;
  std::int64_t paid = 0;
  std::int64_t internal_taxes = 0;
  std::int64_t perceptions = 0;
  std::int64_t net = 0;
  std::int64_t left = 0;
};
std::optional<Subtotal> ReadSubtotal(const Fields& answer);

// Whether the day's figures say that nothing was done since the last daily closing.
std::optional<bool> DayIsEmpty(const Fields& answer);

}  // namespace kestra
