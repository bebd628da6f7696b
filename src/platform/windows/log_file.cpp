#include "platform/windows/log_file.hpp"

#include <array>
#include <cstdint>
#include <string>

#include "base/failure.hpp"
#include "platform/windows/handle.hpp"

namespace kestra {
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

void Require(bool done) {
  if (done) return;
  const DWORD error = ::GetLastError();
  for (const Row& row : kRows) {
    if (row.error == error) throw Failure(row.number, row.description);
  }
  throw Failure(75, "Path/File access error");
}

}  // namespace

void WindowsLog::Append(std::string_view file, std::string_view bytes) {
  // Shared with another till's library: each line goes whole to the end that the file then has.
  constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE;
  const Handle log(::CreateFileA(std::string(file).c_str(), FILE_APPEND_DATA, kShared, nullptr,
                                 OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  Require(static_cast<bool>(log));
  while (!bytes.empty()) {
    DWORD written = 0;
    Require(::WriteFile(log.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written,
                        nullptr) != 0 &&
            written > 0);
    bytes.remove_prefix(written);
  }
}

}  // namespace kestra
