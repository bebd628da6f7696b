#include "log/mask.hpp"

#include <gtest/gtest.h>

#include "commands/commands.hpp"

namespace kestra::tool {
namespace {

using Kind = Mask::Kind;

// A field that is added to a command has to be put on one side or the other.
TEST(Mask, EveryTextFieldOfEveryCommandIsDecided) {
  std::size_t texts = 0;
  for (const auto& command : impresora::Commands()) {
    for (const auto& field : command.fields) {
      if (field.kind != impresora::FieldKind::kText) continue;
      ++texts;
      EXPECT_NE(IsHidden(field.name), IsShown(field.name)) << command.name << ": " << field.name;
    }
  }
  EXPECT_GT(texts, 20U);
}

TEST(Mask, CustomersFieldsKeepTheirShapeAlone) {
  Mask mask(true);
  EXPECT_EQ(mask.Field("nombre", "Librería Muñoz 2", Kind::kText), "xxxxxxxx xxxxx #");
  EXPECT_EQ(mask.Field("documento", "30-00000000-7", Kind::kText), "##-########-#");
  EXPECT_EQ(mask.Field("texto", "Firma: Ana", Kind::kText), "xxxxx: xxx");
  EXPECT_EQ(mask.Field("", "Ana", Kind::kUnknown), "xxx");
}

TEST(Mask, WhatTheShopSellsIsShownWithoutNamesAndLongNumbers) {
  Mask mask(true);
  mask.Field("nombre", "Ana Paz", Kind::kText);
  EXPECT_EQ(mask.Field("descripción", "Pan 500 g", Kind::kText), "Pan 500 g");
  EXPECT_EQ(mask.Field("descripción", "Vianda de Ana Paz", Kind::kText), "Vianda de xxx xxx");
  EXPECT_EQ(mask.Field("descripción", "Visa 4509 9535 6623", Kind::kText), "Visa #### #### ####");
  EXPECT_EQ(mask.Field("precio", "000010000", Kind::kNumber), "000010000");
}

TEST(Mask, CallsHideTheCustomersArguments) {
  const Mask mask(true);
  EXPECT_EQ(mask.Note("EP_AbrirComprobanteFiscal('FC','A','Ana Paz','','CUIT','30000000007')"),
            "EP_AbrirComprobanteFiscal('FC','A','xxx xxx','','xxxx','###########')");
  EXPECT_EQ(mask.Note("EP_ImprimirTextoNoFiscal('Firma de Ana')"),
            "EP_ImprimirTextoNoFiscal('xxxxx xx xxx')");
  EXPECT_EQ(mask.Note("EP_ImprimirItem('Pan','00001000')"), "EP_ImprimirItem('Pan','########')");
  EXPECT_EQ(mask.Note("EP_AbrirComprobanteFiscal('FC"), "EP_AbrirComprobanteFiscal('xx");
  EXPECT_EQ(mask.Unknown("\x1BzAna 12"), "\x1Bxxxx ##");
}

TEST(Mask, Off) {
  Mask mask(false);
  EXPECT_EQ(mask.Field("nombre", "Ana Paz", Kind::kText), "Ana Paz");
  EXPECT_EQ(mask.Note("EP_ImprimirTextoFiscal('Ana')"), "EP_ImprimirTextoFiscal('Ana')");
  EXPECT_EQ(mask.Unknown("Ana"), "Ana");
}

}  // namespace
}  // namespace kestra::tool
