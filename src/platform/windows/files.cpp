#include "platform/windows/files.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

#include "base/failure.hpp"
#include "platform/shared/profile_text.hpp"
#include "platform/windows/handle.hpp"
#include "platform/windows/text.hpp"

namespace kestra {

namespace {

constexpr DWORD kLargestProfile = DWORD{1} << 20;

// The whole file; empty when there is none or when it is larger than any that somebody wrote.
std::string BytesOf(std::string_view file) {
  const Handle profile(::CreateFileW(WideFromAnsi(file).c_str(), GENERIC_READ,
                                     FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                     nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  const DWORD size = profile ? ::GetFileSize(profile.Get(), nullptr) : 0;
  if (size == INVALID_FILE_SIZE || size > kLargestProfile) return {};
  std::string bytes(size, '\0');
  DWORD length = 0;
  if (size > 0 && ::ReadFile(profile.Get(), bytes.data(), size, &length, nullptr) == 0) return {};
  bytes.resize(length);
  return bytes;
}

// Editors of this system also keep texts in units of 16 bits, with a mark in front.
std::string AnsiOf(std::string bytes) {
  constexpr std::string_view kWideMark = "\xFF\xFE";
  if (std::string_view(bytes).substr(0, kWideMark.size()) != kWideMark) return bytes;
  std::wstring wide(bytes.size() / sizeof(wchar_t) - 1, L'\0');
  bytes.copy(reinterpret_cast<char*>(wide.data()), wide.size() * sizeof(wchar_t), kWideMark.size());
  return AnsiFromWide(wide);
}

// The system's own reader takes the bytes for texts of the system's code page: one whose characters have
// several bytes damages accents on the way. And a UTF-8 mark hides the first section from it.
bool SystemReaderServes(std::string_view bytes) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  CPINFO page = {};
  const bool one_byte = ::GetCPInfo(CP_ACP, &page) != 0 && page.MaxCharSize == 1;
  return one_byte && bytes.substr(0, kMark.size()) != kMark;
}

// The file as a path from a drive's root: a bare name would be looked for in the Windows directory. A
// directory that the system's code page cannot write keeps the path relative, which ".\" makes safe.
std::string FromCurrentDirectory(const std::string& file) {
  std::string path(32768, '\0');
  const auto size = static_cast<DWORD>(path.size());
  const DWORD length = ::GetFullPathNameA(file.c_str(), size, path.data(), nullptr);
  if (length == 0 || length >= size) return file;
  path.resize(length);
  const bool exists = ::GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
  return exists ? path : file;
}

std::string AskSystem(const std::string& section, const std::string& key, const std::string& file) {
  std::array<char, kLongestProfileValue + 1> value{};
  value.fill(' ');
  const DWORD length = ::GetPrivateProfileStringA(section.c_str(), key.c_str(), "", value.data(),
                                                  static_cast<DWORD>(value.size()),
                                                  FromCurrentDirectory(file).c_str());
  return {value.data(), std::min<std::size_t>(length, kLongestProfileValue)};
}

}  // namespace

std::string WindowsProfile::Read(std::string_view section, std::string_view key,
                                 std::string_view file) {
  const std::string bytes = BytesOf(file);
  if (SystemReaderServes(bytes)) {
    return AskSystem(std::string(section), std::string(key), std::string(file));
  }
  return FindInProfile(AnsiOf(bytes), section, key);
}

namespace {

struct Row {
  DWORD error;
  std::int32_t number;
  const char* description;
};

constexpr std::array kRows = {
    Row{ERROR_FILE_NOT_FOUND, 76, "Path not found"},
    Row{ERROR_PATH_NOT_FOUND, 76, "Path not found"},
    Row{ERROR_ACCESS_DENIED, 70, "Permission denied"},
    Row{ERROR_SHARING_VIOLATION, 70, "Permission denied"},
    Row{ERROR_LOCK_VIOLATION, 70, "Permission denied"},
    Row{ERROR_WRITE_PROTECT, 70, "Permission denied"},
    Row{ERROR_DISK_FULL, 61, "Disk full"},
    Row{ERROR_HANDLE_DISK_FULL, 61, "Disk full"},
    Row{ERROR_TOO_MANY_OPEN_FILES, 67, "Too many files"},
};

}  // namespace

void RequireOfFile(bool done) {
  if (done) return;
  const DWORD error = ::GetLastError();
  for (const Row& row : kRows) {
    if (row.error == error) throw Failure(row.number, row.description);
  }
  throw Failure(75, "Path/File access error");
}

void WindowsLog::Append(std::string_view file, std::string_view bytes) {
  // Shared with another till's library: each line goes whole to the end that the file then has.
  constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE;
  const Handle log(::CreateFileA(std::string(file).c_str(), FILE_APPEND_DATA, kShared, nullptr,
                                 OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  RequireOfFile(static_cast<bool>(log));
  while (!bytes.empty()) {
    DWORD written = 0;
    RequireOfFile(::WriteFile(log.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written,
                              nullptr) != 0 &&
                  written > 0);
    bytes.remove_prefix(written);
  }
}

void WindowsLog::SetAside(std::string_view file, std::uint64_t limit) {
  const std::string path(file);
  WIN32_FILE_ATTRIBUTE_DATA about = {};
  if (::GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &about) == 0) return;
  if ((about.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return;
  const std::uint64_t size = (std::uint64_t{about.nFileSizeHigh} << 32u) | about.nFileSizeLow;
  if (size < limit) return;
  RequireOfFile(::MoveFileExA(path.c_str(), (path + ".1").c_str(), MOVEFILE_REPLACE_EXISTING) != 0);
}

}  // namespace kestra
