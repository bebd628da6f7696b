#include <string_view>

#include "log/sheet.hpp"

namespace kestra::tool {
namespace {

constexpr std::string_view kHead = R"(<!DOCTYPE html>
<html lang="es">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width">
<title>)";

constexpr std::string_view kStyle = R"(</title>
<style>
:root { color-scheme: light dark; --line: #8884; --quiet: #888; --bad: #c22; }
@media (prefers-color-scheme: dark) { :root { --bad: #f77; } }
body { font: 14px/1.45 system-ui, sans-serif; margin: 1.5rem auto; max-width: 75rem; padding: 0 1rem; }
h1 { font-size: 1.4rem; margin: 0 0 .3rem; }
p { margin: .3rem 0; }
table { border-collapse: collapse; width: 100%; margin-top: 1rem; }
th, td { text-align: left; vertical-align: top; padding: .3rem .6rem; border-bottom: 1px solid var(--line); }
th { position: sticky; top: 0; background: Canvas; }
tr.bad td { background: color-mix(in srgb, var(--bad) 12%, transparent); }
tr.bad td.end { color: var(--bad); font-weight: 600; }
tr.head td { font-weight: 600; border-bottom: 2px solid var(--line); padding-top: 1rem; }
.quiet, dt { color: var(--quiet); }
dl { display: grid; grid-template-columns: max-content 1fr; gap: 0 .6rem; margin: 0; }
dd { margin: 0; overflow-wrap: anywhere; }
code { font-family: ui-monospace, monospace; }
.num { white-space: nowrap; }
</style>
</head>
<body>
)";

constexpr std::string_view kColumns =
    "<table>\n<thead><tr><th>Hora</th><th>Operación</th><th>Trama</th><th>Respuesta</th>"
    "<th>s</th><th>Resultado</th></tr></thead>\n<tbody>\n";

struct Escape {
  char sign;
  std::string_view text;
};

constexpr Escape kEscapes[] = {{'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}};

std::string Escaped(std::string_view text) {
  std::string result;
  for (const char c : text) {
    std::string_view shown(&c, 1);
    for (const Escape& row : kEscapes) {
      if (row.sign == c) shown = row.text;
    }
    result += shown;
  }
  return result;
}

std::string Cell(std::string_view content, std::string_view kind = {}) {
  std::string cell = kind.empty() ? "<td>" : "<td class=\"" + std::string(kind) + "\">";
  return cell.append(content).append("</td>");
}

std::string List(const std::vector<FieldView>& fields) {
  std::string rows;
  for (const FieldView& field : fields) {
    if (field.raw.empty()) continue;
    rows += "<dt>" + Escaped(field.name) + "</dt><dd>" + Escaped(field.words) + "</dd>";
  }
  return rows.empty() ? rows : "<dl>" + rows + "</dl>";
}

std::string Status(std::string_view name, const std::string& word, const std::string& words) {
  return "<div><span class=\"quiet\">" + std::string(name) + " <code>" + Escaped(word) +
         "</code></span> " + Escaped(words) + "</div>";
}

std::string Answer(const AnswerView& answer) {
  return Status("impresora", answer.printer, answer.printer_words) +
         Status("fiscal", answer.fiscal, answer.fiscal_words) + List(answer.data);
}

std::string Operation(const View& view) {
  std::string text = Escaped(view.operation);
  if (view.attempt > 1)
    text += " <span class=\"quiet\">intento " + std::to_string(view.attempt) + "</span>";
  for (const std::string& note : view.notes)
    text += "<div class=\"quiet\">" + Escaped(note) + "</div>";
  return text;
}

std::string Command(const View& view) {
  if (view.mark.empty()) return {};
  return "<code>" + Escaped(view.mark) + "</code> " + Escaped(view.command) + List(view.fields);
}

class HtmlSheet : public Sheet {
 public:
  HtmlSheet(std::ostream& out, const std::string& name, bool masked) : out_(out) {
    out_ << kHead << Escaped(name) << kStyle << "<h1>" << Escaped(name) << "</h1>\n";
    out_ << "<p class=\"quiet\">"
         << (masked ? "Los datos de los clientes y los textos libres están tapados: x por cada "
                      "letra, # por cada cifra."
                    : "Con los datos de los clientes a la vista.")
         << "</p>\n"
         << kColumns;
  }

  void Add(const View& view) override {
    const std::string head = HeadOf(view);
    if (head != head_ && !head.empty())
      out_ << "<tr class=\"head\"><td colspan=\"6\">" << Escaped(head) << "</td></tr>\n";
    head_ = head;
    out_ << (view.Failed() ? "<tr class=\"bad\">" : "<tr>") << Cell(Escaped(view.time), "num")
         << Cell(Operation(view)) << Cell(Command(view))
         << Cell(view.answer ? Answer(*view.answer) : std::string())
         << Cell(view.seconds ? std::to_string(*view.seconds) : std::string(), "num")
         << Cell(Escaped(view.outcome_words), "end") << "</tr>\n";
  }

  void End(const Totals& totals) override {
    out_ << "</tbody>\n</table>\n<p>" << Escaped(TotalsWords(totals)) << "</p>\n</body>\n</html>\n";
  }

 private:
  // Of a line without a stamp nobody knows the day: it stands where it stood.
  std::string HeadOf(const View& view) {
    if (!view.date.empty()) date_ = view.date;
    if (date_.empty()) return {};
    return view.document.ordinal > 0 ? date_ + " · " + NameOf(view.document) : date_;
  }

  std::ostream& out_;
  std::string head_;
  std::string date_;
};

}  // namespace

std::unique_ptr<Sheet> MakeHtmlSheet(std::ostream& out, const std::string& name, bool masked) {
  return std::make_unique<HtmlSheet>(out, name, masked);
}

}  // namespace kestra::tool
