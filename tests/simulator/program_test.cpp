#include "program.hpp"

#include <sys/ioctl.h>

namespace impresora {
namespace {

using prueba::Body;
using prueba::Contents;
using prueba::kPatience;
using prueba::Port;
using prueba::Program;
using prueba::ProgramTest;
namespace fs = std::filesystem;

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
  EXPECT_NE(Contents(In("papel")).find("T O T A L                        $ 10,00\n"),
            std::string::npos);
  const std::string trace = Contents(In("traza"));
  const std::string_view opened = "40 {  Abrir cajón            ok ";
  EXPECT_NE(trace.find(opened), trace.rfind(opened)) << "each visit had its own";
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
  EXPECT_NE(Contents(In("papel")).find("DOCUMENTO NO FISCAL"), std::string::npos);
}

TEST_F(ProgramTest, TakesThePlaceOfAnOldLinkButOfNothingElse) {
  fs::create_symlink("/nowhere/at/all", In("viejo"));
  Program program({"--enlace", In("viejo"), "--papel", In("papel")});
  const std::string line = program.Line();
  EXPECT_EQ(fs::read_symlink(In("viejo")), line.substr(8, line.size() - 9));
  prueba::Fill(In("archivo"), "importante");
  Program refused({"--enlace", In("archivo")});
  EXPECT_NE(refused.Rest().find("no se puede continuar"), std::string::npos);
  EXPECT_EQ(refused.Wait(), 1);
  EXPECT_EQ(Contents(In("archivo")), "importante");
}

TEST_F(ProgramTest, SaysWhatItCannotOpenAndWhy) {
  prueba::Fill(In("archivo"), "importante");
  Program other({"--tcp", "127.0.0.1:0"});
  const std::string line = other.Line();
  ASSERT_EQ(line.substr(0, 12), "Puerto: tcp:");
  const std::string taken = line.substr(12, line.size() - 13);
  struct Row {
    std::string option;
    std::string value;
    std::string why;
  };
  const Row rows[] = {
      {"--dispositivo", In("no"), "no existe"},
      {"--dispositivo", In("archivo"), "no es un puerto serie"},
      {"--papel", In("no/hay"), "no existe"},
      {"--traza", In("."), "es una carpeta"},
      {"--grabar", In("archivo/hay"), "no existe"},
      {"--enlace", In("no/hay"), "no existe"},
      {"--enlace", In("archivo"), "ya hay otra cosa con ese nombre"},
      {"--tcp", taken, "la dirección está en uso"},
  };
  for (const Row& row : rows) {
    Program program({row.option, row.value});
    EXPECT_EQ(program.Rest(), "impresora-virtual: no se puede continuar: no se puede abrir " +
                                  row.value + ": " + row.why + "\n");
    EXPECT_EQ(program.Wait(), 1);
  }
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
