#include <algorithm>
#include <string_view>
#include <vector>

#include "log/sheet.hpp"
#include "text/text.hpp"

namespace kestra::tool {
namespace {

constexpr std::string_view kDot = " · ";
constexpr std::size_t kIndent = 10;
constexpr std::size_t kOutcomeColumn = 46;

constexpr std::string_view kRed = "\x1B[31m";
constexpr std::string_view kGrey = "\x1B[90m";
constexpr std::string_view kBold = "\x1B[1m";
constexpr std::string_view kPlain = "\x1B[0m";

std::string Counted(std::size_t count, std::string_view one, std::string_view many) {
  return std::to_string(count).append(" ").append(count == 1 ? one : many);
}

bool SpeaksForItself(std::string_view text) {
  return text.find_first_of(" ='") == std::string_view::npos;
}

// Empty fields are only counted: most of an invoice's nineteen are.
std::vector<std::string> Listed(const std::vector<FieldView>& fields) {
  std::vector<std::string> words;
  std::size_t empty = 0;
  for (const FieldView& field : fields) {
    if (field.raw.empty()) {
      ++empty;
      continue;
    }
    const bool plain = SpeaksForItself(field.words);
    words.push_back(field.name + " " + (plain ? field.words : "«" + field.words + "»"));
  }
  if (empty > 0) words.push_back(Counted(empty, "vacío", "vacíos"));
  return words;
}

class TextSheet : public Sheet {
 public:
  TextSheet(std::ostream& out, std::size_t width, bool colours)
      : out_(out), width_(std::max(width, kIndent * 4)), colours_(colours) {}

  void Add(const View& view) override {
    Headings(view);
    out_ << view.time
         << std::string(kIndent - std::min(kIndent - 1, impresora::Columns(view.time)), ' ');
    const std::string name = OperationOf(view);
    const std::size_t columns = impresora::Columns(name);
    out_ << Coloured(kBold, name)
         << std::string(columns < kOutcomeColumn ? kOutcomeColumn - columns : 1, ' ')
         << (view.Failed() ? Coloured(kRed, view.outcome_words) : view.outcome_words);
    if (view.seconds) out_ << kDot << *view.seconds << " s";
    out_ << '\n';
    if (!view.mark.empty()) Wrapped(view.mark + " " + view.command + ":", Listed(view.fields));
    if (view.answer) Answer(*view.answer);
    for (const std::string& note : view.notes) Wrapped("", {note});
    out_.flush();
  }

  void End(const Totals& totals) override { out_ << '\n' << TotalsWords(totals) << '\n'; }

 private:
  [[nodiscard]] std::string Coloured(std::string_view colour, std::string_view text) const {
    if (!colours_) return std::string(text);
    return std::string(colour).append(text).append(kPlain);
  }

  void Headings(const View& view) {
    const std::string document = view.document.ordinal > 0 ? NameOf(view.document) : std::string();
    const bool same_day = view.date.empty() || view.date == date_;
    if (!same_day) {
      out_ << (date_.empty() ? "" : "\n") << Coloured(kBold, view.date) << '\n';
      date_ = view.date;
    }
    const bool same_document = view.document.ordinal == ordinal_;
    if (!same_document) {
      ordinal_ = view.document.ordinal;
      out_ << Coloured(kGrey, ordinal_ > 0 ? "-- " + document : "--") << '\n';
    }
  }

  static std::string OperationOf(const View& view) {
    std::string name = view.operation;
    if (name.empty()) name = view.mark.empty() ? "" : "(sin operación)";
    return view.attempt > 1 ? name + ", intento " + std::to_string(view.attempt) : name;
  }

  void Answer(const AnswerView& answer) {
    std::vector<std::string> words{"impresora " + answer.printer + " " + answer.printer_words,
                                   "fiscal " + answer.fiscal + " " + answer.fiscal_words};
    for (std::string& word : Listed(answer.data)) words.push_back(std::move(word));
    Wrapped("->", words);
  }

  // Between two words there is a dot, or the end of a line.
  void Wrapped(std::string_view head, const std::vector<std::string>& words) {
    std::string line(kIndent, ' ');
    line.append(head);
    bool fresh = true;
    for (const std::string& word : words) {
      const std::string sign = fresh ? (head.empty() ? "" : " ") : std::string(kDot);
      if (!fresh && impresora::Columns(line) + impresora::Columns(sign + word) > width_) {
        out_ << line << '\n';
        line = std::string(kIndent + 2, ' ') + word;
      } else {
        line += sign + word;
      }
      fresh = false;
    }
    out_ << line << '\n';
  }

  std::ostream& out_;
  std::size_t width_;
  bool colours_;
  std::string date_;
  unsigned ordinal_ = 0;
};

}  // namespace

std::string TotalsWords(const Totals& totals) {
  std::string text = Counted(totals.frames, "trama", "tramas") + ", " +
                     Counted(totals.failures, "falla", "fallas") + ", " +
                     Counted(totals.documents, "comprobante", "comprobantes");
  if (totals.damaged > 0) text += ", " + Counted(totals.damaged, "línea dañada", "líneas dañadas");
  if (totals.shown == 0) text += "; nada de lo que se busca";
  return text;
}

std::unique_ptr<Sheet> MakeTextSheet(std::ostream& out, std::size_t width, bool colours) {
  return std::make_unique<TextSheet>(out, width, colours);
}

}  // namespace kestra::tool
