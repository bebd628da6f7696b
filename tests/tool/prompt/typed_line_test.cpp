#include "prompt/typed_line.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace kestra::tool {
namespace {

struct Row {
  std::string_view typed;
  std::string_view line;
  std::string_view choices;
};

constexpr Row kRows[] = {
    {"cortap", "CortaPapel ", ""},
    {"ImprimirPago m", "ImprimirPago monto=", ""},
    {"ImprimirPago descripcion=x m", "ImprimirPago descripcion=x monto=", ""},
    {"ImprimirPago ", "ImprimirPago ", "\n  descripcion=\n  monto=\n"},
    {"nada", "nada", ""},
    {"nada\t", "nada\t", ""},
};

TEST(TypedLine, GoesOnAsFarAsThereIsOneWay) {
  for (const Row& row : kRows) {
    SCOPED_TRACE(row.typed);
    const auto grown = Completed(std::string(row.typed));
    EXPECT_EQ(grown.line, row.line);
    EXPECT_EQ(grown.choices, row.choices);
  }
}

TEST(TypedLine, WhatTheChoicesHaveInCommonIsTyped) {
  const auto grown = Completed("reporte");
  EXPECT_EQ(grown.line, "Reporte");
  EXPECT_NE(grown.choices.find("\n  ReporteX\n"), std::string::npos);
  EXPECT_NE(grown.choices.find("\n  ReporteZ\n"), std::string::npos);
}

}  // namespace
}  // namespace kestra::tool
