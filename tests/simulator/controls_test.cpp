#include "machine/controls.hpp"

#include <gtest/gtest.h>

#include <set>

#include "host.hpp"
#include "machine/status.hpp"

namespace impresora {
namespace {

using prueba::Shop;

void Set(Shop& shop, std::string_view key, std::int64_t value) {
  const Control* const control = FindControl(key);
  ASSERT_NE(control, nullptr) << key;
  EXPECT_TRUE(shop.printer.Set(*control, value)) << key;
  EXPECT_EQ(control->get(shop.printer.GetMachine()), value) << key;
}

std::int64_t Get(const Shop& shop, std::string_view key) {
  return FindControl(key)->get(shop.printer.GetMachine());
}

TEST(Controls, EachKeyIsThereOnce) {
  std::set<std::string_view> keys;
  for (const Control& control : Controls()) EXPECT_TRUE(keys.insert(control.key).second);
  for (const Lamp& lamp : Lamps()) EXPECT_TRUE(keys.insert(lamp.key).second);
  EXPECT_EQ(FindControl("nada"), nullptr);
  EXPECT_EQ(FindLamp("nada"), nullptr);
}

TEST(Controls, EachSwitchShowsInItsWord) {
  struct SwitchCase {
    std::string_view key;
    std::uint16_t printer, fiscal;
  };
  constexpr std::array<SwitchCase, 12> kCases{{
      {"sin_papel", 0xC080, 0x0600},
      {"sin_papel_auditoria", 0x8090, 0x0600},
      {"sin_papel_comprobantes", 0x80A0, 0x0600},
      {"tapa_abierta", 0x8088, 0x0600},
      {"fuera_de_linea", 0x8088, 0x0600},
      {"falla_de_impresora", 0x8084, 0x0600},
      {"buffer_lleno", 0x0040, 0x0600},
      {"entrada_de_hojas", 0x0180, 0x0600},
      {"hoja_preparada", 0x0280, 0x0600},
      {"error_memoria_fiscal", 0x0080, 0x8601},
      {"error_memoria_trabajo", 0x0080, 0x8602},
      {"bateria_baja", 0x0080, 0x8604},
  }};
  for (const SwitchCase& c : kCases) {
    Shop shop;
    EXPECT_EQ(Get(shop, c.key), 0) << c.key;
    Set(shop, c.key, 1);
    const Answer answer = shop.Send({"Y"});
    EXPECT_EQ(answer.printer, c.printer) << c.key;
    EXPECT_EQ(answer.fiscal, c.fiscal) << c.key;
    EXPECT_EQ(shop.printer.PrinterWord(), c.printer) << c.key;
    EXPECT_EQ(shop.printer.FiscalWord(), c.fiscal) << c.key;
    Set(shop, c.key, 0);
    EXPECT_EQ(shop.Send({"Y"}).fiscal, 0x0600) << c.key;
  }
}

TEST(Controls, NothingIsPrintedWithoutTheMeansToPrint) {
  for (const std::string_view key : {"sin_papel", "sin_papel_auditoria", "sin_papel_comprobantes",
                                     "tapa_abierta", "fuera_de_linea", "falla_de_impresora"}) {
    Shop shop;
    Set(shop, key, 1);
    const Answer answer = shop.OpenTicket();
    EXPECT_EQ(answer.printer & kPrinterFailure, kPrinterFailure) << key;
    EXPECT_EQ(answer.fiscal, 0x0600) << key;
    EXPECT_EQ(shop.PaperText(), "") << key;
    Set(shop, key, 0);
    EXPECT_EQ(shop.OpenTicket().fiscal, 0x1600) << key;
  }
}

TEST(Controls, ValuesAsPeopleWriteThem) {
  struct TextCase {
    std::string_view key, text;
    std::optional<std::int64_t> value;
  };
  const std::vector<TextCase> cases{
      {"sin_papel", "si", 1},
      {"sin_papel", "sí", 1},
      {"sin_papel", "no", 0},
      {"sin_papel", "true", 1},
      {"sin_papel", "2", std::nullopt},
      {"papel", "0", 0},
      {"papel", "-1", -1},
      {"papel", "-2", std::nullopt},
      {"papel", "1x", std::nullopt},
      {"papel", "", std::nullopt},
      {"cierres_restantes", "5", 5},
      {"reloj", "2026-11-22 09:00:00", prueba::OpeningTime() + 81'000},
      {"reloj", "2026-02-29 00:00:00", std::nullopt},
      {"reloj", "ayer", std::nullopt},
      {"reloj", "2026-02-28_00:00:00", std::nullopt}};
  for (const TextCase& c : cases) {
    EXPECT_EQ(ReadControl(*FindControl(c.key), c.text), c.value) << c.key << " = " << c.text;
  }
  Shop shop;
  EXPECT_FALSE(shop.printer.Set(*FindControl("sin_papel"), 2));
  EXPECT_EQ(Get(shop, "sin_papel"), 0);
}

// ---- Lamps ----

TEST(Controls, EveryLampCanBeForcedOnAndOff) {
  for (const Lamp& lamp : Lamps()) {
    Shop shop;
    const auto lit = [&shop, &lamp] {
      const Answer answer = shop.Send({"Y"});
      return ((lamp.word == Word::kPrinter ? answer.printer : answer.fiscal) & lamp.bit) != 0;
    };
    const bool natural = lit();
    for (const Forced forced : {Forced::kOn, Forced::kOff, Forced::kNo}) {
      ForceLamp(shop.printer.GetMachine(), lamp, forced);
      EXPECT_EQ(ForcedLamp(shop.printer.GetMachine(), lamp), forced) << lamp.key;
      EXPECT_EQ(lit(), forced == Forced::kNo ? natural : forced == Forced::kOn) << lamp.key;
    }
  }
}

}  // namespace
}  // namespace impresora
