#include "program/printer_folder.hpp"

#include <fstream>
#include <sstream>
#include <string>

#include "sale/facts.hpp"
#include "sale/ini.hpp"

namespace puerta {

// Without certainty and journal nobody could say, after a death, whether a paper came out.
PrinterFolder LookAtFolder(const std::filesystem::path& folder, const std::string& at) {
  PrinterFolder found;
  std::ifstream stream(folder / "Fiscal.ini", std::ios::binary);
  std::stringstream text;
  text << stream.rdbuf();
  const auto ini = text.str();
  if (!stream) {
    found.errors.push_back({at, "no se puede leer " + (folder / "Fiscal.ini").string()});
    return found;
  }
  if (IniNumber(ini, "ModoSeguro", 0) != 1) {
    found.errors.push_back({at, "a su Fiscal.ini le falta ModoSeguro=1"});
  }
  if (IniValue(ini, "Diario").value_or("").empty()) {
    found.errors.push_back({at, "a su Fiscal.ini le falta Diario=, como Diario=diario.txt"});
  }
  // Nobody sits before the door to be shown each command and say yes.
  if (IniNumber(ini, "MostrarComandos", 0) == 1) {
    found.errors.push_back({at, "a su Fiscal.ini le sobra MostrarComandos=1"});
  }
  found.facts = FactsOf(ini);
  return found;
}

}  // namespace puerta
