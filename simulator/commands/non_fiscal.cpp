// Documents without fiscal value.
#include <array>

#include "commands/families.hpp"
#include "paper/layout.hpp"

namespace impresora {
namespace {

Outcome OpenNonFiscal(Machine& m, const Fields& /*f*/) {
  m.non_fiscal_open = true;
  PrintNonFiscalHead(m);
  return {};
}

Outcome NonFiscalText(Machine& m, const Fields& f) {
  m.paper.HostText(f.Text("texto"));
  return {};
}

Outcome CloseNonFiscal(Machine& m, const Fields& /*f*/) {
  PrintNonFiscalFoot(m);
  m.non_fiscal_open = false;
  ++m.day.non_fiscal;
  m.Finish({.receipt_class = ReceiptClass::kNonFiscal, .kind = "DOCUMENTO NO FISCAL"});
  return {};
}

constexpr std::array kNonFiscalRows{
    CommandRow{.byte = 'H',
               .name = "Abrir no fiscal",
               .families = kAnyFamily,
               .stages = kWhenIdle,
               .printing = Printing::kAlways,
               .run = OpenNonFiscal},
    CommandRow{.byte = 'I',
               .name = "Texto no fiscal",
               .fields = {Text("texto", &TextLengths::non_fiscal_text)},
               .required = 1,
               .families = kAnyFamily,
               .stages = kInNonFiscal,
               .printing = Printing::kAlways,
               .run = NonFiscalText},
    CommandRow{.byte = 'J',
               .name = "Cerrar no fiscal",
               .fields = {Choice("tipo", "T")},
               .families = kAnyFamily,
               .stages = kInNonFiscal,
               .printing = Printing::kAlways,
               .run = CloseNonFiscal},
};

}  // namespace

std::span<const CommandRow> NonFiscalCommands() {
  return kNonFiscalRows;
}

}  // namespace impresora
