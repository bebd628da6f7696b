#include "panel/event_json.hpp"

#include <array>

#include "panel/json_text.hpp"

namespace impresora {
namespace {

using Style = PaperLine::Style;

struct StyleName {
  Style style;
  std::string_view name;
};

constexpr std::array<StyleName, 10> kStyles{{
    {Style::kPlain, "comun"},
    {Style::kStrong, "fuerte"},
    {Style::kCentred, "centrado"},
    {Style::kStrongCentred, "fuerte_centrado"},
    {Style::kWide, "ancho"},
    {Style::kWideCentred, "ancho_centrado"},
    {Style::kLogo, "logo"},
    {Style::kRule, "raya"},
    {Style::kCut, "corte"},
    {Style::kFeed, "avance"},
}};

struct ClassName {
  ReceiptClass receipt_class;
  std::string_view name;
};

constexpr std::array<ClassName, 3> kClasses{{
    {ReceiptClass::kFiscal, "fiscal"},
    {ReceiptClass::kNonFiscal, "no_fiscal"},
    {ReceiptClass::kReport, "informe"},
}};

}  // namespace

std::string PaperLineJson(const PaperLine& line) {
  std::string_view style = kStyles.front().name;
  for (const StyleName& row : kStyles) {
    if (row.style == line.style) style = row.name;
  }
  return OneLine({{"texto", line.text}, {"estilo", style}});
}

std::string ReceiptJson(const Receipt& receipt) {
  std::string_view receipt_class;
  for (const ClassName& row : kClasses) {
    if (row.receipt_class == receipt.receipt_class) receipt_class = row.name;
  }
  return OneLine({{"ordinal", receipt.ordinal},
                  {"clase", receipt_class},
                  {"titulo", receipt.kind},
                  {"tipo", LetterText(receipt.code)},
                  {"letra", LetterText(receipt.letter)},
                  {"numero", receipt.number},
                  {"total", PlainMoney(receipt.total)},
                  {"iva", PlainMoney(receipt.iva)},
                  {"momento", IsoMoment(receipt.moment)},
                  {"cliente", receipt.customer_id},
                  {"anulado", receipt.cancelled}});
}

}  // namespace impresora
