#include "log/stamp.hpp"

#include <gtest/gtest.h>

#include <optional>
#include <string_view>

namespace kestra::tool {
namespace {

struct StampRow {
  std::string_view line;
  std::string_view date;  // empty: no stamp
  std::string_view time;
};

// As the systems of thirty years have written them.
constexpr StampRow kStamps[] = {
    {"[16/11/2026-02:25:15] - Comando : EP_CortaPapel()", "16/11/2026", "02:25:15"},
    {"[11/16/2026-2:25:15 AM] - Comando : X", "11/16/2026", "2:25:15 AM"},
    {"[16/11/98-02:25:15 p.m.] - Comando : X", "16/11/98", "02:25:15 p.m."},
    {"[2026-11-16-02:25:15] - Comando : X", "2026-11-16", "02:25:15"},
    {"[16.11.2026-2.25.15] - Comando : X", "16.11.2026", "2.25.15"},
    {"basura[16/11/2026-02:25:15] - Comando : X", "16/11/2026", "02:25:15"},
    {"[x][16/11/2026-02:25:15] - X", "16/11/2026", "02:25:15"},
    {"", "", ""},
    {"[]", "", ""},
    {"[16/11/2026-02:25:15]", "", ""},
    {"[16/11/2026 02:25:15] - X", "", ""},
    {"[un texto-cualquiera] - X", "", ""},
    {"[16/11/2026-02:25:15", "", ""},
};

TEST(Stamp, IsFoundInWhateverFormTheSystemHas) {
  for (const StampRow& row : kStamps) {
    const auto found = FindStamp(row.line);
    ASSERT_EQ(found.has_value(), !row.date.empty()) << row.line;
    if (!found) continue;
    EXPECT_EQ(found->stamp.date, row.date) << row.line;
    EXPECT_EQ(found->stamp.time, row.time) << row.line;
    EXPECT_EQ(row.line.substr(found->at + found->size, 3), " - ") << row.line;
  }
}

struct DayRow {
  std::string_view date;
  DateOrder order;
  std::optional<Day> day;
};

constexpr auto kDayFirst = DateOrder::kDayFirst;
constexpr auto kMonthFirst = DateOrder::kMonthFirst;

const DayRow kDays[] = {
    {"16/11/2026", kDayFirst, Day{2026, 11, 16}},
    {"11/16/2026", kMonthFirst, Day{2026, 11, 16}},
    {"2026-11-16", kMonthFirst, Day{2026, 11, 16}},
    {"03/04/26", kDayFirst, Day{2026, 4, 3}},
    {"03/04/26", kMonthFirst, Day{2026, 3, 4}},
    {"16/11/2026", kMonthFirst, std::nullopt},
    {"16/11", kDayFirst, std::nullopt},
    {"00/11/2026", kDayFirst, std::nullopt},
    {"32/01/2026", kDayFirst, std::nullopt},
    {"31/04/2026", kDayFirst, std::nullopt},
};

TEST(Stamp, DayIsReadInTheOrderOfTheSystem) {
  for (const DayRow& row : kDays) EXPECT_EQ(ReadDay(row.date, row.order), row.day) << row.date;
}

TEST(Stamp, ADateSaysItsOrderWhenItFitsOnlyOne) {
  EXPECT_EQ(OrderOf("16/11/2026"), DateOrder::kDayFirst);
  EXPECT_EQ(OrderOf("11/16/2026"), DateOrder::kMonthFirst);
  EXPECT_EQ(OrderOf("03/04/2026"), std::nullopt);
  EXPECT_EQ(OrderOf("2026-11-16"), std::nullopt);
}

struct TimeRow {
  std::string_view time;
  std::optional<int> seconds;
};

const TimeRow kTimes[] = {
    {"00:00:00", 0},
    {"02:25:15", 8'715},
    {"14:05", 50'700},
    {"2:05:09 p.m.", 50'709},
    {"12:00:01 a. m.", 1},
    {"12:30:00 PM", 45'000},
    {"23.59.59", 86'399},
    {"24:00:00", std::nullopt},
    {"10:60:00", std::nullopt},
    {"10:00:61", std::nullopt},
    {"10", std::nullopt},
    {"", std::nullopt},
};

TEST(Stamp, SecondsOfTheDay) {
  for (const TimeRow& row : kTimes) EXPECT_EQ(ReadSeconds(row.time), row.seconds) << row.time;
}

TEST(Stamp, MidnightBetweenTwoLines) {
  EXPECT_EQ(SecondsBetween({"", "10:00:00"}, {"", "10:00:05"}), 5);
  EXPECT_EQ(SecondsBetween({"", "23:59:58"}, {"", "00:00:03"}), 5);
  EXPECT_EQ(SecondsBetween({"", "ayer"}, {"", "00:00:03"}), std::nullopt);
}

}  // namespace
}  // namespace kestra::tool
