#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kestra {

// Reads exactly `length` bytes of the host; zero bytes inside count like any other. A null pointer
// reads as blanks.
std::string LeerCadena(const void* pointer, std::int32_t length);

// Copies into the host's buffer. The count is that of the trimmed text (at most `size`), but the
// bytes are taken from the text itself.
std::int32_t DevolverCadena(void* pointer, std::string_view text, std::int32_t size);

}  // namespace kestra
