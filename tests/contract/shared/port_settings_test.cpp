#include <gtest/gtest.h>

#include "base/ansi.hpp"
#include "fakes/failure_number.hpp"
#include "platform/shared/ports.hpp"

namespace kestra {
namespace {

struct Row {
  const char* why;
  std::int16_t number;
  const char* settings;
  const char* device;
  std::int32_t failure;
};

constexpr Row kRows[] = {
    {"the first port", 1, "9600,N,8,1", "", 0},
    {"the last port", 256, "9600,N,8,1", "", 0},
    {"no port has the number 0", 0, "9600,N,8,1", "", 8002},
    {"nor 257", 257, "9600,N,8,1", "", 8002},
    {"nor a negative one", -1, "9600,N,8,1", "", 8002},
    {"a speed that is none", 1, "9601,N,8,1", "", 380},
    {"a speed of zero", 1, "0,N,8,1", "", 380},
    {"a negative speed", 1, "-9600,N,8,1", "", 380},
    {"a number is looked at before the speed", 0, "9601,N,8,1", "", 8002},
    {"a named device needs no number", 0, "9600,N,8,1", "impresora", 0},
    {"a named device needs no speed", 0, "7,N,8,1", "impresora", 0},
    {"a network address", 1, "9600,N,8,1", "tcp:caja:4001", 0},
    {"it needs neither number nor speed", 0, "7,N,8,1", "TCP:[::1]:4001", 0},
    {"a network address without a port", 1, "9600,N,8,1", "tcp:caja", 380},
    {"nor is anything behind the network", 1, "9600,N,8,1", "tcp:", 380},
    {"a network port that is none", 1, "9600,N,8,1", "tcp:caja:65536", 380},
};

TEST(PortSettings, AreCheckedBeforeAnythingIsOpened) {
  for (const Row& row : kRows) {
    const PortSettings settings = {
        .CommPort = row.number, .Settings = row.settings, .device = row.device};
    EXPECT_EQ(FailureNumber([&] { MakePort(settings); }), row.failure) << row.why;
  }
}

std::string WordsOfOpening(const PortSettings& settings) {
  const auto port = MakePort(settings);
  EXPECT_FALSE(port->PortOpen());
  return FailureWords([&] { port->PortOpen(true); });
}

TEST(PortSettings, APortOpensTheDeviceOfItsNumber) {
  // No machine has that many; its name in the failure shows which was tried.
  EXPECT_EQ(WordsOfOpening({.CommPort = 256, .Settings = "9600,N,8,1", .device = ""}),
            "No existe el dispositivo " + DeviceOfNumber(256));
  EXPECT_NE(DeviceOfNumber(256), DeviceOfNumber(1));
}

TEST(PortSettings, ANamedDeviceReplacesTheNumber) {
  EXPECT_EQ(WordsOfOpening({.CommPort = 1, .Settings = "9600,N,8,1", .device = "no-hay-tal"}),
            "No existe el dispositivo no-hay-tal");
}

TEST(PortSettings, AClosedPortSaysSo) {
  for (const std::string device : {"impresora", "tcp:caja:4001"}) {
    const auto port = MakePort({.CommPort = 1, .Settings = "9600,N,8,1", .device = device});
    EXPECT_EQ(FailureNumber([&] { port->Output("x"); }), 8012);
    EXPECT_EQ(FailureWords([&] { port->Input(); }),
              "El dispositivo " + device + std::string(" no está abierto"_ansi));
  }
}

TEST(PortSettings, TheFailureNamesWhatIsWrong) {
  EXPECT_EQ(
      FailureWords([] { MakePort({.CommPort = 300, .Settings = "9600,N,8,1", .device = ""}); }),
      "El puerto 300 no es válido (1 a 256)"_ansi);
  EXPECT_EQ(FailureWords([] { MakePort({.CommPort = 1, .Settings = "5,N,8,1", .device = ""}); }),
            "La configuración de puerto 5,N,8,1 no es válida"_ansi);
  EXPECT_EQ(FailureWords([] {
              MakePort({.CommPort = 1, .Settings = "9600,N,8,1", .device = "tcp:caja:0"});
            }),
            "La dirección tcp:caja:0 no es válida (tcp:EQUIPO:PUERTO)"_ansi);
}

}  // namespace
}  // namespace kestra
