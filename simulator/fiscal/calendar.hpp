#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace impresora {

// Moments are seconds of local civil time since 1970; the printer knows no time zones.
inline constexpr std::int64_t kSecondsPerDay = 86'400;

// YYMMDD and HHMMSS, the printer's own form; years run from 2000 to 2099.
std::string DateDigits(std::int64_t moment);
std::string TimeDigits(std::int64_t moment);

// DD/MM/YYYY and HH:MM:SS, as printed.
std::string PrintedDate(std::int64_t moment);
std::string PrintedTime(std::int64_t moment);

// Midnight of that day; nothing when there is no such day.
std::optional<std::int64_t> ParseDate(std::string_view yymmdd);
// Seconds since midnight.
std::optional<std::int64_t> ParseTime(std::string_view hhmmss);

}  // namespace impresora
