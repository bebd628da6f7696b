#include "protocol/books.hpp"

#include <algorithm>

#include "fields/text_field.hpp"
#include "protocol/command.hpp"

namespace kestra {
namespace {

constexpr MethodRow kNotOurs{0, 0, 0, Method::kNotOurs, false};

// In the order of the bytes; rows of one byte follow each other.
constexpr std::array kMethods{
    MethodRow{'*', 0, 0, Method::kQuestion, false},
    MethodRow{'9', 1, 'Z', Method::kDay, true},
    MethodRow{'9', 1, 'X', Method::kNoBook, true},
    MethodRow{':', 0, 0, Method::kNoBook, true},
    MethodRow{';', 0, 0, Method::kNoBook, true},
    MethodRow{'@', 0, 0, Method::kOpening, true},
    MethodRow{'A', 0, 0, Method::kNoBook, true},
    MethodRow{'B', 0, 0, Method::kLine, true},
    MethodRow{'C', 1, 'N', Method::kQuestion, false},
    MethodRow{'D', 3, 'T', Method::kPayment, true},
    MethodRow{'D', 3, 'D', Method::kCorrection, true},
    MethodRow{'D', 3, 'R', Method::kCorrection, true},
    MethodRow{'D', 3, 'C', Method::kCancel, true},
    MethodRow{'E', 0, 0, Method::kClosing, true},
    MethodRow{'H', 0, 0, Method::kOpening, true},
    MethodRow{'I', 0, 0, Method::kNoBook, true},
    MethodRow{'J', 0, 0, Method::kClosing, true},
    MethodRow{'K', 0, 0, Method::kNoBook, true},
    MethodRow{'R', 0, 0, Method::kNoBook, true},
    MethodRow{'X', 0, 0, Method::kClock, false},
    MethodRow{'Y', 0, 0, Method::kQuestion, false},
    MethodRow{'\\', 1, 'Q', Method::kQuestion, false},
    MethodRow{'\\', 4, 'T', Method::kSheetEnds, true},
    MethodRow{'\\', 4, 'O', Method::kSheetBegins, true},
    MethodRow{']', 0, 0, Method::kHeader, false},
    MethodRow{'^', 0, 0, Method::kQuestion, false},
    MethodRow{'`', 0, 0, Method::kOpening, true},
    MethodRow{'b', 0, 0, Method::kLine, true},
    MethodRow{'c', 1, 'N', Method::kQuestion, false},
    MethodRow{'d', 3, 'T', Method::kPayment, true},
    MethodRow{'d', 3, 'D', Method::kCorrection, true},
    MethodRow{'d', 3, 'R', Method::kCorrection, true},
    MethodRow{'d', 3, 'C', Method::kCancel, true},
    MethodRow{'e', 0, 0, Method::kClosing, true},
    MethodRow{'f', 0, 0, Method::kPerception, true},
    MethodRow{'{', 0, 0, Method::kNoBook, false},
    MethodRow{'|', 0, 0, Method::kNoBook, false},
};

// The model whose counters stand in an order of their own.
constexpr std::string_view kModelOfOtherCounters = "TM300AF";

struct CounterRow {
  std::string_view kinds;
  char letter;
  std::size_t place;
};
constexpr std::array kCounterRows{
    CounterRow{"FT", 'A', 2}, CounterRow{"FT", 'B', 3}, CounterRow{"FT", 'C', 4},
    CounterRow{"MN", 'A', 7}, CounterRow{"MN", 'B', 8}, CounterRow{"D", 'A', 9},
    CounterRow{"D", 'B', 10},
};

// Bytes of commands, and of the subtotal in their family.
constexpr std::string_view kTicketBytes = "@BCDE";

char FirstLetter(std::string_view field) {
  return field.empty() ? '\0' : field.front();
}

bool Fits(const MethodRow& row, std::string_view command) {
  if (command.empty() || row.byte != command.front()) return false;
  return row.field == 0 || CommandField(command, row.field) == std::string_view(&row.letter, 1);
}

std::uint16_t WordOf(std::string_view digits) {
  unsigned word = 0;
  for (const char digit : digits) {
    const auto value = std::string_view("0123456789ABCDEF").find(digit);
    word = word * 16 + static_cast<unsigned>(value & 0xF);
  }
  return static_cast<std::uint16_t>(word);
}

}  // namespace

const MethodRow& MethodOf(std::string_view command) {
  const auto* const found = std::find_if(kMethods.begin(), kMethods.end(),
                                         [&](const MethodRow& row) { return Fits(row, command); });
  return found == kMethods.end() ? kNotOurs : *found;
}

std::string_view CommandField(std::string_view command, std::size_t n) {
  for (; n > 0; --n) {
    const auto separator = command.find(kFs);
    if (separator == std::string_view::npos) return {};
    command.remove_prefix(separator + 1);
  }
  const auto field = command.substr(0, command.find(kFs));
  return field == kNoText ? std::string_view() : field;
}

std::string CountersQuestion() {
  return Command('*').Field("A").Bytes();
}

std::string DayQuestion() {
  return Command('*').Field("D").Bytes();
}

std::string SubtotalQuestion(std::string_view command) {
  const bool ticket = kTicketBytes.find(command.front()) != std::string_view::npos;
  return Command(ticket ? 'C' : 'c').Field("N").Field(kNoText).Bytes();
}

bool AsksForCounters(std::string_view command) {
  return command.starts_with('*') && CommandField(command, 1) == "A";
}

bool AsksForSubtotal(std::string_view command) {
  return command.starts_with('C') || command.starts_with('c');
}

std::string QuestionFor(std::string_view command) {
  switch (MethodOf(command).method) {
    case Method::kLine:
    case Method::kCorrection:
    case Method::kPayment:
    case Method::kPerception:
    case Method::kSheetEnds:
    case Method::kSheetBegins:
      return SubtotalQuestion(command);
    case Method::kHeader:
      return Command('^').Field(CommandField(command, 1)).Bytes();
    case Method::kClock:
      return Command('Y').Bytes();
    default:
      return CountersQuestion();
  }
}

Words WordsOf(const Fields& fields) {
  return {WordOf(fields[0]), WordOf(fields[1])};
}

std::optional<std::int64_t> WholeNumber(std::string_view field) {
  constexpr std::size_t kMostDigits = 17;
  const bool digits = field.find_first_not_of("0123456789") == std::string_view::npos;
  if (field.empty() || field.size() > kMostDigits || !digits) return std::nullopt;
  std::int64_t number = 0;
  for (const char digit : field) number = number * 10 + (digit - '0');
  return number;
}

std::optional<Counters> ReadCounters(const Fields& answer, std::string_view model) {
  if (model == kModelOfOtherCounters) return std::nullopt;
  Counters counters;
  for (std::size_t i = 0; i < counters.size(); ++i) {
    counters[i] = WholeNumber(answer[i + 2]);
    if (!counters[i]) return std::nullopt;
  }
  return counters;
}

std::optional<std::size_t> CounterOf(char kind, char letter) {
  const auto* const row =
      std::find_if(kCounterRows.begin(), kCounterRows.end(), [&](const CounterRow& candidate) {
        return candidate.letter == letter && candidate.kinds.find(kind) != std::string_view::npos;
      });
  if (row == kCounterRows.end()) return std::nullopt;
  return row->place;
}

std::optional<std::size_t> CounterOfClosing(std::string_view command) {
  if (command.starts_with('E')) return kTickets;
  if (command.starts_with('J')) return kNonFiscalToday;
  return CounterOf(FirstLetter(CommandField(command, 1)), FirstLetter(CommandField(command, 2)));
}

std::optional<Subtotal> ReadSubtotal(const Fields& answer) {
  if ((WordsOf(answer).fiscal & fiscal_word::kRefusal) != 0) return std::nullopt;
  std::array<std::int64_t, 9> numbers{};
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const auto number = WholeNumber(answer[i + 2]);
    if (!number) return std::nullopt;
    numbers[i] = *number;
  }
  return Subtotal{.lines = numbers[0],
                  .total = numbers[2],
                  .iva = numbers[3],
                  .paid = numbers[4],
                  .internal_taxes = numbers[5],
                  .perceptions = numbers[6],
                  .net = numbers[7],
                  .left = numbers[8]};
}

std::optional<bool> DayIsEmpty(const Fields& answer) {
  constexpr std::size_t kFigures = 4;
  bool empty = true;
  for (std::size_t i = 0; i < kFigures; ++i) {
    const auto number = WholeNumber(answer[i + 2]);
    if (!number) return std::nullopt;
    empty = empty && *number == 0;
  }
  return empty;
}

}  // namespace kestra
