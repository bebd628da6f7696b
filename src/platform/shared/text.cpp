#include "platform/shared/text.hpp"

#include <algorithm>
#include <cstddef>

#include "base/code_page.hpp"
#include "base/utf8.hpp"

namespace kestra {

std::size_t Utf8Length(std::string_view text) {
  return std::max<std::size_t>(Utf8Front(text), 1);
}

std::string AnsiFromUtf8(std::string_view utf8) {
  std::string ansi;
  ansi.reserve(utf8.size());
  while (!utf8.empty()) {
    const std::string_view character = utf8.substr(0, Utf8Length(utf8));
    const bool stray = character.size() == 1 && static_cast<unsigned char>(character[0]) >= 0x80;
    ansi += stray ? '?' : ByteOf(Utf8Character(character)).value_or('?');
    utf8.remove_prefix(character.size());
  }
  return ansi;
}

}  // namespace kestra
