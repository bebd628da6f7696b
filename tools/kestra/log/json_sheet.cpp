#include "json.hpp"
#include "log/sheet.hpp"

namespace kestra::tool {
namespace {

Json FieldsOf(const std::vector<FieldView>& fields) {
  Json list = Json::array();
  for (const FieldView& field : fields) {
    Json row{{"nombre", field.name}, {"valor", field.raw}};
    if (field.words != field.raw) row["texto"] = field.words;
    list.push_back(std::move(row));
  }
  return list;
}

Json WordOf(const std::string& word, const std::string& words) {
  return {{"palabra", word}, {"texto", words}};
}

Json DocumentOf(const DocumentName& document) {
  return {{"orden", document.ordinal},
          {"titulo", document.title},
          {"letra", document.letter},
          {"numero", document.number},
          {"cancelado", document.cancelled}};
}

Json CommandOf(const View& view) {
  return {{"byte", view.mark},
          {"nombre", view.command},
          {"secuencia", view.sequence},
          {"campos", FieldsOf(view.fields)}};
}

Json AnswerOf(const AnswerView& answer) {
  return {{"impresora", WordOf(answer.printer, answer.printer_words)},
          {"fiscal", WordOf(answer.fiscal, answer.fiscal_words)},
          {"datos", FieldsOf(answer.data)}};
}

class JsonSheet : public Sheet {
 public:
  explicit JsonSheet(std::ostream& out) : out_(out) {}

  void Add(const View& view) override {
    Json object{{"linea", view.line}, {"fecha", view.date}, {"hora", view.time}};
    object["operacion"] = view.operation;
    object["intento"] = view.attempt;
    object["comando"] = view.mark.empty() ? Json() : CommandOf(view);
    object["respuesta"] = view.answer ? AnswerOf(*view.answer) : Json();
    object["segundos"] = view.seconds ? Json(*view.seconds) : Json();
    object["resultado"] = view.outcome_words;
    object["falla"] = view.Failed();
    object["notas"] = view.notes;
    object["comprobante"] = view.document.ordinal > 0 ? DocumentOf(view.document) : Json();
    PrintLine(out_, object);
  }

  void End(const Totals&) override {}

 private:
  std::ostream& out_;
};

}  // namespace

std::unique_ptr<Sheet> MakeJsonSheet(std::ostream& out) {
  return std::make_unique<JsonSheet>(out);
}

}  // namespace kestra::tool
