#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>

#include <filesystem>

#include "contract/shared/tcp_line.hpp"
#include "fakes/failure_number.hpp"
#include "platform/posix/files.hpp"

namespace kestra {
namespace {

// Descriptors of this process that are sockets: all of them, or those that other programs inherit.
int Sockets(bool inherited) {
  int count = 0;
  for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
    std::error_code gone;
    const auto target = std::filesystem::read_symlink(entry.path(), gone).string();
    if (!target.starts_with("socket:")) continue;
    const int flags = ::fcntl(std::stoi(entry.path().filename()), F_GETFD);
    if (!inherited || (flags & FD_CLOEXEC) == 0) ++count;
  }
  return count;
}

// The least descriptor that is free from here on, for as long as the object lives.
class ManyFiles {
 public:
  explicit ManyFiles(int count) {
    ::getrlimit(RLIMIT_NOFILE, &before_);
    rlimit raised = before_;
    raised.rlim_cur = std::min<rlim_t>(before_.rlim_max, static_cast<rlim_t>(count) + 100);
    ::setrlimit(RLIMIT_NOFILE, &raised);
    while (files_.empty() || (files_.back() && files_.back().Get() < count)) {
      files_.emplace_back(::open("/dev/null", O_RDONLY | O_CLOEXEC));
    }
  }
  ManyFiles(const ManyFiles&) = delete;
  ManyFiles& operator=(const ManyFiles&) = delete;
  ~ManyFiles() {
    files_.clear();
    ::setrlimit(RLIMIT_NOFILE, &before_);
  }

  explicit operator bool() const { return static_cast<bool>(files_.back()); }

 private:
  rlimit before_ = {};
  std::vector<FileDescriptor> files_;
};

TEST(PosixTcp, ProgramsThatTheHostStartsDoNotInheritTheConnection) {
  const int others = Sockets(true);
  TcpLine line;
  const int before = Sockets(false);
  const auto port = line.MakePort();
  port->PortOpen(true);
  EXPECT_EQ(Sockets(false), before + 1);
  EXPECT_EQ(Sockets(true), others);
  port->PortOpen(false);
  EXPECT_EQ(Sockets(false), before);
}

TEST(PosixTcp, AFailedOpeningLeavesNothingOpen) {
  TcpLine line;
  line.Occupy(true);
  const int before = Sockets(false);
  const auto port = line.MakePort();
  EXPECT_EQ(FailureNumber([&] { port->PortOpen(true); }), 8015);
  EXPECT_EQ(Sockets(false), before);
}

TEST(PosixTcp, AHostWithThousandsOfFilesIsServed) {
  TcpLine line;
  const ManyFiles files(2000);
  ASSERT_TRUE(files);
  const auto port = line.MakePort();
  port->PortOpen(true);
  port->Output("pregunta");
  EXPECT_EQ(line.Receive(8), "pregunta");
  line.Send("respuesta");
  EXPECT_EQ(port->InBufferCount(), 9u);
}

TEST(PosixTcp, WritingToALostConnectionRaisesNoSignal) {
  struct sigaction before = {};
  ::sigaction(SIGPIPE, nullptr, &before);
  ASSERT_EQ(before.sa_handler, SIG_DFL);  // the signal would end this program
  TcpLine line;
  const auto port = line.MakePort();
  port->PortOpen(true);
  port->Output("x");
  line.Reset();
  EXPECT_EQ(FailureNumber([&] {
              for (int i = 0; i < 100; ++i) port->Output("x");
            }),
            8020);
}

}  // namespace
}  // namespace kestra
