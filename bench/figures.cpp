#include "figures.hpp"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <vector>

#include "median.hpp"

namespace kestra::bench {
namespace {

enum class Relation { kAtLeast, kAtMost, kEqual, kTold };

struct Row {
  const char* name;
  int decimals;
  Relation relation;
  double target;
};

// In the order of Figure.
constexpr std::array kRows = {
    Row{"(a) exchanges/s, library : bare loop", 3, Relation::kAtLeast, 0.90},
    Row{"(b) share of a core, printer busy 5 s", 4, Relation::kAtMost, 0.01},
    Row{"(c) ticket at 9600 baud : wire time", 4, Relation::kAtMost, 1.03},
    Row{"(d) heap in use, growth in bytes", 0, Relation::kEqual, 0},
    Row{"(d) heap taken, growth in bytes", 0, Relation::kEqual, 0},
    Row{"(d) resident set, growth in bytes", 0, Relation::kEqual, 0},
    Row{"(e) exchanges/s, safe mode : base mode", 3, Relation::kAtLeast, 0.90},
    Row{"(f) journal, milliseconds a command", 3, Relation::kTold, 0},
    Row{"(f) two bare flushes, milliseconds", 3, Relation::kTold, 0},
};

std::array<std::vector<double>, kRows.size()> measurements;
bool anything_failed = false;

bool Met(const Row& row, double measured) {
  switch (row.relation) {
    case Relation::kAtLeast:
      return measured >= row.target;
    case Relation::kAtMost:
      return measured <= row.target;
    case Relation::kEqual:
    case Relation::kTold:
      break;
  }
  return measured == row.target;
}

const char* Sign(Relation relation) {
  if (relation == Relation::kEqual) return "=";
  return relation == Relation::kAtLeast ? ">=" : "<=";
}

std::string Number(double value, int decimals) {
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
  return text.data();
}

void PrintRow(const Row& row, const std::vector<double>& measured) {
  if (measured.empty()) return;
  const auto [least, most] = std::minmax_element(measured.begin(), measured.end());
  const double median = Median(measured);
  const std::string spread = Number(*least, row.decimals) + " .. " + Number(*most, row.decimals);
  if (row.relation == Relation::kTold) {
    std::printf("%-38s %10s   %s\n", row.name, Number(median, row.decimals).c_str(),
                spread.c_str());
    return;
  }
  std::printf("%-38s %10s   %-18s %2s %-6s  %s\n", row.name, Number(median, row.decimals).c_str(),
              measured.size() > 1 ? spread.c_str() : "", Sign(row.relation),
              Number(row.target, row.relation == Relation::kEqual ? 0 : 2).c_str(),
              Met(row, median) ? "met" : "NOT MET");
}

}  // namespace

void Note(Figure figure, double measured) {
  measurements[static_cast<std::size_t>(figure)].push_back(measured);
}

const char* Failed(const char* why) {
  anything_failed = true;
  return why;
}

bool AnythingFailed() {
  return anything_failed;
}

void PrintFigures() {
  std::printf("\n%-38s %10s   %-18s %s\n", "Figure", "median", "spread", "target");
  for (std::size_t i = 0; i < kRows.size(); ++i) PrintRow(kRows[i], measurements[i]);
}

}  // namespace kestra::bench
