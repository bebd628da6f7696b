#include "fiscal/calendar.hpp"

#include <chrono>

#include "fiscal/amounts.hpp"

namespace impresora {
namespace {

struct TriplePart {
  int first, second, third;
};

std::optional<TriplePart> ParsePairs(std::string_view digits) {
  if (digits.size() != 6) return std::nullopt;
  if (digits.find_first_not_of("0123456789") != std::string_view::npos) return std::nullopt;
  const auto pair = [digits](std::size_t at) {
    return (digits[at] - '0') * 10 + (digits[at + 1] - '0');
  };
  return TriplePart{pair(0), pair(2), pair(4)};
}

std::chrono::year_month_day DayOf(std::int64_t moment) {
  const std::chrono::sys_seconds point{std::chrono::seconds{moment}};
  return std::chrono::floor<std::chrono::days>(point);
}

std::string Two(std::int64_t value) {
  return Padded(value, 2);
}

std::int64_t SecondsOfDay(std::int64_t moment) {
  return ((moment % kSecondsPerDay) + kSecondsPerDay) % kSecondsPerDay;
}

std::string Clock(std::int64_t moment, std::string_view separator) {
  const std::int64_t seconds = SecondsOfDay(moment);
  std::string text = Two(seconds / 3600);
  text.append(separator).append(Two(seconds / 60 % 60));
  return text.append(separator).append(Two(seconds % 60));
}

}  // namespace

std::string DateDigits(std::int64_t moment) {
  const auto day = DayOf(moment);
  return Two(int{day.year()} % 100) + Two(unsigned{day.month()}) + Two(unsigned{day.day()});
}

std::string TimeDigits(std::int64_t moment) {
  return Clock(moment, "");
}

std::string PrintedDate(std::int64_t moment) {
  const auto day = DayOf(moment);
  return Two(unsigned{day.day()}) + "/" + Two(unsigned{day.month()}) + "/" +
         Padded(int{day.year()}, 4);
}

std::string PrintedTime(std::int64_t moment) {
  return Clock(moment, ":");
}

std::optional<std::int64_t> ParseDate(std::string_view yymmdd) {
  const auto parts = ParsePairs(yymmdd);
  if (!parts) return std::nullopt;
  const std::chrono::year_month_day day{std::chrono::year{2000 + parts->first},
                                        std::chrono::month{static_cast<unsigned>(parts->second)},
                                        std::chrono::day{static_cast<unsigned>(parts->third)}};
  if (!day.ok()) return std::nullopt;
  const std::chrono::sys_days midnight{day};
  return std::int64_t{midnight.time_since_epoch().count()} * kSecondsPerDay;
}

std::optional<std::int64_t> ParseTime(std::string_view hhmmss) {
  const auto parts = ParsePairs(hhmmss);
  if (!parts || parts->first > 23 || parts->second > 59 || parts->third > 59) return std::nullopt;
  return std::int64_t{parts->first} * 3600 + std::int64_t{parts->second} * 60 + parts->third;
}

}  // namespace impresora
