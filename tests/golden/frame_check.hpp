#pragma once

#include <string>
#include <string_view>

namespace kestra::golden {

// The sum of all bytes as four hexadecimal digits. Written apart from the driver's, so that a
// mistake in one of them shows.
std::string Checksum(std::string_view bytes);

// The sum of a journal's line (CRC-32) as eight hexadecimal digits; written apart, too.
std::string JournalSum(std::string_view line);

// True when the bytes are one whole frame: start, sequence 32 to 70, a command, end, right
// checksum.
bool IsFrame(std::string_view bytes);

}  // namespace kestra::golden
