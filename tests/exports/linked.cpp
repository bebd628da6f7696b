// For programs that have the library linked to them.
#include "exports/table.hpp"

namespace kestra::exports {

std::span<const Export> Exports() {
  return kTable<true>;
}

}  // namespace kestra::exports
