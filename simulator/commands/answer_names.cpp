#include "commands/answer_names.hpp"

#include <array>

#include "wire/packet.hpp"

namespace impresora {
namespace {

using Names = std::span<const std::string_view>;

template <typename... Name>
constexpr std::array<std::string_view, sizeof...(Name)> Make(Name... names) {
  return {std::string_view(names)...};
}

constexpr auto kSummary = Make("fecha", "hora", "último cierre", "cierres restantes");
constexpr auto kCounters =
    Make("último cierre", "último tique", "última factura A", "última factura B",
         "última factura C", "cancelados", "no fiscales", "última nota de crédito A",
         "última nota de crédito B", "última nota de débito A", "última nota de débito B");
constexpr auto kModel =
    Make("familia", "dígitos de cantidad", "dígitos de precio", "dígitos de IVA",
         "dígitos de internos", "dígitos de importe", "dígitos de percepción", "columnas",
         "líneas de encabezado", "punto de venta", "modelo");
constexpr auto kOwner = Make("CUIT", "punto de venta", "condición ante el IVA", "titular");
constexpr auto kDay =
    Make("comprobantes", "ventas", "IVA", "notas de crédito", "cierres restantes");
constexpr auto kClosing =
    Make("número de Z", "cancelados", "no fiscales", "comprobantes", "ventas", "IVA",
         "percepciones", "notas de crédito", "total de créditos", "IVA de créditos");
constexpr auto kListed = Make("cierres listados");
constexpr auto kSubtotal = Make("renglones", "unidades", "total", "IVA", "pagado", "internos",
                                "percepciones", "neto", "falta pagar");
constexpr auto kPayment = Make("falta pagar", "vuelto");
constexpr auto kNumber = Make("número");
constexpr auto kClock = Make("fecha", "hora");
constexpr auto kLine = Make("línea", "texto");
constexpr auto kRoom = Make("hay lugar");

struct Row {
  char command;
  std::size_t field;  // the one that decides
  char letter;        // what it holds; 0 for anything
  Names names;
};

constexpr std::array<Row, 18> kRows{{
    {'*', 0, 'A', kCounters},
    {'*', 0, 'P', kModel},
    {'*', 0, 'C', kOwner},
    {'*', 0, 'D', kDay},
    {'*', 0, 0, kSummary},
    {'9', 0, 0, kClosing},
    {':', 0, 0, kListed},
    {';', 0, 0, kListed},
    {'C', 0, 0, kSubtotal},
    {'c', 0, 0, kSubtotal},
    {'D', 2, 'T', kPayment},
    {'d', 2, 'T', kPayment},
    {'E', 0, 0, kNumber},
    {'e', 0, 0, kNumber},
    {'X', 0, 0, kClock},
    {'Y', 0, 0, kClock},
    {'^', 0, 0, kLine},
    {'\\', 0, 'Q', kRoom},
}};

bool Fits(const Row& row, const Packet& packet) {
  if (static_cast<char>(packet.command) != row.command) return false;
  if (row.letter == 0) return true;
  return row.field < packet.fields.size() &&
         packet.fields[row.field] == std::string_view(&row.letter, 1);
}

}  // namespace

std::span<const std::string_view> AnswerNames(const Packet& packet) {
  for (const Row& row : kRows) {
    if (Fits(row, packet)) return row.names;
  }
  return {};
}

}  // namespace impresora
