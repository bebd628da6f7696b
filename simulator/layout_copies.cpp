#include <array>
#include <string>

#include "layout.hpp"

namespace impresora {
namespace {

std::string CopyName(int paper) {
  constexpr std::array<std::string_view, 3> kNames{"DUPLICADO", "TRIPLICADO", "CUADRUPLICADO"};
  const auto index = static_cast<std::size_t>(paper - 2);
  return index < kNames.size() ? std::string(kNames.at(index))
                               : "COPIA " + std::to_string(paper - 1);
}

// The line about fiscal value stays on top; the copy's name comes below it.
void PrintCopy(Machine& m, const std::vector<PaperLine>& original, const std::string& name) {
  bool named = false;
  for (const PaperLine& line : original) {
    m.paper.Again(line);
    if (!named) m.paper.Center(name);
    named = true;
  }
}

}  // namespace

void PrintCopies(Machine& m) {
  const Document& document = *m.document;
  if (document.copies < 2) return;
  std::vector<PaperLine> original = m.printed;
  const std::vector<PaperLine>& waiting = m.paper.lines();
  for (std::size_t i = m.command_paper; i < waiting.size(); ++i) original.push_back(waiting[i]);
  for (int paper = 2; paper <= document.copies; ++paper) {
    PrintCopy(m, original, CopyName(paper));
  }
}

}  // namespace impresora
