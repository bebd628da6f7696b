#include "documents/operations.hpp"

#include <array>
#include <string>
#include <utility>

#include "documents/document_kinds.hpp"
#include "fields/text_field.hpp"
#include "operation/host_buffer.hpp"
#include "operation/operation.hpp"
#include "protocol/answer_check.hpp"

namespace kestra {
namespace {

constexpr std::string_view kSale = "M";
constexpr std::string_view kReturn = "R";
constexpr std::string_view kVoid = "m";

struct Item {
  std::string description;
  std::string quantity;
  std::string price;
  std::string vat;
  std::string internal_taxes;
  std::array<std::string, 3> extras;
  std::string packages;  // packages
  std::string_view qualifier;
};

// The two fields in which parallel commands differ on purpose.
struct Fillers {
  std::string_view family;
  std::string_view qualifier;
  std::string_view field_7 = "0000";
  std::string_view field_11 = kNoText;  // kPackages: the packages again
};
constexpr std::string_view kPackages = "bultos";
constexpr std::array kFillers = {
    Fillers{.family = "FC", .qualifier = kSale, .field_7 = "00000000", .field_11 = kPackages},
    Fillers{.family = "FC", .qualifier = kReturn},
    Fillers{.family = "FC", .qualifier = kVoid, .field_7 = "00000000", .field_11 = "0000"},
    Fillers{.family = "TF", .qualifier = kSale},
    Fillers{.family = "TF", .qualifier = kReturn},
    Fillers{.family = "TF", .qualifier = kVoid},
    Fillers{.family = "TQ", .qualifier = kSale},
    Fillers{.family = "TQ", .qualifier = kReturn},
    Fillers{.family = "TQ", .qualifier = kVoid},
};

const Fillers* FindFillers(std::string_view family, std::string_view qualifier) {
  for (const auto& row : kFillers) {
    if (row.family == family && row.qualifier == qualifier) return &row;
  }
  return nullptr;
}

Digits QuantityDigits(const State& state) {
  return {state.EntCantidad, state.DecCantidad};
}

Item Prepare(Library& library, const ItemArguments& a) {
  const auto& state = library.state;
  const auto length = LengthForFamily(state, state.LonDescripcionT, state.LonDescripcionF);
  const auto line = [&](const char* text, std::int32_t bytes) {
    return Clean(state, TextField(library, LeerCadena(library.texts, text, bytes), length));
  };
  Item item;
  item.description = line(a.description, 50);
  item.quantity = NumberField(library, a.quantity, QuantityDigits(state));
  item.price =
      NumberField(library, a.price, {state.EntPrecio, state.DecPrecio, state.IncluirPuntoPrecio});
  item.vat = NumberField(library, a.vat, {state.EntIVA, state.DecIVA});
  item.internal_taxes = NumberField(library, a.internal_taxes, {state.EntImpInt, state.DecImpInt});
  item.extras = {line(a.extra1, 22), line(a.extra2, 22), line(a.extra3, 22)};
  item.packages = NumberField(library, a.quantity, {4, 0});
  return item;
}

std::string Question(std::string_view name, const Item& item) {
  return QuotedCall(name, {item.description, item.quantity, item.price, item.vat,
                           item.internal_taxes, item.extras[0], item.extras[1], item.extras[2]});
}

Command ItemCommand(const Fillers& fillers, const Item& item) {
  Command command(ByteOfFamily(fillers.family, kItem));
  command.Field(item.description)
      .Field(item.quantity)
      .Field(item.price)
      .Field(item.vat)
      .Field(item.qualifier)
      .Field(item.packages)
      .Field(fillers.field_7);
  if (fillers.family != kTicketFamily) {
    for (const auto& extra : item.extras) command.Field(extra);
    command.Field(fillers.field_11 == kPackages ? item.packages : fillers.field_11);
  }
  command.Field(item.internal_taxes);
  return command;
}

// A ticket has no place for extra lines: they go before the item as texts of their own. What becomes of
// them matters in the safe mode alone: false ends the item there.
bool PrintExtras(Library& library, const Item& item) {
  const bool safe = library.certainty.settings.ModoSeguro == 1;
  for (const auto& extra : item.extras) {
    if (extra == kNoText) continue;
    const auto result = ImprimirTextoFiscalInterna(library, extra);
    if (safe && result != kSuccess) return false;
  }
  return true;
}

std::int32_t VerificaEspacioItem(Library& library) {
  const auto result = Run(library, {.log = " - Comando : EP_VerificaEspacioItem",
                                    .command = Command('\\').Field("Q").Field("L")});
  SepararRespuesta(library);
  return result == kSuccess && library.state.Respuesta[0] == "S" ? 0 : 1;
}

// -1 when the printer did it, 0 when it did not.
std::int32_t TransportStep(Library& library, std::string_view log, std::string_view step) {
  const auto command = Command('\\').Field("D").Field("P").Field("T").Field(step);
  return Run(library, {.log = std::string(log), .command = command}) == kSuccess ? -1 : 0;
}

std::int32_t CierraHojaTransporte(Library& library) {
  return TransportStep(library, " - Comando : EP_CierraHojaTransporte", "T");
}

std::int32_t AbreHojaTransporte(Library& library) {
  return TransportStep(library, " - Comando : EP_AbreHojaTransporte", "O");
}

// Makes room for one more item on the form: asks the printer, and closes the full sheet and opens the
// next as a transport. False ends the item: it is not sent.
// Kept as is: a transport step that the printer carried out ends the item; one that it refused lets
// the item go on.
bool RoomForItem(Library& library) {
  if (VerificaEspacioItem(library) == 0) return true;
  return CierraHojaTransporte(library) == 0 && AbreHojaTransporte(library) == 0;
}

// What an item needs before it goes. False ends it.
bool MakeWay(Library& library, const Item& item) {
  const auto& state = library.state;
  const bool on_form = state.TipoComprobante == kFormFamily;
  if (on_form && state.UtilizaTransporte == 1 && !RoomForItem(library)) return false;
  return state.TipoComprobante != kTicketFamily || PrintExtras(library, item);
}

std::int32_t Print(Library& library, std::string_view name, const Item& item) {
  Operation operation{.call = Question(name, item), .log = " - Comando : " + std::string(name)};
  const auto* fillers = FindFillers(library.state.TipoComprobante, item.qualifier);
  if (fillers != nullptr) {
    operation.before = [&] { return MakeWay(library, item); };
    operation.otherwise = Cause::kSheetTurned;
    operation.command = ItemCommand(*fillers, item);
  }
  return Run(library, operation);
}

}  // namespace

std::int32_t ImprimirItem(Library& library, const ItemArguments& arguments) {
  auto item = Prepare(library, arguments);
  item.qualifier = kSale;
  if (arguments.quantity < 0) {
    // Kept as is: the packages go on carrying the sign.
    item.quantity = NumberField(library, -arguments.quantity, QuantityDigits(library.state));
    item.qualifier = kReturn;
  }
  return Print(library, "EP_ImprimirItem", item);
}

std::int32_t AnularItem(Library& library, const ItemArguments& arguments) {
  auto item = Prepare(library, arguments);
  item.qualifier = kVoid;
  return Print(library, "EP_AnularItem", item);
}

}  // namespace kestra
