#include "this_system.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>
#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <system_error>

#include "platform/posix/files.hpp"
#include "platform/seam/platform.hpp"
#include "words.hpp"

namespace kestra::tool {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSettingsFile = "Fiscal.ini";

std::string Beside(const std::string& folder, std::string_view name) {
  return (fs::path(folder.empty() ? "." : folder) / name).string();
}

}  // namespace

std::vector<std::string> ProgramArguments(int argc, char** argv) {
  return {argv + std::min(argc, 1), argv + argc};
}

bool EnterFolder(const std::string& folder) {
  return ::chdir(folder.c_str()) == 0;
}

std::string CurrentFolder() {
  std::string path(PATH_MAX, '\0');
  return ::getcwd(path.data(), path.size()) == nullptr ? std::string() : path.c_str();
}

bool LeadsToPipe(const std::string&) {
  return false;
}

bool OutputIsTerminal() {
  return ::isatty(STDOUT_FILENO) == 1;
}

std::string ReadSetting(std::string_view key) {
  return PosixProfile().Read("Epson_Fiscal", key, ".\\Fiscal.ini");
}

std::string DeviceInstead() {
  const char* const device = std::getenv(kDeviceVariable);
  return device == nullptr ? std::string() : device;
}

std::vector<std::string> SettingsFiles() {
  std::vector<std::string> files;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(".", error)) {
    const auto name = entry.path().filename().string();
    if (SameWithoutCase(name, kSettingsFile)) files.push_back(name);
  }
  // The exact name comes first, else the folder's own order.
  std::stable_partition(files.begin(), files.end(),
                        [](const std::string& name) { return name == kSettingsFile; });
  return files;
}

std::string SettingsText() {
  const auto files = SettingsFiles();
  return files.empty() ? std::string() : ReadFile(files.front()).value_or(std::string());
}

std::optional<std::string> ReadFile(const std::string& file) {
  const FileDescriptor fd = OpenFile(file, O_RDONLY | O_NONBLOCK);
  if (!fd || KindOfFile(file) != FileKind::kFile) return std::nullopt;
  std::string text;
  std::array<char, 65536> bytes{};
  while (true) {
    const ssize_t count = ::read(fd.Get(), bytes.data(), bytes.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return std::nullopt;
    if (count == 0) return text;
    text.append(bytes.data(), static_cast<std::size_t>(count));
  }
}

bool WriteFile(const std::string& file, std::string_view bytes) {
  // A device or a folder of that name stays what it is.
  if (KindOfFile(file) == FileKind::kOther) return false;
  const HeldSignals held;
  const std::string fresh = file + ".kestra";
  struct stat before = {};
  const bool there = ::stat(file.c_str(), &before) == 0;
  FileDescriptor fd = OpenFile(fresh, O_WRONLY | O_CREAT | O_TRUNC);
  const bool written = fd && WriteAll(fd.Get(), bytes) && ::fsync(fd.Get()) == 0;
  if (written && there) {
    // Whoever read it before must be able to.
    [[maybe_unused]] const bool same_mode = ::fchmod(fd.Get(), before.st_mode & 07777) == 0;
    [[maybe_unused]] const bool same_owner = ::fchown(fd.Get(), before.st_uid, before.st_gid) == 0;
  }
  if (written && ::rename(fresh.c_str(), file.c_str()) == 0) return true;
  ::unlink(fresh.c_str());
  return false;
}

FileKind KindOfFile(const std::string& file) {
  struct stat about = {};
  if (::stat(file.c_str(), &about) != 0) return FileKind::kNone;
  return S_ISREG(about.st_mode) ? FileKind::kFile : FileKind::kOther;
}

Writing TryWriting(const std::string& folder) {
  constexpr std::array kNoRoom = {ENOSPC, EDQUOT, EFBIG};
  const HeldSignals held;
  const std::string file = Beside(folder, ".kestra-" + std::to_string(::getpid()));
  const FileDescriptor fd = OpenFile(file, O_WRONLY | O_CREAT | O_EXCL);
  errno = fd ? 0 : errno;
  const bool written = fd && WriteAll(fd.Get(), std::string(4096, ' ')) && ::fsync(fd.Get()) == 0;
  const int error = errno;
  ::unlink(file.c_str());
  if (written) return Writing::kDone;
  return std::find(kNoRoom.begin(), kNoRoom.end(), error) == kNoRoom.end() ? Writing::kForbidden
                                                                           : Writing::kNoRoom;
}

std::optional<std::uint64_t> FreeBytes(const std::string& folder) {
  struct statvfs about = {};
  if (::statvfs(Beside(folder, "").c_str(), &about) != 0) return std::nullopt;
  return std::uint64_t{about.f_bavail} * about.f_frsize;
}

}  // namespace kestra::tool
