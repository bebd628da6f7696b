#include "machine/controls.hpp"

#include <charconv>

#include "fiscal/calendar.hpp"
#include "machine/status.hpp"

namespace impresora {
namespace {

// ---- What can be set ----

template <bool MachineFaults::*Fault>
std::int64_t GetFault(const Machine& m) {
  return m.faults.*Fault ? 1 : 0;
}

template <bool MachineFaults::*Fault>
void SetFault(Machine& m, std::int64_t value) {
  m.faults.*Fault = value != 0;
}

// Paper that ended comes back as a new roll without an end.
void SetPaperOut(Machine& m, std::int64_t value) {
  m.faults.paper_out = value != 0;
  if (value == 0 && m.paper_left == 0) m.paper_left = kEndlessPaper;
}

std::int64_t PaperLeft(const Machine& m) {
  return m.paper_left;
}

void SetPaperLeft(Machine& m, std::int64_t lines) {
  m.paper_left = lines;
  m.faults.paper_out = lines == 0;
}

std::int64_t ClosingsLeft(const Machine& m) {
  return m.closings_left;
}

void SetClosingsLeft(Machine& m, std::int64_t count) {
  m.closings_left = static_cast<int>(count);
}

std::int64_t Clock(const Machine& m) {
  return m.now;
}

void SetClockTo(Machine& m, std::int64_t moment) {
  m.clock_offset += moment - m.now;
  m.now = moment;
}

std::int64_t ClockOffset(const Machine& m) {
  return m.clock_offset;
}

void SetClockOffset(Machine& m, std::int64_t seconds) {
  SetClockTo(m, m.now + seconds - m.clock_offset);
}

template <bool MachineFaults::*Fault>
constexpr Control Switch(std::string_view key, std::string_view words) {
  return {key, words, ControlKind::kSwitch, 0, 1, GetFault<Fault>, SetFault<Fault>};
}

constexpr std::int64_t kLargestCount = 99'999;
constexpr std::int64_t kLargestOffset = 100LL * 366 * kSecondsPerDay;
constexpr std::int64_t kYear2000 = 946'684'800;
constexpr std::int64_t kYear2100 = 4'102'444'800;

constexpr std::array<Control, 16> kControls{{
    {"sin_papel", "sin papel", ControlKind::kSwitch, 0, 1, GetFault<&MachineFaults::paper_out>,
     SetPaperOut},
    Switch<&MachineFaults::journal_paper_out>("sin_papel_auditoria", "falta papel de auditoría"),
    Switch<&MachineFaults::receipt_paper_out>("sin_papel_comprobantes",
                                              "falta papel de comprobantes"),
    Switch<&MachineFaults::cover_open>("tapa_abierta", "tapa abierta"),
    Switch<&MachineFaults::offline>("fuera_de_linea", "fuera de línea"),
    Switch<&MachineFaults::printer_failure>("falla_de_impresora", "falla de impresora"),
    Switch<&MachineFaults::buffer_full>("buffer_lleno", "buffer lleno"),
    Switch<&MachineFaults::slip_entry_ready>("entrada_de_hojas",
                                             "entrada de hojas sueltas preparada"),
    Switch<&MachineFaults::slip_ready>("hoja_preparada", "hoja suelta preparada"),
    Switch<&MachineFaults::fiscal_memory_check>("error_memoria_fiscal", "error de memoria fiscal"),
    Switch<&MachineFaults::work_memory_check>("error_memoria_trabajo",
                                              "error de memoria de trabajo"),
    Switch<&MachineFaults::low_battery>("bateria_baja", "batería baja"),
    {"papel", "renglones de papel que quedan (-1: sin fin)", ControlKind::kNumber, kEndlessPaper,
     1'000'000, PaperLeft, SetPaperLeft},
    {"cierres_restantes", "cierres Z que quedan en la memoria fiscal", ControlKind::kNumber, 0,
     kLargestCount, ClosingsLeft, SetClosingsLeft},
    {"reloj", "fecha y hora de la impresora", ControlKind::kMoment, kYear2000, kYear2100 - 1, Clock,
     SetClockTo},
    {"desfase_reloj", "segundos que el reloj adelanta", ControlKind::kNumber, -kLargestOffset,
     kLargestOffset, ClockOffset, SetClockOffset},
}};

// ---- Lamps ----

template <std::size_t N>
constexpr std::string_view WordsOf(std::uint16_t bit, const std::array<Condition, N>& conditions) {
  for (const Condition& condition : conditions) {
    if (condition.bit == bit) return condition.words;
  }
  return "resumen de errores";
}

constexpr Lamp OfPrinter(std::string_view key, std::uint16_t bit) {
  return {key, WordsOf(bit, kPrinterConditions), Word::kPrinter, bit};
}

constexpr Lamp OfFiscal(std::string_view key, std::uint16_t bit) {
  return {key, WordsOf(bit, kFiscalConditions), Word::kFiscal, bit};
}

constexpr std::array<Lamp, 25> kLamps{{
    OfPrinter("impresora_falla", kPrinterFailure),
    OfPrinter("impresora_fuera_de_linea", kPrinterOffline),
    OfPrinter("impresora_sin_papel_auditoria", kJournalPaperOut),
    OfPrinter("impresora_sin_papel_comprobantes", kReceiptPaperOut),
    OfPrinter("impresora_buffer_lleno", kBufferFull),
    OfPrinter("impresora_buffer_vacio", kBufferEmpty),
    OfPrinter("impresora_entrada_de_hojas", kSlipEntryReady),
    OfPrinter("impresora_hoja_preparada", kSlipReady),
    OfPrinter("impresora_sin_papel", kPaperOut),
    OfPrinter("impresora_resumen", kSummary),
    OfFiscal("fiscal_error_memoria_fiscal", kFiscalMemoryCheck),
    OfFiscal("fiscal_error_memoria_trabajo", kWorkMemoryCheck),
    OfFiscal("fiscal_bateria_baja", kLowBattery),
    OfFiscal("fiscal_comando_no_reconocido", kUnknownCommand),
    OfFiscal("fiscal_campo_invalido", kInvalidField),
    OfFiscal("fiscal_comando_no_valido", kWrongState),
    OfFiscal("fiscal_desbordamiento", kOverflow),
    OfFiscal("fiscal_memoria_llena", kMemoryFull),
    OfFiscal("fiscal_memoria_casi_llena", kMemoryNearlyFull),
    OfFiscal("fiscal_certificada", kCertified),
    OfFiscal("fiscal_fiscalizada", kFiscalised),
    OfFiscal("fiscal_falta_cierre", kClosingDue),
    OfFiscal("fiscal_documento_abierto", kDocumentOpen),
    OfFiscal("fiscal_factura_iniciada", kInvoiceOpen),
    OfFiscal("fiscal_resumen", kSummary),
}};

template <class Row, std::size_t N>
const Row* Find(const std::array<Row, N>& rows, std::string_view key) {
  for (const Row& row : rows) {
    if (row.key == key) return &row;
  }
  return nullptr;
}

// ---- Texts ----

std::optional<std::int64_t> ReadSwitch(std::string_view text) {
  constexpr std::array<std::pair<std::string_view, int>, 7> kWords{
      {{"si", 1}, {"sí", 1}, {"1", 1}, {"true", 1}, {"no", 0}, {"0", 0}, {"false", 0}}};
  for (const auto& [word, value] : kWords) {
    if (word == text) return value;
  }
  return std::nullopt;
}

std::optional<std::int64_t> ReadWhole(std::string_view text) {
  const char* const end = text.data() + text.size();
  std::int64_t value = 0;
  const auto result = std::from_chars(text.data(), end, value);
  if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
  return value;
}

// "2026-11-21 10:30:00", or with a T between.
std::optional<std::int64_t> ReadMoment(std::string_view text) {
  constexpr std::string_view kShape = "20..-..-.. ..:..:..";
  if (text.size() != kShape.size()) return std::nullopt;
  std::string digits;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (kShape[i] == '.') {
      digits += text[i];
    } else if (text[i] != kShape[i] && !(kShape[i] == ' ' && text[i] == 'T')) {
      return std::nullopt;
    }
  }
  const auto date = ParseDate(std::string_view(digits).substr(0, 6));
  const auto time = ParseTime(std::string_view(digits).substr(6));
  if (!date || !time) return std::nullopt;
  return *date + *time;
}

std::string MomentText(std::int64_t moment) {
  const std::string digits = DateDigits(moment);
  return "20" + digits.substr(0, 2) + "-" + digits.substr(2, 2) + "-" + digits.substr(4, 2) + " " +
         PrintedTime(moment);
}

const ForcedBits& BitsOf(const Machine& m, Word word) {
  return word == Word::kPrinter ? m.forced_printer : m.forced_fiscal;
}

std::uint16_t With(std::uint16_t bits, std::uint16_t bit, bool set) {
  const unsigned without = bits & ~unsigned{bit};
  return static_cast<std::uint16_t>(set ? without | bit : without);
}

}  // namespace

std::span<const Control> Controls() {
  return kControls;
}

const Control* FindControl(std::string_view key) {
  return Find(kControls, key);
}

std::optional<std::int64_t> ReadControl(const Control& control, std::string_view text) {
  std::optional<std::int64_t> value;
  if (control.kind == ControlKind::kSwitch) value = ReadSwitch(text);
  if (control.kind == ControlKind::kNumber) value = ReadWhole(text);
  if (control.kind == ControlKind::kMoment) value = ReadMoment(text);
  if (!value || !control.Allows(*value)) return std::nullopt;
  return value;
}

std::string ControlText(const Control& control, std::int64_t value) {
  if (control.kind == ControlKind::kSwitch) return value != 0 ? "si" : "no";
  return control.kind == ControlKind::kMoment ? MomentText(value) : std::to_string(value);
}

bool SetControl(Machine& m, const Control& control, std::int64_t value) {
  if (!control.Allows(value)) return false;
  control.set(m, value);
  return true;
}

std::span<const Lamp> Lamps() {
  return kLamps;
}

const Lamp* FindLamp(std::string_view key) {
  return Find(kLamps, key);
}

Forced ForcedLamp(const Machine& m, const Lamp& lamp) {
  const ForcedBits& bits = BitsOf(m, lamp.word);
  if ((bits.on & lamp.bit) != 0) return Forced::kOn;
  return (bits.off & lamp.bit) != 0 ? Forced::kOff : Forced::kNo;
}

void ForceLamp(Machine& m, const Lamp& lamp, Forced forced) {
  ForcedBits& bits = lamp.word == Word::kPrinter ? m.forced_printer : m.forced_fiscal;
  bits.on = With(bits.on, lamp.bit, forced == Forced::kOn);
  bits.off = With(bits.off, lamp.bit, forced == Forced::kOff);
}

}  // namespace impresora
