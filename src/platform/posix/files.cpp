#include "platform/posix/files.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "base/failure.hpp"
#include "platform/shared/profile_text.hpp"
#include "platform/shared/text.hpp"

namespace kestra {

namespace {

constexpr std::array kOfWrites = {SIGPIPE, SIGXFSZ};

void Take(int signal) {
  sigset_t only = {};
  ::sigemptyset(&only);
  ::sigaddset(&only, signal);
  int taken = 0;
  ::sigwait(&only, &taken);
}

}  // namespace

HeldSignals::HeldSignals() {
  ::sigpending(&pending_before_);
  sigset_t held = {};
  ::sigemptyset(&held);
  for (const int signal : kOfWrites) ::sigaddset(&held, signal);
  ::pthread_sigmask(SIG_BLOCK, &held, &mask_before_);
}

HeldSignals::~HeldSignals() {
  sigset_t pending = {};
  ::sigpending(&pending);
  for (const int signal : kOfWrites) {
    const bool came = ::sigismember(&pending, signal) == 1;
    if (came && ::sigismember(&pending_before_, signal) != 1) Take(signal);
  }
  ::pthread_sigmask(SIG_SETMASK, &mask_before_, nullptr);
}

std::string NativePath(std::string_view file) {
  std::string path(file);
  std::replace(path.begin(), path.end(), '\\', '/');
  return path;
}

FileDescriptor OpenFile(const std::string& path, int flags) {
  constexpr mode_t kReadableByAll = 0666;  // less what the process masks
  for (;;) {
    const int fd = ::open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, kReadableByAll);
    if (fd >= 0 || errno != EINTR) return OffStandardStreams(FileDescriptor(fd));
  }
}

bool WriteAll(int fd, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(fd, bytes.data(), bytes.size());
    if (written < 0 && errno != EINTR) return false;
    if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

namespace {

constexpr off_t kLargestProfile = off_t{1} << 20;

// The file of the same directory whose name differs in case alone; of several the first by name.
// Empty when there is none.
std::string NameInOtherCase(const std::string& path) {
  namespace fs = std::filesystem;
  const fs::path wanted(path);
  std::string found;
  std::error_code error;
  fs::directory_iterator entry(wanted.parent_path(), error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    const std::string& candidate = entry->path().native();
    if (!EqualWithoutCase(candidate, path)) continue;
    if (found.empty() || candidate < found) found = candidate;
  }
  return found;
}

// Opened without blocking, so that a pipe of that name does not stop the host.
FileDescriptor OpenProfile(const std::string& path) {
  FileDescriptor fd = OpenFile(path, O_RDONLY | O_NONBLOCK);
  if (fd || errno != ENOENT) return fd;
  const std::string other = NameInOtherCase(path);
  return other.empty() ? FileDescriptor() : OpenFile(other, O_RDONLY | O_NONBLOCK);
}

std::string Contents(const FileDescriptor& fd) {
  struct stat about = {};
  if (!fd || ::fstat(fd.Get(), &about) != 0) return {};
  if (!S_ISREG(about.st_mode) || about.st_size > kLargestProfile) return {};
  std::string text(static_cast<std::size_t>(about.st_size), '\0');
  std::size_t filled = 0;
  while (filled < text.size()) {
    const ssize_t count = ::read(fd.Get(), text.data() + filled, text.size() - filled);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) break;
    filled += static_cast<std::size_t>(count);
  }
  text.resize(filled);
  return text;
}

}  // namespace

std::string PosixProfile::Read(std::string_view section, std::string_view key,
                               std::string_view file) {
  return FindInProfile(Contents(OpenProfile(NativePath(file))), section, key);
}

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

}  // namespace

void RequireOfFile(bool done) {
  if (done) return;
  const int error = errno;
  for (const Row& row : kRows) {
    if (row.error == error) throw Failure(row.number, row.description);
  }
  throw Failure(75, "Path/File access error");
}

void PosixLog::Append(std::string_view file, std::string_view bytes) {
  // Not blocking: a pipe that nobody reads must not stop the till.
  const FileDescriptor log = OpenFile(NativePath(file), O_WRONLY | O_APPEND | O_CREAT | O_NONBLOCK);
  RequireOfFile(static_cast<bool>(log));
  const HeldSignals held;
  RequireOfFile(WriteAll(log.Get(), bytes));
}

void PosixLog::SetAside(std::string_view file, std::uint64_t limit) {
  const std::string path = NativePath(file);
  struct stat about = {};
  if (::stat(path.c_str(), &about) != 0 || !S_ISREG(about.st_mode)) return;
  if (static_cast<std::uint64_t>(about.st_size) < limit) return;
  RequireOfFile(::rename(path.c_str(), (path + ".1").c_str()) == 0);
}

}  // namespace kestra
