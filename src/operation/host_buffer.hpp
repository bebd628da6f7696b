#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "state/text_settings.hpp"

namespace kestra {

// A text argument of the host's as `length` bytes of windows-1252, read and made ready for the printer as the
// settings say. A null pointer and memory that is not there read as blanks.
std::string LeerCadena(const TextSettings& settings, const void* pointer, std::int32_t length);

// Reads through to the zero that ends the text; null is the empty text.
std::string ReadTerminatedText(const TextSettings& settings, const char* pointer);

// Copies into the host's buffer; in all modes but the first a zero follows where there is room. The count is
// that of the trimmed text (at most `size`), but the bytes are taken from the text itself.
std::int32_t DevolverCadena(const TextSettings& settings, void* pointer, std::string_view text,
                            std::int32_t size);

// Gives the host a text: at most `size` bytes of it, and a zero behind them where there is room for it.
// The length of the whole text.
std::int32_t HandOver(const TextSettings& settings, void* pointer, std::string_view text,
                      std::int32_t size);

}  // namespace kestra
