#include <gtest/gtest.h>

#include "machine/status.hpp"
#include "story.hpp"

namespace impresora {
namespace {

using prueba::BodiesOf;
using prueba::FamilySettings;
using prueba::Shop;

// The states a printer can be left in, each with a letter for the table below and what leads there.
struct StateCase {
  char letter;
  Family family;
  std::vector<std::string_view> reach;
};

const std::vector<StateCase>& States() {
  constexpr Family kRoll = Family::kTicketInvoice;
  constexpr Family kForm = Family::kForm;
  static const std::vector<StateCase> states{
      {'i', kRoll, {}},
      {'t', kRoll, {"ticket", "item|Pan|1000|1000"}},
      {'p', kRoll, {"ticket", "item|Pan|1000|1000", "D|Efectivo|1|T"}},
      {'f', kForm, {"invoice|F", "line|Pan|1000|1000"}},
      {'P', kForm, {"invoice|F", "line|Pan|1000|1000", "d|Efectivo|1|T"}},
      {'h', kForm, {"invoice|F", "line|Pan|1000|1000", "\\|D|P|T|T"}},
      {'n', kRoll, {"H"}},
  };
  return states;
}

// Which states accept each command: i idle, t ticket with items, p ticket being paid, f invoice
// with items, P invoice being paid, h between two sheets, n non-fiscal document. A form printer has
// no ticket commands and a roll printer no sheets; there the answer is another one.
struct AcceptanceCase {
  std::string_view command;
  std::string_view accepted;
  std::string_view unknown;
};

constexpr std::array<AcceptanceCase, 37> kAcceptances{{
    {"*|N", "itpfPhn", ""},
    {"*|A", "itpfPhn", ""},
    {"9|X|P", "i", ""},
    {"9|Z|P", "i", ""},
    {":|260101|261231|D", "i", ""},
    {";|1|9|D", "i", ""},
    {"@|C", "i", "fPh"},
    {"A|texto", "tf", ""},
    {"item|Pan|1000|1000", "t", "fPh"},
    {"C|N|~", "tp", "fPh"},
    {"D|Socio|1|D", "t", "fPh"},
    {"D|Flete|1|R", "t", "fPh"},
    {"D|Efectivo|1|T", "tp", "fPh"},
    {"D|~|~|C", "tp", "fPh"},
    {"E|T", "tp", "fPh"},
    {"H", "i", ""},
    {"I|texto", "n", ""},
    {"J|T", "n", ""},
    {"K", "in", ""},
    {"R|2", "itpfPhn", ""},
    {"X|261121|103000", "i", ""},
    {"Y", "itpfPhn", ""},
    {"\\|Q|L", "fh", "itpn"},
    {"\\|D|P|T|T", "f", "itpn"},
    {"\\|D|P|T|O", "h", "itpn"},
    {"]|1|KESTRA", "i", ""},
    {"^|1", "itpfPhn", ""},
    {"invoice|T", "i", ""},
    {"line|Pan|1000|1000", "f", ""},
    {"c|N|~", "fP", ""},
    {"d|Socio|1|D", "f", ""},
    {"d|Flete|1|R", "f", ""},
    {"d|Efectivo|1|T", "fP", ""},
    {"d|~|~|C", "fPh", ""},
    {"e|F|A|~", "fP", ""},
    {"f|IIBB|O|1|0000", "f", ""},
    {"{", "itpfPhn", ""},
}};

unsigned ExpectedError(const AcceptanceCase& c, char state) {
  if (c.accepted.find(state) != c.accepted.npos) return 0;
  return kSummary | (c.unknown.find(state) != c.unknown.npos ? kUnknownCommand : kWrongState);
}

TEST(States, EachCommandIsAcceptedInItsOwnStatesOnly) {
  constexpr unsigned kErrors = kSummary | kUnknownCommand | kInvalidField | kWrongState | kOverflow;
  for (const StateCase& state : States()) {
    for (const AcceptanceCase& c : kAcceptances) {
      Shop shop(FamilySettings(state.family));
      for (const std::string_view step : state.reach) shop.SendBody(BodiesOf(step).front());
      const Answer answer = shop.SendBody(BodiesOf(c.command).front());
      EXPECT_EQ(answer.fiscal & kErrors, ExpectedError(c, state.letter))
          << "state " << state.letter << ", command " << c.command;
    }
  }
}

}  // namespace
}  // namespace impresora
