#pragma once

#include <vector>

#include "pictures/canvas.hpp"
#include "pictures/drawing.hpp"

namespace impresora {

// Closed lines; what they run around in the same sense is inside, in the other sense a hole.
using Outline = std::vector<std::vector<Point>>;

// Lets ink into the canvas: into each pixel as much as lies inside the outline, in pixels.
void Fill(Canvas& canvas, const Outline& outline, const Colour& colour);

}  // namespace impresora
