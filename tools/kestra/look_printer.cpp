#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

#include "base/code_page.hpp"
#include "fields/number_field.hpp"
#include "looks.hpp"
#include "printer.hpp"
#include "protocol/books.hpp"
#include "this_system.hpp"
#include "words.hpp"

namespace kestra::tool {
namespace {

struct BitRow {
  bool fiscal;
  std::uint16_t bit;
  Trouble trouble;
  std::string_view detail;
};

constexpr std::array kBits = {
    BitRow{false, 0x0004, Trouble::kMechanism, ""},
    BitRow{false, 0x0008, Trouble::kOffLine, ""},
    BitRow{false, 0x0010, Trouble::kNoPaper, "del diario de auditoría"},
    BitRow{false, 0x0020, Trouble::kNoPaper, "de los comprobantes"},
    BitRow{false, 0x4000, Trouble::kNoPaper, ""},
    BitRow{true, 0x0001, Trouble::kFiscalMemory, ""},
    BitRow{true, 0x0002, Trouble::kWorkMemory, ""},
    BitRow{true, 0x0004, Trouble::kBattery, ""},
    BitRow{true, 0x0080, Trouble::kMemoryFull, ""},
    BitRow{true, 0x0100, Trouble::kMemoryNearlyFull, ""},
    BitRow{true, 0x0800, Trouble::kDayOverdue, ""},
};

void LookAtStatus(Diagnosis& diagnosis, const Reply& reply) {
  const auto printer = PrinterWord(reply);
  const auto fiscal = FiscalWord(reply);
  std::vector<std::string> words;
  for (const auto& lit : LitConditions(printer, fiscal)) words.push_back(lit.text);
  diagnosis.Fact("palabras de estado",
                 "impresora " + reply.fields[0] + ", fiscal " + reply.fields[1]);
  diagnosis.Fact("que dicen", Joined(words, "; "));
  const auto lacks = [&](const BitRow& row) {
    return ((row.fiscal ? fiscal : printer) & row.bit) == 0;
  };
  for (const auto& row : kBits) {
    // Any paper is told by several bits: the one that says which comes first.
    if (lacks(row) || (row.trouble == Trouble::kNoPaper && diagnosis.Found(row.trouble))) continue;
    diagnosis.Find(row.trouble, std::string(row.detail));
  }
}

std::string DigitsInWords(const DigitPair& pair) {
  return std::to_string(pair.first) + "." + std::to_string(pair.second);
}

int SettingOf(std::string_view key) {
  const auto text = ReadSetting(key);
  return IsNumber(text) ? static_cast<int>(WholeNumberOf(text).value_or(0)) : 0;
}

void CompareDigits(Diagnosis& diagnosis, const ModelData& data) {
  std::vector<std::string> told;
  for (std::size_t i = 0; i < kDigitKeys.size(); ++i) {
    const auto& [integers, decimals] = kDigitKeys[i];
    const DigitPair own(SettingOf(integers), SettingOf(decimals));
    told.push_back(std::string(integers.substr(3)) + " " + DigitsInWords(data.digits[i]));
    if (own == data.digits[i]) continue;
    diagnosis.Find(Trouble::kOtherDigits,
                   std::string(integers).append("=").append(std::to_string(own.first)) + " y " +
                       std::string(decimals) + "=" + std::to_string(own.second) +
                       ", la impresora tiene " + std::to_string(data.digits[i].first) + " y " +
                       std::to_string(data.digits[i].second));
  }
  diagnosis.Fact("dígitos", Joined(told));
}

// The model whose numbering stands in another order.
constexpr std::string_view kOtherLayout = "TM300AF";

void LookAtModel(Diagnosis& diagnosis, Probe& probe, const Way& way) {
  const auto reply = probe.Ask(questions::kModel);
  const auto data = reply.answered ? ReadModel(reply) : std::nullopt;
  if (!data) {
    diagnosis.Fact("modelo", "la impresora no lo dice de un modo que se conozca");
    return;
  }
  diagnosis.Fact("modelo", data->model + ", familia " + data->family + ", punto de venta " +
                               data->point_of_sale + ", " + std::to_string(data->columns) +
                               " columnas");
  if (way.family != data->family) {
    diagnosis.Find(Trouble::kOtherFamily, "TipoComprobante=" + Utf8FromAnsi(way.family) +
                                              ", la impresora es " + data->family);
  }
  const auto model = Utf8FromAnsi(way.model);
  if (!model.empty() && model != data->model) {
    diagnosis.Find(model == kOtherLayout || data->model == kOtherLayout ? Trouble::kOtherModel
                                                                        : Trouble::kOtherName,
                   "ModeloNombre=" + model + ", la impresora dice " + data->model);
  }
  CompareDigits(diagnosis, *data);
}

void LookAtOwner(Diagnosis& diagnosis, Probe& probe) {
  const auto reply = probe.Ask(questions::kOwner);
  if (!reply.answered || DataField(reply, 1).empty()) return;
  diagnosis.Fact("titular", DataField(reply, 4) + ", CUIT " + DataField(reply, 1));
}

void LookAtClock(Diagnosis& diagnosis, Probe& probe) {
  constexpr double kMost = 120;
  const auto reply = probe.Ask(questions::kClock);
  const auto now = std::time(nullptr);
  const auto moment =
      reply.answered ? ReadMoment(DataField(reply, 1), DataField(reply, 2)) : std::nullopt;
  if (!moment) {
    diagnosis.Fact("reloj", "la impresora no lo dice");
    return;
  }
  const double off = std::difftime(*moment, now);
  const std::string difference =
      std::abs(off) < 2 ? "" : (off > 0 ? ", adelanta " : ", atrasa ") + SpanInWords(off);
  diagnosis.Fact("reloj", MomentInWords(*moment) + difference);
  if (std::abs(off) > kMost) {
    diagnosis.Find(Trouble::kClockOff, "impresora " + MomentInWords(*moment) + ", máquina " +
                                           MomentInWords(now) + difference);
  }
}

void LookAtCounters(Diagnosis& diagnosis, const Reply& reply, const Way& way) {
  constexpr std::array<std::string_view, kCounters> kNames = {
      "Z",         "tique",          "factura A",       "factura B",
      "factura C", "cancelados hoy", "no fiscales hoy", "crédito A",
      "crédito B", "débito A",       "débito B"};
  const auto counters = ReadCounters(BookFields(reply), way.model);
  if (!counters) return;
  std::vector<std::string> words;
  for (std::size_t i = 0; i < kNames.size(); ++i) {
    if (const auto& value = (*counters)[i]) {
      words.push_back(std::string(kNames[i]) + " " + std::to_string(*value));
    }
  }
  diagnosis.Fact("numeración", Joined(words));
}

void LookAtClosings(Diagnosis& diagnosis, Probe& probe) {
  constexpr std::int64_t kFew = 30;
  const auto reply = probe.Ask(questions::kSummary);
  const auto left = reply.answered ? WholeNumberOf(DataField(reply, 4)) : std::nullopt;
  if (!left) return;
  diagnosis.Fact("cierres Z que quedan", std::to_string(*left));
  const bool few = *left > 0 && *left < kFew;
  if (few && !diagnosis.Found(Trouble::kMemoryNearlyFull)) {
    diagnosis.Find(Trouble::kMemoryNearlyFull, "quedan " + std::to_string(*left));
  }
}

std::string InPesos(std::int64_t hundredths) {
  const auto cents = std::to_string(hundredths % 100);
  return "$ " + std::to_string(hundredths / 100) + "," + (cents.size() < 2 ? "0" : "") + cents;
}

void LookAtDocument(Diagnosis& diagnosis, Probe& probe, const Reply& status, const Way& way) {
  if ((FiscalWord(status) & fiscal_word::kDocumentOpen) == 0) {
    diagnosis.Fact("comprobante abierto", "no");
    return;
  }
  const auto reply = probe.Ask(SubtotalQuestion(way.family == "TQ" ? "C" : "c"));
  const auto subtotal = reply.answered ? ReadSubtotal(BookFields(reply)) : std::nullopt;
  const auto words =
      subtotal ? std::to_string(subtotal->lines) + " renglones, " + InPesos(subtotal->total)
               : std::string("sin subtotal: no es fiscal, o está entre dos hojas");
  diagnosis.Fact("comprobante abierto", "sí: " + words);
  diagnosis.Find(Trouble::kDocumentOpen, words);
}

}  // namespace

void LookAtPrinter(Diagnosis& diagnosis, Probe& probe, const Way& way) {
  diagnosis.Section("Impresora");
  LookAtModel(diagnosis, probe, way);
  LookAtOwner(diagnosis, probe);
  const auto status = probe.Ask(questions::kCounters);
  if (!status.answered) return;
  LookAtStatus(diagnosis, status);
  LookAtClock(diagnosis, probe);
  LookAtDocument(diagnosis, probe, status, way);
  LookAtCounters(diagnosis, status, way);
  LookAtClosings(diagnosis, probe);
}

void LookAtTimes(Diagnosis& diagnosis, Probe& probe) {
  constexpr int kTimes = 5;
  constexpr double kLong = 1.0;
  std::vector<double> times;
  for (int i = 0; i < kTimes; ++i) {
    const auto reply = probe.Ask(questions::kSummary);
    if (reply.answered) times.push_back(reply.seconds);
  }
  if (times.empty()) return;
  std::sort(times.begin(), times.end());
  const double median = times[times.size() / 2];
  diagnosis.Fact("tiempo de respuesta", SecondsInWords(times.front()) + " a " +
                                            SecondsInWords(times.back()) + ", lo usual " +
                                            SecondsInWords(median));
  if (median > kLong) diagnosis.Find(Trouble::kSlow, SecondsInWords(median));
}

}  // namespace kestra::tool
