#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "fiscal/journal.hpp"
#include "line/session.hpp"
#include "machine/roll.hpp"
#include "pictures/png.hpp"

namespace impresora {

// A folder with the paper of each finished document as text, SVG and PNG, in files named by order,
// kind, letter and number. Files appear whole or not at all, and none is ever written over: a
// folder that has some goes on with the next number.
class PaperFolder : public Observer {
 public:
  // What is to be told to whoever runs the printer; it never stops for want of a picture.
  using Tell = std::function<void(const std::string&)>;

  // Throws std::system_error when the folder cannot be made or read.
  PaperFolder(std::filesystem::path folder, std::size_t columns, const std::string& font,
              Tell tell);

  void Resumed(const std::vector<PaperLine>& paper) override { lines_ = paper; }
  void Printed(const PaperLine& line) override;
  void Closed(const Receipt& receipt) override;

  // Keeps what was printed of a document that nobody finished.
  void Finish();

 private:
  void Write(const std::string& name);
  void WriteFile(const std::string& name, std::string_view bytes);

  std::filesystem::path folder_;
  std::size_t columns_;
  PngMaker png_;
  Tell tell_;
  unsigned last_ = 0;
  bool failed_ = false;  // told once, until a file can be written again
  std::vector<PaperLine> lines_;
};

// "tique-factura-B-00000012": the name of a document without its order. Letters without accents,
// digits and hyphens only.
std::string DocumentName(const Receipt& receipt);

// Text as `AsText` shows it, a line each.
std::string PaperText(const std::vector<PaperLine>& lines, std::size_t columns);

}  // namespace impresora
