#pragma once

#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "settings.hpp"

namespace impresora {

struct Options {
  Settings settings;
  Faults faults;
  std::string link;
  std::string paper = "-";
  std::string trace;
  int baud = 0;
  int documents = 0;  // end after so many; 0 for never
  bool help = false;
  bool version = false;
};

// Fills `options`; returns what is wrong with the arguments, in words, or nothing.
std::string ParseOptions(const std::vector<std::string_view>& arguments, Options& options);

void PrintHelp(std::ostream& out);

}  // namespace impresora
