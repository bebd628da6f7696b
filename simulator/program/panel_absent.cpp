#include <stdexcept>

#include "program/parts.hpp"

namespace impresora {

std::unique_ptr<PanelPart> OpenPanelPart(const Options& options, Session& /*session*/,
                                         Post /*post*/) {
  if (!options.panel) return nullptr;
  throw std::runtime_error("este programa no tiene panel (--panel)");
}

}  // namespace impresora
