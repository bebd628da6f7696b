// The status report: which rows are lit, and the captions around them, byte for byte.

#include "dialogs/status_report.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <string_view>

#include "platform/seam/dialog_words.hpp"
#include "protocol/answer.hpp"

namespace kestra {
namespace {

State Answered(std::string_view printer, std::string_view fiscal) {
  State state;
  state.EstadoImpresora = printer;
  state.EstadoFiscal = fiscal;
  DecodePrinter(printer, state.BitImpresora);
  DecodeFiscal(fiscal, state.BitFiscal);
  return state;
}

std::string Word(unsigned value) {
  std::string digits(4, '0');
  for (auto i = digits.size(); i > 0; --i, value /= 16) {
    digits[i - 1] = "0123456789ABCDEF"[value % 16];
  }
  return digits;
}

// Which rows there are, and what they say: tests/golden/cases/dialogs/every_row.golden.
TEST(StatusReport, EachBitLightsTheRowOfItsNumberAlone) {
  for (unsigned bit = 0; bit < 17; ++bit) {  // with 16 nothing is lit
    for (const std::int32_t group : {0, 1}) {
      const auto word = Word(1U << bit & 0xFFFFU);
      const auto report = BuildReport(group == 0 ? Answered(word, "0000") : Answered("0000", word));
      EXPECT_EQ(report.rows.size(), 9u + 14u);
      for (const auto& row : report.rows) {
        EXPECT_EQ(row.lit, row.group == group && row.number == static_cast<int>(bit)) << row.text;
      }
    }
  }
}

TEST(StatusReport, ShowsTheWordsAsTheyCame) {
  const auto report = BuildReport(Answered("c0a0", "0f00"));
  EXPECT_EQ(report.printer, "c0a0");
  EXPECT_EQ(report.fiscal, "0f00");
}

TEST(StatusReport, HasItsCaptions) {
  EXPECT_EQ(kReportTitle, "Error al ejecutar comando fiscal");
  EXPECT_EQ(kReportPrinterGroup, "Estado Impresora");
  EXPECT_EQ(kReportFiscalGroup, "Estado Fiscal");
  EXPECT_EQ(kReportStatusGroup, "Estados");
  EXPECT_EQ(kReportPrinter, "Impresora:");
  EXPECT_EQ(kReportFiscal, "Fiscal:");
  EXPECT_EQ(kCloseButton, "Cerrar");
  EXPECT_EQ(kRetryButton, "Reintentar");
}

TEST(MemoryFullWarning, HasItsTexts) {
  EXPECT_EQ(kMemoryFullTitle, "ATENCI\xD3N");
  EXPECT_EQ(kMemoryFullHeading, "ATENCI\xD3N!");
  EXPECT_EQ(kMemoryFullText,
            "Restan menos de 30 (treinta) cierres Z para que la memoria fiscal se complete "
            "(memoria fiscal llena). Consulte a su t\xE9"
            "cnico fiscal para prevenir un bloqueo futuro por memoria fiscal llena.");
}

}  // namespace
}  // namespace kestra
