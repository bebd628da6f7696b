#include "platform/windows/text.hpp"

#include <windows.h>

#include "platform/shared/text.hpp"

namespace kestra {

std::wstring WideFromUtf8(std::string_view utf8) {
  const int size = static_cast<int>(utf8.size());
  std::wstring wide(utf8.size(), L'\0');
  const int length = ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, wide.data(), size);
  wide.resize(static_cast<std::size_t>(length));
  return wide;
}

std::string Utf8FromWide(std::wstring_view wide) {
  constexpr std::size_t kLongestCharacter = 3;  // bytes of UTF-8 that one unit becomes at most
  const int units = static_cast<int>(wide.size());
  std::string utf8(wide.size() * kLongestCharacter, '\0');
  const int length = ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), units, utf8.data(),
                                           static_cast<int>(utf8.size()), nullptr, nullptr);
  utf8.resize(static_cast<std::size_t>(length));
  return utf8;
}

std::wstring WideFromAnsi(std::string_view ansi) {
  return WideFromUtf8(Utf8FromAnsi(ansi));
}

std::string AnsiFromWide(std::wstring_view wide) {
  return AnsiFromUtf8(Utf8FromWide(wide));
}

}  // namespace kestra
