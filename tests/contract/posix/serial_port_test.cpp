#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <future>

#include "base/ansi.hpp"
#include "contract/posix/pty_line.hpp"
#include "contract/posix/surroundings.hpp"
#include "contract/posix/ticking.hpp"
#include "contract/shared/scratch.hpp"
#include "fakes/failure_number.hpp"
#include "platform/posix/serial_port.hpp"

namespace kestra {
namespace {

// At a device and behind the network.
class PosixLines : public ::testing::TestWithParam<Twin<SerialLine>> {
 protected:
  PosixLines() { port->PortOpen(true); }

  std::unique_ptr<SerialLine> line = GetParam().make();
  std::unique_ptr<SerialPort> port = line->MakePort();
};
INSTANTIATE_TEST_SUITE_P(Twins, PosixLines, ::testing::ValuesIn(SystemTwins()),
                         TwinName<SerialLine>);

TEST_P(PosixLines, SignalsDoNotDisturbTheWait) {
  port->PortOpen(false);
  const Ticking ticking;
  port->PortOpen(true);
  while (Ticking::Ticks() < 10) EXPECT_EQ(port->InBufferCount(), 0u);
  port->Output("ok");
  EXPECT_EQ(line->Receive(2), "ok");
}

TEST_P(PosixLines, MoreThanTheSystemHoldsGoesOutWhileTheFarEndReads) {
  const std::string much(1 << 24, 'x');
  auto reader = std::async(std::launch::async, [&] { return line->Receive(much.size()); });
  port->Output(much);
  EXPECT_EQ(reader.get(), much);
}

TEST(PosixPort, TheLineIsRawAtTheSpeedOfTheSettings) {
  PtyLine line;
  termios cooked = {};
  ::tcgetattr(line.Near(), &cooked);
  cooked.c_iflag |= ICRNL | IXON | IXOFF | ISTRIP;
  cooked.c_oflag |= OPOST | ONLCR;
  cooked.c_lflag |= ICANON | ECHO | ISIG;
  cooked.c_cflag |= CRTSCTS | CSTOPB;
  ::tcsetattr(line.Near(), TCSANOW, &cooked);

  PosixPort port(line.Device(), 19200);
  port.PortOpen(true);
  termios now = {};
  ::tcgetattr(line.Near(), &now);
  EXPECT_EQ(::cfgetospeed(&now), speed_t{B19200});
  EXPECT_EQ(::cfgetispeed(&now), speed_t{B19200});
  EXPECT_EQ(now.c_iflag & (ICRNL | INLCR | IGNCR | IXON | IXOFF | ISTRIP | PARMRK), 0u);
  EXPECT_EQ(now.c_oflag & OPOST, 0u);
  EXPECT_EQ(now.c_lflag & (ICANON | ECHO | ISIG | IEXTEN), 0u);
  EXPECT_EQ(now.c_cflag & (CSIZE | PARENB | CSTOPB | CRTSCTS), tcflag_t{CS8});
  EXPECT_NE(now.c_cflag & CLOCAL, 0u);
}

TEST(PosixPort, ProgramsThatTheHostStartsDoNotInheritTheLine) {
  PtyLine line;
  const auto port = line.MakePort();
  port->PortOpen(true);
  int seen = 0;
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
    std::error_code gone;
    if (std::filesystem::read_symlink(entry.path(), gone) != line.Device()) continue;
    ++seen;
    EXPECT_NE(::fcntl(std::stoi(entry.path().filename()), F_GETFD) & FD_CLOEXEC, 0);
  }
  EXPECT_EQ(seen, 2);  // the line's own and the port's
}

TEST(PosixPort, ALinkToADeviceIsTheDevice) {
  PtyLine line;
  const ScratchDirectory scratch;
  std::filesystem::create_symlink(line.Device(), "impresora");
  PosixPort by_link("impresora", 9600);
  by_link.PortOpen(true);
  const auto by_name = line.MakePort();
  EXPECT_EQ(FailureNumber([&] { by_name->PortOpen(true); }), 8005);
}

TEST(PosixPort, AnotherUsersDeviceIsNotPermitted) {
  PtyLine line;
  ASSERT_EQ(::chmod(line.Device().c_str(), 0), 0);
  const OrdinaryUser user;
  const auto port = line.MakePort();
  EXPECT_EQ(FailureWords([&] { port->PortOpen(true); }), "Sin permiso para abrir " + line.Device());
}

TEST(PosixPort, ALostLineIsNamedByTheWriteToo) {
  PtyLine line;
  const auto port = line.MakePort();
  port->PortOpen(true);
  line.Unplug();
  EXPECT_EQ(FailureWords([&] { port->Output("x"); }),
            std::string("Se perdió la conexión con "_ansi) + line.Device());
}

TEST(PosixPort, EachErrorOfTheSystemHasItsMeaning) {
  EXPECT_EQ(OpeningFault(ENOENT), PortFault::kMissing);
  EXPECT_EQ(OpeningFault(ENXIO), PortFault::kNoHardware);
  EXPECT_EQ(OpeningFault(EIO), PortFault::kNoHardware);
  EXPECT_EQ(OpeningFault(EACCES), PortFault::kNotPermitted);
  EXPECT_EQ(OpeningFault(EPERM), PortFault::kNotPermitted);
  EXPECT_EQ(OpeningFault(EBUSY), PortFault::kBusy);
  EXPECT_EQ(OpeningFault(EWOULDBLOCK), PortFault::kBusy);
  EXPECT_EQ(OpeningFault(ENOTTY), PortFault::kNotSerial);
  EXPECT_EQ(OpeningFault(EMFILE), PortFault::kCannotOpen);
  EXPECT_EQ(TransferFault(EIO), PortFault::kLost);
  EXPECT_EQ(TransferFault(ENXIO), PortFault::kLost);
  EXPECT_EQ(TransferFault(ENODEV), PortFault::kLost);
  EXPECT_EQ(TransferFault(EBADF), PortFault::kTransfer);
}

}  // namespace
}  // namespace kestra
