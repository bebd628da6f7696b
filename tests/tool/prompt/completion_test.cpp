#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "prompt/line_editor.hpp"

namespace kestra::tool {
namespace {

struct Row {
  std::string_view before;
  std::string_view word;
  std::vector<std::string> completions;
};

const Row kRows[] = {
    {"", "imprimirp", {"ImprimirPago"}},
    {"", "ep_imprimirp", {"EP_ImprimirPago"}},
    {"  ", "Numer", {"Numeracion"}},
    {"! ", "Numer", {"Numeracion"}},
    {"", "sal", {"salir"}},
    {"ayuda ", "CortaP", {"CortaPapel"}},
    {"ImprimirPago ", "", {"descripcion=", "monto="}},
    {"ImprimirPago ", "m", {"monto="}},
    {"ImprimirPago descripcion=x ", "", {"monto="}},
    {"CerrarComprobanteFiscal ", "", {"tipo=", "letra="}},
    {"", "nada", {}},
    {"nada ", "", {}},
};

TEST(Completion, NamesOperationsAndThenTheirArguments) {
  for (const Row& row : kRows)
    EXPECT_EQ(CompletionsOf(row.before, row.word), row.completions) << row.before << row.word;
}

}  // namespace
}  // namespace kestra::tool
