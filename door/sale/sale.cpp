// A document out of what a till has sent.
#include "sale/sale.hpp"

#include "sale/letters.hpp"

namespace puerta {
namespace {

constexpr std::size_t kMostLines = 500;
constexpr std::size_t kMostCorrections = 20;
constexpr std::size_t kMostPerceptions = 10;
constexpr std::size_t kMostPayments = 5;
constexpr int kFiscalText = 26;
constexpr int kExtraText = 22;
constexpr int kPaymentText = 20;

constexpr AmountRule Of(const Digits& digits) {
  return {.digits = digits};
}

class Reader {
 public:
  Reader(Part& part, const Facts& facts, Sale& sale) : part_(part), facts_(facts), sale_(sale) {}

  void Read() {
    ReadKind();
    ReadCustomerPart();
    ReadLetter();
    for (auto& line : part_.List("renglones", 1, kMostLines)) ReadLine(line);
    ReadCorrections("descuentos", sale_.discounts);
    ReadCorrections("recargos", sale_.surcharges);
    ReadPerceptions();
    ReadPayments();
    sale_.total = part_.Amount("total", {.digits = {9, 2}, .required = false, .above_zero = false});
    ReadCopies();
    part_.NoteUnknown();
  }

 private:
  TextRule TextOfMost(int most) const {
    return {.most = most, .required = true, .respells = facts_.respells};
  }

  // As long as the family is not known any of its name will do.
  void ReadKind() {
    const auto name = part_.Text("tipo", {.most = 40, .required = true});
    if (name.empty()) return;
    if (FindNamed(kKinds, name) == nullptr)
      return part_.Wrong("tipo",
                         "se espera factura, tique, nota_debito, nota_credito, remito u otro");
    sale_.kind = FindRow(kKinds, [&](const Kind& kind) {
      return kind.name == name && (facts_.family.empty() || kind.family == facts_.family);
    });
    if (sale_.kind == nullptr)
      part_.Wrong("tipo", "una impresora de la familia " + facts_.family + " no lo emite");
  }

  void ReadCustomerPart() {
    const bool given = part_.Has("cliente");
    auto part = part_.Object("cliente");
    if (!given) return;
    sale_.customer = ReadCustomer(part, facts_);
    if (sale_.kind == nullptr) return;
    const auto& customer = sale_.customer;
    const bool nobody = customer.condition == 'F' && customer.name.empty() &&
                        customer.id_number.empty() && customer.address.empty();
    if (!sale_.kind->has_customer && !nobody)
      part_.Wrong("cliente", "un tique es a consumidor final, sin sus datos");
    if (!sale_.kind->homologated && !IsBlank(customer.name_more))
      part_.WrongAt("/cliente/nombre2", "este comprobante tiene un solo renglón para el nombre");
  }

  std::string_view Allowed() const {
    if (sale_.kind->type == "CT") return "XR";
    if (!sale_.kind->sells) return "RX";
    return LettersFor(facts_.issuer, sale_.customer.condition);
  }

  void ReadLetter() {
    const auto letter = part_.Text("letra", {.most = 1});
    if (sale_.kind == nullptr) return;
    const auto allowed = Allowed();
    const bool one = allowed.size() == 1 || !sale_.kind->sells;
    sale_.letter = letter.empty() && one ? allowed.substr(0, 1) : std::string_view(letter);
    if (sale_.letter.empty()) return part_.Wrong("letra", "falta");
    if (allowed.empty()) return;  // by a condition that is wrong itself
    if (allowed.find(sale_.letter) == std::string_view::npos)
      return part_.Wrong("letra", Refusal());
    if (sale_.letter == "A" && IsBlank(sale_.customer.name))
      part_.WrongAt("/cliente/nombre", "un comprobante A lleva el nombre del cliente");
  }

  std::string Refusal() const {
    std::string words;
    for (const char letter : Allowed())
      words += (words.empty() ? "" : " o ") + std::string(1, letter);
    return (sale_.kind->sells
                ? "por la condición ante el IVA del cliente y la del comercio, va la letra "
                : "este comprobante lleva la letra ") +
           words;
  }

  void ReadLine(Part& part) {
    Line line;
    line.pointer = part.Pointer();
    line.is_text = part.Has("texto");
    if (line.is_text) {
      line.description = part.Text("texto", TextOfMost(kFiscalText));
    } else {
      ReadItem(part, line);
    }
    part.NoteUnknown();
    sale_.lines.push_back(std::move(line));
  }

  void ReadItem(Part& part, Line& line) {
    line.description = part.Text("descripcion", TextOfMost(facts_.description));
    line.quantity =
        part.Amount("cantidad", {.digits = facts_.quantity, .required = false, .signless = false})
            .value_or(Decimal{1, 0});
    line.price =
        part.Amount("precio", {.digits = facts_.price, .above_zero = false}).value_or(Decimal{});
    line.rate = ReadRate(part, "iva", true);
    line.internal = part.Amount("impuestos_internos",
                                {.digits = facts_.internal, .required = false, .above_zero = false})
                        .value_or(Decimal{});
    const int most = std::min(kExtraText, facts_.description);
    line.extras = part.Texts("extra", 3, {.most = most, .respells = facts_.respells});
  }

  Decimal ReadRate(Part& part, std::string_view key, bool required) {
    const auto rate =
        part.Amount(key, {.digits = facts_.rate, .required = required, .above_zero = false});
    if (!rate) return {};
    const auto units = UnitsOf(*rate, 2);
    if (std::find(kRates.begin(), kRates.end(), units) == kRates.end())
      part.Wrong(key, "no es una tasa de IVA: 0, 2.5, 5, 10.5, 21 o 27");
    return *rate;
  }

  void ReadCorrections(std::string_view key, std::vector<NamedAmount>& corrections) {
    for (auto& part : part_.List(key, 0, kMostCorrections))
      corrections.push_back(ReadNamed(part, facts_.correction));
  }

  NamedAmount ReadNamed(Part& part, int length) {
    NamedAmount named{part.Text("descripcion", TextOfMost(length)),
                      part.Amount("monto", Of(facts_.amount)).value_or(Decimal{})};
    part.NoteUnknown();
    return named;
  }

  void ReadPerceptions() {
    auto parts = part_.List("percepciones", 0, kMostPerceptions);
    const bool takes = sale_.kind == nullptr || sale_.kind->has_customer;
    if (!parts.empty() && !takes) part_.Wrong("percepciones", "un tique no lleva percepciones");
    for (auto& part : parts) {
      const auto kind = part.Text("tipo", {.most = 10, .required = true});
      if (!kind.empty() && kind != "iva" && kind != "otra")
        part.Wrong("tipo", "se espera iva u otra");
      Perception perception;
      perception.on_iva = kind == "iva";
      perception.description = part.Text("descripcion", TextOfMost(kPaymentText));
      perception.amount = part.Amount("monto", Of(facts_.perception)).value_or(Decimal{});
      perception.rate = ReadRate(part, "tasa", false);
      part.NoteUnknown();
      sale_.perceptions.push_back(std::move(perception));
    }
  }

  void ReadPayments() {
    auto parts = part_.List("pagos", 0, kMostPayments);
    if (!parts.empty() && sale_.kind != nullptr && !sale_.kind->sells)
      part_.Wrong("pagos", "este comprobante no lleva pagos");
    for (auto& part : parts) sale_.payments.push_back(ReadNamed(part, kPaymentText));
  }

  void ReadCopies() {
    const auto copies = part_.Number("copias", 1, 5, false);
    sale_.copies = static_cast<std::int32_t>(copies.value_or(1));
    if (sale_.copies > 1 && sale_.kind != nullptr && !sale_.kind->counts_copies)
      part_.Wrong("copias", "este comprobante sale una sola vez");
  }

  Part& part_;
  const Facts& facts_;
  Sale& sale_;
};

}  // namespace

Sale ReadSale(const Json& body, const Facts& facts, Errors& errors) {
  Sale sale;
  Part part(body, "", errors);
  Reader(part, facts, sale).Read();
  return sale;
}

}  // namespace puerta
