#include "prompt/statement.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "command.hpp"

namespace kestra::tool {
namespace {

struct Row {
  std::string_view line;
  std::string_view told;  // "!" NAME [name=]<text>... "=>" <text>
};

std::string Told(const Statement& statement) {
  std::string text = (statement.has_to_fail ? "!" : "") + statement.name;
  for (const Word& word : statement.words)
    text += " " + (word.name.empty() ? "" : word.name + "=") + "<" + word.text + ">";
  if (statement.expected) text += " => <" + *statement.expected + ">";
  return text;
}

constexpr Row kRows[] = {
    {"", ""},
    {"   \t", ""},
    {"# EP_ReporteZ", ""},
    {"EP_CortaPapel", "EP_CortaPapel"},
    {"  CortaPapel  \r", "CortaPapel"},
    {"! CortaPapel", "!CortaPapel"},
    {"EP_ImprimirPago \"Efectivo pesos\" 100,50", "EP_ImprimirPago <Efectivo pesos> <100,50>"},
    {"ImprimirPago monto=5 descripcion=\"a \\\"b\\\" \\\\ \\c\"",
     "ImprimirPago monto=<5> descripcion=<a \"b\" \\ \\c>"},
    {"Item \"\" =x a-b=1", "Item <> <=x> <a-b=1>"},
    {"Cerrar TF A => 00000012", "Cerrar <TF> <A> => <00000012>"},
    {"Cerrar => \"dos palabras\"", "Cerrar => <dos palabras>"},
};

TEST(Statement, IsALineAsPeopleTypeIt) {
  for (const Row& row : kRows) EXPECT_EQ(Told(ReadStatement(row.line)), row.told) << row.line;
}

TEST(Statement, WhatIsNoneIsSaid) {
  for (const std::string_view line : {"Pago \"abierta", "!", "Cerrar => 1 2", "! # nada \""})
    EXPECT_THROW(ReadStatement(line), Stop) << line;
}

}  // namespace
}  // namespace kestra::tool
