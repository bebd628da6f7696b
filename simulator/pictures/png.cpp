#include "pictures/png.hpp"

// One source has the library's code; nobody else sees any of it.
#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STB_IMAGE_WRITE_STATIC
#define STBI_WRITE_NO_STDIO
#include <stb/stb_image_write.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <numbers>
#include <stdexcept>

#include "pictures/canvas.hpp"
#include "pictures/raster.hpp"
#include "pictures/typeface.hpp"
#include "text/path.hpp"
#include "text/utf8.hpp"

namespace impresora {
namespace {

constexpr double kScale = 1.5;
constexpr std::size_t kTallest = 30'000;  // pixels; a longer paper is set smaller

constexpr std::array<const char*, 8> kUsualFonts{
    "/usr/share/fonts/truetype/dejavu/DejaVuSansMono.ttf",
    "/usr/share/fonts/dejavu/DejaVuSansMono.ttf",
    "/usr/share/fonts/TTF/DejaVuSansMono.ttf",
    "/usr/share/fonts/dejavu-sans-mono-fonts/DejaVuSansMono.ttf",
    "/usr/local/share/fonts/DejaVuSansMono.ttf",
    "/Library/Fonts/DejaVuSansMono.ttf",
    "C:/Windows/Fonts/DejaVuSansMono.ttf",
    "C:/Windows/Fonts/cour.ttf",
};

std::string FindFont(const std::string& wanted) {
  if (!wanted.empty()) return wanted;
  for (const char* path : kUsualFonts) {
    std::error_code error;
    if (std::filesystem::is_regular_file(PathOf(path), error)) return path;
  }
  return {};
}

std::string ToPng(const Canvas& canvas) {
  constexpr int kChannels = 3;
  const int width = static_cast<int>(canvas.Width());
  const auto keep = [](void* file, void* bytes, int count) {
    static_cast<std::string*>(file)->append(static_cast<const char*>(bytes),
                                            static_cast<std::size_t>(count));
  };
  std::string file;
  const int done = stbi_write_png_to_func(keep, &file, width, static_cast<int>(canvas.Height()),
                                          kChannels, canvas.Row(0), width * kChannels);
  if (done == 0) throw std::runtime_error("no se pudo armar un PNG");
  return file;
}

}  // namespace

// A typeface, and the canvas that it is set on.
class PngMaker::Press {
 public:
  bool Open(const std::string& path) { return face_.Open(path); }

  Canvas Set(const Drawing& drawing) {
    scale_ = std::min(kScale, static_cast<double>(kTallest) / drawing.height);
    Canvas canvas(Pixels(drawing.width), Pixels(drawing.height));
    for (const auto& mark : drawing.marks) {
      std::visit([this, &canvas](const auto& any) { Put(canvas, any); }, mark);
    }
    return canvas;
  }

 private:
  std::size_t Pixels(double length) const {
    return static_cast<std::size_t>(std::ceil(length * scale_));
  }

  void Put(Canvas& canvas, const Shape& shape) const {
    Outline outline{shape.outline};
    for (Point& point : outline.front()) point = {point.x * scale_, point.y * scale_};
    Fill(canvas, outline, ColourOf(shape.ink));
  }

  void Put(Canvas& canvas, const Lettering& lettering) {
    const double angle = lettering.turn * std::numbers::pi / 180;
    const double size = LetterSize(lettering.cell) * scale_;
    const double step = lettering.cell * lettering.stretch * scale_;
    const Point right{std::cos(angle), std::sin(angle)};
    Point at{lettering.at.x * scale_, lettering.at.y * scale_};
    for (const char32_t character : DecodeUtf8(lettering.text)) {
      Outline outline = face_.Letter(character, lettering.strong);
      for (auto& line : outline) {
        for (Point& point : line) {
          const double x = point.x * size * lettering.stretch;
          const double y = point.y * size;
          point = {at.x + x * right.x - y * right.y, at.y + x * right.y + y * right.x};
        }
      }
      Fill(canvas, outline, ColourOf(lettering.ink));
      at = {at.x + step * right.x, at.y + step * right.y};
    }
  }

  Typeface face_;
  double scale_ = kScale;
};

PngMaker::PngMaker(const std::string& font) : press_(std::make_unique<Press>()) {
  const std::string path = FindFont(font);
  if (path.empty()) {
    complaint_ =
        "no se encontró la tipografía DejaVu Sans Mono: no se hacen PNG, solo SVG "
        "(indíquela con --fuente)";
  } else if (!press_->Open(path)) {
    complaint_ = "no se puede usar la tipografía " + path + ": no se hacen PNG, solo SVG";
  }
}

PngMaker::PngMaker(PngMaker&&) noexcept = default;
PngMaker::~PngMaker() = default;

std::string PngMaker::Make(const Drawing& drawing) {
  return Ready() ? ToPng(press_->Set(drawing)) : std::string();
}

}  // namespace impresora
