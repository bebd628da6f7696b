#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kestra {

// Reads exactly `length` bytes of the host; zero bytes inside count like any other. A null pointer and
// memory that is not there read as blanks.
std::string LeerCadena(const void* pointer, std::int32_t length);

// Reads through to the zero that ends the text; null is the empty text.
std::string ReadTerminatedText(const char* pointer);

// Copies into the host's buffer. The count is that of the trimmed text (at most `size`), but the
// bytes are taken from the text itself.
std::int32_t DevolverCadena(void* pointer, std::string_view text, std::int32_t size);

// Gives the host a text: at most `size` bytes of it, and a zero behind them where there is room for it.
// The length of the whole text.
std::int32_t HandOver(void* pointer, std::string_view text, std::int32_t size);

}  // namespace kestra
