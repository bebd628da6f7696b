#include "posix/sysfs.hpp"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <system_error>

namespace kestra::tool {
namespace {

namespace fs = std::filesystem;

std::string FirstLine(const fs::path& file) {
  std::ifstream stream(file);
  std::string line;
  std::getline(stream, line);
  return line;
}

// The folder of the device on the bus that a port belongs to; empty for one on none.
fs::path BusDevice(const fs::path& port) {
  std::error_code error;
  auto folder = fs::canonical(port / "device", error);
  while (!error && folder.has_relative_path()) {
    if (fs::exists(folder / "idVendor", error)) return folder;
    folder = folder.parent_path();
  }
  return {};
}

std::string SteadyName(const std::string& root, const std::string& name) {
  const std::string folder = "/dev/serial/by-id";
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(root + folder, error)) {
    if (fs::read_symlink(entry.path(), error).filename() == name) {
      return folder + "/" + entry.path().filename().string();
    }
  }
  return {};
}

std::optional<int> NumberIn(const fs::path& file) {
  const auto line = FirstLine(file);
  int number = 0;
  const auto result = std::from_chars(line.data(), line.data() + line.size(), number);
  return result.ec == std::errc() ? std::optional(number) : std::nullopt;
}

// A port that is named only: the machine has no circuit for it.
bool IsEmpty(const fs::path& port) {
  return NumberIn(port / "type").value_or(1) == 0;
}

}  // namespace

PortInfo SysfsPort(const std::string& root, const std::string& name) {
  const fs::path port = fs::path(root + "/sys/class/tty") / name;
  const auto bus = BusDevice(port);
  PortInfo info{
      .device = "/dev/" + name,
      .steady = SteadyName(root, name),
      .adapter = {},
      .serial = {},
      .latency = NumberIn(root + "/sys/bus/usb-serial/devices/" + name + "/latency_timer")};
  if (bus.empty()) return info;
  info.adapter = FirstLine(bus / "manufacturer");
  info.adapter.append(info.adapter.empty() ? "" : " ").append(FirstLine(bus / "product"));
  info.serial = FirstLine(bus / "serial");
  return info;
}

std::vector<PortInfo> SysfsPorts(const std::string& root) {
  std::vector<PortInfo> ports;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(root + "/sys/class/tty", error)) {
    if (!fs::exists(entry.path() / "device", error) || IsEmpty(entry.path())) continue;
    ports.push_back(SysfsPort(root, entry.path().filename().string()));
  }
  std::sort(ports.begin(), ports.end(),
            [](const PortInfo& a, const PortInfo& b) { return a.device < b.device; });
  return ports;
}

}  // namespace kestra::tool
