#include "windows/console_output.hpp"

#include "platform/windows/text.hpp"

namespace kestra::tool {

ConsoleOutput::ConsoleOutput(std::ostream& stream, DWORD which)
    : stream_(stream), console_(::GetStdHandle(which)) {
  DWORD mode = 0;
  if (::GetConsoleMode(console_, &mode) != 0) before_ = stream_.rdbuf(this);
}

ConsoleOutput::~ConsoleOutput() {
  if (before_ == nullptr) return;
  Show(waiting_.size());
  stream_.rdbuf(before_);
}

// Long tables are shown while they are written, in whole lines.
std::streamsize ConsoleOutput::xsputn(const char* bytes, std::streamsize count) {
  constexpr std::size_t kMuch = 4096;
  waiting_.append(bytes, static_cast<std::size_t>(count));
  if (waiting_.size() > kMuch) Show(waiting_.rfind('\n') + 1);
  return count;
}

ConsoleOutput::int_type ConsoleOutput::overflow(int_type byte) {
  if (byte == traits_type::eof()) return traits_type::not_eof(byte);
  const char letter = traits_type::to_char_type(byte);
  xsputn(&letter, 1);
  return byte;
}

int ConsoleOutput::sync() {
  Show(waiting_.size());
  return 0;
}

void ConsoleOutput::Show(std::size_t count) {
  const auto wide = WideFromUtf8(waiting_.substr(0, count));
  waiting_.erase(0, count);
  DWORD shown = 0;
  ::WriteConsoleW(console_, wide.data(), static_cast<DWORD>(wide.size()), &shown, nullptr);
}

}  // namespace kestra::tool
