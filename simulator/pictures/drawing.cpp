#include "pictures/drawing.hpp"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "paper/layout.hpp"
#include "text/text.hpp"
#include "text/utf8.hpp"

namespace impresora {
namespace {

using Style = PaperLine::Style;
using Lines = std::vector<PaperLine>;

constexpr std::size_t kRollColumns = 40;
constexpr double kTable = 14;  // around and between the sheets
constexpr double kLogoLines = 3;

struct Format {
  double cell, line_height, side, top, bottom, strip;
  bool form;
};

constexpr Format kRoll{10, 20, 24, 24, 44, 0, false};
constexpr Format kForm{9, 18, 56, 30, 46, 34, true};

double HeightOf(const PaperLine& line, const Format& format) {
  return line.style == Style::kLogo ? kLogoLines * format.line_height : format.line_height;
}

bool Blank(const PaperLine& line) {
  return line.style == Style::kFeed || (line.text.empty() && line.style != Style::kCut);
}

// What lies between two cuts. A piece of blank paper is thrown away.
std::vector<Lines> Sheets(const Lines& lines) {
  std::vector<Lines> sheets;
  auto from = lines.begin();
  while (true) {
    const auto cut = std::find_if(from, lines.end(),
                                  [](const PaperLine& line) { return line.style == Style::kCut; });
    if (!std::all_of(from, cut, Blank)) sheets.emplace_back(from, cut);
    if (cut == lines.end()) return sheets;
    from = cut + 1;
  }
}

Shape Rectangle(Ink ink, double left, double top, double right, double bottom) {
  return {ink, {{left, top}, {right, top}, {right, bottom}, {left, bottom}}};
}

Shape Disc(Ink ink, Point centre, double radius) {
  constexpr int kCorners = 20;
  Shape disc{ink, {}};
  for (int i = 0; i < kCorners; ++i) {
    const double angle = 2 * std::numbers::pi * i / kCorners;
    disc.outline.push_back(
        {centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)});
  }
  return disc;
}

// The knife that a roll is torn off at leaves teeth.
void AddTeeth(Shape& shape, double from, double to, double y) {
  constexpr double kTooth = 4;
  constexpr double kPitch = 8;
  const int teeth = static_cast<int>(std::abs(to - from) / kPitch);
  const double step = (to - from) / teeth;
  for (int i = 0; i < teeth; ++i) {
    shape.outline.push_back({from + step * i, y});
    shape.outline.push_back({from + step * (i + 0.5), y + kTooth});
  }
  shape.outline.push_back({to, y});
}

Shape SheetShape(Ink ink, const Format& format, Point from, Point to) {
  if (format.form) return Rectangle(ink, from.x, from.y, to.x, to.y);
  Shape shape{ink, {}};
  AddTeeth(shape, from.x, to.x, from.y);
  AddTeeth(shape, to.x, from.x, to.y - 4);
  return shape;
}

// One sheet at a time, from the top of the drawing down.
class Layout {
 public:
  Layout(std::size_t columns, Drawing& drawing)
      : columns_(columns), format_(columns > kRollColumns ? kForm : kRoll), drawing_(drawing) {
    width_ = static_cast<double>(columns) * format_.cell + 2 * format_.side;
    drawing_.width = width_ + 2 * kTable;
  }

  void AddSheet(const Lines& lines) {
    double height = format_.top + format_.bottom;
    for (const PaperLine& line : lines) height += HeightOf(line, format_);
    AddPaper(height);
    AddWatermarks(height);
    double y = y_ + format_.top;
    for (const PaperLine& line : lines) {
      AddLine(line, y);
      y += HeightOf(line, format_);
    }
    AddFootMark(height);
    y_ += height + kTable;
  }

  double Bottom() const { return y_; }

 private:
  double Left() const { return kTable + format_.side; }

  void Add(Lettering lettering) { drawing_.marks.emplace_back(std::move(lettering)); }
  void Add(Shape shape) { drawing_.marks.emplace_back(std::move(shape)); }

  void AddPaper(double height) {
    const Point from{kTable, y_};
    const Point to{kTable + width_, y_ + height};
    Add(SheetShape(Ink::kShadow, format_, {from.x + 2, from.y + 3}, {to.x + 2, to.y + 3}));
    Add(SheetShape(Ink::kPaper, format_, from, to));
    if (format_.form) AddStrips(height);
  }

  // Holes for the tractor, and the line along which their strips are torn off.
  void AddStrips(double height) {
    constexpr double kPitch = 24;
    const double right = kTable + width_;
    for (double y = y_ + kPitch / 2; y < y_ + height - 6; y += kPitch) {
      for (const double x : {kTable + format_.strip / 2, right - format_.strip / 2}) {
        Add(Disc(Ink::kHole, {x, y}, 6));
      }
    }
    for (double y = y_ + 2; y < y_ + height - 3; y += 6) {
      for (const double x : {kTable + format_.strip, right - format_.strip}) {
        Add(Rectangle(Ink::kHole, x - 0.5, y, x + 0.5, y + 3));
      }
    }
  }

  void AddWatermarks(double height) {
    const double length = width_ * 0.9;
    const double cell = length / static_cast<double>(kNoFiscalValue.size());
    const double rise = std::min(length / 2, height * 0.6);  // flatter on a short sheet
    const double angle = std::asin(rise / length);
    const double tall = rise + LetterSize(cell) * 0.8;  // of the letters too
    const double pitch = rise + 130;
    const double first = std::max(0.0, std::fmod(height - tall, pitch)) / 2;
    for (double y = first + tall; y <= std::max(height, tall); y += pitch) {
      Add(Lettering{.ink = Ink::kWatermark,
                    .at = {kTable + (width_ - length * std::cos(angle)) / 2, y_ + y},
                    .cell = cell,
                    .turn = -angle * 180 / std::numbers::pi,
                    .strong = true,
                    .text = std::string(kNoFiscalValue)});
    }
  }

  void AddFootMark(double height) {
    const std::string text = std::string(kNoFiscalValue) + " · IMPRESORA VIRTUAL";
    const double cell = format_.cell * 0.75;
    const double length = cell * static_cast<double>(Columns(text));
    Add(Lettering{.ink = Ink::kMark,
                  .at = {kTable + (width_ - length) / 2, y_ + height - 20},
                  .cell = cell,
                  .text = text});
  }

  double BaseLine(double top) const { return top + format_.line_height * 0.75; }

  void AddLine(const PaperLine& line, double top) {
    if (line.style == Style::kWide) return AddWide(line.text, false, top);
    if (line.style == Style::kWideCentred) return AddWide(line.text, true, top);
    if (line.style == Style::kLogo) {
      top += format_.line_height * (kLogoLines - 1) / 2;
      AddLogo(top + format_.line_height / 2);
    }
    const bool strong = line.style == Style::kStrong || line.style == Style::kStrongCentred;
    AddRuns(AsText({CleanUtf8(line.text), line.style}, columns_), strong, top);
  }

  // Words that stand far apart are set one by one, each in its own columns.
  void AddRuns(std::string_view text, bool strong, double top) {
    constexpr std::string_view kGap = "  ";
    std::size_t column = 0;
    while (!text.empty()) {
      const std::size_t blanks = std::min(text.find_first_not_of(' '), text.size());
      column += blanks;
      text.remove_prefix(blanks);
      const std::string_view run = text.substr(0, text.find(kGap));
      if (run.empty()) return;
      Add(Lettering{.at = {Left() + static_cast<double>(column) * format_.cell, BaseLine(top)},
                    .cell = format_.cell,
                    .strong = strong,
                    .text = std::string(run)});
      column += Columns(run);
      text.remove_prefix(run.size());
    }
  }

  void AddWide(std::string_view text, bool centred, double top) {
    const std::string fitted(CutToColumns(CleanUtf8(text), columns_ / 2));
    if (fitted.empty()) return;
    const double length = 2 * format_.cell * static_cast<double>(Columns(fitted));
    const double room = static_cast<double>(columns_) * format_.cell - length;
    Add(Lettering{.at = {Left() + (centred ? room / 2 : 0), BaseLine(top)},
                  .cell = format_.cell,
                  .stretch = 2,
                  .text = fitted});
  }

  // A sign of our own where a real printer strikes the tax authority's.
  void AddLogo(double middle) {
    const double x = kTable + width_ / 2;
    const double half = format_.line_height * 1.15;
    const auto hexagon = [&](Ink ink, double reach) {
      const double flat = reach * 0.55;
      const double tall = reach * 0.9;
      return Shape{ink,
                   {{x - reach, middle},
                    {x - flat, middle - tall},
                    {x + flat, middle - tall},
                    {x + reach, middle},
                    {x + flat, middle + tall},
                    {x - flat, middle + tall}}};
    };
    Add(hexagon(Ink::kPrint, half * 1.4));
    Add(hexagon(Ink::kPaper, half * 1.4 - 2.5));
    AddLogoWord("LOGO", x, middle - 2);
    AddLogoWord("FICTICIO", x, middle + 9);
  }

  void AddLogoWord(std::string_view word, double x, double y) {
    constexpr double kCell = 5.6;
    Add(Lettering{.at = {x - kCell * static_cast<double>(word.size()) / 2, y},
                  .cell = kCell,
                  .strong = true,
                  .text = std::string(word)});
  }

  std::size_t columns_;
  Format format_;
  Drawing& drawing_;
  double width_ = 0;
  double y_ = kTable;
};

}  // namespace

Drawing Draw(const Lines& lines, std::size_t columns, std::string_view title) {
  Drawing drawing;
  drawing.title = CleanUtf8(title);
  drawing.marks.emplace_back(Shape{});  // the table, once its size is known
  Layout layout(columns, drawing);
  for (const Lines& sheet : Sheets(lines)) layout.AddSheet(sheet);
  drawing.height = layout.Bottom();
  drawing.marks.front() = Rectangle(Ink::kTable, 0, 0, drawing.width, drawing.height);
  return drawing;
}

}  // namespace impresora
