// What a command is told of its exchange. The sessions in tests/golden tell the rest.

#include "protocol/exchange.hpp"

#include <gtest/gtest.h>

#include <cstdint>

#include "fakes/fake_platform.hpp"
#include "state/library.hpp"
#include "unit/world.hpp"

namespace kestra {
namespace {

class Exchange : public testing::Test {
 protected:
  Exchange() {
    library_.state.Puerto = world_.CreatePort(
        {.CommPort = 1, .Settings = "9600,N,8,1", .Handshaking = 0, .InputMode = 0, .device = {}});
  }

  FakePlatform world_;
  Library library_{world_};
};

TEST_F(Exchange, AnAcceptedCommandIsTrueAndLeftFramed) {
  world_.Line().SetDefault(unit::Answering("0000", "0600"));
  EXPECT_TRUE(Enviar(library_, "K"));
  EXPECT_EQ(library_.state.ComandoActual.substr(2), "K\x03");
}

TEST_F(Exchange, ARefusedCommandIsFalse) {
  world_.Line().SetDefault(unit::Answering("0000", "0610"));
  EXPECT_FALSE(Enviar(library_, "K"));
}

TEST_F(Exchange, ALineThatDoesNotOpenIsFalse) {
  world_.Line().SetDevice(DeviceState::kMissing);
  EXPECT_FALSE(Enviar(library_, "K"));
}

TEST_F(Exchange, WithoutALineItIsFalseAndTheCurrentCommandAllTheSame) {
  library_.state.Puerto.reset();
  EXPECT_FALSE(Enviar(library_, "K"));
  EXPECT_EQ(library_.state.ComandoActual, "K");
}

TEST_F(Exchange, TheSafeModeTakesBackWhatNobodyAnswered) {
  library_.certainty.settings.ModoSeguro = 1;
  world_.Line().SetDefault(unit::Answering("0000", "0600"));
  EXPECT_TRUE(Enviar(library_, "K"));
  EXPECT_EQ(world_.Line().Abandonings(), 0);
  world_.Line().SetDefault({});
  EXPECT_FALSE(Enviar(library_, "K"));
  EXPECT_EQ(world_.Line().Abandonings(), 1);
}

// Of a printer that says that it is busy and nothing else, all day.
TEST_F(Exchange, TheSafeModeGivesUpAPrinterThatIsBusyForEver) {
  library_.certainty.settings.ModoSeguro = 1;
  library_.certainty.settings.ReconoceRepetidas = 1;
  world_.Line().SetDefault([](std::string_view) {
    std::vector<Burst> busy;
    for (std::int64_t second = 0; second < std::int64_t{12} * 3600; second += 4) {
      busy.push_back({.delay = second * 1'000'000, .bytes = "\x12"});
    }
    return busy;
  });
  for (const char* const command : {"*", "A\x1CHola", "H"}) {
    const auto begin = world_.GetClock().Elapsed();
    EXPECT_FALSE(Enviar(library_, command)) << command;
    EXPECT_LT(world_.GetClock().Elapsed() - begin, 3600) << command;
    world_.Line().Forget();
    library_.certainty.pending.reset();
    library_.certainty.unheard = false;
  }
}

}  // namespace
}  // namespace kestra
