#include "platform/posix/journal_file.hpp"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include "base/failure.hpp"

namespace kestra {
namespace {

namespace fs = std::filesystem;

// More than any journal grows to.
constexpr off_t kLargest = off_t{64} << 20;

Failure InUse() {
  return {kFileInUse, "File already open"};
}

struct stat About(int fd) {
  struct stat about = {};
  RequireOfFile(::fstat(fd, &about) == 0);
  if (S_ISREG(about.st_mode) && about.st_size <= kLargest) return about;
  throw Failure(75, "Path/File access error");
}

// Between the opening and the lock the other program may have given the file another name.
bool StillCalled(const std::string& path, const struct stat& about) {
  struct stat named = {};
  return ::stat(path.c_str(), &named) == 0 && named.st_dev == about.st_dev &&
         named.st_ino == about.st_ino;
}

// Not blocking: a pipe of that name must not stop the till.
FileDescriptor TakeFile(const std::string& path, int flags) {
  FileDescriptor file = OpenFile(path, O_RDWR | O_CREAT | O_NONBLOCK | flags);
  RequireOfFile(static_cast<bool>(file));
  const struct stat about = About(file.Get());
  const bool locked = ::flock(file.Get(), LOCK_EX | LOCK_NB) == 0;
  if (!locked && errno == EWOULDBLOCK) throw InUse();
  RequireOfFile(locked);
  if (!StillCalled(path, about)) throw InUse();
  return file;
}

template <typename Flush>
void ToDisk(int fd, Flush flush) {
  int result = flush(fd);
  while (result != 0 && errno == EINTR) result = flush(fd);
  RequireOfFile(result == 0);
}

// A name is on the disk with its folder. Some systems cannot tell a folder to go there, or do not let
// everybody open it: they have to be believed.
void NameToDisk(const std::string& path) {
  const std::string folder = fs::path(path).parent_path().string();
  const FileDescriptor fd = OpenFile(folder, O_RDONLY | O_DIRECTORY);
  if (fd && ::fsync(fd.Get()) != 0 && errno == EIO) RequireOfFile(false);
}

}  // namespace

void PosixJournalFile::Open(std::string_view file) {
  Close();
  std::error_code error;
  path_ = fs::absolute(NativePath(file), error).string();
  if (error) throw Failure(76, "Path not found");
  FileDescriptor taken = TakeFile(path_, 0);
  NameToDisk(path_);
  file_ = std::move(taken);
}

std::string PosixJournalFile::Read() {
  std::string text(static_cast<std::size_t>(About(file_.Get()).st_size), '\0');
  std::size_t filled = 0;
  while (filled < text.size()) {
    const ssize_t count = ::pread(file_.Get(), text.data() + filled, text.size() - filled,
                                  static_cast<off_t>(filled));
    if (count < 0 && errno == EINTR) continue;
    RequireOfFile(count >= 0);
    if (count == 0) break;
    filled += static_cast<std::size_t>(count);
  }
  text.resize(filled);
  return text;
}

void PosixJournalFile::Append(std::string_view bytes) {
  WriteFrom(0, SEEK_END, bytes);
}

void PosixJournalFile::Overwrite(std::size_t at, std::string_view bytes) {
  WriteFrom(static_cast<off_t>(at), SEEK_SET, bytes);
}

void PosixJournalFile::WriteFrom(off_t place, int from, std::string_view bytes) {
  const HeldSignals held;
  RequireOfFile(::lseek(file_.Get(), place, from) >= 0);
  RequireOfFile(WriteAll(file_.Get(), bytes));
  ToDisk(file_.Get(), ::fdatasync);
}

void PosixJournalFile::Truncate(std::size_t length) {
  RequireOfFile(::ftruncate(file_.Get(), static_cast<off_t>(length)) == 0);
  ToDisk(file_.Get(), ::fsync);
}

void PosixJournalFile::BeginAnew(std::string_view suffix) {
  const std::string kept = path_ + std::string(suffix);
  RequireOfFile(::rename(path_.c_str(), kept.c_str()) == 0);
  try {
    // The old one stays locked until the new one is.
    file_ = TakeFile(path_, O_EXCL);
  } catch (...) {
    ::rename(kept.c_str(), path_.c_str());
    throw;
  }
  NameToDisk(path_);
}

std::vector<std::string> PosixJournalFile::Kept() {
  const fs::path path(path_);
  const std::string name = path.filename().string();
  std::vector<std::string> suffixes;
  std::error_code error;
  fs::directory_iterator entry(path.parent_path(), error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    const std::string other = entry->path().filename().string();
    if (other.size() > name.size() && other.starts_with(name)) {
      suffixes.push_back(other.substr(name.size()));
    }
  }
  return suffixes;
}

void PosixJournalFile::DeleteKept(std::string_view suffix) {
  RequireOfFile(::unlink((path_ + std::string(suffix)).c_str()) == 0);
}

}  // namespace kestra
