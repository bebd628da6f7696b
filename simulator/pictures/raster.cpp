#include "pictures/raster.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>

namespace impresora {
namespace {

constexpr std::ptrdiff_t kBandRows = 64;  // at a time, however tall the shape is

struct Box {
  double left = std::numeric_limits<double>::max();
  double top = std::numeric_limits<double>::max();
  double right = std::numeric_limits<double>::lowest();
  double bottom = std::numeric_limits<double>::lowest();
};

Box BoxOf(const Outline& outline) {
  Box box;
  for (const auto& line : outline) {
    for (const Point& point : line) {
      box.left = std::min(box.left, point.x);
      box.top = std::min(box.top, point.y);
      box.right = std::max(box.right, point.x);
      box.bottom = std::max(box.bottom, point.y);
    }
  }
  return box;
}

// Some rows of pixels. Each edge puts down by how much the cover changes from one pixel to the next;
// summed from the left, that is each pixel's cover.
class Band {
 public:
  Band(std::ptrdiff_t left, std::ptrdiff_t columns, std::ptrdiff_t top, std::ptrdiff_t rows)
      : left_(left),
        top_(top),
        columns_(columns),
        rows_(rows),
        steps_(static_cast<std::size_t>((columns + 2) * rows)) {}

  void AddEdge(Point from, Point to) {
    if (from.y == to.y) return;
    const double sense = from.y < to.y ? 1 : -1;
    if (sense < 0) std::swap(from, to);
    const double slope = (to.x - from.x) / (to.y - from.y);
    const double top = std::max(from.y - double(top_), 0.0);
    const double bottom = std::min(to.y - double(top_), double(rows_));
    const auto along = [&](double y) {
      return from.x + (y + double(top_) - from.y) * slope - double(left_);
    };
    for (auto row = static_cast<std::ptrdiff_t>(top); double(row) < bottom; ++row) {
      const double begin = std::max(top, double(row));
      const double end = std::min(bottom, double(row + 1));
      AddStroke(row, along(begin), along(end), (end - begin) * sense);
    }
  }

  void Stamp(Canvas& canvas, const Colour& colour) const {
    for (std::ptrdiff_t row = 0; row < rows_; ++row) {
      double cover = 0;
      for (std::ptrdiff_t column = 0; column < columns_; ++column) {
        cover += steps_[Index(row, column)];
        const double share = std::min(std::abs(cover), 1.0);
        const auto ink = static_cast<std::uint8_t>(std::lround(share * 255));
        if (ink != 0) canvas.Blend(left_ + column, top_ + row, colour, ink);
      }
    }
  }

 private:
  std::size_t Index(std::ptrdiff_t row, std::ptrdiff_t column) const {
    return static_cast<std::size_t>(row * (columns_ + 2) + column);
  }

  // Of an edge what lies in one row: all to the right of it is covered, and of the pixels that it
  // crosses a part.
  void AddStroke(std::ptrdiff_t row, double from, double to, double height) {
    if (from > to) std::swap(from, to);
    const double width = to - from;
    for (auto column = static_cast<std::ptrdiff_t>(std::max(from, 0.0)); column <= columns_;
         ++column) {
      const double begin = std::max(from, double(column));
      const double end = std::min(to, double(column + 1));
      const double part = width > 0 ? height * (end - begin) / width : height;
      const double gone = (begin + end) / 2 - double(column);
      steps_[Index(row, column)] += part * (1 - gone);
      steps_[Index(row, column + 1)] += part * gone;
      if (end >= to) return;
    }
  }

  std::ptrdiff_t left_, top_, columns_, rows_;
  std::vector<double> steps_;
};

}  // namespace

void Fill(Canvas& canvas, const Outline& outline, const Colour& colour) {
  const Box box = BoxOf(outline);
  if (box.left >= box.right || box.top >= box.bottom) return;
  const auto left = static_cast<std::ptrdiff_t>(std::floor(box.left));
  const auto columns = static_cast<std::ptrdiff_t>(std::ceil(box.right)) - left;
  const auto bottom = static_cast<std::ptrdiff_t>(std::ceil(box.bottom));
  for (auto top = static_cast<std::ptrdiff_t>(std::floor(box.top)); top < bottom;
       top += kBandRows) {
    Band band(left, columns, top, std::min(kBandRows, bottom - top));
    for (const auto& line : outline) {
      for (std::size_t i = 0; i < line.size(); ++i) {
        band.AddEdge(line[i], line[(i + 1) % line.size()]);
      }
    }
    band.Stamp(canvas, colour);
  }
}

}  // namespace impresora
