#include "prompt/operations.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <string_view>

#include "command.hpp"
#include "prompt/call.hpp"

namespace kestra::tool {
namespace {

struct NameRow {
  std::string_view asked;
  std::string_view found;  // empty: none
};

constexpr NameRow kNames[] = {
    {"EP_ImprimirItem", "EP_ImprimirItem"},
    {"ep_imprimiritem", "EP_ImprimirItem"},
    {"imprimiritem", "EP_ImprimirItem"},
    {"Numeracion", "EP_Numeracion"},
    {"kestra_numeracion", "Kestra_Numeracion"},
    {"Estado", "Kestra_Estado"},
    {"EP_Nada", ""},
    {"", ""},
    {"EP_", ""},
};

TEST(Operations, AreFoundInEitherCaseAndWithoutTheirPrefix) {
  for (const NameRow& row : kNames) {
    const Operation* const found = FindOperation(row.asked);
    EXPECT_EQ(found == nullptr ? "" : found->name, row.found) << row.asked;
  }
}

TEST(Operations, HaveArgumentsWithNames) {
  EXPECT_EQ(UsageOf(*FindOperation("EP_ImprimirPago")), "EP_ImprimirPago descripcion monto");
  EXPECT_EQ(UsageOf(*FindOperation("EP_CerrarComprobanteFiscal")),
            "EP_CerrarComprobanteFiscal tipo letra");
  const auto arguments = ArgumentsOf(*FindOperation("EP_AbrirComprobanteFiscal"));
  ASSERT_EQ(arguments.size(), 13U);
  EXPECT_EQ(arguments[0].kind, Kind::kText);
  EXPECT_EQ(arguments[0].size, 2U);
  EXPECT_EQ(arguments[0].name, "tipo");
  EXPECT_EQ(arguments[12].kind, Kind::kInteger);
  EXPECT_EQ(arguments[12].name, "copias");
}

// Whatever is added to the table prints until somebody says that it does not.
TEST(Operations, WhatOnlyReadsIsNamed) {
  std::size_t reading = 0;
  for (const Operation& row : Operations()) {
    const bool asks = row.name.starts_with("Kestra_");
    if (!asks && OnlyReads(row)) ++reading;
    EXPECT_TRUE(!asks || OnlyReads(row)) << row.name;
  }
  EXPECT_EQ(reading, 5U);
  EXPECT_FALSE(OnlyReads(*FindOperation("EP_ReporteX")));
  EXPECT_FALSE(OnlyReads(*FindOperation("EP_AbrirCajonDeDinero")));
}

// An operation that writes down what it was called with.
Values last;
std::int32_t Note(const Values& values) {
  last = values;
  values[3].text[0] = 'o';
  values[3].text[1] = 'k';
  return 7;
}
constexpr Operation kNoting{"EP_Nota", "", "t4 texto|d monto|i copias|o8 numero|o otro|n longitud",
                            Note};

TEST(Operations, AreCalledWithWhatWasTyped) {
  const auto result = CallOperation(kNoting, ReadStatement("Nota copias=3 \"Ñandú\" 10,50"));
  EXPECT_EQ(result.result, 7);
  EXPECT_EQ(last[1].number, 10.5);
  EXPECT_EQ(last[2].integer, 3);
  EXPECT_EQ(last[5].integer, 1024);
  ASSERT_EQ(result.texts.size(), 2U);
  EXPECT_EQ(result.texts[0].first, "numero");
  EXPECT_EQ(result.texts[0].second, "ok");
}

TEST(Operations, WhatWasNotTypedIsBlankAndZero) {
  CallOperation(kNoting, ReadStatement("Nota"));
  EXPECT_EQ(last[1].number, 0);
  EXPECT_EQ(last[2].integer, 0);
}

TEST(Operations, WordsThatDoNotFitAreSaid) {
  for (const std::string_view line :
       {"Nota a x", "Nota a 1 uno", "Nota a 1 2 3", "Nota numero=5", "Nota nada=5",
        "Nota texto=a texto=b", "Nota a 1.5.2", "Nota a 1 2x"})
    EXPECT_THROW(CallOperation(kNoting, ReadStatement(line)), Stop) << line;
}

}  // namespace
}  // namespace kestra::tool
