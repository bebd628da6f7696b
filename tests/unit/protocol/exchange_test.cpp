// What a command is told of its exchange. The sessions in tests/golden tell the rest.

#include "protocol/exchange.hpp"

#include <gtest/gtest.h>

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
    library_.state.ComandoActual = "K";
  }

  FakePlatform world_;
  Library library_{world_};
};

TEST_F(Exchange, AnAcceptedCommandIsZero) {
  world_.Line().SetDefault(unit::Answering("0000", "0600"));
  EXPECT_EQ(Enviar(library_), 0);
}

TEST_F(Exchange, ARefusedCommandIsOne) {
  world_.Line().SetDefault(unit::Answering("0000", "0610"));
  EXPECT_EQ(Enviar(library_), 1);
}

TEST_F(Exchange, ALineThatDoesNotOpenIsOne) {
  world_.Line().SetDevice(DeviceState::kMissing);
  EXPECT_EQ(Enviar(library_), 1);
}

TEST_F(Exchange, WithoutALineItIsOne) {
  library_.state.Puerto.reset();
  EXPECT_EQ(Enviar(library_), 1);
}

}  // namespace
}  // namespace kestra
