#include "memory/memory.hpp"
#include "program/parts.hpp"

namespace impresora {

std::unique_ptr<Store> OpenMemoryPart(const Options& options) {
  if (options.memory.empty()) return nullptr;
  return OpenMemory(options.memory, options.settings);
}

}  // namespace impresora
