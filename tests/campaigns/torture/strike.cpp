#include "campaigns/torture/strike.hpp"

namespace kestra::torture {

std::string Describe(const Strike& strike) {
  if (strike.nth == 0) return "nothing";
  return std::string(TargetName(strike.target))
      .append(" ")
      .append(std::to_string(strike.nth))
      .append(strike.forever ? " forever " : " once ")
      .append(strike.target == kMemory ? std::string_view()
                                       : kAilmentNames[static_cast<std::size_t>(strike.ailment)]);
}

}  // namespace kestra::torture
