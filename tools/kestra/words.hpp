#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace kestra::tool {

// Characters of a UTF-8 text, which all take one column here.
std::size_t Columns(std::string_view text);

// With blanks behind it, up to so many columns.
std::string Padded(std::string_view text, std::size_t width);

// In lines of a terminal's width, with so many blanks before each but the first.
std::string Wrapped(std::string_view text, std::size_t indent);

std::string Joined(const std::vector<std::string>& parts, std::string_view between = ", ");

// "3 días 4 h", "26 h 5 min", "12 s", of a span in seconds.
std::string SpanInWords(double seconds);

// "0.012 s"
std::string SecondsInWords(double seconds);

bool SameWithoutCase(std::string_view a, std::string_view b);

}  // namespace kestra::tool
