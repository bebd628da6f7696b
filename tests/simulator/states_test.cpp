#include <gtest/gtest.h>

#include <functional>

#include "host.hpp"
#include "machine/status.hpp"

namespace impresora {
namespace {

using prueba::Body;
using prueba::FamilySettings;
using prueba::kEmpty;
using prueba::Shop;

// The states a printer can be left in, each with a letter for the table below.
struct StateCase {
  char letter;
  Family family;
  std::function<void(Shop&)> reach;
};

const std::vector<StateCase>& States() {
  static const std::vector<StateCase> states{
      {'i', Family::kTicketInvoice, [](Shop&) {}},
      {'t', Family::kTicketInvoice,
       [](Shop& s) { s.OpenTicket(), s.TicketItem("Pan", "1000", "1000"); }},
      {'p', Family::kTicketInvoice,
       [](Shop& s) {
         s.OpenTicket(), s.TicketItem("Pan", "1000", "1000"), s.Send({"D", "Efectivo", "1", "T"});
       }},
      {'f', Family::kForm,
       [](Shop& s) { s.OpenInvoice("F"), s.InvoiceItem("Pan", "1000", "1000"); }},
      {'P', Family::kForm,
       [](Shop& s) {
         s.OpenInvoice("F"), s.InvoiceItem("Pan", "1000", "1000");
         s.Send({"d", "Efectivo", "1", "T"});
       }},
      {'h', Family::kForm,
       [](Shop& s) {
         s.OpenInvoice("F"), s.InvoiceItem("Pan", "1000", "1000");
         s.Send({"\\", "D", "P", "T", "T"});
       }},
      {'n', Family::kTicketInvoice, [](Shop& s) { s.Send({"H"}); }},
  };
  return states;
}

// Which states accept each command: i idle, t ticket with items, p ticket being paid, f invoice
// with items, P invoice being paid, h between two sheets, n non-fiscal document. A form printer has
// no ticket commands and a roll printer no sheets; there the answer is another one.
struct AcceptanceCase {
  std::string body;
  std::string_view accepted;
  std::string_view unknown;
};

std::string OpenInvoiceBody(std::string_view kind) {
  return Body({"`", kind,   "C",           "A", "1",       "F",    "12",   "I",    "I",    "Juan",
               " ", "CUIT", "20123456789", "N", "Calle 1", kEmpty, kEmpty, kEmpty, kEmpty, "C"});
}

std::vector<AcceptanceCase> Acceptances() {
  const std::string ticket_item =
      Body({"B", "Pan", "1000", "1000", "2100", "M", "0001", "0000", "0"});
  const std::string invoice_item = Body({"b", "Pan", "1000", "1000", "2100", "M", "0001", "0000",
                                         kEmpty, kEmpty, kEmpty, kEmpty, "0"});
  return {
      {Body({"*", "N"}), "itpfPhn", ""},
      {Body({"*", "A"}), "itpfPhn", ""},
      {Body({"9", "X", "P"}), "i", ""},
      {Body({"9", "Z", "P"}), "i", ""},
      {Body({":", "260101", "261231", "D"}), "i", ""},
      {Body({";", "1", "9", "D"}), "i", ""},
      {Body({"@", "C"}), "i", "fPh"},
      {Body({"A", "texto"}), "tf", ""},
      {ticket_item, "t", "fPh"},
      {Body({"C", "N", kEmpty}), "tp", "fPh"},
      {Body({"D", "Socio", "1", "D"}), "t", "fPh"},
      {Body({"D", "Flete", "1", "R"}), "t", "fPh"},
      {Body({"D", "Efectivo", "1", "T"}), "tp", "fPh"},
      {Body({"D", kEmpty, kEmpty, "C"}), "tp", "fPh"},
      {Body({"E", "T"}), "tp", "fPh"},
      {Body({"H"}), "i", ""},
      {Body({"I", "texto"}), "n", ""},
      {Body({"J", "T"}), "n", ""},
      {Body({"K"}), "in", ""},
      {Body({"R", "2"}), "itpfPhn", ""},
      {Body({"X", "261121", "103000"}), "i", ""},
      {Body({"Y"}), "itpfPhn", ""},
      {Body({"\\", "Q", "L"}), "fh", "itpn"},
      {Body({"\\", "D", "P", "T", "T"}), "f", "itpn"},
      {Body({"\\", "D", "P", "T", "O"}), "h", "itpn"},
      {Body({"]", "1", "KESTRA"}), "i", ""},
      {Body({"^", "1"}), "itpfPhn", ""},
      {OpenInvoiceBody("T"), "i", ""},
      {invoice_item, "f", ""},
      {Body({"c", "N", kEmpty}), "fP", ""},
      {Body({"d", "Socio", "1", "D"}), "f", ""},
      {Body({"d", "Flete", "1", "R"}), "f", ""},
      {Body({"d", "Efectivo", "1", "T"}), "fP", ""},
      {Body({"d", kEmpty, kEmpty, "C"}), "fPh", ""},
      {Body({"e", "F", "A", kEmpty}), "fP", ""},
      {Body({"f", "IIBB", "O", "1", "0000"}), "f", ""},
      {Body({"{"}), "itpfPhn", ""},
  };
}

bool Has(std::string_view letters, char letter) {
  return letters.find(letter) != std::string_view::npos;
}

unsigned ExpectedError(const AcceptanceCase& c, char state) {
  if (Has(c.accepted, state)) return 0;
  return kSummary | (Has(c.unknown, state) ? kUnknownCommand : kWrongState);
}

TEST(States, EachCommandIsAcceptedInItsOwnStatesOnly) {
  constexpr unsigned kErrors = kSummary | kUnknownCommand | kInvalidField | kWrongState | kOverflow;
  for (const StateCase& state : States()) {
    for (const AcceptanceCase& c : Acceptances()) {
      Shop shop(FamilySettings(state.family));
      state.reach(shop);
      const Answer answer = shop.SendBody(c.body);
      EXPECT_EQ(answer.fiscal & kErrors, ExpectedError(c, state.letter))
          << "state " << state.letter << ", command " << c.body.substr(0, 12);
    }
  }
}

TEST(States, ARefusedCommandPrintsNothing) {
  Shop shop;
  shop.TicketItem("Pan", "1000", "1000");
  shop.Send({"J", "T"});
  EXPECT_EQ(shop.PaperText(), "");
}

TEST(States, NothingButTicketsOnATicketPrinter) {
  Shop shop(FamilySettings(Family::kTicket));
  EXPECT_EQ(shop.OpenInvoice().fiscal, kSummary | kUnknownCommand | 0x0600);
  EXPECT_EQ(shop.OpenTicket().fiscal, 0x1600);
}

TEST(States, EachFamilyHasItsOwnKindsOfInvoice) {
  struct KindCase {
    Family family;
    std::string_view accepted;
  };
  for (const KindCase& c :
       {KindCase{Family::kTicketInvoice, "TDM"}, KindCase{Family::kForm, "FDNEC"}}) {
    for (const char kind : std::string_view("FTDMNEC")) {
      Shop shop(FamilySettings(c.family));
      const Answer answer = shop.OpenInvoice(std::string_view(&kind, 1));
      EXPECT_EQ(answer.fiscal, Has(c.accepted, kind) ? 0x3600 : 0x8610) << kind;
    }
  }
}

TEST(States, ADocumentWithoutItemsCannotBePaidNorClosed) {
  Shop shop;
  shop.OpenTicket();
  EXPECT_EQ(shop.Send({"D", "Efectivo", "100", "T"}).fiscal, 0x9620);
  EXPECT_EQ(shop.Send({"E", "T"}).fiscal, 0x9620);
  shop.TicketItem("Pan", "1000", "1000");
  EXPECT_EQ(shop.Send({"E", "T"}).fiscal, 0x0600);
}

TEST(States, AnInvoiceIsClosedByItsOwnKindAndLetter) {
  Shop shop;
  shop.OpenInvoice("T", "B");
  shop.InvoiceItem("Pan", "1000", "1000");
  EXPECT_EQ(shop.CloseInvoice("M", "B").fiscal, 0xB610);
  EXPECT_EQ(shop.CloseInvoice("T", "A").fiscal, 0xB610);
  EXPECT_EQ(shop.CloseInvoice("T", "B").fiscal, 0x0600);
}

TEST(States, AFullFormAsksForATransportSheet) {
  Settings settings = FamilySettings(Family::kForm);
  settings.lines_per_form = 2;
  Shop shop(settings);
  shop.OpenInvoice("F");
  const auto room = [&shop] { return shop.Send({"\\", "Q", "L"}).fields.at(0); };
  shop.InvoiceItem("Pan", "1000", "1000");
  EXPECT_EQ(room(), "S");
  shop.InvoiceItem("Pan", "1000", "1000");
  EXPECT_EQ(room(), "N");
  EXPECT_EQ(shop.Send({"\\", "D", "P", "T", "T"}).fiscal, 0x3600);
  EXPECT_EQ(room(), "N");
  EXPECT_EQ(shop.Send({"\\", "D", "P", "T", "O"}).fiscal, 0x3600);
  EXPECT_EQ(room(), "S");
}

}  // namespace
}  // namespace impresora
