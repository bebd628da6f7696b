#pragma once

#include <string>
#include <string_view>

namespace kestra {

// Windows-1252, as the library keeps its texts, to and from what windows show. The system's own code
// page plays no part in it.
std::wstring WideFromAnsi(std::string_view ansi);
std::string AnsiFromWide(std::wstring_view wide);

std::wstring WideFromUtf8(std::string_view utf8);
std::string Utf8FromWide(std::wstring_view wide);

}  // namespace kestra
