#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "pictures/drawing.hpp"

namespace impresora {

// Pixels, three bytes each.
class Canvas {
 public:
  Canvas(std::size_t width, std::size_t height)
      : width_(width), height_(height), bytes_(width * height * 3, 0xFF) {}

  // Lets `cover` (0 to 255) of the ink into a pixel; outside the canvas nothing happens.
  void Blend(std::ptrdiff_t x, std::ptrdiff_t y, const Colour& colour, std::uint8_t cover) {
    if (x < 0 || y < 0 || x >= std::ptrdiff_t(width_) || y >= std::ptrdiff_t(height_)) return;
    std::uint8_t* pixel = &bytes_[(std::size_t(y) * width_ + std::size_t(x)) * 3];
    pixel[0] = Mix(pixel[0], colour.red, cover);
    pixel[1] = Mix(pixel[1], colour.green, cover);
    pixel[2] = Mix(pixel[2], colour.blue, cover);
  }

  std::size_t Width() const { return width_; }
  std::size_t Height() const { return height_; }
  const std::uint8_t* Row(std::size_t y) const { return &bytes_[y * width_ * 3]; }

 private:
  static std::uint8_t Mix(std::uint8_t below, std::uint8_t ink, std::uint8_t cover) {
    return static_cast<std::uint8_t>((below * (255 - cover) + ink * cover + 127) / 255);
  }

  std::size_t width_;
  std::size_t height_;
  std::vector<std::uint8_t> bytes_;
};

}  // namespace impresora
