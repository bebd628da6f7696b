#include <stdexcept>

#include "program/parts.hpp"

namespace impresora {

std::unique_ptr<Store> OpenMemoryPart(const Options& options) {
  if (options.memory.empty()) return nullptr;
  throw std::runtime_error("este programa no tiene memoria fiscal en archivo (--memoria)");
}

}  // namespace impresora
