#pragma once

#include <string>
#include <string_view>

namespace kestra {

struct Library;

constexpr std::string_view kConfigurationFile = ".\\Fiscal.ini";
constexpr std::string_view kSection = "Epson_Fiscal";

// Text of a key of the library's section; empty when it is not there.
std::string LeerValorIni(Library& library, std::string_view key);

// Fills the configuration fields from .\Fiscal.ini, key by key. The first key that cannot be read
// is shown to the operator and ends the reading; the fields behind it keep their values.
void Lee_Ini(Library& library);

// The keys beside those; without them nothing changes.
void ReadAddedSettings(Library& library);

}  // namespace kestra
