#include "pictures/png.hpp"

namespace impresora {

// Stands in where the libraries that set and pack pictures were not there to build with.
class PngMaker::Press {};

PngMaker::PngMaker(const std::string& /*font*/)
    : complaint_("este programa se compiló sin FreeType o libpng: no hace PNG, solo SVG") {}
PngMaker::PngMaker(PngMaker&&) noexcept = default;
PngMaker::~PngMaker() = default;

std::string PngMaker::Make(const Drawing& /*drawing*/) {
  return {};
}

}  // namespace impresora
