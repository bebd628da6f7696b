#pragma once

#include <string>
#include <utility>
#include <vector>

#include "diagnosis.hpp"

namespace kestra::tool {

// Which file is read, each key with its value, and what is wrong with them. False when no port can be made of it.
bool CheckSettings(Diagnosis& diagnosis);

// What the library makes of each key that is there: name and value, in UTF-8.
std::vector<std::pair<std::string, std::string>> SettingsThatAreThere();

}  // namespace kestra::tool
