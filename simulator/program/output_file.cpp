#include "program/output_file.hpp"

#include <cerrno>

#include "program/cannot_open.hpp"
#include "program/system.hpp"

namespace impresora {
namespace {

std::FILE* Open(const std::string& path) {
  if (path.empty()) return nullptr;
  if (path == "-") return stdout;
  std::FILE* const file = OpenToWrite(path);
  if (file == nullptr) throw CannotOpen(path, {errno, std::generic_category()});
  return file;
}

}  // namespace

void OutputFile::Closer::operator()(std::FILE* file) const {
  if (file == stdout) {
    std::fflush(file);
  } else {
    std::fclose(file);
  }
}

OutputFile::OutputFile(const std::string& path, bool flush_every_line)
    : file_(Open(path)), flush_every_line_(flush_every_line) {}

void OutputFile::Line(std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), file_.get());
  std::fputc('\n', file_.get());
  if (flush_every_line_) Flush();
}

void OutputFile::Flush() {
  std::fflush(file_.get());
}

}  // namespace impresora
