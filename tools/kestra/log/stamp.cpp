#include "log/stamp.hpp"

#include <algorithm>
#include <array>
#include <vector>

namespace kestra::tool {
namespace {

constexpr std::size_t kLongestStamp = 48;
constexpr std::string_view kBehind = "] -";
constexpr int kDay = 86'400;
constexpr int kHour = 3'600;
constexpr int kMinute = 60;

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsTime(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first != std::string_view::npos && IsDigit(text[first]) &&
         text.find_first_of(":.") != std::string_view::npos;
}

bool IsDate(std::string_view text) {
  return text.find_first_of("[]") == std::string_view::npos &&
         std::count_if(text.begin(), text.end(), IsDigit) >= 3;
}

// The date may have hyphens of its own, the time has none.
std::optional<Stamp> ReadStamp(std::string_view inside) {
  const std::size_t hyphen = inside.rfind('-');
  if (hyphen == std::string_view::npos) return std::nullopt;
  const auto date = inside.substr(0, hyphen);
  const auto time = inside.substr(hyphen + 1);
  if (!IsDate(date) || !IsTime(time)) return std::nullopt;
  return Stamp{std::string(date), std::string(time)};
}

struct Group {
  int value = 0;
  std::size_t digits = 0;
};

std::vector<Group> Numbers(std::string_view text) {
  constexpr std::size_t kMostDigits = 4;
  std::vector<Group> groups;
  bool inside = false;
  for (const char c : text) {
    if (!IsDigit(c)) {
      inside = false;
      continue;
    }
    if (!inside) groups.push_back({});
    inside = true;
    if (++groups.back().digits <= kMostDigits)
      groups.back().value = groups.back().value * 10 + (c - '0');
  }
  return groups;
}

bool IsReal(const Day& day) {
  constexpr std::array kLengths{31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return day.month >= 1 && day.month <= 12 && day.day >= 1 &&
         day.day <= kLengths.at(static_cast<std::size_t>(day.month) - 1);
}

int WholeYear(const Group& year) {
  return year.digits > 2 ? year.value : 2000 + year.value;
}

std::optional<Day> Real(Day day) {
  return IsReal(day) ? std::optional(day) : std::nullopt;
}

}  // namespace

std::optional<FoundStamp> FindStamp(std::string_view line, std::size_t from) {
  for (auto at = line.find('[', from); at != std::string_view::npos; at = line.find('[', at + 1)) {
    const auto end = line.substr(at, kLongestStamp).find(kBehind);
    if (end == std::string_view::npos) continue;
    if (auto stamp = ReadStamp(line.substr(at + 1, end - 1)))
      return FoundStamp{at, end + 1, std::move(*stamp)};
  }
  return std::nullopt;
}

std::optional<Day> ReadDay(std::string_view date, DateOrder order) {
  const auto groups = Numbers(date);
  if (groups.size() != 3) return std::nullopt;
  if (groups[0].digits > 2) return Real({groups[0].value, groups[1].value, groups[2].value});
  const bool day_first = order == DateOrder::kDayFirst;
  return Real(
      {WholeYear(groups[2]), groups[day_first ? 1 : 0].value, groups[day_first ? 0 : 1].value});
}

std::optional<DateOrder> OrderOf(std::string_view date) {
  const bool day_first = ReadDay(date, DateOrder::kDayFirst).has_value();
  const bool month_first = ReadDay(date, DateOrder::kMonthFirst).has_value();
  if (day_first == month_first) return std::nullopt;
  return day_first ? DateOrder::kDayFirst : DateOrder::kMonthFirst;
}

std::optional<int> ReadSeconds(std::string_view time) {
  const auto groups = Numbers(time);
  if (groups.size() < 2) return std::nullopt;
  const bool afternoon = time.find_first_of("pP") != std::string_view::npos;
  const bool morning = time.find_first_of("aA") != std::string_view::npos;
  int hour = groups[0].value;
  if (afternoon && hour < 12) hour += 12;
  if (morning && hour == 12) hour = 0;
  const int second = groups.size() > 2 ? groups[2].value : 0;
  if (hour > 23 || groups[1].value > 59 || second > 59) return std::nullopt;
  return hour * kHour + groups[1].value * kMinute + second;
}

std::optional<int> SecondsBetween(const Stamp& from, const Stamp& to) {
  const auto start = ReadSeconds(from.time);
  const auto end = ReadSeconds(to.time);
  if (!start || !end) return std::nullopt;
  return *end >= *start ? *end - *start : *end - *start + kDay;
}

}  // namespace kestra::tool
