#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "host.hpp"

namespace impresora {
namespace {

namespace fs = std::filesystem;
using prueba::Body;

// Longer than any machine needs; only a fault makes a test wait this long.
constexpr int kPatience = 20'000;

std::string ReadAll(const fs::path& path) {
  const std::ifstream file(path);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

std::string ReadUntil(int fd, const std::function<bool(const std::string&)>& enough) {
  std::string text;
  pollfd wait{fd, POLLIN, 0};
  while (!enough(text) && poll(&wait, 1, kPatience) > 0) {
    std::array<char, 512> buffer{};
    const ssize_t count = read(fd, buffer.data(), buffer.size());
    if (count <= 0) break;
    text.append(buffer.data(), static_cast<std::size_t>(count));
  }
  return text;
}

// The program running, with its two outputs in one pipe.
class Program {
 public:
  explicit Program(std::vector<std::string> arguments) {
    std::array<int, 2> pipe_ends{};
    if (pipe(pipe_ends.data()) != 0) return;
    arguments.insert(arguments.begin(), IMPRESORA_VIRTUAL);
    pid_ = fork();
    if (pid_ == 0) Become(arguments, pipe_ends[1]);
    close(pipe_ends[1]);
    output_ = pipe_ends[0];
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;
  ~Program() {
    if (pid_ > 0) kill(pid_, SIGKILL), waitpid(pid_, nullptr, 0);
    close(output_);
  }

  std::string Line() {
    return ReadUntil(output_, [](const std::string& s) { return s.find('\n') != s.npos; });
  }
  std::string Rest() {
    return ReadUntil(output_, [](const std::string&) { return false; });
  }
  void Stop() const { kill(pid_, SIGTERM); }
  int Wait() {
    int status = 0;
    waitpid(pid_, &status, 0);
    pid_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  }

 private:
  [[noreturn]] static void Become(const std::vector<std::string>& arguments, int output) {
    dup2(output, STDOUT_FILENO);
    dup2(output, STDERR_FILENO);
    std::vector<char*> argv;
    argv.reserve(arguments.size() + 1);
    for (const std::string& argument : arguments)
      argv.push_back(const_cast<char*>(argument.data()));
    argv.push_back(nullptr);
    execv(argv[0], argv.data());
    _exit(127);
  }

  pid_t pid_ = -1;
  int output_ = -1;
};

class Port {
 public:
  explicit Port(const std::string& path) : fd_(open(path.c_str(), O_RDWR | O_NOCTTY)) {}
  Port(const Port&) = delete;
  Port& operator=(const Port&) = delete;
  ~Port() { close(fd_); }

  std::string Exchange(std::uint8_t sequence, const std::string& body) {
    const std::string frame = Frame(sequence, body);
    EXPECT_EQ(write(fd_, frame.data(), frame.size()), static_cast<ssize_t>(frame.size()));
    std::string answer = ReadUntil(fd_, [](const std::string& text) {
      const std::size_t end = text.find(kEtx);
      return end != text.npos && text.size() >= end + 5;
    });
    EXPECT_EQ(write(fd_, &kAck, 1), 1);
    return answer;
  }
  int fd() const { return fd_; }

 private:
  int fd_;
};

class ProgramTest : public testing::Test {
 protected:
  void SetUp() override {
    std::string name = (fs::temp_directory_path() / "impresora-XXXXXX").string();
    ASSERT_NE(mkdtemp(name.data()), nullptr);
    folder_ = name;
  }
  void TearDown() override { fs::remove_all(folder_); }

  std::string In(const std::string& name) const { return (folder_ / name).string(); }

  fs::path folder_;
};

TEST_F(ProgramTest, ATicketOverTheLine) {
  Program program({"--enlace", In("puerto"), "--papel", In("papel"), "--traza=" + In("traza"),
                   "--documentos", "1"});
  const std::string line = program.Line();
  ASSERT_EQ(line.substr(0, 13), "Puerto: /dev/");
  EXPECT_EQ(fs::read_symlink(In("puerto")), line.substr(8, line.size() - 9));
  for (int visit = 0; visit < 2; ++visit) {  // hosts open the port anew for each command
    Port port(In("puerto"));
    EXPECT_EQ(port.Exchange(40, "{"), Frame(40, Body({"{", "0080", "0600"})));
  }
  Port port(In("puerto"));
  EXPECT_EQ(port.Exchange(41, Body({"@", "C"})), Frame(41, Body({"@", "0080", "1600"})));
  const std::string item = Body({"B", "Pan", "1000", "1000", "2100", "M", "0001", "0000", "0"});
  EXPECT_EQ(port.Exchange(42, item), Frame(42, Body({"B", "0080", "1600"})));
  EXPECT_EQ(port.Exchange(43, Body({"E", "T"})),
            Frame(43, Body({"E", "0080", "0600", "00000001"})));
  EXPECT_EQ(program.Wait(), 0);
  EXPECT_FALSE(fs::exists(fs::symlink_status(In("puerto"))));
  EXPECT_NE(ReadAll(In("papel")).find("T O T A L                        $ 10,00\n"),
            std::string::npos);
  EXPECT_NE(ReadAll(In("traza")).find("sec 40 (repetido, no se ejecuta) Abrir cajón()"),
            std::string::npos);
}

TEST_F(ProgramTest, EndsCleanlyWhenAsked) {
  Program program({"--enlace", In("puerto"), "--papel", In("papel")});
  program.Line();
  {
    Port port(In("puerto"));
    port.Exchange(40, "H");
  }
  program.Stop();
  EXPECT_EQ(program.Wait(), 0);
  EXPECT_FALSE(fs::exists(fs::symlink_status(In("puerto"))));
  EXPECT_NE(ReadAll(In("papel")).find("DOCUMENTO NO FISCAL"), std::string::npos);
}

TEST_F(ProgramTest, TakesThePlaceOfAnOldLinkButOfNothingElse) {
  fs::create_symlink("/nowhere/at/all", In("viejo"));
  Program program({"--enlace", In("viejo"), "--papel", In("papel")});
  const std::string line = program.Line();
  EXPECT_EQ(fs::read_symlink(In("viejo")), line.substr(8, line.size() - 9));
  std::ofstream(In("archivo")) << "importante";
  Program refused({"--enlace", In("archivo")});
  EXPECT_NE(refused.Rest().find("no se puede continuar"), std::string::npos);
  EXPECT_EQ(refused.Wait(), 1);
  EXPECT_EQ(ReadAll(In("archivo")), "importante");
}

TEST_F(ProgramTest, AKilledHostsExclusiveUseIsUndone) {
  Program program({"--enlace", In("puerto"), "--papel", In("papel")});
  program.Line();
  const Port watcher(In("puerto"));
  {
    const Port host(In("puerto"));
    ASSERT_EQ(ioctl(host.fd(), TIOCEXCL), 0);
  }
  int exclusive = 1;
  for (int tenths = 0; exclusive != 0 && tenths < kPatience / 100; ++tenths) {
    poll(nullptr, 0, 100);
    ASSERT_EQ(ioctl(watcher.fd(), TIOCGEXCL, &exclusive), 0);
  }
  EXPECT_EQ(exclusive, 0);
}

struct UsageCase {
  std::vector<std::string> arguments;
  int result;
  std::string_view says;
};

TEST_F(ProgramTest, WhatItSaysOfItsArguments) {
  const std::vector<UsageCase> cases{
      {{"--ayuda"}, 0, "--enlace RUTA"},
      {{"--version"}, 0, "impresora-virtual 0."},
      {{"--nada"}, 2, "opción desconocida: «--nada»"},
      {{"--familia", "XX"}, 2, "valor no válido para --familia: «XX»"},
      {{"--familia"}, 2, "falta el valor de --familia"},
      {{"--demora", "-1"}, 2, "valor no válido para --demora: «-1»"},
      {{"--baudios=rapido"}, 2, "valor no válido para --baudios: «rapido»"},
      {{"--digitos", "cantidad=5"}, 2, "valor no válido para --digitos"},
      {{"--sin-papel=1"}, 2, "la opción --sin-papel no lleva valor"},
      {{"--papel", "/nowhere/at/all"}, 1, "no se puede continuar"},
  };
  for (const UsageCase& c : cases) {
    Program program(c.arguments);
    const std::string said = program.Rest();
    EXPECT_NE(said.find(c.says), std::string::npos) << said;
    EXPECT_EQ(program.Wait(), c.result) << c.arguments.front();
  }
}

TEST_F(ProgramTest, StartsWithTheFaultsItWasToldOf) {
  Program program({"--enlace", In("puerto"), "--papel", In("papel"), "--sin-papel",
                   "--digitos=cantidad=4.2,precio=5.4", "--familia=TQ", "--cierres-restantes=5"});
  program.Line();
  Port port(In("puerto"));
  EXPECT_EQ(port.Exchange(40, "Y").substr(3, 10),
            "\x1c"
            "C080\x1c"
            "0700");
  EXPECT_EQ(port.Exchange(41, Body({"*", "P"})).substr(13, 9),
            "\x1cTQ\x1c"
            "42\x1c"
            "54");
}

}  // namespace
}  // namespace impresora
