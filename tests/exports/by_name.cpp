// For programs that load the library when they like, and find its functions by their names.
#include "exports/table.hpp"

namespace kestra::exports {

std::span<const Export> Exports() {
  return kTable<false>;
}

}  // namespace kestra::exports
