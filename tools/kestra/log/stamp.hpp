#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace kestra::tool {

// When a line of the log was written, in the form that the till's system has for dates and times.
struct Stamp {
  std::string date;
  std::string time;

  bool operator==(const Stamp&) const = default;
};

// A stamp within a line, from its bracket to the one that closes it.
struct FoundStamp {
  std::size_t at = 0;
  std::size_t size = 0;
  Stamp stamp;
};

// The first stamp from `from` on that a line of the log may begin with.
std::optional<FoundStamp> FindStamp(std::string_view line, std::size_t from = 0);

// A short date says neither which system wrote it nor which number is the month.
enum class DateOrder { kDayFirst, kMonthFirst };

struct Day {
  int year = 0;
  int month = 0;
  int day = 0;

  bool operator==(const Day&) const = default;
};

// "16/11/2026", "2026-11-16", "16.11.26"; a year that stands first says the order by itself.
std::optional<Day> ReadDay(std::string_view date, DateOrder order = DateOrder::kDayFirst);

// What the date can only be; nothing when it fits both.
std::optional<DateOrder> OrderOf(std::string_view date);

// Of the day: "14:05:09", "2:05:09 p.m."
std::optional<int> ReadSeconds(std::string_view time);

// From one to the next, midnight between them or not.
std::optional<int> SecondsBetween(const Stamp& from, const Stamp& to);

}  // namespace kestra::tool
