#include "program/options.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "folder.hpp"
#include "program/ini_file.hpp"

namespace impresora {
namespace {

class OptionsTest : public testing::Test {
 protected:
  std::string File(const std::string& text) const {
    prueba::Fill(folder_ / "Fiscal.ini", text);
    return folder_ / "Fiscal.ini";
  }

  prueba::Folder folder_;
};

TEST_F(OptionsTest, TheHostsFileSetsFamilyModelAndDigits) {
  Settings settings;
  EXPECT_EQ(ApplyFiscalIni(File("\xEF\xBB\xBF; caja 1\r\n"
                                "[otra]\r\nEntPrecio=1\r\n"
                                "[ EPSON_fiscal ]\r\n"
                                "tipocomprobante = \"FC\"\r\n"
                                "ModeloNombre='TM-T900'\r\n"
                                ";EntCantidad=9\r\n"
                                "EntPrecio=5\r\nEntPrecio=8\r\nDecPrecio=4\r\n"
                                "EntDesc=6\r\nDecDesc=3\r\nEntPercepcion=4\r\nDecPercepcion=1\r\n"
                                "[mas]\r\nDecIVA=0\r\n"),
                           settings),
            "");
  EXPECT_EQ(settings.family, Family::kForm);
  EXPECT_EQ(settings.model, "TM-T900");
  EXPECT_EQ(settings.digits.quantity.integers, 5);
  EXPECT_EQ(settings.digits.price.integers, 5);
  EXPECT_EQ(settings.digits.price.decimals, 4);
  EXPECT_EQ(settings.digits.amount.integers, 6);
  EXPECT_EQ(settings.digits.amount.decimals, 3);
  EXPECT_EQ(settings.digits.perception.integers, 4);
  EXPECT_EQ(settings.digits.perception.decimals, 1);
  EXPECT_EQ(settings.digits.rate.decimals, 2);
}

TEST_F(OptionsTest, WhatIsWrongWithTheHostsFile) {
  Settings settings;
  EXPECT_EQ(ApplyFiscalIni("/nowhere/at/all", settings), "no se puede leer /nowhere/at/all");
  EXPECT_NE(ApplyFiscalIni(File("EntPrecio=7\n"), settings).find("[Epson_Fiscal]"),
            std::string::npos);
  for (const std::string line :
       {"EntPrecio=siete", "EntPrecio=0", "DecIVA=5", "DecDesc=", "TipoComprobante=XX", "TipoIVA=1",
        "LonDescripcionT=0", "LonEncabezadoF=mil", "LonDatosClienteT=1000"}) {
    const std::string key = line.substr(0, line.find('='));
    EXPECT_NE(ApplyFiscalIni(File("[Epson_Fiscal]\n" + line + "\n"), settings).find(key),
              std::string::npos)
        << line;
  }
}

TEST_F(OptionsTest, TextsAndTheIssuerAsInTheHostsFile) {
  const std::string path = File(
      "[Epson_Fiscal]\nTipoIVA=M\nLonDescripcionT=26\nLonTextoFiscalT=25\nLonEncabezadoT=40\n"
      "LonTextoNoFiscalT=41\nLonDatosClienteT=42\nLonDescripcionF=50\nLonDatosClienteF=60\n");
  Options options;
  ASSERT_EQ(ParseOptions({"--ini", path}, options), "");
  EXPECT_EQ(options.settings.owner_iva, 'M');
  EXPECT_EQ(options.settings.Texts().description, 26);
  EXPECT_EQ(options.settings.Texts().fiscal_text, 25);
  EXPECT_EQ(options.settings.Texts().header, 40);
  EXPECT_EQ(options.settings.Texts().non_fiscal_text, 41);
  EXPECT_EQ(options.settings.Texts().customer, 42);
  ASSERT_EQ(ParseOptions({"--ini", path, "--familia=FC"}, options), "");
  EXPECT_EQ(options.settings.Texts().description, 50);
  EXPECT_EQ(options.settings.Texts().customer, 60);
  EXPECT_EQ(options.settings.Texts().header, 120);  // the file does not say
}

TEST_F(OptionsTest, AFlagGoesBeforeTheFileWhereverItStands) {
  const std::string path = File("[Epson_Fiscal]\nTipoComprobante=FC\nEntPrecio=5\n");
  Options options;
  EXPECT_EQ(ParseOptions({"--familia", "TQ", "--ini", path}, options), "");
  EXPECT_EQ(options.settings.family, Family::kTicket);
  EXPECT_EQ(options.settings.digits.price.integers, 5);
}

TEST(OptionsValues, ThinkingTimesForAllOrForOneCommand) {
  Options options;
  ASSERT_EQ(ParseOptions({"--demora", "10,B=250,*=0"}, options), "");
  EXPECT_EQ(options.settings.work_milliseconds['@'], 10U);
  EXPECT_EQ(options.settings.work_milliseconds['B'], 250U);
  EXPECT_EQ(options.settings.work_milliseconds['*'], 0U);
}

TEST(OptionsValues, RepeatedFramesAreKnownUnlessToldOtherwise) {
  Options options;
  ASSERT_EQ(ParseOptions({}, options), "");
  EXPECT_TRUE(options.settings.knows_repeats);
  ASSERT_EQ(ParseOptions({"--sin-repetidas"}, options), "");
  EXPECT_FALSE(options.settings.knows_repeats);
}

struct Case {
  std::vector<std::string_view> arguments;
  std::string_view says;
};

TEST(OptionsValues, WhatCannotBe) {
  const std::vector<Case> cases{
      {{"--demora", "B="}, "valor no válido para --demora"},
      {{"--demora", "BB=3"}, "valor no válido para --demora"},
      {{"--tcp", "caja"}, "valor no válido para --tcp"},
      {{"--semilla", "-1"}, "valor no válido para --semilla"},
      {{"--comparar", "a"}, "falta el valor de --comparar"},
      {{"--tcp", "1", "--enlace", "x"}, "hay que elegir una línea"},
      {{"--reproducir", "a", "--memoria", "b"}, "no va con --memoria"},
      {{"--estado", "nada=1"}, "valor no válido para --estado"},
      {{"--ini", "/nowhere/at/all"}, "no se puede leer /nowhere/at/all"},
      {{"--familia", "XX"}, "«XX»; se espera TQ|TF|FC"},
      {{"--baudios", "9"}, "se espera un número de 50 a 4000000"},
      {{"--tcp", "caja"}, "se espera HOST:PUERTO"},
      {{"--demora", "B="}, "se espera milisegundos de 0 a 3600000 o X=milisegundos"},
      {{"--digitos", "nada=3.2"}, "campos: cantidad, precio, iva, internos, importe, percepcion"},
      {{"--estado", "sin_papel=quizas"}, "\n  sin_papel=si|no\n"},
      {{"--estado", "papel=mil"}, "\n  papel=N, de -1 a 1000000\n"},
  };
  for (const Case& c : cases) {
    Options options;
    const std::string wrong = ParseOptions(c.arguments, options);
    EXPECT_NE(wrong.find(c.says), std::string::npos) << wrong;
  }
}

TEST(OptionsValues, TwoRecordingsToCompare) {
  for (const std::vector<std::string_view>& arguments :
       {std::vector<std::string_view>{"--comparar", "a", "b"}, {"--comparar=a", "b"}}) {
    Options options;
    EXPECT_EQ(ParseOptions(arguments, options), "");
    EXPECT_EQ(options.compare, (std::vector<std::string>{"a", "b"}));
  }
}

TEST(OptionsValues, HelpHasTheNamesThatPeopleTry) {
  for (const char* const word : {"--ayuda", "--help", "-h"}) {
    Options options;
    EXPECT_EQ(ParseOptions({word}, options), "") << word;
    EXPECT_TRUE(options.help) << word;
  }
}

TEST(OptionsValues, TheHelpFitsATerminal) {
  std::ostringstream help;
  PrintHelp(help);
  std::istringstream lines(help.str());
  for (std::string line; std::getline(lines, line);) {
    EXPECT_LE(std::count_if(line.begin(), line.end(), [](char c) { return (c & 0xC0) != 0x80; }),
              110)
        << line;
  }
}

}  // namespace
}  // namespace impresora
