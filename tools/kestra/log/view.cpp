#include "log/view.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <utility>

#include "commands/commands.hpp"
#include "log/field_words.hpp"
#include "machine/status.hpp"
#include "text/text.hpp"
#include "trace/exchange_text.hpp"

namespace kestra::tool {
namespace {

using impresora::CommandRow;
using impresora::FieldDigits;
using impresora::FieldKind;
using impresora::FieldRow;
using impresora::Utf8FromHost;

// Where the printer tells how many digits its numbers have: data of the query "P", from the second on.
constexpr std::array kToldDigits{&FieldDigits::quantity, &FieldDigits::price,
                                 &FieldDigits::rate,     &FieldDigits::internal_tax,
                                 &FieldDigits::amount,   &FieldDigits::perception};

// Names of an answer's data that hold text.
constexpr std::array<std::string_view, 5> kTextData{"titular", "texto", "modelo", "CUIT",
                                                    "familia"};

Mask::Kind KindOf(const FieldRow& row) {
  return row.kind == FieldKind::kText ? Mask::Kind::kText : Mask::Kind::kNumber;
}

Mask::Kind KindOfData(std::string_view name) {
  const bool text = std::find(kTextData.begin(), kTextData.end(), name) != kTextData.end();
  return text ? Mask::Kind::kText : Mask::Kind::kNumber;
}

FieldView Shown(std::string name, std::string raw, std::string words) {
  if (words.empty()) words = raw;
  return {std::move(name), std::move(raw), std::move(words)};
}

std::string Numbered(std::string_view word, std::size_t index) {
  return std::string(word) + " " + std::to_string(index + 1);
}

std::string TextOf(std::string_view field) {
  return Utf8FromHost(impresora::TrimRight(impresora::WithoutEmptyMark(field)));
}

std::string Joined(std::string_view left, std::string_view right) {
  std::string text(left);
  if (!text.empty() && !right.empty()) text += ", ";
  return text.append(right);
}

std::string FailingWords(const impresora::Answer& answer) {
  const auto printer = static_cast<std::uint16_t>(answer.printer & kFailingPrinter);
  const auto fiscal = static_cast<std::uint16_t>(answer.fiscal & kFailingFiscal);
  return Joined(printer != 0 ? impresora::PrinterWords(printer) : "",
                fiscal != 0 ? impresora::FiscalWords(fiscal) : "");
}

std::string Plural(unsigned count, std::string_view one, std::string_view many) {
  return std::to_string(count) + " " + std::string(count == 1 ? one : many);
}

struct NoteWord {
  LineKind kind;
  std::string_view word;
  bool bytes;  // of nobody knows what
};

constexpr std::array kNoteWords{
    NoteWord{LineKind::kDropped, "descartado: ", true},
    NoteWord{LineKind::kBooks, "libros: ", false},
    NoteWord{LineKind::kPending, "pendiente: ", false},
    NoteWord{LineKind::kForgotten, "olvidado: ", false},
    NoteWord{LineKind::kJournal, "diario: ", false},
    NoteWord{LineKind::kDamaged, "", true},
};

std::string NoteWords(const NoteLine& note, const Mask& mask) {
  const std::string text = Utf8FromHost(note.text);
  for (const NoteWord& row : kNoteWords) {
    if (row.kind == note.kind)
      return std::string(row.word) + (row.bytes ? mask.Unknown(text) : mask.Note(text));
  }
  return mask.Note(text);
}

// "Error 13 (Type mismatch) in procedure Enviar of Módulo ExportedProcedures - Linea: juzgar": what it is and where.
std::string ErrorWords(std::string_view text) {
  constexpr std::string_view kProcedure = " in procedure ";
  constexpr std::string_view kLine = " - Linea: ";
  constexpr std::string_view kError = "Error ";
  if (text.starts_with(kError)) text.remove_prefix(kError.size());
  const auto procedure = text.find(kProcedure);
  if (procedure == std::string_view::npos) return std::string(text);
  const auto name = text.substr(procedure + kProcedure.size());
  std::string words(text.substr(0, procedure));
  words.append(" en ").append(name.substr(0, name.find(' ')));
  const auto line = text.rfind(kLine);
  if (line != std::string_view::npos && line + kLine.size() < text.size())
    words.append(", ").append(text.substr(line + kLine.size()));
  return words;
}

// "ImprimirPago()" and "Ep_ReporteZporNumeros(5,9)" are what hosts know as EP_ImprimirPago and EP_ReporteZporNumeros(5,9).
std::string OperationName(std::string_view logged) {
  constexpr std::string_view kPrefix = "EP_";
  constexpr std::string_view kOtherPrefix = "Ep_";
  constexpr std::string_view kNoArguments = "()";
  if (logged.ends_with(kNoArguments)) logged.remove_suffix(kNoArguments.size());
  if (logged.starts_with(kOtherPrefix)) logged.remove_prefix(kOtherPrefix.size());
  const bool has_prefix = logged.empty() || logged.starts_with(kPrefix);
  return std::string(has_prefix ? "" : kPrefix).append(logged);
}

void NoteHearing(const Hearing& hearing, std::vector<std::string>& notes) {
  if (hearing.busy > 0) notes.push_back(Plural(hearing.busy, "aviso", "avisos") + " de ocupado");
  if (hearing.foreign > 0)
    notes.push_back(Plural(hearing.foreign, "respuesta", "respuestas") + " a otra trama");
  if (hearing.checksum_wrong) notes.emplace_back("la suma de la respuesta está mal");
}

}  // namespace

View Viewer::Show(const Entry& entry) {
  View view{.line = entry.line,
            .date = Utf8FromHost(entry.stamp.date),
            .time = Utf8FromHost(entry.stamp.time),
            .operation = OperationName(Utf8FromHost(entry.operation)),
            .attempt = entry.attempt,
            .seconds = entry.seconds,
            .outcome = entry.outcome,
            .outcome_words = std::string(WordsOf(entry.outcome).words),
            .document = entry.document};
  view.document.letter = Utf8FromHost(entry.document.letter);
  view.document.number = Utf8FromHost(entry.document.number);
  const impresora::Packet* const packet = entry.packet ? &*entry.packet : nullptr;
  if (packet != nullptr) {
    view.mark = impresora::CommandMark(packet->command);
    view.command = impresora::CommandName(packet->command);
    view.sequence = packet->sequence;
    view.fields = Fields(*packet);
  }
  if (entry.hearing && entry.hearing->heard == Heard::kOwn) {
    LearnDigits(entry);
    view.answer = Answer(packet, entry.hearing->answer);
  }
  const std::string reason = Reason(entry);
  if (!reason.empty()) view.outcome_words += ": " + reason;
  view.notes = Notes(entry);
  return view;
}

void Viewer::LearnDigits(const Entry& entry) {
  const bool told = entry.packet->command == '*' && !entry.packet->fields.empty() &&
                    entry.packet->fields.front() == "P";
  if (!told) return;
  const auto& data = entry.hearing->answer.fields;
  for (std::size_t i = 0; i < kToldDigits.size() && i + 1 < data.size(); ++i) {
    const std::string& pair = data[i + 1];
    if (pair.size() == 2 && OnlyDigits(pair))
      digits_.*kToldDigits.at(i) = {pair[0] - '0', pair[1] - '0'};
  }
}

std::vector<FieldView> Viewer::Fields(const impresora::Packet& packet) {
  const CommandRow* const row = impresora::FindCommand(packet.command);
  const std::span<const FieldRow> rows = row != nullptr ? row->fields : std::span<const FieldRow>();
  std::vector<FieldView> views;
  for (std::size_t i = 0; i < packet.fields.size(); ++i) {
    const std::string raw = TextOf(packet.fields[i]);
    if (i < rows.size()) {
      views.push_back(Shown(std::string(rows[i].name),
                            mask_.Field(rows[i].name, raw, KindOf(rows[i])),
                            FieldWords(raw, rows[i], digits_)));
    } else {
      views.push_back(Shown(Numbered("campo", i), mask_.Field({}, raw, Mask::Kind::kUnknown), {}));
    }
  }
  return views;
}

AnswerView Viewer::Answer(const impresora::Packet* packet, const impresora::Answer& answer) {
  AnswerView view{.printer = impresora::Hex4(answer.printer),
                  .printer_words = impresora::PrinterWords(answer.printer),
                  .fiscal = impresora::Hex4(answer.fiscal),
                  .fiscal_words = impresora::FiscalWords(answer.fiscal),
                  .data = {}};
  const auto names =
      packet != nullptr ? impresora::AnswerNames(*packet) : std::span<const std::string_view>();
  for (std::size_t i = 0; i < answer.fields.size(); ++i) {
    const std::string raw = TextOf(answer.fields[i]);
    if (i < names.size()) {
      view.data.push_back(Shown(std::string(names[i]),
                                mask_.Field(names[i], raw, KindOfData(names[i])),
                                DataWords(raw, names[i])));
    } else {
      view.data.push_back(
          Shown(Numbered("dato", i), mask_.Field({}, raw, Mask::Kind::kUnknown), {}));
    }
  }
  return view;
}

std::string Viewer::Reason(const Entry& entry) const {
  if (entry.outcome == Outcome::kRefused) return FailingWords(entry.hearing->answer);
  if (entry.outcome == Outcome::kBroken)
    return mask_.Note(ErrorWords(Utf8FromHost(entry.errors.back())));
  const bool paper_out = entry.outcome == Outcome::kDone &&
                         (entry.hearing->answer.printer & impresora::kPaperOut) != 0;
  return paper_out ? "sin papel" : "";
}

std::vector<std::string> Viewer::Notes(const Entry& entry) {
  std::vector<std::string> notes;
  if (entry.hearing) NoteHearing(*entry.hearing, notes);
  const bool unreadable = !entry.frame.empty() && !entry.packet;
  if (unreadable)
    notes.push_back("trama que no se entiende: " + mask_.Unknown(Utf8FromHost(entry.frame)));
  for (std::size_t i = 0; i + 1 < entry.errors.size(); ++i)
    notes.push_back("error " + mask_.Note(ErrorWords(Utf8FromHost(entry.errors[i]))));
  for (const NoteLine& note : entry.notes) notes.push_back(NoteWords(note, mask_));
  return notes;
}

std::string NameOf(const DocumentName& document) {
  std::string name = document.title;
  for (const std::string* const more : {&document.letter, &document.number}) {
    if (!more->empty()) name += " " + *more;
  }
  return document.cancelled ? name + ", cancelado" : name;
}

}  // namespace kestra::tool
