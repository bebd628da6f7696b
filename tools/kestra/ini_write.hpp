#pragma once

#include <optional>
#include <string>

#include "printer.hpp"

namespace kestra::tool {

// What a new Fiscal.ini is made of; what is not told is as usual.
struct NewSettings {
  std::string family;
  std::optional<std::string> port;    // ImpresoraPuerto
  std::optional<std::string> device;  // ImpresoraDispositivo
  std::optional<std::string> speed;
  std::optional<ModelData> printer;
  std::optional<bool> repeats;  // whether it knows a repeated frame
};

// The file, in UTF-8 of letters that every code writes alike.
std::string NewIniText(const NewSettings& settings);

}  // namespace kestra::tool
