// Lines as the console of the system edits and remembers them. At the tabulator it hands us what is typed so far, as it
// does to its own command interpreter.
#include <windows.h>

#include <array>
#include <iostream>
#include <optional>
#include <string>

#include "platform/windows/text.hpp"
#include "prompt/plain_line.hpp"
#include "prompt/typed_line.hpp"

namespace kestra::tool {
namespace {

constexpr wchar_t kTabulator = L'\t';
constexpr wchar_t kEndOfInput = L'\x1A';

HANDLE Keyboard() {
  return ::GetStdHandle(STD_INPUT_HANDLE);
}

bool IsConsole(HANDLE handle) {
  DWORD mode = 0;
  return ::GetConsoleMode(handle, &mode) != 0;
}

// What is typed behind those letters, and they too; nothing when there is no more.
std::optional<std::wstring> TypedBehind(const std::wstring& begun) {
  std::array<wchar_t, 4096> letters{};
  const auto before = begun.copy(letters.data(), letters.size() / 2);
  CONSOLE_READCONSOLE_CONTROL control{.nLength = sizeof control,
                                      .nInitialChars = static_cast<ULONG>(before),
                                      .dwCtrlWakeupMask = 1U << kTabulator,
                                      .dwControlKeyState = 0};
  DWORD count = 0;
  const bool read = ::ReadConsoleW(Keyboard(), letters.data(), static_cast<DWORD>(letters.size()),
                                   &count, &control) != 0;
  if (!read || count == 0 || letters.front() == kEndOfInput) return std::nullopt;
  return std::wstring(letters.data(), count);
}

class ConsoleLines : public LineEditor {
 public:
  std::optional<std::string> Read(const std::string& prompt) override {
    std::string line;
    std::cout << prompt << std::flush;
    while (true) {
      const auto typed = TypedBehind(WideFromUtf8(line));
      if (!typed) return std::nullopt;
      const auto end = typed->find_first_of(L"\t\r\n");
      line = Utf8FromWide(typed->substr(0, end));
      if (end == std::wstring::npos || (*typed)[end] != kTabulator) return line;
      const auto grown = Completed(line);
      std::cout << "\r" << grown.choices << prompt << grown.line << std::flush;
      line = grown.line;
    }
  }
};

}  // namespace

std::unique_ptr<LineEditor> MakeLineEditor() {
  const bool terminal = IsConsole(Keyboard()) && IsConsole(::GetStdHandle(STD_OUTPUT_HANDLE));
  if (terminal) return std::make_unique<ConsoleLines>();
  return std::make_unique<PlainLines>();
}

}  // namespace kestra::tool
