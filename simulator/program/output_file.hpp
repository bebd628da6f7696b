#pragma once

#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

namespace impresora {

// A text file to write lines to, the standard output ("-"), or nothing at all ("").
class OutputFile {
 public:
  // Throws CannotOpen when it cannot be opened.
  OutputFile(const std::string& path, bool flush_every_line);

  bool IsOpen() const { return file_ != nullptr; }
  void Line(std::string_view text);
  void Flush();

 private:
  struct Closer {
    void operator()(std::FILE* file) const;
  };
  std::unique_ptr<std::FILE, Closer> file_;
  bool flush_every_line_;
};

}  // namespace impresora
