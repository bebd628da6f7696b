#pragma once

#include <string>
#include <string_view>

namespace impresora {

// The characters of a UTF-8 text; what is no UTF-8, or steers instead of showing, becomes U+FFFD.
std::u32string DecodeUtf8(std::string_view bytes);

std::string EncodeUtf8(std::u32string_view characters);

// The same text, fit to stand in any file that must be well-formed.
std::string CleanUtf8(std::string_view bytes);

}  // namespace impresora
