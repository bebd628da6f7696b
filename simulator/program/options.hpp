#pragma once

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "machine/controls.hpp"
#include "machine/settings.hpp"
#include "program/tcp_address.hpp"

namespace impresora {

struct Options {
  Settings settings;
  std::vector<std::pair<const Control*, std::int64_t>> controls;  // set at the start

  // The line: a pseudo-terminal unless one of the others is told.
  std::string link;
  std::optional<TcpAddress> tcp;
  std::string device;
  std::string pipe;
  int baud = 0;

  std::string paper = "-";
  std::string font;
  std::string trace;
  std::string recording;
  std::string replay;
  std::vector<std::string> compare;  // two files or none
  bool compare_clock = false;
  std::string memory;
  std::string fault_file;
  std::uint64_t seed = 1;
  std::optional<TcpAddress> panel;

  int documents = 0;  // end after so many; 0 for never
  bool help = false;
  bool version = false;
};

// Fills `options`; returns what is wrong with the arguments, in words, or nothing.
std::string ParseOptions(const std::vector<std::string_view>& arguments, Options& options);

void PrintHelp(std::ostream& out);

}  // namespace impresora
