#include "system.hpp"

#include <windows.h>

#include <io.h>
#include <shellapi.h>

#include "platform/windows/files.hpp"
#include "platform/windows/text.hpp"

namespace kestra::tool {

std::vector<std::string> ProgramArguments(int, char**) {
  ::SetConsoleOutputCP(CP_UTF8);
  int count = 0;
  LPWSTR* const words = ::CommandLineToArgvW(::GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(Utf8FromWide(words[i]));
  ::LocalFree(words);
  return arguments;
}

bool EnterFolder(const std::string& folder) {
  return ::SetCurrentDirectoryW(WideFromUtf8(folder).c_str()) != 0;
}

std::string CurrentFolder() {
  std::wstring path(::GetCurrentDirectoryW(0, nullptr), L'\0');
  path.resize(::GetCurrentDirectoryW(static_cast<DWORD>(path.size()), path.data()));
  return Utf8FromWide(path);
}

bool OutputIsTerminal() {
  return ::_isatty(1) != 0;
}

std::string ReadSetting(std::string_view key) {
  return WindowsProfile().Read("Epson_Fiscal", key, ".\\Fiscal.ini");
}

}  // namespace kestra::tool
