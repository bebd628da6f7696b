#include "platform/posix/dialog_text.hpp"

#include <algorithm>

#include "base/ansi.hpp"
#include "platform/seam/dialog_words.hpp"
#include "platform/shared/text.hpp"

namespace kestra {
namespace {

constexpr std::string_view kDefaultTitle = "Kestra";

// Control characters, those that windows-1252 leaves undefined among them: a terminal would take
// them for the controls of the same number.
bool IsControl(char c) {
  constexpr std::string_view kUndefined = "\x7F\x81\x8D\x8F\x90\x9D";
  return static_cast<unsigned char>(c) < 0x20 || kUndefined.find(c) != std::string_view::npos;
}

std::string Spelled(char c) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  const auto code = static_cast<unsigned char>(c);
  return {'<', kDigits[code >> 4], kDigits[code & 0xFu], '>'};
}

std::string_view TitleOf(std::string_view title) {
  return title.empty() ? kDefaultTitle : title;
}

std::string Heading(std::string_view title) {
  return "\n--- " + HarmlessText(TitleOf(title)) + " ---\n";
}

// A text on one line.
std::string Flat(std::string_view text) {
  std::string flat = HarmlessText(text);
  std::replace(flat.begin(), flat.end(), '\n', ' ');
  return flat;
}

std::string Note(std::string_view kind, std::string_view title, std::string_view text,
                 std::string_view answer) {
  return std::string("kestra: ").append(kind) + " \"" + Flat(TitleOf(title)) + "\": " + Flat(text) +
         " | sin operador, se responde: " + std::string(answer) + "\n";
}

std::string_view MarkOf(const StatusRow& row) {
  if (!row.lit) return "  [ ] ";
  return row.error ? "  [!] " : "  [i] ";
}

std::string Rows(const Report& report, std::int32_t group, std::string_view heading) {
  std::string text = std::string(heading) + '\n';
  for (const StatusRow& row : report.rows) {
    if (row.group != group) continue;
    text.append(MarkOf(row)).append(HarmlessText(row.text)) += '\n';
    if (row.lit) text.append("      ").append(HarmlessText(row.hint)) += '\n';
  }
  return text;
}

std::string StatusWords(const Report& report) {
  return std::string(kReportPrinter) + ' ' + HarmlessText(report.printer) + "  " +
         std::string(kReportFiscal) + ' ' + HarmlessText(report.fiscal);
}

std::string_view Trimmed(std::string_view line) {
  const std::size_t first = line.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) return {};
  return line.substr(first, line.find_last_not_of(" \t\r\n") - first + 1);
}

}  // namespace

std::string HarmlessText(std::string_view text) {
  std::string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '\r' || c == '\n') {
      if (c == '\r' && text.substr(i + 1, 1) == "\n") ++i;
      result += '\n';
    } else if (c == '\t') {
      result += ' ';
    } else {
      result += IsControl(c) ? Spelled(c) : std::string(1, c);
    }
  }
  return result;
}

bool IsQuestion(std::int32_t style) {
  constexpr std::int32_t kButtons = 0x0F;
  return (style & kButtons) == kBoxYesNo;
}

std::string MessageDialog(std::string_view text, std::string_view title, std::int32_t style) {
  const std::string_view prompt =
      IsQuestion(style) ? "S = Sí, N = No: "_ansi : "Enter = Aceptar: "_ansi;
  return (Heading(title) + HarmlessText(text) + '\n').append(prompt);
}

std::string StatusReportDialog(const Report& report) {
  constexpr char kBell = '\a';
  std::string text = kBell + Heading(kReportTitle);
  text += Rows(report, 0, kReportPrinterGroup) + Rows(report, 1, kReportFiscalGroup);
  text.append(kReportStatusGroup).append("\n  ").append(StatusWords(report)) += '\n';
  return text.append("R = ").append(kRetryButton).append(", Enter = ").append(kCloseButton) + ": ";
}

std::string MemoryFullDialog() {
  std::string text = Heading(kMemoryFullTitle);
  text.append(kMemoryFullHeading).append("\n").append(kMemoryFullText);
  return text.append("\nEnter = ").append(kCloseButton) + ": ";
}

std::string MessageNote(std::string_view text, std::string_view title, std::int32_t style) {
  return IsQuestion(style) ? Note("pregunta", title, text, "No")
                           : Note("mensaje", title, text, "Aceptar");
}

std::string StatusReportNote(const Report& report) {
  std::string text = StatusWords(report);
  for (const StatusRow& row : report.rows) {
    if (row.lit) text.append("; ").append(row.text);
  }
  return Note("informe", kReportTitle, text, kCloseButton);
}

std::string MemoryFullNote() {
  return Note("aviso", kMemoryFullTitle, kMemoryFullText, kCloseButton);
}

Typed TypedAnswer(std::string_view line) {
  line = Trimmed(line);
  const bool yes = EqualWithoutCase(line, "s") || EqualWithoutCase(line, "si") ||
                   EqualWithoutCase(line, "sí"_ansi);
  if (yes) return Typed::kYes;
  const bool no = EqualWithoutCase(line, "n") || EqualWithoutCase(line, "no");
  return no ? Typed::kNo : Typed::kUnclear;
}

bool TypedRetry(std::string_view line) {
  line = Trimmed(line);
  return EqualWithoutCase(line, "r") || EqualWithoutCase(line, kRetryButton);
}

}  // namespace kestra
