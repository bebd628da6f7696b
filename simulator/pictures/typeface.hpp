#pragma once

#include <map>
#include <memory>
#include <string>
#include <utility>

#include "pictures/raster.hpp"

namespace impresora {

// The letters of a typeface file as outlines.
class Typeface {
 public:
  Typeface();
  Typeface(const Typeface&) = delete;
  Typeface& operator=(const Typeface&) = delete;
  ~Typeface();

  // False when there is no such file, or it is no typeface, or it is not whole.
  bool Open(const std::string& path);

  // On its base line, one unit to the em; heights grow downward. Empty for a blank.
  const Outline& Letter(char32_t character, bool strong);

 private:
  class File;
  std::unique_ptr<File> file_;
  std::map<std::pair<char32_t, bool>, Outline> letters_;
};

}  // namespace impresora
