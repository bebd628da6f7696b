#pragma once

#include <string>
#include <string_view>

namespace kestra {

// The value of a key in the text of a profile file, read as the profile reader of Windows reads it:
// - names count without regard to case; the first section of the name and the first key in it
// serve;
// - blanks around names and values are dropped, then one pair of quotes around the value;
// - lines that begin with ';' are comments, a ';' behind a value belongs to the value;
// - at most kLongestProfileValue characters; empty when there is no such key.
std::string FindInProfile(std::string_view text, std::string_view section, std::string_view key);

}  // namespace kestra
