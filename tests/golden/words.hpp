#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace kestra::golden {

// Cuts the text at each separator.
std::vector<std::string_view> Split(std::string_view text, std::string_view separator);

// Takes the first word off the text, and the blanks behind it.
std::string_view TakeWord(std::string_view& text);

// The words of a line; a word in double quotes keeps its blanks, its quotes and a letter before them.
std::vector<std::string_view> Words(std::string_view line);

// Whole text to number. Throws std::invalid_argument when it is none.
std::int32_t ToInteger(std::string_view text);
double ToNumber(std::string_view text);

// "23:59:58.5" to seconds since midnight.
double ToTimeOfDay(std::string_view text);

}  // namespace kestra::golden
