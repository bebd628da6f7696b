#pragma once

#include <filesystem>
#include <iosfwd>
#include <optional>
#include <string>

#include "trace/recording.hpp"

namespace impresora {

struct CompareSettings {
  bool clock = false;  // whether dates and times of the printer's clock must agree too
};

// Two sessions command by command and answer by answer; sequence numbers and times of the line do
// not count. The first difference in words, or nothing.
std::optional<std::string> Compare(const Recording& a, const Recording& b,
                                   CompareSettings settings);

inline constexpr int kSame = 0;
inline constexpr int kDifferent = 1;
inline constexpr int kUnreadable = 2;

// The same for files, as a program ends: says what it found on `out`, what it could not read on
// `errors`.
int CompareFiles(const std::filesystem::path& a, const std::filesystem::path& b,
                 CompareSettings settings, std::ostream& out, std::ostream& errors);

}  // namespace impresora
