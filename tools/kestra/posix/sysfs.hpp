#pragma once

#include <string>
#include <vector>

#include "devices.hpp"

namespace kestra::tool {

// What the system's folders tell of a port named as there ("ttyUSB0"), and of all that have a circuit. `root` stands
// before /sys and /dev.
PortInfo SysfsPort(const std::string& root, const std::string& name);
std::vector<PortInfo> SysfsPorts(const std::string& root);

}  // namespace kestra::tool
