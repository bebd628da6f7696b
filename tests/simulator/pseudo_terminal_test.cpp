#include "program/posix/pseudo_terminal.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/file.h>
#include <unistd.h>

#include <filesystem>

#include "cables.hpp"
#include "folder.hpp"
#include "program/posix/descriptor.hpp"
#include "program/posix/port_link.hpp"
#include "program/posix/port_speed.hpp"

namespace impresora {
namespace {

namespace fs = std::filesystem;

class PseudoTerminalTest : public testing::Test {
 protected:
  std::string link() const { return folder_ / "puerto"; }
  Descriptor Open() const { return Descriptor(open(link().c_str(), O_RDWR | O_NOCTTY)); }

  prueba::Folder folder_;
  asio::io_context loop_;
  prueba::FarEnd far_{loop_};
};

TEST_F(PseudoTerminalTest, BytesGoBothWaysAndTheLineOutlivesAVisit) {
  PseudoTerminal terminal(loop_, link());
  far_.Start(terminal);
  for (const std::string expected : {"a", "aa"}) {
    const Descriptor host = Open();
    ASSERT_EQ(write(host.Get(), "a", 1), 1);
    ASSERT_TRUE(far_.UntilArrived(expected));
    terminal.Write("b");
    char byte = 0;
    ASSERT_EQ(read(host.Get(), &byte, 1), 1);
    EXPECT_EQ(byte, 'b');
  }
}

TEST_F(PseudoTerminalTest, TheSpeedIsTheHostsLastOneAlsoWhenItHasGone) {
  PseudoTerminal terminal(loop_, link(), 9600);
  far_.Start(terminal);
  EXPECT_EQ(terminal.HostBaud(), 9600);
  SetPortSpeed(Open().Get(), 115'200);
  EXPECT_EQ(terminal.HostBaud(), 115'200);
  SetPortSpeed(Open().Get(), 9700);
  EXPECT_EQ(terminal.HostBaud(), 9700);
  terminal.HangUp();
  EXPECT_EQ(terminal.HostBaud(), 9600);
}

TEST_F(PseudoTerminalTest, WhatAnotherTillHasNobodyElseLocks) {
  PseudoTerminal terminal(loop_, link());
  far_.Start(terminal);
  const auto lock = [this] {
    const Descriptor host = Open();  // the system lets its administrator in
    return flock(host.Get(), LOCK_EX | LOCK_NB) == 0;
  };
  EXPECT_TRUE(lock());
  EXPECT_TRUE(terminal.Occupy(true));
  EXPECT_FALSE(lock());
  terminal.HangUp();
  EXPECT_FALSE(lock());
  EXPECT_TRUE(terminal.Occupy(false));
  EXPECT_TRUE(lock());
}

TEST_F(PseudoTerminalTest, AnUnpluggedHostFindsItsPortDeadAndTheNextFindsANewOne) {
  PseudoTerminal terminal(loop_, link());
  far_.Start(terminal);
  const Descriptor host = Open();
  const std::string before = terminal.Port();
  terminal.HangUp();
  EXPECT_EQ(far_.hosts, 1);
  EXPECT_NE(terminal.Port(), before);
  pollfd wait{host.Get(), POLLIN, 0};
  ASSERT_EQ(poll(&wait, 1, 20'000), 1);
  EXPECT_NE(wait.revents & POLLHUP, 0);
  const Descriptor next = Open();
  ASSERT_EQ(write(next.Get(), "c", 1), 1);
  EXPECT_TRUE(far_.UntilArrived("c"));
}

TEST_F(PseudoTerminalTest, ALinkThatAKilledPrinterLeftIsTakenWithoutAWordWhenItLeadsHere) {
  PseudoTerminal terminal(loop_, "");
  fs::create_symlink(terminal.Port(), link());
  ::testing::internal::CaptureStderr();
  const PortLink again(link(), terminal.Port());
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

TEST_F(PseudoTerminalTest, TheLinkStaysAcrossUnpluggingAndGoesWithTheTerminal) {
  {
    PseudoTerminal terminal(loop_, link());
    far_.Start(terminal);
    for (int times = 0; times < 3; ++times) {
      terminal.HangUp();
      EXPECT_EQ(fs::read_symlink(link()), terminal.Port());
    }
  }
  EXPECT_FALSE(fs::exists(fs::symlink_status(link())));
}

}  // namespace
}  // namespace impresora
