#include "pictures/svg.hpp"

#include <array>
#include <charconv>

#include "text/text.hpp"

namespace impresora {
namespace {

constexpr std::string_view kTypefaces =
    "'DejaVu Sans Mono','Liberation Mono',Menlo,Consolas,'Courier New',monospace";

// With a point whatever the language of the user is, and without zeros that say nothing.
std::string Number(double value) {
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                 std::chars_format::fixed, 2);
  std::string text(digits.data(), end.ptr);
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text == "-0" ? "0" : text;
}

std::string Escaped(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    switch (c) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      default:
        escaped += c;
    }
  }
  return escaped;
}

std::string Attribute(std::string_view name, std::string_view value) {
  return " " + std::string(name) + "=\"" + std::string(value) + "\"";
}

void WriteMark(std::string& svg, const Shape& shape) {
  std::string points;
  for (const Point& point : shape.outline) {
    if (!points.empty()) points += ' ';
    points += Number(point.x) + "," + Number(point.y);
  }
  svg += "<polygon" + Attribute("fill", ColourOf(shape.ink).css) + Attribute("points", points) +
         "/>\n";
}

std::string Place(const Lettering& lettering) {
  const std::string x = Number(lettering.at.x);
  const std::string y = Number(lettering.at.y);
  if (lettering.turn == 0 && lettering.stretch == 1) return Attribute("x", x) + Attribute("y", y);
  std::string transform = "translate(" + x + " " + y + ")";
  if (lettering.turn != 0) transform += " rotate(" + Number(lettering.turn) + ")";
  if (lettering.stretch != 1) transform += " scale(" + Number(lettering.stretch) + " 1)";
  return Attribute("transform", transform);
}

// The length is fixed so that columns stay columns in any typeface.
void WriteMark(std::string& svg, const Lettering& lettering) {
  const double length = lettering.cell * static_cast<double>(Columns(lettering.text));
  svg += "<text" + Place(lettering) + Attribute("font-size", Number(LetterSize(lettering.cell))) +
         Attribute("textLength", Number(length)) + Attribute("lengthAdjust", "spacingAndGlyphs");
  if (lettering.strong) svg += Attribute("font-weight", "bold");
  if (lettering.ink != Ink::kPrint) svg += Attribute("fill", ColourOf(lettering.ink).css);
  svg += ">" + Escaped(lettering.text) + "</text>\n";
}

}  // namespace

std::string ToSvg(const Drawing& drawing) {
  const std::string width = Number(drawing.width);
  const std::string height = Number(drawing.height);
  std::string svg =
      "<svg xmlns=\"http://www.w3.org/2000/svg\"" + Attribute("width", width) +
      Attribute("height", height) + Attribute("viewBox", "0 0 " + width + " " + height) +
      Attribute("font-family", kTypefaces) + Attribute("fill", ColourOf(Ink::kPrint).css) + ">\n";
  svg += "<title>" + Escaped(drawing.title) + "</title>\n";
  for (const auto& mark : drawing.marks) {
    std::visit([&svg](const auto& any) { WriteMark(svg, any); }, mark);
  }
  return svg + "</svg>\n";
}

}  // namespace impresora
