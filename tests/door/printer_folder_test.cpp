#include "program/printer_folder.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace puerta {
namespace {

const std::string kRight = "TipoComprobante=TQ\nModoSeguro=1\nDiario=diario.txt\n";

std::vector<FieldError> ErrorsOf(const std::string& ini) {
  const auto folder = std::filesystem::temp_directory_path() / "kestra-puerta-carpeta-de-prueba";
  std::filesystem::create_directories(folder);
  std::ofstream(folder / "Fiscal.ini") << "[Epson_Fiscal]\n" << ini;
  auto errors = LookAtFolder(folder, "/impresoras/0/carpeta").errors;
  std::filesystem::remove_all(folder);
  return errors;
}

TEST(PrinterFolder, HasToMakeTheLibraryCertain) {
  struct Row {
    std::string ini;
    std::vector<std::string> said;
  };
  const std::vector<Row> rows{
      {kRight, {}},
      {"Diario=diario.txt\n", {"a su Fiscal.ini le falta ModoSeguro=1"}},
      {"ModoSeguro=1\n", {"a su Fiscal.ini le falta Diario=, como Diario=diario.txt"}},
      {kRight + "MostrarComandos=0\n", {}},
      {kRight + "MostrarComandos=1\n", {"a su Fiscal.ini le sobra MostrarComandos=1"}},
  };
  for (const auto& row : rows) {
    std::vector<std::string> said;
    for (const auto& error : ErrorsOf(row.ini)) {
      EXPECT_EQ(error.pointer, "/impresoras/0/carpeta");
      said.push_back(error.message);
    }
    EXPECT_EQ(said, row.said) << row.ini;
  }
}

TEST(PrinterFolder, WithoutASettingsFile) {
  EXPECT_EQ(LookAtFolder("/no/hay/nada", "/impresoras/1/carpeta").errors.at(0).message,
            "no se puede leer /no/hay/nada/Fiscal.ini");
}

}  // namespace
}  // namespace puerta
