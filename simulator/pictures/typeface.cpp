#include "pictures/typeface.hpp"

// One source has the library's code; nobody else sees any of it.
#define STB_TRUETYPE_IMPLEMENTATION
#define STBTT_STATIC
#include <stb/stb_truetype.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <vector>

#include "text/path.hpp"

namespace impresora {
namespace {

constexpr double kEmphasis = 1.0 / 22;  // ems by which strong letters are thicker
constexpr int kCurveSteps = 6;

// A point of a letter's frame: on the line, or one that a curve only bends towards.
struct Knot {
  Point at;
  bool on;
};
using Frame = std::vector<Knot>;

Point Between(const Point& from, const Point& to, double share) {
  return {from.x + (to.x - from.x) * share, from.y + (to.y - from.y) * share};
}

std::uint32_t BigEndian(const std::vector<unsigned char>& bytes, std::size_t at, std::size_t size) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < size; ++i) value = value << 8U | bytes[at + i];
  return value;
}

// The library believes what a file says of itself: each table that it names has to be there.
bool IsWhole(const std::vector<unsigned char>& bytes, std::size_t start) {
  constexpr std::size_t kHead = 12;
  constexpr std::size_t kRow = 16;
  if (bytes.size() < start + kHead) return false;
  const std::size_t tables = BigEndian(bytes, start + 4, 2);
  if (bytes.size() < start + kHead + tables * kRow) return false;
  for (std::size_t i = 0; i < tables; ++i) {
    const std::size_t row = start + kHead + i * kRow;
    const std::uint64_t end =
        std::uint64_t{BigEndian(bytes, row + 8, 4)} + BigEndian(bytes, row + 12, 4);
    if (end > bytes.size()) return false;
  }
  return true;
}

bool SamePlace(const Knot& one, const Knot& other) {
  return one.at.x == other.at.x && one.at.y == other.at.y;
}

void Close(Frame& frame) {
  if (frame.size() > 1 && SamePlace(frame.front(), frame.back())) frame.pop_back();
}

double AreaOf(const std::vector<Frame>& frames) {
  double twice = 0;
  for (const Frame& frame : frames) {
    for (std::size_t i = 0; i < frame.size(); ++i) {
      const Point& from = frame[i].at;
      const Point& to = frame[(i + 1) % frame.size()].at;
      twice += from.x * to.y - to.x * from.y;
    }
  }
  return twice / 2;
}

// Where a corner goes when both of its sides go outward by `by`. On an inner corner the sides get
// shorter, and it goes no further than the shorter one lasts.
Point Pushed(const Point& before, const Point& corner, const Point& after, double by) {
  const Point in{corner.x - before.x, corner.y - before.y};
  const Point out{after.x - corner.x, after.y - corner.y};
  const double in_length = std::hypot(in.x, in.y);
  const double out_length = std::hypot(out.x, out.y);
  if (in_length == 0 || out_length == 0) return corner;
  const Point a{in.y / in_length, -in.x / in_length};
  const Point b{out.y / out_length, -out.x / out_length};
  const double straight = 1 + a.x * b.x + a.y * b.y;
  constexpr double kHairpin = 0.07;
  if (straight < kHairpin) return corner;
  const double inward = (a.y * b.x - a.x * b.y) * (by < 0 ? -1 : 1);
  const double shorter = std::min(in_length, out_length);
  double reach = by / straight;
  if (inward * std::abs(by) > shorter * straight) reach = shorter / inward * (by < 0 ? -1 : 1);
  return {corner.x + (a.x + b.x) * reach, corner.y + (a.y + b.y) * reach};
}

// Thicker on all sides, and where it was at the left and at the foot.
Frame Emphasised(const Frame& frame, double by) {
  Frame thick = frame;
  const std::size_t count = frame.size();
  for (std::size_t i = 0; i < count; ++i) {
    thick[i].at =
        Pushed(frame[(i + count - 1) % count].at, frame[i].at, frame[(i + 1) % count].at, by);
    thick[i].at.x += kEmphasis / 2;
    thick[i].at.y -= kEmphasis / 2;
  }
  return thick;
}

// Curves become lines, short enough at the sizes of a paper.
std::vector<Point> Flattened(const Frame& frame) {
  std::vector<Point> line;
  for (std::size_t i = 0; i < frame.size(); ++i) {
    if (frame[i].on) {
      line.push_back(frame[i].at);
      continue;
    }
    const Point& from = frame[(i + frame.size() - 1) % frame.size()].at;
    const Point& to = frame[(i + 1) % frame.size()].at;
    for (int step = 1; step < kCurveSteps; ++step) {
      const double share = double(step) / kCurveSteps;
      line.push_back(
          Between(Between(from, frame[i].at, share), Between(frame[i].at, to, share), share));
    }
  }
  return line;
}

}  // namespace

class Typeface::File {
 public:
  bool Read(const std::string& path) {
    std::ifstream file(PathOf(path), std::ios::binary);
    bytes_.assign(std::istreambuf_iterator<char>(file), {});
    constexpr std::size_t kShortest = 16;
    if (bytes_.size() < kShortest) return false;
    const int start = stbtt_GetFontOffsetForIndex(bytes_.data(), 0);
    if (start < 0 || !IsWhole(bytes_, static_cast<std::size_t>(start))) return false;
    if (stbtt_InitFont(&font_, bytes_.data(), start) == 0) return false;
    unit_ = double{stbtt_ScaleForMappingEmToPixels(&font_, 1)};
    return true;
  }

  // The library's heights grow upward.
  std::vector<Frame> FramesOf(char32_t character) const {
    stbtt_vertex* found = nullptr;
    const int count = stbtt_GetCodepointShape(&font_, static_cast<int>(character), &found);
    const std::unique_ptr<stbtt_vertex, Release> shape(found);
    std::vector<Frame> frames;
    for (int i = 0; i < count; ++i) {
      const stbtt_vertex& next = shape.get()[i];
      if (next.type == STBTT_vmove || frames.empty()) frames.emplace_back();
      Frame& frame = frames.back();
      const Point to = At(next.x, next.y);
      if (next.type == STBTT_vcurve) frame.push_back({At(next.cx, next.cy), false});
      if (next.type == STBTT_vcubic) Bend(frame, At(next.cx, next.cy), At(next.cx1, next.cy1), to);
      frame.push_back({to, true});
    }
    std::for_each(frames.begin(), frames.end(), Close);
    return frames;
  }

 private:
  struct Release {
    void operator()(stbtt_vertex* shape) const { STBTT_free(shape, nullptr); }
  };

  Point At(int x, int y) const { return {x * unit_, -y * unit_}; }

  // Curves of the third degree become lines at once.
  static void Bend(Frame& frame, const Point& first, const Point& second, const Point& to) {
    const Point from = frame.empty() ? to : frame.back().at;
    for (int step = 1; step < kCurveSteps; ++step) {
      const double share = double(step) / kCurveSteps;
      const Point middle = Between(first, second, share);
      const Point near = Between(Between(from, first, share), middle, share);
      const Point far = Between(middle, Between(second, to, share), share);
      frame.push_back({Between(near, far, share), true});
    }
  }

  std::vector<unsigned char> bytes_;
  stbtt_fontinfo font_{};
  double unit_ = 0;
};

Typeface::Typeface() : file_(std::make_unique<File>()) {}

Typeface::~Typeface() = default;

bool Typeface::Open(const std::string& path) {
  return file_->Read(path);
}

const Outline& Typeface::Letter(char32_t character, bool strong) {
  const auto [place, fresh] = letters_.try_emplace({character, strong});
  if (!fresh) return place->second;
  const std::vector<Frame> frames = file_->FramesOf(character);
  const double outward = AreaOf(frames) < 0 ? -kEmphasis / 2 : kEmphasis / 2;
  for (const Frame& frame : frames) {
    place->second.push_back(Flattened(strong ? Emphasised(frame, outward) : frame));
  }
  return place->second;
}

}  // namespace impresora
