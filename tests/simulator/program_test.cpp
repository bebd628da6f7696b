#include "program.hpp"

#include <stdlib.h>
#include <sys/ioctl.h>

#include "line_player.hpp"
#include "program/posix/port_speed.hpp"
#include "story_test.hpp"

namespace impresora {
namespace {

using prueba::Body;
using prueba::ConnectTo;
using prueba::Contents;
using prueba::kPatience;
using prueba::Port;
using prueba::Program;
using prueba::ProgramTest;
namespace fs = std::filesystem;

// The texts between "*"s, one behind the other, in the text.
bool Holds(std::string_view text, std::string_view pattern) {
  std::size_t at = 0;
  for (const std::string& part : prueba::Split(pattern, '*')) {
    at = text.find(part, at);
    if (at == text.npos) return false;
    at += part.size();
  }
  return true;
}

// The built program, started with "run", and a host at its line.
class ProgramPlayer : public prueba::Player {
 public:
  ProgramPlayer() {
    verbs_["run"] = [this](std::string_view arguments) {
      port_.reset();
      program_.reset();
      program_.emplace(prueba::Split(Here(arguments), ' '));
    };
    verbs_["line"] = [this](std::string_view begins) {
      const std::string line = program_->Line();
      if (begins.starts_with("Puerto")) where_it_is_ = line;
      Expect(line.starts_with(begins), begins, line);
    };
    verbs_["tells"] = [this](std::string_view text) { Expect(Here(text), program_->Rest()); };
    verbs_["says"] = [this](std::string_view text) {
      const std::string all = program_->Rest();
      Expect(all.find(text) != std::string::npos, text, all);
    };
    verbs_["ends"] = [this](std::string_view code) {
      Expect(code, std::to_string(program_->Wait()));
    };
    verbs_["stop"] = [this](std::string_view) { program_->Stop(); };
    verbs_["open"] = [this](std::string_view name) { port_.emplace(In(name)); };
    // One host at a time: who comes while another is connected is turned away.
    verbs_["connect"] = [this](std::string_view) {
      port_.reset();
      port_.emplace(ConnectTo(where_it_is_));
    };
    verbs_["speed"] = [this](std::string_view baud) {
      SetPortSpeed(port_->fd(), std::stoi(std::string(baud)));
    };
    verbs_["close"] = [this](std::string_view) { port_.reset(); };
    verbs_["send"] = [this](std::string_view line) {
      const std::string bytes = prueba::BytesOf(line);
      Expect(write(port_->fd(), bytes.data(), bytes.size()) == std::ssize(bytes), line, "not sent");
    };
    verbs_["wait"] = [](std::string_view time) { poll(nullptr, 0, std::stoi(std::string(time))); };
    verbs_["old_link"] = [this](std::string_view name) {
      fs::create_symlink("/nowhere/at/all", In(name));
    };
    verbs_["leads"] = [this](std::string_view rest) {
      const std::size_t blank = rest.find(' ');
      const std::string link = In(rest.substr(0, blank));
      const std::string to = fs::is_symlink(link) ? fs::read_symlink(link).string() : "nowhere";
      Expect(rest.substr(blank + 1) == "nowhere" ? "nowhere\n" : where_it_is_.substr(8), to + "\n");
    };
    verbs_["file"] = [this](std::string_view rest) {
      const std::size_t blank = rest.find(' ');
      prueba::Fill(In(rest.substr(0, blank)), prueba::Unescaped(rest.substr(blank + 1)) + "\n");
    };
    verbs_["holds"] = [this](std::string_view rest) {
      const std::size_t blank = rest.find(' ');
      const std::string text = Contents(In(rest.substr(0, blank)));
      Expect(Holds(text, prueba::Unescaped(rest.substr(blank + 1))), rest, text);
    };
    verbs_["same"] = [this](std::string_view rest) {
      const std::size_t blank = rest.find(' ');
      Expect(std::string(rest.substr(blank + 1)) + "\n", Contents(In(rest.substr(0, blank))));
    };
    verbs_["objects"] = [this](std::string_view rest) {
      const std::size_t blank = rest.find(' ');
      auto lines = prueba::Split(Contents(In(rest.substr(0, blank))), '\n');
      lines.pop_back();
      for (const std::string& line : lines) {
        Expect(line.starts_with('{') && line.ends_with('}'), "an object", line);
      }
      Expect(rest.substr(blank + 1), std::to_string(lines.size()));
    };
  }

 protected:
  void Begin(const Settings& /*settings*/) override {
    port_.reset();
    program_.reset();
    folder_.emplace();
  }
  // The commands of an everyday word have the numbers from its own on; the last answer counts.
  void Command(std::string_view line, std::string_view expected) override {
    const std::size_t blank = line.find(' ');
    auto sequence = static_cast<std::uint8_t>(std::stoi(std::string(line.substr(0, blank))));
    std::string heard;
    for (const std::string& body : prueba::BodiesOf(line.substr(blank + 1))) {
      heard = prueba::Frames(port_->Exchange(sequence++, body));
    }
    Expect(Holds("\n" + heard + "\n", "\n" + std::string(expected) + "\n"), expected, heard);
  }
  Printer& GetPrinter() override { throw std::logic_error("the printer is another process"); }

 private:
  std::string In(std::string_view name) const { return *folder_ / std::string(name); }
  std::string Here(std::string_view text) const {
    std::string path = prueba::Unescaped(text);
    for (std::size_t at = 0; (at = path.find('$', at)) != std::string::npos;) {
      path.replace(at, 1, folder_->path());
    }
    return path;
  }

  std::optional<prueba::Folder> folder_;
  std::optional<Program> program_;
  std::optional<Port> port_;
  std::string where_it_is_;
};

PLAY_STORIES(Programs, ProgramPlayer, "program")

TEST_F(ProgramTest, SaysThatAnAddressIsTaken) {
  Program other({"--tcp", "127.0.0.1:0"});
  const std::string line = other.Line();
  ASSERT_EQ(line.substr(0, 12), "Puerto: tcp:");
  const std::string taken = line.substr(12, line.size() - 13);
  Program program({"--tcp", taken});
  EXPECT_EQ(program.Rest(), "impresora-virtual: no se puede continuar: no se puede abrir " + taken +
                                ": la dirección está en uso\n");
  EXPECT_EQ(program.Wait(), 1);
}

TEST_F(ProgramTest, SaysThatItTakesTheLinkOfAnotherPrinter) {
  Program first({"--enlace", In("puerto"), "--papel", In("papel")});
  first.Line();
  const std::string target = fs::read_symlink(In("puerto"));
  Program second({"--enlace", In("puerto"), "--papel", In("otro")});
  EXPECT_EQ(second.Line().substr(0, 60 + In("puerto").size()),
            ("impresora-virtual: " + In("puerto") + " llevaba a " + target +
             ", que existe; desde ahora lleva a ")
                .substr(0, 60 + In("puerto").size()));
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

// A ticket of one item over a port that stays open; returns its number as answered.
std::string SellATicket(Port& port, std::uint8_t sequence = 40) {
  port.Exchange(sequence, Body({"@", "C"}));
  port.Exchange(static_cast<std::uint8_t>(sequence + 1),
                Body({"B", "Pan", "1000", "1000", "2100", "M", "0001", "0000", "0"}));
  return port.Exchange(static_cast<std::uint8_t>(sequence + 2), Body({"E", "T"})).substr(14, 8);
}

TEST_F(ProgramTest, OneHostAtATimeAndHalfAFrameIsNobodyElses) {
  Program program({"--tcp", "127.0.0.1:0", "--papel", In("papel")});
  const std::string line = program.Line();
  {
    Port first(ConnectTo(line));
    SellATicket(first);
    Port second(ConnectTo(line));
    char byte = 0;
    EXPECT_EQ(read(second.fd(), &byte, 1), 0);
    ASSERT_EQ(write(first.fd(), "\x02\x50@\x1c", 4), 4);
  }
  Port next(ConnectTo(line));
  EXPECT_EQ(next.Exchange(60, "Y").substr(0, 3), "\x02<Y");
}

TEST_F(ProgramTest, OnASerialDeviceThatIsOneEndOfAPair) {
  const int cable = posix_openpt(O_RDWR | O_NOCTTY);
  ASSERT_EQ(grantpt(cable), 0);
  ASSERT_EQ(unlockpt(cable), 0);
  const std::string device = ptsname(cable);
  Program program({"--dispositivo", device, "--baudios=19200", "--papel", In("papel")});
  EXPECT_EQ(program.Line(), "Puerto: " + device + "\n");
  Port host(cable);
  EXPECT_EQ(SellATicket(host), "00000001");
}

TEST_F(ProgramTest, UnpluggedTheConnectionEndsAndTheNextHostIsServed) {
  prueba::Fill(In("fallas"), "respuesta 1 de Y: desenchufar\n");
  Program program({"--tcp=0", "--fallas", In("fallas"), "--papel", In("papel")});
  const std::string line = program.Line();
  const std::string question = Frame(40, "Y");
  const Port first(ConnectTo(line));
  ASSERT_EQ(write(first.fd(), question.data(), question.size()),
            static_cast<ssize_t>(question.size()));
  EXPECT_EQ(prueba::ReadUntil(first.fd(), [](const std::string&) { return false; }).find(kEtx),
            std::string::npos);
  Port next(ConnectTo(line));
  EXPECT_EQ(next.Exchange(41, "Y").substr(0, 3), "\x02)Y");
}

TEST_F(ProgramTest, KilledInTheMiddleOfADocumentItsPaperIsWholeAllTheSame) {
  for (const bool as_folder : {true, false}) {
    const std::string memory = In(as_folder ? "m1.db" : "m2.db");
    const std::string paper = as_folder ? In("papeles/") : In("papel");
    const std::vector<std::string> arguments{"--tcp=0", "--memoria", memory, "--papel", paper};
    {
      Program program(arguments);
      Port port(ConnectTo(program.Line()));
      port.Exchange(40, Body({"@", "C"}));
      port.Exchange(41, Body({"B", "Pan", "1000", "1000", "2100", "M", "0001", "0000", "0"}));
      program.Kill();
    }
    Program program(arguments);
    Port port(ConnectTo(program.Line()));
    port.Exchange(42, Body({"E", "T"}));
    program.Stop();
    EXPECT_EQ(program.Wait(), 0);
    const std::string text =
        Contents(as_folder ? In("papeles/0001-tique-B-00000001.txt") : In("papel"));
    std::size_t at = 0;
    for (const char* const words : {"TIQUE", "Pan", "CORTE DE ENERGÍA", "T O T A L"}) {
      const std::size_t found = text.find(words, at);
      ASSERT_NE(found, std::string::npos) << words << " in:\n" << text;
      at = found;
    }
    EXPECT_EQ(text.find("COMERCIO DE PRUEBA"), text.rfind("COMERCIO DE PRUEBA"));
  }
}

}  // namespace
}  // namespace impresora
