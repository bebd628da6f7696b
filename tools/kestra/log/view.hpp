#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "log/entry.hpp"
#include "log/mask.hpp"
#include "machine/settings.hpp"

namespace kestra::tool {

// A field in words, in UTF-8.
struct FieldView {
  std::string name{};
  std::string raw{};    // as it was sent, without the blanks that fill it
  std::string words{};  // the same for a reader: "1.234,50" for "000123450"
};

struct AnswerView {
  std::string printer{}, printer_words{};
  std::string fiscal{}, fiscal_words{};
  std::vector<FieldView> data{};
};

// An entry of the log as it is shown, whatever shows it.
struct View {
  std::size_t line = 0;
  std::string date{}, time{};
  std::string operation{};
  unsigned attempt = 1;
  std::string mark{};  // the command's byte; empty without a frame
  std::string command{};
  int sequence = 0;
  std::vector<FieldView> fields{};
  std::optional<AnswerView> answer{};
  std::optional<int> seconds{};
  Outcome outcome = Outcome::kNote;
  std::string outcome_words{};  // "rechazado: campo de datos inválido"
  std::vector<std::string> notes{};
  DocumentName document{};

  [[nodiscard]] bool Failed() const { return WordsOf(outcome).failed; }
};

// Makes views, in the order of the log: it learns from what the log has shown, as how many digits the numbers have.
class Viewer {
 public:
  Viewer(const impresora::FieldDigits& digits, Mask mask)
      : digits_(digits), mask_(std::move(mask)) {}

  View Show(const Entry& entry);

 private:
  void LearnDigits(const Entry& entry);
  std::vector<FieldView> Fields(const impresora::Packet& packet);
  AnswerView Answer(const impresora::Packet* packet, const impresora::Answer& answer);
  std::vector<std::string> Notes(const Entry& entry);
  std::string Reason(const Entry& entry) const;

  impresora::FieldDigits digits_;
  Mask mask_;
};

// "TIQUE FACTURA B 00000012".
std::string NameOf(const DocumentName& document);

}  // namespace kestra::tool
