#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace kestra {

// Behind a journal's name when it is kept aside on that day ("2026-11-21"): "-20261121", or
// "-20261121-2" and on when that is taken.
std::string FreeSuffix(std::string_view day, std::span<const std::string> taken);

// Whether a suffix is of a day more than `days` before that one. One that is no day's is not.
bool IsOutdated(std::string_view suffix, std::string_view day, std::int32_t days);

}  // namespace kestra
