#pragma once

#include <span>
#include <string_view>

namespace impresora {

// A file of the page, compiled into the program.
struct WebFile {
  std::string_view path;  // exactly as asked for
  const char* type;
  std::string_view content;
};

std::span<const WebFile> WebFiles();

}  // namespace impresora
