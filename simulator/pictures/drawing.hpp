#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "machine/roll.hpp"

namespace impresora {

enum class Ink : std::uint8_t { kTable, kShadow, kPaper, kHole, kWatermark, kPrint, kMark };

struct Colour {
  std::uint8_t red, green, blue;
  std::string_view css;
};

// One row for each ink.
inline constexpr std::array<Colour, 7> kColours{{
    {0xE4, 0xE2, 0xDD, "#e4e2dd"},  // the table that the paper lies on
    {0xCB, 0xC8, 0xC1, "#cbc8c1"},
    {0xFC, 0xFA, 0xF3, "#fcfaf3"},
    {0xDA, 0xD7, 0xCF, "#dad7cf"},
    {0xF1, 0xE3, 0xDC, "#f1e3dc"},
    {0x2C, 0x2B, 0x3A, "#2c2b3a"},  // ribbon ink is not quite black
    {0xB0, 0x3A, 0x2E, "#b03a2e"},
}};

inline const Colour& ColourOf(Ink ink) {
  return kColours.at(static_cast<std::size_t>(ink));
}

struct Point {
  double x, y;
};

struct Shape {
  Ink ink;
  std::vector<Point> outline;
};

// Monospaced text: every character takes `cell` times `stretch`, whatever the typeface says.
struct Lettering {
  Ink ink = Ink::kPrint;
  Point at{};  // left end of the base line
  double cell = 0;
  double stretch = 1;
  double turn = 0;  // degrees, clockwise
  bool strong = false;
  std::string text;  // well-formed UTF-8
};

// A document's paper as shapes and lettering, from the bottom up, in pixels of a screen.
struct Drawing {
  double width = 0;
  double height = 0;
  std::string title;
  std::vector<std::variant<Shape, Lettering>> marks;
};

// How tall letters are set for a cell; the same in every kind of picture.
inline double LetterSize(double cell) {
  constexpr double kAdvance = 0.602;  // of DejaVu Sans Mono
  return cell / kAdvance;
}

// Lays the lines out on a roll of 40 columns, or on a form with sprocket holes when there are
// more. Each cut begins a new sheet.
Drawing Draw(const std::vector<PaperLine>& lines, std::size_t columns, std::string_view title);

}  // namespace impresora
