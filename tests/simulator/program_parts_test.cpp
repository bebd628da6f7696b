#include <stdlib.h>

#include <map>

#include "program.hpp"

namespace impresora {
namespace {

using prueba::Body;
using prueba::ConnectTo;
using prueba::Contents;
using prueba::Port;
using prueba::Program;
namespace fs = std::filesystem;

// A ticket of one item over a port that stays open; returns its number as answered.
std::string SellATicket(Port& port, std::uint8_t sequence = 40) {
  port.Exchange(sequence, Body({"@", "C"}));
  port.Exchange(static_cast<std::uint8_t>(sequence + 1),
                Body({"B", "Pan", "1000", "1000", "2100", "M", "0001", "0000", "0"}));
  return port.Exchange(static_cast<std::uint8_t>(sequence + 2), Body({"E", "T"})).substr(14, 8);
}

class ProgramParts : public prueba::ProgramTest {};

TEST_F(ProgramParts, ATicketOverTcpWithAConnectionForEachExchange) {
  Program program({"--tcp", "127.0.0.1:0", "--papel", In("papel"), "--documentos", "1"});
  const std::string line = program.Line();
  ASSERT_EQ(line.substr(0, 22), "Puerto: tcp:127.0.0.1:");
  const std::array bodies{Body({"@", "C"}),
                          Body({"B", "Pan", "1000", "1000", "2100", "M", "0001", "0000", "0"}),
                          Body({"E", "T"})};
  std::uint8_t sequence = 40;
  for (const std::string& body : bodies) {
    Port port(ConnectTo(line));
    EXPECT_EQ(port.Exchange(sequence, body).substr(1, 2),
              std::string(1, static_cast<char>(sequence)) + body.substr(0, 1));
    ++sequence;
  }
  EXPECT_EQ(program.Wait(), 0);
  EXPECT_NE(Contents(In("papel")).find("T O T A L"), std::string::npos);
}

TEST_F(ProgramParts, OneHostAtATimeAndHalfAFrameIsNobodyElses) {
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

TEST_F(ProgramParts, OnASerialDeviceThatIsOneEndOfAPair) {
  const int cable = posix_openpt(O_RDWR | O_NOCTTY);
  ASSERT_EQ(grantpt(cable), 0);
  ASSERT_EQ(unlockpt(cable), 0);
  const std::string device = ptsname(cable);
  Program program({"--dispositivo", device, "--baudios=19200", "--papel", In("papel")});
  EXPECT_EQ(program.Line(), "Puerto: " + device + "\n");
  Port host(cable);
  EXPECT_EQ(SellATicket(host), "00000001");
}

TEST_F(ProgramParts, TheMemoryOutlivesTheProgram) {
  for (const std::string_view number : {"00000001", "00000002"}) {
    Program program({"--tcp=0", "--memoria", In("memoria"), "--papel", In("papel")});
    Port port(ConnectTo(program.Line()));
    EXPECT_EQ(SellATicket(port), number);
  }
}

TEST_F(ProgramParts, AMemoryThatIsNoneIsToldAndLeftAlone) {
  prueba::Fill(In("memoria"), "importante, pero no es una memoria fiscal");
  Program program({"--memoria", In("memoria"), "--papel", In("papel")});
  EXPECT_NE(program.Rest().find("no se puede continuar"), std::string::npos);
  EXPECT_EQ(program.Wait(), 1);
  EXPECT_EQ(Contents(In("memoria")), "importante, pero no es una memoria fiscal");
}

TEST_F(ProgramParts, APictureOfEachDocument) {
  Program program({"--tcp=0", "--papel", In("papeles") + "/", "--documentos=2"});
  Port port(ConnectTo(program.Line()));
  SellATicket(port);
  SellATicket(port, 50);
  EXPECT_EQ(program.Wait(), 0);
  std::map<std::string, int> kinds;
  for (const auto& file : fs::directory_iterator(In("papeles"))) ++kinds[file.path().extension()];
  EXPECT_EQ(kinds[".txt"], 2);
  EXPECT_EQ(kinds[".svg"], 2);
}

TEST_F(ProgramParts, TheTraceAsJsonLines) {
  Program program(
      {"--tcp=0", "--papel", In("papel"), "--traza", In("traza.jsonl"), "--documentos=1"});
  Port port(ConnectTo(program.Line()));
  SellATicket(port);
  EXPECT_EQ(program.Wait(), 0);
  std::istringstream lines(Contents(In("traza.jsonl")));
  int count = 0;
  for (std::string line; std::getline(lines, line); ++count) {
    EXPECT_EQ(line.front(), '{');
    EXPECT_EQ(line.back(), '}');
  }
  EXPECT_EQ(count, 3);
}

TEST_F(ProgramParts, ARecordingIsPlayedBackAndCompared) {
  std::string recorded;
  for (const std::string name : {"a", "b"}) {
    Program program({"--tcp=0", "--papel", In("papel"), "--grabar", In(name), "--documentos=1"});
    Port port(ConnectTo(program.Line()));
    recorded = SellATicket(port, name == "a" ? 40 : 50);
    EXPECT_EQ(program.Wait(), 0);
  }
  Program same({"--comparar", In("a"), In("b")});
  EXPECT_EQ(same.Wait(), 0);
  Program unreadable({"--comparar", In("a"), In("papel")});
  EXPECT_EQ(unreadable.Wait(), 2);
  Program player({"--tcp=0", "--reproducir", In("a")});
  Port port(ConnectTo(player.Line()));
  EXPECT_EQ(SellATicket(port, 60), recorded);
}

TEST_F(ProgramParts, FaultsFromAFile) {
  prueba::Fill(In("mal"), "esto no es una regla\n");
  Program wrong({"--fallas", In("mal"), "--papel", In("papel")});
  EXPECT_NE(wrong.Rest().find("renglón 1"), std::string::npos);
  EXPECT_EQ(wrong.Wait(), 1);
}

TEST_F(ProgramParts, SwitchedOffInMidDocumentItFindsTheDocumentOpen) {
  prueba::Fill(In("fallas"), "respuesta 1 de B: apagar 1 s\n");
  Program program(
      {"--tcp=0", "--fallas", In("fallas"), "--memoria", In("memoria"), "--papel", In("papel")});
  Port port(ConnectTo(program.Line()));
  port.Exchange(40, Body({"@", "C"}));
  const std::string item =
      Frame(41, Body({"B", "Pan", "1000", "1000", "2100", "M", "0001", "0000", "0"}));
  ASSERT_EQ(write(port.fd(), item.data(), item.size()), static_cast<ssize_t>(item.size()));
  poll(nullptr, 0, 2000);
  const std::string answer = port.Exchange(42, "Y");
  EXPECT_NE(answer.find(Body({"Y", "0080", "1600"})), std::string::npos) << answer;
}

TEST_F(ProgramParts, UnpluggedTheConnectionEndsAndTheNextHostIsServed) {
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

TEST_F(ProgramParts, ThePanelSaysWhereItIs) {
  Program program({"--tcp=0", "--panel=0", "--papel", In("papel")});
  program.Line();
  const std::string panel = program.Line();
  EXPECT_EQ(panel.substr(0, 24), "Panel: http://127.0.0.1:");
  program.Stop();
  EXPECT_EQ(program.Wait(), 0);
}

#ifdef IMPRESORA_CON_MEMORIA
TEST_F(ProgramParts, KilledInTheMiddleOfADocumentItsPaperIsWholeAllTheSame) {
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
#endif

TEST_F(ProgramParts, AsTheHostsFileSays) {
  prueba::Fill(In("Fiscal.ini"),
               "[Epson_Fiscal]\nTipoComprobante=FC\nEntCantidad=4\nDecCantidad=1\n");
  Program program({"--tcp=0", "--ini", In("Fiscal.ini"), "--papel", In("papel")});
  Port port(ConnectTo(program.Line()));
  EXPECT_EQ(port.Exchange(41, Body({"*", "P"})).substr(13, 6),
            "\x1c"
            "FC\x1c"
            "41");
}

}  // namespace
}  // namespace impresora
