#include "platform/posix/log_file.hpp"

#include <fcntl.h>

#include <array>
#include <cerrno>
#include <cstdint>

#include "base/failure.hpp"
#include "platform/posix/held_signals.hpp"
#include "platform/posix/native_file.hpp"

namespace kestra {
namespace {

struct Row {
  int error;
  std::int32_t number;
  const char* description;
};

constexpr std::array kRows = {
    Row{ENOENT, 76, "Path not found"},    Row{ENOTDIR, 76, "Path not found"},
    Row{EACCES, 70, "Permission denied"}, Row{EPERM, 70, "Permission denied"},
    Row{EROFS, 70, "Permission denied"},  Row{ENOSPC, 61, "Disk full"},
    Row{EDQUOT, 61, "Disk full"},         Row{EMFILE, 67, "Too many files"},
    Row{ENFILE, 67, "Too many files"},
};

void Require(bool done) {
  if (done) return;
  const int error = errno;
  for (const Row& row : kRows) {
    if (row.error == error) throw Failure(row.number, row.description);
  }
  throw Failure(75, "Path/File access error");
}

}  // namespace

void PosixLog::Append(std::string_view file, std::string_view bytes) {
  // Not blocking: a pipe that nobody reads must not stop the till.
  const FileDescriptor log = OpenFile(NativePath(file), O_WRONLY | O_APPEND | O_CREAT | O_NONBLOCK);
  Require(static_cast<bool>(log));
  const HeldSignals held;
  Require(WriteAll(log.Get(), bytes));
}

}  // namespace kestra
