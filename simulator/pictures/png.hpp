#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "pictures/drawing.hpp"

namespace impresora {

// Sets drawings as PNG pictures with a monospaced typeface of the system.
class PngMaker {
 public:
  // `font`: a typeface file; empty for the first of the usual places that has one. When none can
  // be used, `complaint` says why and Make returns nothing.
  explicit PngMaker(const std::string& font);
  PngMaker(PngMaker&&) noexcept;
  ~PngMaker();

  bool Ready() const { return complaint_.empty(); }
  const std::string& Complaint() const { return complaint_; }

  // The bytes of a PNG file, one and a half pixels for each of the drawing's.
  std::string Make(const Drawing& drawing);

 private:
  class Press;
  std::unique_ptr<Press> press_;
  std::string complaint_;
};

}  // namespace impresora
