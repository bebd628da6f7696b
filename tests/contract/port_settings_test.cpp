#include <gtest/gtest.h>

#include "contract/failure_number.hpp"
#include "fields/ansi.hpp"
#include "platform/posix/serial_port.hpp"

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
    {"a named device needs no number", 0, "9600,N,8,1", "/dev/pts/5", 0},
    {"a named device needs no speed", 0, "7,N,8,1", "/dev/pts/5", 0},
};

TEST(PortSettings, AreCheckedBeforeAnythingIsOpened) {
  for (const Row& row : kRows) {
    const PortSettings settings = {
        .CommPort = row.number, .Settings = row.settings, .dispositivo = row.device};
    EXPECT_EQ(FailureNumber([&] { CreatePosixPort(settings); }), row.failure) << row.why;
  }
}

TEST(PortSettings, APortOpensTheDeviceOfItsNumber) {
  // No machine has that many; its name in the failure shows which was tried.
  const auto port = CreatePosixPort({.CommPort = 256, .Settings = "9600,N,8,1", .dispositivo = ""});
  EXPECT_FALSE(port->PortOpen());
  EXPECT_EQ(FailureWords([&] { port->PortOpen(true); }), "No existe el dispositivo /dev/ttyS255");
}

TEST(PortSettings, ANamedDeviceReplacesTheNumber) {
  const auto port =
      CreatePosixPort({.CommPort = 1, .Settings = "9600,N,8,1", .dispositivo = "/dev/no-hay-tal"});
  EXPECT_EQ(FailureWords([&] { port->PortOpen(true); }),
            "No existe el dispositivo /dev/no-hay-tal");
}

TEST(PortSettings, TheFailureNamesWhatIsWrong) {
  EXPECT_EQ(FailureWords([] {
              CreatePosixPort({.CommPort = 300, .Settings = "9600,N,8,1", .dispositivo = ""});
            }),
            "El puerto 300 no es válido (1 a 256)"_ansi);
  EXPECT_EQ(FailureWords(
                [] { CreatePosixPort({.CommPort = 1, .Settings = "5,N,8,1", .dispositivo = ""}); }),
            "La configuración de puerto 5,N,8,1 no es válida"_ansi);
}

}  // namespace
}  // namespace kestra
