#include <array>
#include <string>

#include "paper/layout.hpp"

namespace impresora {
namespace {

std::string CopyName(int paper) {
  constexpr std::array<std::string_view, 3> kNames{"DUPLICADO", "TRIPLICADO", "CUADRUPLICADO"};
  const auto index = static_cast<std::size_t>(paper - 2);
  return index < kNames.size() ? std::string(kNames.at(index))
                               : "COPIA " + std::to_string(paper - 1);
}

bool IsAboutFiscalValue(const PaperLine& line) {
  return line.style == Paper::Style::kCentred && line.text == kNoFiscalValue;
}

// Every sheet begins and ends with the line about fiscal value; only at its end, paper is fed. That on
// top stays there, and the copy's name comes below it.
void PrintCopy(Machine& m, const std::vector<PaperLine>& original, const std::string& name) {
  bool named = false;
  for (std::size_t i = 0; i < original.size(); ++i) {
    m.paper.Again(original[i]);
    if (!IsAboutFiscalValue(original[i])) continue;
    const bool foot = i + 1 < original.size() && original[i + 1].style == Paper::Style::kFeed;
    if (!named && !foot) m.paper.Center(name);
    named = !foot;
  }
}

}  // namespace

void PrintCopies(Machine& m) {
  const Document& document = *m.document;
  if (document.copies < 2) return;
  std::vector<PaperLine> original = m.printed;
  const std::vector<PaperLine>& waiting = m.paper.Lines();
  for (std::size_t i = m.command_paper; i < waiting.size(); ++i) original.push_back(waiting[i]);
  for (int paper = 2; paper <= document.copies; ++paper) {
    PrintCopy(m, original, CopyName(paper));
  }
}

}  // namespace impresora
