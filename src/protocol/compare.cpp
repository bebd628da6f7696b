#include <algorithm>
#include <cstdlib>
#include <optional>

#include "fields/text_field.hpp"
#include "protocol/amounts.hpp"
#include "protocol/ledger.hpp"
#include "state/library.hpp"

namespace kestra {
namespace {

// The clock may have been looked at so much earlier or later than it was set.
constexpr double kClockSlack = 2.0;
// So long the command may have been under way.
constexpr double kClockDelay = 10.0;
constexpr std::int64_t kSecondsPerDay = 86'400;

struct Case {
  const Ledger& before;
  std::string_view command;
  const State& digits;
  const Books& books;
};

Finding Either(bool done, bool not_done) {
  if (done == not_done) return Finding::kDisagree;
  return done ? Finding::kDone : Finding::kNotDone;
}

// A sum that the command makes grow by so much.
Finding Grown(std::optional<std::int64_t> before, std::optional<std::int64_t> by,
              std::int64_t now) {
  if (!before || !by) return Finding::kAbsent;
  return Either(now == *before + *by, now == *before);
}

std::optional<std::int64_t> Cents(const Case& c) {
  Ledger sums;
  sums.paid = sums.perceptions = 0;
  Enter(sums, c.command, c.digits);
  return c.command.starts_with('f') ? sums.perceptions : sums.paid;
}

Finding Opening(const Case& c) {
  if (!c.books.open) return Finding::kNotDone;
  if (c.before.open) return *c.before.open ? Finding::kNotDone : Finding::kDone;
  // Nothing was heard of the printer before: a document that has lines already is another one, and one
  // without a subtotal may be.
  const bool fiscal = !c.command.starts_with('H');
  if (!c.books.subtotal) return fiscal ? Finding::kAbsent : Finding::kDone;
  return c.books.subtotal->lines == 0 ? Finding::kDone : Finding::kNotDone;
}

Finding OfLine(const Case& c) {
  if (!c.books.subtotal) return Finding::kAbsent;
  return Grown(c.before.lines, 1, c.books.subtotal->lines);
}

Finding Correction(const Case& c) {
  if (!c.books.subtotal || !c.before.total) return Finding::kAbsent;
  Ledger after = c.before;
  Enter(after, c.command, c.digits);
  if (!after.total) return Finding::kAbsent;
  const auto near = [&](const Amount& amount) {
    return std::llabs(c.books.subtotal->total - amount.cents) <= amount.slack;
  };
  return Either(near(*after.total), near(*c.before.total));
}

Finding Payment(const Case& c) {
  if (!c.books.subtotal) return Finding::kAbsent;
  return Grown(c.before.paid, Cents(c), c.books.subtotal->paid);
}

Finding Perception(const Case& c) {
  if (!c.books.subtotal) return Finding::kAbsent;
  return Grown(c.before.perceptions, Cents(c), c.books.subtotal->perceptions);
}

// How a counter that was known before has moved; nothing when there is none to compare.
std::optional<std::int64_t> Moved(const Case& c, std::size_t place) {
  const auto& before = c.before.counters.at(place);
  if (!before || !c.books.counters) return std::nullopt;
  return c.books.counters->at(place).value_or(0) - *before;
}

Finding Ended(const Case& c, std::optional<std::size_t> counter, std::int64_t cancelled) {
  if (c.books.open) return Finding::kNotDone;
  if (!c.before.open) return Finding::kAbsent;
  if (!*c.before.open) return Finding::kNotDone;
  if (Moved(c, kCancelledToday).value_or(cancelled) != cancelled) return Finding::kDisagree;
  if (counter && Moved(c, *counter).value_or(1) != 1) return Finding::kDisagree;
  return Finding::kDone;
}

// What is cancelled spends its number too: the count of these alone tells which it was. Where nobody knew it,
// none today says as much. What is not fiscal is never cancelled.
Finding Closing(const Case& c) {
  const auto ended = Ended(c, CounterOfClosing(c.command), 0);
  if (ended != Finding::kDone || c.command.starts_with('J')) return ended;
  const bool none = c.books.counters && c.books.counters->at(kCancelledToday) == 0;
  return none || Moved(c, kCancelledToday) ? Finding::kDone : Finding::kAbsent;
}

Finding Day(const Case& c) {
  if (const auto moved = Moved(c, kDailyClosings)) return Either(*moved == 1, *moved == 0);
  if (!c.books.counters || !c.books.day_empty) return Finding::kAbsent;
  const auto& counters = *c.books.counters;
  const bool empty =
      *c.books.day_empty && counters[kCancelledToday] == 0 && counters[kNonFiscalToday] == 0;
  if (!empty) return Finding::kNotDone;
  return c.before.something_today ? Finding::kDone : Finding::kAbsent;
}

std::string_view WithoutEnd(std::string_view text) {
  if (text == std::string_view(&kEmptyField, 1)) return {};
  return text.substr(0,
                     text.find_last_not_of(' ') + 1);  // blanks alone leave nothing: npos + 1 is 0
}

Finding Header(const Case& c) {
  if (c.books.refused) return Finding::kAbsent;
  const bool equal = WithoutEnd(CommandField(c.command, 2)) == WithoutEnd(c.books.text);
  return equal ? Finding::kDone : Finding::kNotDone;
}

// Days are counted as if all months had 31: two of them that follow each other may seem further apart, and
// the clock is then set once more.
std::optional<std::int64_t> SecondsOf(std::string_view date, std::string_view time) {
  const auto day = WholeNumber(date);
  const auto moment = WholeNumber(time);
  if (!day || !moment) return std::nullopt;
  const auto days = (*day / 10'000 * 12 + *day / 100 % 100) * 31 + *day % 100;
  return days * kSecondsPerDay + *moment / 10'000 * 3600 + *moment / 100 % 100 * 60 + *moment % 100;
}

// A clock that was right before shows the same: it is where it was to be, and setting it again would change
// nothing.
Finding ClockSet(const Case& c) {
  const auto wanted = SecondsOf(CommandField(c.command, 1), CommandField(c.command, 2));
  const auto shown = SecondsOf(c.books.date, c.books.time);
  if (!wanted || !shown || c.books.passed < 0) return Finding::kAbsent;
  const auto late = static_cast<double>(*shown - *wanted);
  const auto least = std::max(c.books.passed - kClockDelay, 0.0) - kClockSlack;
  const bool equal = late >= least && late <= c.books.passed + kClockSlack;
  return equal ? Finding::kDone : Finding::kNotDone;
}

// Between two sheets the document is open and has no subtotal.
Finding Sheet(const Case& c, bool between) {
  if (!c.books.open) return Finding::kDisagree;
  if (!c.books.refused && !c.books.subtotal) return Finding::kAbsent;
  return c.books.refused == between ? Finding::kDone : Finding::kNotDone;
}

}  // namespace

Finding Compare(const Ledger& before, std::string_view command, const State& digits,
                const Books& books) {
  const Case c{before, command, digits, books};
  switch (MethodOf(command).method) {
    case Method::kOpening:
      return Opening(c);
    case Method::kLine:
      return OfLine(c);
    case Method::kCorrection:
      return Correction(c);
    case Method::kPayment:
      return Payment(c);
    case Method::kPerception:
      return Perception(c);
    case Method::kCancel:
      return Ended(c, std::nullopt, 1);
    case Method::kClosing:
      return Closing(c);
    case Method::kDay:
      return Day(c);
    case Method::kHeader:
      return Header(c);
    case Method::kClock:
      return ClockSet(c);
    case Method::kSheetEnds:
      return Sheet(c, true);
    case Method::kSheetBegins:
      return Sheet(c, false);
    default:
      return Finding::kAbsent;
  }
}

}  // namespace kestra
