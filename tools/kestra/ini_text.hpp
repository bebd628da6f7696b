#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestra::tool {

// A line of the library's section that gives a key its value; windows-1252, without blanks around and quotes.
struct IniLine {
  std::size_t number = 0;  // in the file, from 1
  std::string key;
  std::string value;
};

struct IniText {
  bool has_section = false;
  std::vector<IniLine> lines;  // of the first section of that name
};

// All that stands there, also what the library does not ask for.
IniText ReadIniText(std::string_view text);

// The text with that value for the key, in the place of the one that it has or else at the section's end; nothing
// when there is no section.
std::optional<std::string> WithKey(std::string_view text, std::string_view key,
                                   std::string_view value);

}  // namespace kestra::tool
