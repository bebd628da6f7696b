#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <cstring>
#include <map>
#include <sstream>
#include <thread>

#include "contract/posix/pty_line.hpp"
#include "contract/posix/surroundings.hpp"
#include "contract/shared/odd_files.hpp"
#include "platform/posix/files.hpp"

namespace kestra {
namespace {

namespace fs = std::filesystem;

constexpr const char* kSettings = "[S]\nK=12\n";

void MakeSocket(const char* name) {
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  std::strncpy(address.sun_path, name, sizeof address.sun_path - 1);
  const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
  ASSERT_EQ(::bind(socket.Get(), reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
}

// Whoever may write in the till's directory decides where its files are: links are followed.
struct OddFile {
  const char* what;
  void (*make)(const char* name);
  std::int32_t log_failure;
  std::string setting;
};

const OddFile kOddFiles[] = {
    {"a link to a file",
     [](const char* name) {
       WriteFile("otro", kSettings);
       fs::create_symlink("otro", name);
     },
     0, "12"},
    {"a link to nothing yet", [](const char* name) { fs::create_symlink("nuevo", name); }, 0, ""},
    {"a link to itself", [](const char* name) { fs::create_symlink(name, name); }, 75, ""},
    {"a link to a directory that is not there",
     [](const char* name) { fs::create_symlink("no/esta", name); }, 76, ""},
    {"a directory", [](const char* name) { fs::create_directory(name); }, 75, ""},
    {"a pipe", [](const char* name) { ASSERT_EQ(::mkfifo(name, 0600), 0); }, 75, ""},
    {"a socket", MakeSocket, 75, ""},
    {"a device without an end", [](const char* name) { fs::create_symlink("/dev/zero", name); }, 0,
     ""},
    {"a device without room", [](const char* name) { fs::create_symlink("/dev/full", name); }, 61,
     ""},
    {"a device that swallows all", [](const char* name) { fs::create_symlink("/dev/null", name); },
     0, ""},
    {"an empty file", [](const char* name) { WriteFile(name, ""); }, 0, ""},
};

TEST_F(OddFiles, EachEndsInAResult) {
  for (const OddFile& row : kOddFiles) {
    const ScratchDirectory here;
    row.make("fiscal.log");
    row.make("Fiscal.ini");
    EXPECT_EQ(LogFailure(), row.log_failure) << row.what;
    EXPECT_EQ(Setting(), row.setting) << row.what;
  }
}

TEST_F(OddFiles, ALinkedLogStaysALink) {
  WriteFile("otro", "vieja\r\n");
  fs::create_symlink("otro", "fiscal.log");
  EXPECT_EQ(LogFailure(), 0);
  EXPECT_TRUE(fs::is_symlink("fiscal.log"));
  EXPECT_EQ(ReadFile("otro"), "vieja\r\nuna\r\n");
}

TEST_F(OddFiles, WithoutTheRightToReadThereAreNoSettings) {
  WriteFile("Fiscal.ini", kSettings);
  ASSERT_EQ(::chmod("Fiscal.ini", 0), 0);
  const OrdinaryUser user(scratch_.Path());
  EXPECT_EQ(Setting(), "");
}

TEST_F(OddFiles, AReadOnlyLogIsAFailure) {
  WriteFile("fiscal.log", "viejo");
  ASSERT_EQ(::chmod("fiscal.log", 0444), 0);
  const OrdinaryUser user(scratch_.Path());
  EXPECT_EQ(LogFailure(), 70);
  EXPECT_EQ(ReadFile("fiscal.log"), "viejo");
}

TEST_F(OddFiles, TheLogMayBeWrittenByTheUsersGroupAsTheMaskAllows) {
  const mode_t before = ::umask(0002);
  EXPECT_EQ(LogFailure(), 0);
  ::umask(before);
  struct stat about = {};
  ASSERT_EQ(::stat("fiscal.log", &about), 0);
  EXPECT_EQ(about.st_mode & 0777u, 0664u);
}

TEST_F(OddFiles, ADirectoryThatIsGoneHasNeither) {
  const fs::path gone = fs::path(scratch_.Path()) / "caja";
  fs::create_directory(gone);
  fs::current_path(gone);
  fs::remove(gone);
  EXPECT_EQ(LogFailure(), 76);
  EXPECT_EQ(Setting(), "");
  fs::current_path(scratch_.Path());
}

TEST_F(OddFiles, ADirectoryDeeperThanAnyPathServes) {
  const std::string level = "Caja nº 1 del salón " + std::string(180, 'x');
  for (int depth = 0; depth < 25; ++depth) {
    ASSERT_EQ(::mkdir(level.c_str(), 0755), 0);
    ASSERT_EQ(::chdir(level.c_str()), 0);
  }
  WriteFile("FISCAL.INI", kSettings);
  EXPECT_EQ(LogFailure(), 0);
  EXPECT_EQ(Setting(), "12");
  fs::current_path(scratch_.Path());
}

TEST_F(OddFiles, TextsOfAnotherKindHoldNoSettings) {
  const std::string wide("\xFF\xFE[\0S\0]\0\n\0K\0=\0001\0\n\0", 18);
  const std::string noise(4096, '\0');
  const std::map<std::string, std::string> settings = {{wide, ""},
                                                       {noise + "\n" + kSettings, "12"}};
  for (const auto& [text, value] : settings) {
    WriteFile("Fiscal.ini", text);
    EXPECT_EQ(Setting(), value) << text;
  }
}

// A host that is a service without a terminal must not get one by reading a file.
TEST_F(OddFiles, ATerminalIsNotTaken) {
  PtyLine line;
  fs::create_symlink(line.Device(), "Fiscal.ini");
  fs::create_symlink(line.Device(), "fiscal.log");
  EXPECT_EQ(InChild([&] {
              ::setsid();
              Setting();
              LogFailure();
              return !FileDescriptor(::open("/dev/tty", O_RDWR | O_CLOEXEC));
            }),
            0);
}

// ---- Signals that would end the host ----

TEST_F(OddFiles, ALogThatMayNotGrowEndsNobody) {
  WriteFile("fiscal.log", "vieja\r\n");
  EXPECT_EQ(InChild([&] {
              const rlimit seven = {.rlim_cur = 7, .rlim_max = 7};
              ::setrlimit(RLIMIT_FSIZE, &seven);
              return LogFailure() == 75;
            }),
            0);
  EXPECT_EQ(ReadFile("fiscal.log"), "vieja\r\n");
}

// The reader of the pipe comes and goes, at last between the opening and the writing.
TEST_F(OddFiles, APipeWhoseReaderLeavesEndsNobody) {
  ASSERT_EQ(::mkfifo("fiscal.log", 0600), 0);
  EXPECT_EQ(InChild([&] {
              std::atomic<bool> done = false;
              std::thread reader([&] {
                while (!done) {
                  const FileDescriptor end(::open("fiscal.log", O_RDONLY | O_NONBLOCK | O_CLOEXEC));
                }
              });
              for (int n = 0; n < 20000; ++n) LogFailure();
              done = true;
              reader.join();
              return true;
            }),
            0);
}

TEST_F(OddFiles, APipeWhoseReaderSleepsStopsNobody) {
  ASSERT_EQ(::mkfifo("fiscal.log", 0600), 0);
  const FileDescriptor reader(::open("fiscal.log", O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  int lines = 0;
  while (LogFailure() == 0 && lines < 1000000) ++lines;
  EXPECT_EQ(LogFailure(), 75);
  EXPECT_GT(lines, 100);
}

TEST_F(OddFiles, ASignalThatTheHostHadPendingStaysTheHosts) {
  EXPECT_EQ(InChild([&] {
              sigset_t set = {};
              ::sigemptyset(&set);
              ::sigaddset(&set, SIGPIPE);
              ::sigprocmask(SIG_BLOCK, &set, nullptr);
              ::raise(SIGPIPE);
              LogFailure();
              ::sigpending(&set);
              return ::sigismember(&set, SIGPIPE) == 1;
            }),
            0);
}

// ---- Two hosts ----

TEST_F(OddFiles, TwoHostsWriteWholeLines) {
  constexpr int kLines = 2000;
  const auto write = [](char who) {
    PosixLog log;
    const std::string line = std::string(120, who) + "\r\n";
    for (int n = 0; n < kLines; ++n) log.Append(".\\fiscal.log", line);
  };
  const pid_t other = ::fork();
  if (other == 0) {
    write('b');
    ::_exit(0);
  }
  write('a');
  int status = -1;
  ::waitpid(other, &status, 0);
  EXPECT_EQ(status, 0);
  std::map<std::string, int> lines;
  std::istringstream text(ReadFile("fiscal.log"));
  for (std::string line; std::getline(text, line);) ++lines[line];
  EXPECT_EQ(lines, (std::map<std::string, int>{{std::string(120, 'a') + "\r", kLines},
                                               {std::string(120, 'b') + "\r", kLines}}));
}

}  // namespace
}  // namespace kestra
