#pragma once

#include <string>
#include <string_view>

namespace kestra::golden {

// Bytes as a case file shows them: printable ones as they are, control bytes as tokens (<stx>,
// <1f>), windows-1252 letters as UTF-8.
std::string Visible(std::string_view bytes);

// The way back: tokens and UTF-8 letters to bytes. Throws std::invalid_argument for what is
// neither.
std::string FromVisible(std::string_view text);

}  // namespace kestra::golden
