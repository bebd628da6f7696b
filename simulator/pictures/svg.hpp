#pragma once

#include <string>

#include "pictures/drawing.hpp"

namespace impresora {

// The drawing as a file of its own that any browser shows.
std::string ToSvg(const Drawing& drawing);

}  // namespace impresora
