#include "devices.hpp"

namespace kestra::tool {

std::string InWords(const PortInfo& port) {
  std::string words = port.device;
  if (!port.adapter.empty()) words += ": " + port.adapter;
  if (!port.serial.empty()) words += " (serie " + port.serial + ")";
  if (!port.steady.empty()) words += ", " + port.steady;
  return words;
}

}  // namespace kestra::tool
