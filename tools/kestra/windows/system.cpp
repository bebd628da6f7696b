#include "this_system.hpp"

#include <windows.h>

#include <io.h>
#include <shellapi.h>

#include <array>
#include <iostream>

#include "base/code_page.hpp"
#include "platform/seam/platform.hpp"
#include "platform/shared/text.hpp"
#include "platform/windows/files.hpp"
#include "platform/windows/handle.hpp"
#include "platform/windows/pipe_port.hpp"
#include "platform/windows/text.hpp"
#include "windows/console_output.hpp"

namespace kestra::tool {
namespace {

constexpr std::string_view kSettingsFile = "Fiscal.ini";

bool Exists(const std::string& file) {
  return ::GetFileAttributesW(WideFromUtf8(file).c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::string Variable(const wchar_t* name) {
  std::wstring value(::GetEnvironmentVariableW(name, nullptr, 0), L'\0');
  value.resize(::GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
  return Utf8FromWide(value);
}

// Where the system keeps what an old program without permission has written to that folder: the same program
// reads it from there.
std::string ShadowOf(const std::string& folder) {
  const auto local = Variable(L"LOCALAPPDATA");
  if (local.empty() || folder.size() < 3 || folder[1] != ':') return {};
  return local + "\\VirtualStore" + folder.substr(2);
}

bool WriteAt(const std::wstring& file, std::string_view bytes, DWORD how) {
  const Handle handle(
      ::CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, how, FILE_ATTRIBUTE_NORMAL, nullptr));
  DWORD written = 0;
  const bool done = handle && ::WriteFile(handle.Get(), bytes.data(),
                                          static_cast<DWORD>(bytes.size()), &written, nullptr) != 0;
  return done && written == bytes.size() && ::FlushFileBuffers(handle.Get()) != 0;
}

}  // namespace

std::vector<std::string> ProgramArguments(int, char**) {
  static const ConsoleOutput output(std::cout, STD_OUTPUT_HANDLE);
  static const ConsoleOutput errors(std::cerr, STD_ERROR_HANDLE);
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

bool LeadsToPipe(const std::string& device) {
  return IsPipe(device);
}

bool OutputIsTerminal() {
  return ::_isatty(1) != 0;
}

std::string ReadSetting(std::string_view key) {
  return WindowsProfile().Read("Epson_Fiscal", key, ".\\Fiscal.ini");
}

std::string DeviceInstead() {
  return AnsiFromUtf8(Variable(WideFromAnsi(kDeviceVariable).c_str()));
}

std::vector<std::string> SettingsFiles() {
  std::vector<std::string> files;
  if (Exists(std::string(kSettingsFile))) files.emplace_back(kSettingsFile);
  const auto shadow = ShadowOf(CurrentFolder());
  const auto other = shadow + "\\" + std::string(kSettingsFile);
  if (!shadow.empty() && Exists(other)) files.push_back(other);
  return files;
}

std::string SettingsText() {
  constexpr std::string_view kWideMark = "\xFF\xFE";
  auto bytes = ReadFile(std::string(kSettingsFile)).value_or(std::string());
  if (std::string_view(bytes).substr(0, kWideMark.size()) != kWideMark) return bytes;
  std::wstring wide(bytes.size() / sizeof(wchar_t) - 1, L'\0');
  bytes.copy(reinterpret_cast<char*>(wide.data()), wide.size() * sizeof(wchar_t), kWideMark.size());
  return AnsiFromWide(wide);
}

std::optional<std::string> ReadFile(const std::string& file) {
  const Handle handle(::CreateFileW(WideFromUtf8(file).c_str(), GENERIC_READ,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!handle) return std::nullopt;
  std::string text;
  std::array<char, 65536> bytes{};
  DWORD count = 0;
  while (::ReadFile(handle.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count,
                    nullptr) != 0) {
    if (count == 0) return text;
    text.append(bytes.data(), count);
  }
  return std::nullopt;
}

bool WriteFile(const std::string& file, std::string_view bytes) {
  // A device or a folder of that name stays what it is.
  if (KindOfFile(file) == FileKind::kOther) return false;
  const auto path = WideFromUtf8(file);
  const auto fresh = path + L".kestra";
  const bool done = WriteAt(fresh, bytes, CREATE_ALWAYS) &&
                    ::MoveFileExW(fresh.c_str(), path.c_str(),
                                  MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
  if (!done) ::DeleteFileW(fresh.c_str());
  return done;
}

FileKind KindOfFile(const std::string& file) {
  const DWORD about = ::GetFileAttributesW(WideFromUtf8(file).c_str());
  if (about == INVALID_FILE_ATTRIBUTES) return FileKind::kNone;
  return (about & FILE_ATTRIBUTE_DIRECTORY) == 0 ? FileKind::kFile : FileKind::kOther;
}

Writing TryWriting(const std::string& folder) {
  const auto file = WideFromUtf8((folder.empty() ? "." : folder) + "\\kestra-" +
                                 std::to_string(::GetCurrentProcessId()) + ".tmp");
  const bool done = WriteAt(file, std::string(4096, ' '), CREATE_NEW);
  const DWORD error = done ? DWORD{ERROR_SUCCESS} : ::GetLastError();
  ::DeleteFileW(file.c_str());
  if (done) return Writing::kDone;
  const bool full = error == ERROR_DISK_FULL || error == ERROR_HANDLE_DISK_FULL;
  return full ? Writing::kNoRoom : Writing::kForbidden;
}

std::optional<std::uint64_t> FreeBytes(const std::string& folder) {
  ULARGE_INTEGER free = {};
  const auto path = WideFromUtf8(folder.empty() ? "." : folder);
  if (::GetDiskFreeSpaceExW(path.c_str(), &free, nullptr, nullptr) == 0) return std::nullopt;
  return free.QuadPart;
}

}  // namespace kestra::tool
