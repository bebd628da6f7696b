// The status report: rows, kinds, captions and hints, byte for byte.

#include "dialogs/status_report.hpp"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string_view>

#include "platform/seam/dialog_words.hpp"
#include "protocol/answer.hpp"

namespace kestra {
namespace {

constexpr std::int32_t kPrinter = 0;
constexpr std::int32_t kFiscal = 1;
constexpr bool kError = true;
constexpr bool kInformation = false;

// The hints that several rows share, in windows-1252.
constexpr std::string_view kController =
    "Error del controlador. Consulte a su t\xE9"
    "cnico fiscal.";
constexpr std::string_view kPaper =
    "Verifique el abastecimiento y la colocacion correcta del papel, si se repite consulte a su "
    "t\xE9"
    "cnico fiscal.";
constexpr std::string_view kInternal = "Informaci\xF3n Interna.";
constexpr std::string_view kInternalTerminal = "Informaci\xF3n interna.";
constexpr std::string_view kTechnician =
    "Consulte a su t\xE9"
    "cnico fiscal.";

struct ExpectedRow {
  std::int32_t group;
  std::int32_t number;
  unsigned word;  // the bit that lights it
  bool error;
  std::string_view caption;
  std::string_view hint;
};

constexpr std::array kRows{
    ExpectedRow{kPrinter, 2, 0x0004, kError, "Error y/o falla de impresora", kController},
    ExpectedRow{kPrinter, 3, 0x0008, kError, "Impresora fuera de linea",
                "Verificar que se encuentre en modo \"En Linea\" el controlador fiscal."},
    ExpectedRow{kPrinter, 4, 0x0010, kError, "Falta Papel del diario", kPaper},
    ExpectedRow{kPrinter, 5, 0x0020, kError, "Falta Papel de tickets", kPaper},
    ExpectedRow{kPrinter, 6, 0x0040, kInformation, "Buffer de impresora lleno", kInternal},
    ExpectedRow{kPrinter, 7, 0x0080, kInformation, "Buffer de impresora vacio", kInternal},
    ExpectedRow{kPrinter, 8, 0x0100, kInformation, "Entrada de hojas sueltas frontal preparada",
                kInternal},
    ExpectedRow{kPrinter, 9, 0x0200, kInformation, "Hoja suelta frontal preparada", kInternal},
    ExpectedRow{kPrinter, 14, 0x4000, kError, "Impresora sin papel", kPaper},
    ExpectedRow{kFiscal, 0, 0x0001, kError, "Error de comprobacion de memoria fiscal", kController},
    ExpectedRow{kFiscal, 1, 0x0002, kError, "Error de comprobacion de memoria de trabajo",
                kController},
    ExpectedRow{kFiscal, 2, 0x0004, kInformation, "Bateria Baja", kTechnician},
    ExpectedRow{kFiscal, 3, 0x0008, kError, "Comando no reconocido", "Error interno."},
    ExpectedRow{kFiscal, 4, 0x0010, kError, "Campo de datos invalido",
                "Verificar que se encuentre activado \"Quitar caracateres no validos\" en la "
                "configuraci\xF3n"},
    ExpectedRow{kFiscal, 5, 0x0020, kError, "Comando no valido para estado fiscal",
                "Verificar que no se encuentre trabado un comprobante fiscal."},
    ExpectedRow{kFiscal, 6, 0x0040, kError, "Desbordamiento de totales",
                "Las cantidades o montos de la factura no son soportados. Verificar limites."},
    ExpectedRow{kFiscal, 7, 0x0080, kError, "Memoria Fiscal llena", kController},
    ExpectedRow{kFiscal, 8, 0x0100, kInformation,
                "Memoria Fiscal casi llena (restan menos de 30 cierres)", kTechnician},
    ExpectedRow{kFiscal, 9, 0x0200, kInformation, "Terminal Fiscal Certificada", kInternalTerminal},
    ExpectedRow{kFiscal, 10, 0x0400, kInformation, "Terminal Fiscal Fiscalizada",
                kInternalTerminal},
    ExpectedRow{kFiscal, 11, 0x0800, kError,
                "Es necesario hacer un cierre de la jornada (pasaron mas de 24 hs)",
                "Debe hacer un cierre de la jornada (Cierre Z), ya que pasaron mas de 24 hs."},
    ExpectedRow{kFiscal, 12, 0x1000, kInformation, "Documento fiscal abierto", kInternal},
    ExpectedRow{kFiscal, 13, 0x2000, kInformation,
                "Factura o Impresi\xF3n en hoja suelta inicializada", kInternal},
};
static_assert(kRows.size() == 9 + 14);

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

TEST(StatusReport, HasItsRowsInTheirOrder) {
  const auto report = BuildReport(Answered("0000", "0000"));
  ASSERT_EQ(report.rows.size(), kRows.size());
  for (std::size_t i = 0; i < kRows.size(); ++i) {
    SCOPED_TRACE(kRows[i].caption);
    EXPECT_EQ(report.rows[i].group, kRows[i].group);
    EXPECT_EQ(report.rows[i].number, kRows[i].number);
    EXPECT_EQ(report.rows[i].error, kRows[i].error);
    EXPECT_EQ(report.rows[i].text, kRows[i].caption);
    EXPECT_EQ(report.rows[i].hint, kRows[i].hint);
    EXPECT_FALSE(report.rows[i].lit);
  }
}

TEST(StatusReport, EachBitLightsItsRowAlone) {
  for (const auto& lit : kRows) {
    SCOPED_TRACE(lit.caption);
    const auto word = Word(lit.word);
    const auto report =
        BuildReport(lit.group == kPrinter ? Answered(word, "0000") : Answered("0000", word));
    for (const auto& row : report.rows) {
      EXPECT_EQ(row.lit, row.group == lit.group && row.number == lit.number) << row.text;
    }
  }
}

TEST(StatusReport, BitsWithoutARowLightNothing) {
  for (const auto& row : BuildReport(Answered("BC03", "C000")).rows) {
    EXPECT_FALSE(row.lit) << row.text;
  }
}

TEST(StatusReport, PaperOutAloneLightsPrinterRow14) {
  const auto report = BuildReport(Answered("4000", "0000"));
  EXPECT_EQ(report.printer, "4000");
  EXPECT_EQ(report.fiscal, "0000");
  for (const auto& row : report.rows) {
    EXPECT_EQ(row.lit, row.group == kPrinter && row.number == 14) << row.text;
  }
}

TEST(StatusReport, LowBatteryAndMemoryAlmostFullAreLitAsInformation) {
  for (const auto& row : BuildReport(Answered("0000", "0104")).rows) {
    EXPECT_EQ(row.lit, row.group == kFiscal && (row.number == 2 || row.number == 8));
    if (row.lit) {
      EXPECT_FALSE(row.error);
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
