#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace impresora {

// One printed line. `text` is UTF-8 as meant: without the blanks that centre it and without the
// gaps of double width; how it is set is for whoever shows it.
struct PaperLine {
  enum class Style {
    kPlain,
    kStrong,  // struck twice
    kCentred,
    kStrongCentred,
    kWide,  // double width
    kWideCentred,
    kLogo,  // plain, with the fiscal logo beside it
    kRule,  // `text` is the character it repeats
    kCut,
    kFeed,  // an empty line
  };

  std::string text;
  Style style = Style::kPlain;

  bool operator==(const PaperLine&) const = default;
};

// The line as a terminal shows it: within `columns`, no blanks at its end, double width as
// spaced-out letters.
std::string AsText(const PaperLine& line, std::size_t columns);

// Whether the host asks for double width: its mark stands in front of the text.
bool IsDoubleWidth(std::string_view bytes);

// The lines printed so far waiting to be taken away. Text that does not fit goes on in the next line.
class Paper {
 public:
  using Style = PaperLine::Style;

  explicit Paper(std::size_t columns);

  void Line(std::string_view utf8, Style style = Style::kPlain);
  void Center(std::string_view utf8) { Line(utf8, Style::kCentred); }
  void Wide(std::string_view utf8) { Line(utf8, Style::kWideCentred); }
  // The right part stands at the end of the left one's last line, or below it.
  void Split(std::string_view left, std::string_view right, Style style = Style::kPlain);
  void Rule(char with);
  void Cut();
  void Feed(int lines);

  // A line as the host sent it: centred or as it stands, in double width when it asks for it.
  void CenterHostText(std::string_view bytes);
  void HostText(std::string_view bytes);

  // Such a text with something behind it: in double width it has its lines to itself.
  void SplitHostText(std::string_view bytes, std::string_view right);

  // A line that was printed before, once more.
  void Again(PaperLine line) { lines_.push_back(std::move(line)); }

  std::size_t Width() const { return columns_; }
  const std::vector<PaperLine>& Lines() const { return lines_; }
  std::vector<PaperLine> Take();

 private:
  std::size_t columns_;
  std::vector<PaperLine> lines_;
};

}  // namespace impresora
