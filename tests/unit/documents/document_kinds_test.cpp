// Which documents a family issues, and how each is told to the printer.

#include "documents/document_kinds.hpp"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>

namespace kestra {
namespace {

struct KindRow {
  std::string_view family;
  std::string_view type;
  std::string_view opening;
  std::string_view closing;
};

constexpr std::array kKinds{
    KindRow{"FC", "FC", "F", "F"}, KindRow{"FC", "ND", "D", "D"}, KindRow{"TF", "FC", "T", "T"},
    KindRow{"TF", "NC", "M", "M"}, KindRow{"TF", "ND", "", "D"},  KindRow{"TQ", "FC", "C", "T"},
};

const KindRow* Expected(std::string_view family, std::string_view type) {
  for (const auto& row : kKinds) {
    if (row.family == family && row.type == type) return &row;
  }
  return nullptr;
}

TEST(DocumentKinds, OfEveryFamilyAndTypeOnlySixExist) {
  for (const std::string_view family : {"FC", "TF", "TQ", "XX", "fc", "F ", "  ", ""}) {
    for (const std::string_view type : {"FC", "ND", "NC", "RT", "CT", "XX", "fc", "F ", "  ", ""}) {
      SCOPED_TRACE(std::string(family).append("/").append(type));
      const auto* expected = Expected(family, type);
      const auto* kind = FindFiscalKind(family, type);
      ASSERT_EQ(kind != nullptr, expected != nullptr);
      if (kind == nullptr) continue;
      EXPECT_EQ(kind->at_opening, expected->opening);
      EXPECT_EQ(kind->at_closing, expected->closing);
      EXPECT_EQ(kind->log, std::string(" - Comando : EP_AbrirComprobanteFiscal(")
                               .append(family)
                               .append("/")
                               .append(type)
                               .append(")"));
    }
  }
}

TEST(DocumentKinds, OnlyInvoicesOnFormsTakeTheHostsCopies) {
  for (const auto& kind : kFiscalKinds) {
    EXPECT_EQ(kind.copies_from_host, kind.family == "FC" && kind.kind == "FC") << kind.log;
  }
}

TEST(DocumentKinds, InvoiceAndTicketFamiliesCallTheSameCommandsByTwoBytes) {
  struct {
    CommandBytes bytes;
    char invoice;
    char ticket;
  } const commands[] = {{kOpen, 0x60, 0x40},
                        {kItem, 0x62, 0x42},
                        {kSubtotal, 0x63, 0x43},
                        {kTotals, 0x64, 0x44},
                        {kClose, 0x65, 0x45}};
  for (const auto& command : commands) {
    EXPECT_EQ(ByteOfFamily("FC", command.bytes), command.invoice);
    EXPECT_EQ(ByteOfFamily("TF", command.bytes), command.invoice);
    EXPECT_EQ(ByteOfFamily("TQ", command.bytes), command.ticket);
    for (const std::string_view other : {"", "  ", "tq", "XX", "TFX"}) {
      EXPECT_EQ(ByteOfFamily(other, command.bytes), '\0') << other;
    }
  }
}

}  // namespace
}  // namespace kestra
