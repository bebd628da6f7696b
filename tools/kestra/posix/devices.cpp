#include "devices.hpp"

#include <fcntl.h>
#include <grp.h>
#include <pwd.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "platform/posix/files.hpp"
#include "posix/sysfs.hpp"

namespace kestra::tool {
namespace {

namespace fs = std::filesystem;

std::string RealPath(const std::string& file) {
  std::error_code error;
  const auto path = fs::canonical(file, error);
  return error ? file : path.string();
}

std::string UserName(uid_t id) {
  const passwd* const row = ::getpwuid(id);
  return row == nullptr ? std::to_string(id) : row->pw_name;
}

std::string GroupName(gid_t id) {
  const group* const row = ::getgrgid(id);
  return row == nullptr ? std::to_string(id) : row->gr_name;
}

// Does the process hold the far end of this pseudo-terminal? Then it is the printer, and nobody else's program.
bool IsFarEnd(const fs::path& process, const std::string& path) {
  constexpr std::string_view kTerminals = "/dev/pts/";
  if (path.compare(0, kTerminals.size(), kTerminals) != 0) return false;
  const std::string wanted = "tty-index:\t" + path.substr(kTerminals.size());
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(process / "fdinfo", error)) {
    std::ifstream stream(entry.path());
    for (std::string line; std::getline(stream, line);) {
      if (line == wanted) return true;
    }
  }
  return false;
}

bool HasOpen(const fs::path& process, const std::string& path) {
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(process / "fd", error)) {
    if (fs::read_symlink(entry.path(), error) == path) return !IsFarEnd(process, path);
  }
  return false;
}

}  // namespace

PortInfo AboutPort(const std::string& device) {
  const fs::path path = RealPath(device);
  auto info = SysfsPort("", path.filename().string());
  info.device = path.string();
  return info;
}

std::vector<PortInfo> ListPorts() {
  return SysfsPorts("");
}

std::string PermissionOf(const std::string& device) {
  struct stat about = {};
  if (::stat(device.c_str(), &about) != 0) return {};
  const bool mine = ::access(device.c_str(), R_OK | W_OK) == 0;
  return std::string(mine ? "sí" : "no") + "; es de " + UserName(about.st_uid) + ", grupo " +
         GroupName(about.st_gid) + "; este usuario es " + UserName(::geteuid());
}

std::vector<std::string> UsersOf(const std::string& file) {
  const auto path = RealPath(file);
  std::vector<std::string> users;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator("/proc", error)) {
    const auto number = entry.path().filename().string();
    const bool process = number.find_first_not_of("0123456789") == std::string::npos;
    if (!process || number == std::to_string(::getpid()) || !HasOpen(entry.path(), path)) continue;
    std::ifstream stream(entry.path() / "comm");
    std::string name;
    std::getline(stream, name);
    users.push_back(name + " (" + number + ")");
  }
  return users;
}

std::optional<Signals> SignalsOf(const std::string& device) {
  const FileDescriptor fd = OpenFile(device, O_RDWR | O_NONBLOCK);
  unsigned lines = 0;
  if (!fd || ::ioctl(fd.Get(), TIOCMGET, &lines) != 0) return std::nullopt;
  return Signals{.data_set_ready = (lines & TIOCM_DSR) != 0,
                 .clear_to_send = (lines & TIOCM_CTS) != 0,
                 .carrier = (lines & TIOCM_CAR) != 0};
}

}  // namespace kestra::tool
