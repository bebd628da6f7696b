// What the safe mode believes: answers on the line, and records of a journal that may be torn.
#include <string>
#include <string_view>

#include "fuzz/input.hpp"
#include "protocol/packet.hpp"
#include "protocol/strict_answer.hpp"
#include "state/journal_record.hpp"

namespace kestra {
namespace {

using fuzz::Input;
using fuzz::Require;

constexpr std::string_view kHeader = "#B";
constexpr std::size_t kDigits = 4;

// An own reading of what may be believed.
void RequireLegal(std::string_view answer) {
  Require(answer.size() >= 1 + kHeader.size() + 10 + 1 + kDigits, "two words are in it");
  Require(answer.substr(0, 3) == "\x02#B", "it is this frame's");
  unsigned sum = 0;
  const auto summed = answer.substr(0, answer.size() - kDigits);
  for (const char c : summed) sum += static_cast<unsigned char>(c);
  Require(summed.back() == '\x03', "it ends once");
  Require(std::stoul(std::string(answer.substr(summed.size())), nullptr, 16) == sum,
          "its sum is right");
  for (const char c : summed.substr(1, summed.size() - 2)) {
    const auto code = static_cast<unsigned char>(c);
    Require(code >= 0x20 || code == 0x1C, "no control bytes");
  }
  const auto fields = FieldsOf(answer);
  constexpr std::string_view kHex = "0123456789ABCDEF";
  for (const auto& word : {fields[0], fields[1]}) {
    Require(word.size() == kDigits && word.find_first_not_of(kHex) == std::string::npos, "words");
  }
}

void CheckListening(std::string_view received) {
  const auto heard = Listen(received, kHeader);
  for (std::size_t i = 0; i <= received.size(); ++i) {
    const auto sooner = Listen(received.substr(0, i), kHeader).answer;
    Require(sooner.empty() || sooner == heard.answer, "what was heard stays heard");
  }
  if (heard.answer.empty()) return;
  Require(received.find(heard.answer) != std::string_view::npos, "nothing is added");
  RequireLegal(heard.answer);
}

// A true answer is believed, and with any one byte of it lost, put in or changed it is not.
void CheckDamage(Input& input) {
  Fields fields{"0080", "3600"};
  const auto count = input.Below(fields.size() - 1);
  for (std::size_t i = 0; i < count; ++i) {
    auto& field = fields[i + 2];
    field = input.Text(12);
    std::erase_if(field, [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; });
    if (field.empty()) field = "\x7F";
  }
  const auto answer = AnswerOf(kHeader, fields);
  Require(Listen(answer + std::string(input.Text(8)), kHeader).answer == answer, "a true one");
  Require(FieldsOf(answer) == fields, "its fields come back");
  auto damaged = answer;
  const auto at = input.Below(answer.size());
  const auto byte = static_cast<char>(input.Byte());
  switch (input.Below(3)) {
    case 0:
      damaged.erase(at, 1);
      break;
    case 1:
      damaged.insert(at, 1, byte);
      break;
    default:
      damaged[at] = byte;
  }
  const auto believed = Listen(damaged, kHeader).answer;
  Require(believed.empty() || believed == answer, "no damage is believed");
}

bool Alike(const JournalReading& one, const JournalReading& other) {
  return one.begun == other.begun && one.newest == other.newest && one.length == other.length &&
         one.printer == other.printer && one.open.has_value() == other.open.has_value() &&
         (!one.open || TextOf(*one.open) == TextOf(*other.open)) &&
         one.in_part.has_value() == other.in_part.has_value() &&
         (!one.in_part || TextOf(*one.in_part) == TextOf(*other.in_part)) &&
         one.ledger.counters == other.ledger.counters;
}

void CheckJournal(std::string_view text) {
  const auto reading = ReadJournal(text);
  Require(reading.length <= text.size() && reading.last <= reading.length, "within the file");
  Require(reading.begun == (reading.length > 0), "what counts has a beginning");
  Require(Alike(reading, ReadJournal(text.substr(0, reading.length))), "the tail has no say");
}

JournalRecord AnyRecord(Input& input, RecordKind kind) {
  JournalRecord record;
  record.kind = kind;
  record.number = input.Byte();
  record.moment = "2026-11-21 10:30:00";
  record.printer = input.Text(6);
  record.call = input.Text(12);
  record.command = input.Text(12);
  if (input.Flag()) record.accepted.emplace_back(input.Text(6));
  record.has_book = input.Flag();
  record.outcome = static_cast<std::int64_t>(input.Below(7));
  if (input.Flag()) record.answer.emplace_back(input.Text(6));
  if (input.Flag()) record.ledger.open = input.Flag();
  if (input.Flag()) record.ledger.total = Amount{input.Int32(), input.Byte()};
  if (input.Flag()) record.ledger.counters[input.Below(kCounters)] = input.Byte();
  return record;
}

// Each record comes back. A journal that is cut anywhere, or has a byte changed in its last record, tells what the
// records before it tell.
void CheckRecords(Input& input) {
  std::string text, whole;
  for (auto kind = RecordKind::kBeginning; whole.empty() || !input.Empty();
       kind = static_cast<RecordKind>(1 + input.Below(6))) {
    const auto line = TextOf(AnyRecord(input, kind));
    Require(line.find('\n') == line.size() - 1, "a record is a line");
    const auto record = RecordOf(std::string_view(line).substr(0, line.size() - 1));
    Require(record && TextOf(*record) == line, "it comes back");
    text = whole;
    whole += line;
    if (whole.size() > 2000) break;
  }
  const auto cut = text.size() + input.Integer<std::uint16_t>() % (whole.size() - text.size());
  const auto before = ReadJournal(text);
  Require(Alike(ReadJournal(std::string_view(whole).substr(0, cut)), before), "a torn tail");
  auto changed = whole;
  const auto byte = static_cast<char>(input.Byte());
  if (changed[cut] == byte) return;
  changed[cut] = byte;
  Require(Alike(ReadJournal(changed), before), "a changed record");
}

}  // namespace
}  // namespace kestra

FUZZ_TARGET(input) {
  switch (input.Below(4)) {
    case 0:
      kestra::CheckListening(input.Rest());
      break;
    case 1:
      kestra::CheckDamage(input);
      break;
    case 2:
      kestra::CheckJournal(input.Rest());
      break;
    default:
      kestra::CheckRecords(input);
  }
}
