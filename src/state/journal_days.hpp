#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace kestra {

// A record's moment, "2026-11-21 10:30:00", of that day and so many seconds after midnight. Read again by whoever
// comes later, wherever the system writes its times in another form.
std::string MomentOf(std::string_view day, double second_of_day);

// Seconds from one moment to another; nothing when either is none.
std::optional<double> SecondsBetween(std::string_view from, std::string_view to);

// Behind a journal's name when it is kept aside on that day ("2026-11-21"): "-20261121", or
// "-20261121-2" and on when that is taken.
std::string FreeSuffix(std::string_view day, std::span<const std::string> taken);

// Whether a suffix is of a day more than `days` before that one. One that is no day's is not.
bool IsOutdated(std::string_view suffix, std::string_view day, std::int32_t days);

}  // namespace kestra
