#include <gtest/gtest.h>

#include <array>
#include <random>

#include "commands/commands.hpp"
#include "host.hpp"

namespace impresora {
namespace {

using prueba::AnyBody;
using prueba::FamilySettings;
using prueba::Shop;

// Field texts that commands like, and some that they do not.
constexpr std::array<std::string_view, 24> kTexts{
    "",         "\x7F",      "0",    "1",   "9", "0000", "2100", "1000",
    "99999999", "999999999", "-001", "1.5", "C", "T",    "A",    "M",
    "R",        "m",         "D",    "O",   "P", "N",    "Pan",  "Efectivo"};

TEST(AnyBytes, WhateverIsSentTheBooksStayInOrder) {
  for (const Family family : {Family::kTicket, Family::kTicketInvoice, Family::kForm}) {
    std::mt19937 random(20261121);
    Settings settings = FamilySettings(family);
    settings.closings_left = 100'000;
    Shop shop(settings);
    for (int i = 0; i < 20'000; ++i) {
      const std::string body = AnyBody(random, kTexts, 8);
      const unsigned before = shop.printer.GetMachine().finished;
      const Stage stage = shop.printer.GetStage();
      const Answer answer = shop.SendBody(body);
      if ((answer.fiscal & 0x8000U) == 0) continue;
      ASSERT_EQ(shop.printer.GetMachine().finished, before) << body;
      ASSERT_EQ(shop.printer.GetStage(), stage) << body;
      ASSERT_TRUE(answer.fields.empty()) << body;
    }
    EXPECT_GT(shop.printer.GetMachine().finished, 0U);
    shop.PaperText();
  }
}

TEST(AnyBytes, NoiseNeverBecomesACommand) {
  std::mt19937 random(7);
  PacketDecoder decoder;
  for (int i = 0; i < 200'000; ++i) {
    const char byte = static_cast<char>(random() % 32);
    const auto event = decoder.Push(byte);
    ASSERT_TRUE(!event || event->kind != EventKind::kPacket);
  }
}

}  // namespace
}  // namespace impresora
