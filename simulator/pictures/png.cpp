#include "pictures/png.hpp"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H
#include <png.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <numbers>
#include <stdexcept>

#include "pictures/canvas.hpp"
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
    if (std::filesystem::is_regular_file(path, error)) return path;
  }
  return {};
}

// Packed twice: the library first says how much room the file takes.
std::string ToPng(const Canvas& canvas) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(canvas.Width());
  image.height = static_cast<png_uint_32>(canvas.Height());
  image.format = PNG_FORMAT_RGB;
  png_alloc_size_t size = 0;
  std::string file;
  bool done = png_image_write_to_memory(&image, nullptr, &size, 0, canvas.Row(0), 0, nullptr) != 0;
  if (done) {
    file.resize(size);
    done = png_image_write_to_memory(&image, file.data(), &size, 0, canvas.Row(0), 0, nullptr) != 0;
  }
  if (!done) throw std::runtime_error(std::string("no se pudo armar un PNG: ") + image.message);
  file.resize(size);
  return file;
}

FT_Fixed Fixed(double value) {
  return static_cast<FT_Fixed>(std::lround(value * 65536));
}

FT_Pos Pos(double value) {
  return static_cast<FT_Pos>(std::lround(value * 64));
}

}  // namespace

// The library and the typeface.
class PngMaker::Press {
 public:
  Press() { FT_Init_FreeType(&library_); }
  Press(const Press&) = delete;
  Press& operator=(const Press&) = delete;
  ~Press() { FT_Done_FreeType(library_); }  // and its face with it

  bool Open(const std::string& path) {
    return FT_New_Face(library_, path.c_str(), 0, &face_) == 0 && FT_IS_SCALABLE(face_);
  }

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

  // The typeface's own rasteriser fills the shapes too. Its heights grow upward.
  void Put(Canvas& canvas, const Shape& shape) {
    FT_Outline outline;
    const auto count = static_cast<FT_UInt>(shape.outline.size());
    if (FT_Outline_New(library_, count, 1, &outline) != 0) return;
    for (std::size_t i = 0; i < shape.outline.size(); ++i) {
      outline.points[i] = {Pos(shape.outline[i].x * scale_), -Pos(shape.outline[i].y * scale_)};
      outline.tags[i] = FT_CURVE_TAG_ON;
    }
    outline.contours[0] = static_cast<short>(count - 1);
    Fill(canvas, outline, ColourOf(shape.ink));
    FT_Outline_Done(library_, &outline);
  }

  void Fill(Canvas& canvas, FT_Outline& outline, const Colour& colour) {
    FT_BBox box;
    FT_Outline_Get_CBox(&outline, &box);
    const FT_Pos left = box.xMin >> 6;
    const FT_Pos bottom = box.yMin >> 6;
    const auto width = static_cast<unsigned>(((box.xMax + 63) >> 6) - left);
    const auto rows = static_cast<unsigned>(((box.yMax + 63) >> 6) - bottom);
    if (width == 0 || rows == 0) return;
    std::vector<unsigned char> cover(std::size_t{width} * rows);
    FT_Bitmap bitmap{};
    bitmap.width = width;
    bitmap.rows = rows;
    bitmap.pitch = static_cast<int>(width);
    bitmap.buffer = cover.data();
    bitmap.num_grays = 256;
    bitmap.pixel_mode = FT_PIXEL_MODE_GRAY;
    FT_Outline_Translate(&outline, -left * 64, -bottom * 64);
    if (FT_Outline_Get_Bitmap(library_, &outline, &bitmap) != 0) return;
    Stamp(canvas, bitmap, left, -(bottom + static_cast<FT_Pos>(rows)), colour);
  }

  static void Stamp(Canvas& canvas, const FT_Bitmap& bitmap, std::ptrdiff_t left,
                    std::ptrdiff_t top, const Colour& colour) {
    for (unsigned y = 0; y < bitmap.rows; ++y) {
      const unsigned char* row = bitmap.buffer + std::ptrdiff_t{bitmap.pitch} * y;
      for (unsigned x = 0; x < bitmap.width; ++x) {
        if (row[x] != 0) canvas.Blend(left + x, top + y, colour, row[x]);
      }
    }
  }

  void Put(Canvas& canvas, const Lettering& lettering) {
    const double angle = lettering.turn * std::numbers::pi / 180;
    const double step = lettering.cell * lettering.stretch * scale_;
    const double x = lettering.at.x * scale_;
    const double y = lettering.at.y * scale_;
    Turn(angle, lettering.stretch);
    FT_Set_Char_Size(face_, 0, Pos(LetterSize(lettering.cell) * scale_), 72, 72);
    const double emphasis = lettering.strong ? LetterSize(lettering.cell) * scale_ / 22 : 0;
    std::size_t column = 0;
    for (const char32_t character : DecodeUtf8(lettering.text)) {
      const double along = step * static_cast<double>(column++);
      PutCharacter(canvas, character, {x + along * std::cos(angle), y + along * std::sin(angle)},
                   emphasis, ColourOf(lettering.ink));
    }
  }

  void Turn(double angle, double stretch) {
    FT_Matrix matrix{Fixed(std::cos(angle) * stretch), Fixed(std::sin(angle)),
                     Fixed(-std::sin(angle) * stretch), Fixed(std::cos(angle))};
    FT_Set_Transform(face_, &matrix, nullptr);
  }

  void PutCharacter(Canvas& canvas, char32_t character, Point at, double emphasis,
                    const Colour& colour) {
    constexpr FT_Int32 kUnhinted = FT_LOAD_NO_HINTING | FT_LOAD_NO_BITMAP;
    if (character == U' ' || FT_Load_Char(face_, character, kUnhinted) != 0) return;
    FT_Outline& outline = face_->glyph->outline;
    if (outline.n_points == 0) return;
    if (emphasis > 0) FT_Outline_Embolden(&outline, Pos(emphasis));
    FT_Outline_Translate(&outline, Pos(at.x), -Pos(at.y));
    Fill(canvas, outline, colour);
  }

  FT_Library library_ = nullptr;
  FT_Face face_ = nullptr;
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
