#pragma once

#include <optional>
#include <string>
#include <vector>

namespace kestra::tool {

// The serial ports of this machine, by what the system knows of them. All texts are UTF-8.

struct PortInfo {
  std::string device;   // "/dev/ttyUSB0", "COM3"
  std::string steady;   // a name that stays when adapters change places; empty when there is none
  std::string adapter;  // maker and product
  std::string serial;   // the adapter's serial number
  std::optional<int> latency;  // milliseconds that it keeps bytes back
};

// The one that a name of any kind leads to; only its device when nothing is known of it.
PortInfo AboutPort(const std::string& device);

std::vector<PortInfo> ListPorts();

// "ttyUSB0: FTDI FT232R (serie A50285BI)"
std::string InWords(const PortInfo& port);

// Whose it is and who asks, for whoever may not open it.
std::string PermissionOf(const std::string& device);

// The other programs that have a device or a file open: "caja (4711)". Those of other users are seen only by root.
std::vector<std::string> UsersOf(const std::string& file);

// What the far end raises; nothing for a port without such lines.
struct Signals {
  bool data_set_ready = false;
  bool clear_to_send = false;
  bool carrier = false;
};
std::optional<Signals> SignalsOf(const std::string& device);

}  // namespace kestra::tool
