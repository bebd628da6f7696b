#pragma once

#include <string>
#include <string_view>

namespace kestra::golden {

// Bytes as a case file shows them: printable ones as they are, control bytes as tokens (<stx>,
// <1f>), windows-1252 letters as UTF-8.
std::string Visible(std::string_view bytes);

enum class Letters { kAnsi, kUtf8 };

// The way back: tokens and letters to bytes of windows-1252, or letters to themselves. Throws
// std::invalid_argument for what is neither.
std::string FromVisible(std::string_view text, Letters letters = Letters::kAnsi);

}  // namespace kestra::golden
