#include "pictures/paper_folder.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <fstream>
#include <system_error>
#include <utility>

#include "fiscal/amounts.hpp"
#include "pictures/drawing.hpp"
#include "pictures/svg.hpp"
#include "text/path.hpp"
#include "text/utf8.hpp"

namespace impresora {
namespace {

namespace fs = std::filesystem;

constexpr int kOrderDigits = 4;

struct Plain {
  char32_t from;
  char to;
};

constexpr std::array<Plain, 14> kPlainLetters{{{U'Á', 'a'},
                                               {U'É', 'e'},
                                               {U'Í', 'i'},
                                               {U'Ó', 'o'},
                                               {U'Ú', 'u'},
                                               {U'Ü', 'u'},
                                               {U'Ñ', 'n'},
                                               {U'á', 'a'},
                                               {U'é', 'e'},
                                               {U'í', 'i'},
                                               {U'ó', 'o'},
                                               {U'ú', 'u'},
                                               {U'ü', 'u'},
                                               {U'ñ', 'n'}}};

bool IsLower(char32_t c) {
  return (c >= U'a' && c <= U'z') || (c >= U'0' && c <= U'9');
}

// The letter for a file's name, or a hyphen.
char Plainly(char32_t c) {
  if (c >= U'A' && c <= U'Z') return static_cast<char>(c - U'A' + U'a');
  if (IsLower(c)) return static_cast<char>(c);
  for (const Plain& row : kPlainLetters) {
    if (row.from == c) return row.to;
  }
  return '-';
}

std::string Hyphenated(std::string_view title) {
  std::string name;
  for (const char32_t c : DecodeUtf8(title)) {
    const char plain = Plainly(c);
    if (plain != '-' || (!name.empty() && name.back() != '-')) name += plain;
  }
  while (!name.empty() && name.back() == '-') name.pop_back();
  return name.empty() ? "documento" : name;
}

unsigned OrderOf(const fs::path& file) {
  const std::string name = NameOf(file.filename());
  unsigned order = 0;
  const auto end = std::from_chars(name.data(), name.data() + name.size(), order);
  return end.ec == std::errc() ? order : 0;
}

unsigned LastOrder(const fs::path& folder) {
  unsigned last = 0;
  for (const auto& entry : fs::directory_iterator(folder)) {
    last = std::max(last, OrderOf(entry.path()));
  }
  return last;
}

bool NoPrint(const PaperLine& line) {
  return line.style == PaperLine::Style::kFeed || line.style == PaperLine::Style::kCut;
}

}  // namespace

std::string DocumentName(const Receipt& receipt) {
  std::string name = Hyphenated(receipt.kind);
  if (receipt.letter != 0) name += std::string("-") + receipt.letter;
  if (receipt.number != 0) name += "-" + Padded(receipt.number, 8);
  return receipt.cancelled ? name + "-cancelado" : name;
}

std::string PaperText(const std::vector<PaperLine>& lines, std::size_t columns) {
  std::string text;
  for (const PaperLine& line : lines) text += AsText(line, columns) + "\n";
  return text;
}

PaperFolder::PaperFolder(fs::path folder, std::size_t columns, const std::string& font, Tell tell)
    : folder_(std::move(folder)), columns_(columns), png_(font), tell_(std::move(tell)) {
  fs::create_directories(folder_);
  last_ = LastOrder(folder_);
  if (!png_.Ready()) tell_(png_.Complaint());
}

// What feeds and cuts after a document has ended belongs to none.
void PaperFolder::Printed(const PaperLine& line) {
  if (!lines_.empty() || !NoPrint(line)) lines_.push_back(line);
}

void PaperFolder::Closed(const Receipt& receipt) {
  Write(DocumentName(receipt));
}

void PaperFolder::Finish() {
  Write("sin-cerrar");
}

void PaperFolder::Write(const std::string& name) {
  const std::vector<PaperLine> lines = std::exchange(lines_, {});
  if (lines.empty()) return;
  const std::string numbered = Padded(++last_, kOrderDigits) + "-" + name;
  try {
    WriteFile(numbered + ".txt", PaperText(lines, columns_));
    const Drawing drawing = Draw(lines, columns_, numbered);
    WriteFile(numbered + ".svg", ToSvg(drawing));
    if (png_.Ready()) WriteFile(numbered + ".png", png_.Make(drawing));
    failed_ = false;
  } catch (const std::exception& error) {
    if (!failed_) tell_("no se pudo guardar el papel " + numbered + ": " + error.what());
    failed_ = true;
  }
}

void PaperFolder::WriteFile(const std::string& name, std::string_view bytes) {
  const fs::path unfinished = folder_ / ("." + name + ".incompleto");
  std::ofstream file(unfinished, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) {
    std::error_code ignored;
    fs::remove(unfinished, ignored);
    throw std::system_error(std::make_error_code(std::errc::io_error), NameOf(folder_));
  }
  fs::rename(unfinished, folder_ / name);
}

}  // namespace impresora
