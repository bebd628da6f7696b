#include <array>
#include <ctime>
#include <optional>
#include <string>

#include "base/code_page.hpp"
#include "devices.hpp"
#include "looks.hpp"
#include "protocol/books.hpp"
#include "state/journal_days.hpp"
#include "state/journal_record.hpp"
#include "this_system.hpp"
#include "words.hpp"

namespace kestra::tool {
namespace {

std::string FolderOf(const std::string& file) {
  const auto end = file.find_last_of("/\\");
  return end == std::string::npos ? std::string() : file.substr(0, end + 1);
}

// Now, as the journal's records have it.
std::string MomentNow() {
  std::array<char, 32> text{};
  const auto now = std::time(nullptr);
  const auto length =
      std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", std::localtime(&now));
  return {text.data(), length};
}

std::string AgeOf(const std::string& moment) {
  const auto age = SecondsBetween(moment, MomentNow());
  return age ? "hace " + SpanInWords(*age) + " (" + moment + ")" : moment;
}

void LookAtRoom(Diagnosis& diagnosis, const std::string& folder) {
  constexpr std::uint64_t kLittle = 50'000'000;
  const auto shown = folder.empty() ? std::string("esta carpeta") : folder;
  const auto free = FreeBytes(folder);
  if (free) diagnosis.Fact("lugar en " + shown, std::to_string(*free / 1'000'000) + " MB");
  const auto writing = TryWriting(folder);
  if (writing == Writing::kNoRoom) diagnosis.Find(Trouble::kDiskFull, shown);
  if (writing == Writing::kForbidden) diagnosis.Find(Trouble::kFolderClosed, shown);
  if (writing == Writing::kDone && free && *free < kLittle) {
    diagnosis.Find(Trouble::kLittleRoom, std::to_string(*free / 1'000'000) + " MB en " + shown);
  }
}

// When the day that the journal tells of began, and the document that it leaves open.
struct Ages {
  std::string day;
  std::string document;
};

Ages AgesIn(std::string_view text) {
  Ages ages;
  while (!text.empty()) {
    const auto end = std::min(text.find('\n'), text.size());
    const auto record = RecordOf(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
    if (!record || record->kind != RecordKind::kIntent) continue;
    const auto method = MethodOf(record->command).method;
    if (ages.day.empty() && method == Method::kOpening) ages.day = record->moment;
    if (method == Method::kOpening) ages.document = record->moment;
  }
  return ages;
}

bool EndsInAGap(std::string_view text) {
  constexpr std::string_view kGap = "hueco\t";
  while (!text.empty() && text.back() == '\n') text.remove_suffix(1);
  const auto begin = text.rfind('\n');
  return text.substr(begin == std::string_view::npos ? 0 : begin + 1).substr(0, kGap.size()) ==
         kGap;
}

void TellAges(Diagnosis& diagnosis, const JournalReading& reading, std::string_view text) {
  constexpr double kLong = 20 * 3600;
  const auto ages = AgesIn(text);
  if (reading.ledger.something_today && !ages.day.empty()) {
    diagnosis.Fact("jornada abierta", AgeOf(ages.day));
    const auto age = SecondsBetween(ages.day, MomentNow());
    if (age && *age > kLong) diagnosis.Find(Trouble::kDayOpen, AgeOf(ages.day));
  }
  if (reading.ledger.open.value_or(false) && !ages.document.empty()) {
    diagnosis.Fact("comprobante del diario", "abierto " + AgeOf(ages.document));
  }
}

void TellPending(Diagnosis& diagnosis, const JournalReading& reading) {
  if (!reading.open) {
    diagnosis.Fact("pendiente", "nada");
    return;
  }
  const auto words = Utf8FromAnsi(reading.open->call) + ", " + AgeOf(reading.open->moment);
  diagnosis.Fact("pendiente", words);
  diagnosis.Find(Trouble::kPending,
                 reading.open->has_book ? words : words + "; ningún dato lo muestra");
}

std::string PrinterOf(const Way& way) {
  return way.device.empty() ? "COM" + way.number : way.device;
}

void LookAtJournal(Diagnosis& diagnosis, const std::string& file, const Way& way) {
  if (const auto users = UsersOf(file); !users.empty())
    diagnosis.Fact("lo tiene abierto", Joined(users));
  const auto text = ReadFile(file);
  const auto reading = text ? ReadJournal(*text) : JournalReading();
  if (KindOfFile(file) == FileKind::kNone || (text && text->empty())) {
    diagnosis.Fact("pendiente", "nada: el diario todavía no empezó");
    return;
  }
  if (!text || !reading.is_journal) {
    diagnosis.Find(Trouble::kNoJournal, file);
    return;
  }
  diagnosis.Fact("es de", Utf8FromAnsi(reading.printer));
  if (reading.printer != PrinterOf(way)) {
    diagnosis.Find(Trouble::kForeignJournal, "es de " + Utf8FromAnsi(reading.printer) +
                                                 ", y Fiscal.ini nombra " +
                                                 Utf8FromAnsi(PrinterOf(way)));
  }
  TellPending(diagnosis, reading);
  TellAges(diagnosis, reading, *text);
  if (EndsInAGap(*text)) diagnosis.Find(Trouble::kJournalGap);
}

}  // namespace

void LookAtFiles(Diagnosis& diagnosis, const Way& way) {
  constexpr std::string_view kLog = "fiscal.log";
  diagnosis.Section("Registro y diario");
  const bool logs = ReadSetting("LogComandos") == "1";
  diagnosis.Fact("registro", logs ? std::string(kLog) : "no se escribe (LogComandos)");
  LookAtRoom(diagnosis, "");
  const bool safe = ReadSetting("ModoSeguro") == "1";
  const auto file = Utf8FromAnsi(ReadSetting("Diario"));
  if (!safe || file.empty()) {
    diagnosis.Fact("diario", safe ? "no hay (Diario)" : "no hay (ModoSeguro)");
    return;
  }
  diagnosis.Fact("diario", file);
  const auto folder = FolderOf(file);
  if (!folder.empty()) LookAtRoom(diagnosis, folder);
  LookAtJournal(diagnosis, file, way);
}

}  // namespace kestra::tool
