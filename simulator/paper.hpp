#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace impresora {

// The lines printed so far, in UTF-8, waiting to be taken away. Text that does not fit is cut, as
// the print head does.
class Paper {
 public:
  explicit Paper(std::size_t columns);

  void Line(std::string_view utf8);
  void Center(std::string_view utf8);
  void Wide(std::string_view utf8);  // double width, shown as spaced-out letters
  void Split(std::string_view left, std::string_view right);
  void Rule(char with);
  void Feed(int lines);

  // A line as the host sent it: centred or as it stands, in double width when it asks for it.
  void CenterHostText(std::string_view bytes);
  void HostText(std::string_view bytes);

  std::size_t columns() const { return columns_; }
  std::vector<std::string> Take();

 private:
  std::size_t columns_;
  std::vector<std::string> lines_;
};

}  // namespace impresora
