#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace impresora {

// Bits of the printer word.
inline constexpr std::uint16_t kPrinterFailure = 0x0004;
inline constexpr std::uint16_t kPrinterOffline = 0x0008;
inline constexpr std::uint16_t kJournalPaperOut = 0x0010;
inline constexpr std::uint16_t kReceiptPaperOut = 0x0020;
inline constexpr std::uint16_t kBufferFull = 0x0040;
inline constexpr std::uint16_t kBufferEmpty = 0x0080;
inline constexpr std::uint16_t kSlipEntryReady = 0x0100;
inline constexpr std::uint16_t kSlipReady = 0x0200;
inline constexpr std::uint16_t kPaperOut = 0x4000;

// Bits of the fiscal word.
inline constexpr std::uint16_t kFiscalMemoryCheck = 0x0001;
inline constexpr std::uint16_t kWorkMemoryCheck = 0x0002;
inline constexpr std::uint16_t kLowBattery = 0x0004;
inline constexpr std::uint16_t kUnknownCommand = 0x0008;
inline constexpr std::uint16_t kInvalidField = 0x0010;
inline constexpr std::uint16_t kWrongState = 0x0020;
inline constexpr std::uint16_t kOverflow = 0x0040;
inline constexpr std::uint16_t kMemoryFull = 0x0080;
inline constexpr std::uint16_t kMemoryNearlyFull = 0x0100;
inline constexpr std::uint16_t kCertified = 0x0200;
inline constexpr std::uint16_t kFiscalised = 0x0400;
inline constexpr std::uint16_t kClosingDue = 0x0800;
inline constexpr std::uint16_t kDocumentOpen = 0x1000;
inline constexpr std::uint16_t kInvoiceOpen = 0x2000;

// In both words: some bit that counts as an error is set.
inline constexpr std::uint16_t kSummary = 0x8000;

struct Condition {
  std::uint16_t bit;
  bool error;  // raises the summary bit
  std::string_view words;
};

inline constexpr std::array<Condition, 9> kPrinterConditions{{
    {kPrinterFailure, true, "falla de impresora"},
    {kPrinterOffline, true, "fuera de línea"},
    {kJournalPaperOut, true, "falta papel de auditoría"},
    {kReceiptPaperOut, true, "falta papel de comprobantes"},
    {kBufferFull, false, "buffer lleno"},
    {kBufferEmpty, false, "buffer vacío"},
    {kSlipEntryReady, false, "entrada de hojas sueltas preparada"},
    {kSlipReady, false, "hoja suelta preparada"},
    {kPaperOut, true, "sin papel"},
}};

inline constexpr std::array<Condition, 14> kFiscalConditions{{
    {kFiscalMemoryCheck, true, "error de memoria fiscal"},
    {kWorkMemoryCheck, true, "error de memoria de trabajo"},
    {kLowBattery, true, "batería baja"},
    {kUnknownCommand, true, "comando no reconocido"},
    {kInvalidField, true, "campo de datos inválido"},
    {kWrongState, true, "comando no válido para el estado fiscal"},
    {kOverflow, true, "desbordamiento de totales"},
    {kMemoryFull, true, "memoria fiscal llena"},
    {kMemoryNearlyFull, false, "memoria fiscal casi llena"},
    {kCertified, false, "certificada"},
    {kFiscalised, false, "fiscalizada"},
    {kClosingDue, true, "falta el cierre de la jornada"},
    {kDocumentOpen, false, "documento abierto"},
    {kInvoiceOpen, false, "factura u hoja suelta iniciada"},
}};

// The word as it goes out, with the summary bit worked out.
std::uint16_t WithSummaryPrinter(std::uint16_t bits);
std::uint16_t WithSummaryFiscal(std::uint16_t bits);

// What the word says, for people; the two bits that never change are left out.
std::string PrinterWords(std::uint16_t word);
std::string FiscalWords(std::uint16_t word);

}  // namespace impresora
