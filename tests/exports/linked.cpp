// For programs that have the library linked to them.
#include "exports/table.hpp"

namespace kestra::exports {

std::span<const Export> Exports() {
  return kTable<true>;
}

std::int32_t Call(const Export& row, const Values& values) {
  return row.call(values);
}

}  // namespace kestra::exports
