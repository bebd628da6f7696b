// The lines of the journal, and what a whole or damaged one comes to.

#include "state/journal_record.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "state/journal_days.hpp"
#include "state/journal_fields.hpp"

namespace kestra {
namespace {

std::string AllBytes() {
  std::string bytes;
  for (int code = 0; code < 256; ++code) bytes += static_cast<char>(code);
  return bytes;
}

Ledger FullLedger() {
  Ledger ledger;
  ledger.open = true;
  ledger.kind = 'T';
  ledger.letter = 'B';
  ledger.lines = 2;
  ledger.paid = 0;
  ledger.perceptions = 150;
  ledger.total = Amount{12345, 2};
  ledger.net = -5;
  ledger.iva = 2100;
  ledger.counters[0] = 7;
  ledger.counters[10] = 99;
  ledger.something_today = true;
  return ledger;
}

JournalRecord Beginning() {
  JournalRecord record;
  record.moment = "2026-11-21 10:00:00";
  record.printer = "COM1";
  return record;
}

JournalRecord Intent(std::int64_t number) {
  JournalRecord record;
  record.kind = RecordKind::kIntent;
  record.number = number;
  record.moment = "2026-11-21 10:30:00";
  record.call = "EP_ImprimirItem(Pan)";
  record.command = "b\x1CPan";
  record.accepted = {"A\x1CUna", "A\x1COtra"};
  record.has_book = true;
  record.ledger.lines = number;
  return record;
}

JournalRecord Result(std::int64_t number) {
  JournalRecord record;
  record.kind = RecordKind::kResult;
  record.number = number;
  record.moment = "2026-11-21 10:30:01";
  record.outcome = 1;
  record.answer = {"0080", "1600", "", "00000012"};
  record.ledger.lines = number + 1;
  return record;
}

JournalRecord Forgotten(std::int64_t number) {
  JournalRecord record;
  record.kind = RecordKind::kForgotten;
  record.number = number;
  return record;
}

std::string LineOf(const JournalRecord& record) {
  std::string text = TextOf(record);
  text.pop_back();
  return text;
}

TEST(JournalRecord, ReadsAsAPersonWould) {
  EXPECT_EQ(
      LineOf(Intent(12)).substr(0, 103),
      "intento\t12\t2026-11-21 10:30:00\tllamada=EP_ImprimirItem(Pan)\tcomando=b<1c>Pan\tlibro=si\t"
      "previo=A<1c>Una\tp");
  EXPECT_NE(LineOf(Result(12))
                .find("\tdesenlace=1\tcausa=0\trespuesta=0080\trespuesta=1600\t"
                      "respuesta=\trespuesta=00000012\trenglones=13\t"),
            std::string::npos);
}

struct RoundTrip {
  const char* sentence;
  JournalRecord record;
};

void ExpectBack(const RoundTrip& row) {
  SCOPED_TRACE(row.sentence);
  const std::string line = LineOf(row.record);
  EXPECT_EQ(line.find('\n'), std::string::npos);
  const auto back = RecordOf(line);
  ASSERT_TRUE(back);
  const JournalRecord& was = row.record;
  EXPECT_EQ(back->kind, was.kind);
  EXPECT_EQ(back->number, was.number);
  EXPECT_EQ(back->moment, was.moment);
  EXPECT_EQ(back->printer, was.printer);
  EXPECT_EQ(back->call, was.call);
  EXPECT_EQ(back->command, was.command);
  EXPECT_EQ(back->accepted, was.accepted);
  EXPECT_EQ(back->has_book, was.has_book);
  EXPECT_EQ(back->outcome, was.outcome);
  EXPECT_EQ(back->cause, was.cause);
  EXPECT_EQ(back->answer, was.answer);
  EXPECT_EQ(LineOf(*back), line);  // the ledger too
}

JournalRecord Of(JournalRecord record, auto change) {
  change(record);
  return record;
}

TEST(JournalRecord, ComesBackAsItWent) {
  const std::vector<RoundTrip> rows{
      RoundTrip{"a beginning", Beginning()},
      RoundTrip{"an intent", Intent(1)},
      RoundTrip{"a result", Result(1)},
      RoundTrip{"forgotten by hand", Forgotten(5)},
      RoundTrip{"the end of a day",
                Of(Forgotten(5), [](auto& r) { r.kind = RecordKind::kDayClosed; })},
      RoundTrip{"a full ledger", Of(Intent(1), [](auto& r) { r.ledger = FullLedger(); })},
      RoundTrip{"every byte", Of(Intent(1),
                                 [](auto& r) {
                                   r.call = AllBytes();
                                   r.command = AllBytes() + AllBytes();
                                   r.accepted = {"", AllBytes(), ""};
                                   r.ledger.letter = '<';
                                 })},
      RoundTrip{"what looks like parts",
                Of(Intent(1), [](auto& r) { r.call = "a\tllamada=b=<1c>"; })},
      RoundTrip{"large numbers", Of(Result(1), [](auto& r) {
                  r.number = 9223372036854775807;
                  r.outcome = 6;
                  r.cause = 705;
                  r.ledger.total = Amount{-9223372036854775807, 3};
                })}};
  for (const auto& row : rows) ExpectBack(row);
}

TEST(JournalRecord, ALedgerComesBackFieldByField) {
  const auto back = RecordOf(LineOf(Of(Intent(1), [](auto& r) { r.ledger = FullLedger(); })));
  ASSERT_TRUE(back);
  const Ledger& ledger = back->ledger;
  EXPECT_EQ(ledger.open, true);
  EXPECT_EQ(ledger.kind, 'T');
  EXPECT_EQ(ledger.letter, 'B');
  EXPECT_EQ(ledger.lines, 2);
  EXPECT_EQ(ledger.paid, 0);
  EXPECT_EQ(ledger.perceptions, 150);
  EXPECT_EQ(ledger.total->cents, 12345);
  EXPECT_EQ(ledger.total->slack, 2);
  EXPECT_EQ(ledger.net, -5);
  EXPECT_EQ(ledger.iva, 2100);
  EXPECT_EQ(ledger.counters[0], 7);
  EXPECT_EQ(ledger.counters[5], std::nullopt);
  EXPECT_EQ(ledger.counters[10], 99);
  EXPECT_TRUE(ledger.something_today);
}

TEST(JournalRecord, WhatIsNotKnownIsNotWritten) {
  const auto back = RecordOf(LineOf(Beginning()));
  ASSERT_TRUE(back);
  EXPECT_EQ(back->ledger.open, std::nullopt);
  EXPECT_EQ(back->ledger.lines, std::nullopt);
  EXPECT_FALSE(back->ledger.total);
  EXPECT_EQ(back->ledger.counters[3], std::nullopt);
}

TEST(JournalRecord, NoOtherByteInAnyPlaceIsBelieved) {
  const std::string line = LineOf(Of(Intent(3), [](auto& r) { r.ledger = FullLedger(); }));
  for (std::size_t at = 0; at < line.size(); ++at) {
    for (int code = 0; code < 256; ++code) {
      std::string damaged = line;
      damaged[at] = static_cast<char>(code);
      EXPECT_EQ(RecordOf(damaged).has_value(), damaged == line) << at << ' ' << code;
    }
  }
}

TEST(JournalRecord, NoPartOfALineIsBelieved) {
  const std::string line = LineOf(Result(3));
  for (std::size_t at = 0; at < line.size(); ++at) {
    EXPECT_FALSE(RecordOf(line.substr(0, at))) << at;
    EXPECT_FALSE(RecordOf(line.substr(line.size() - at))) << at;
    EXPECT_FALSE(RecordOf(line.substr(0, at) + line.substr(at + 1))) << at;
    EXPECT_FALSE(RecordOf(std::string(line).insert(at, 1, line[at]))) << at;
  }
}

std::string Vouched(const std::string& body) {
  return body + "\t" + SumText(body);
}

TEST(JournalRecord, ARightSumDoesNotMakeARecord) {
  for (const char* const body :
       {"", "x", "intento", "intento\tuno\t2026", "nada\t1\t2026-11-21 10:00:00",
        "intento\t1\tm\tlibro=quizas", "intento\t1\tm\trenglones=dos", "intento\t1\tm\tsin igual",
        "intento\t1\tm\ttotal=5", "intento\t1\tm\ttotal=x/2", "intento\t1\tm\trenglones=2x",
        "intento\t1\tm\tclase=TT", "intento\t1\tm\tcontadores=a",
        "intento\t1\tm\tcontadores=1,2,3,4,5,6,7,8,9,10,11,12"}) {
    EXPECT_FALSE(RecordOf(Vouched(body))) << body;
  }
}

TEST(JournalRecord, APartOfALaterVersionIsPassedOver) {
  const auto record = RecordOf(Vouched("intento\t1\tm\tnovedad=si\tllamada=x"));
  ASSERT_TRUE(record);
  EXPECT_EQ(record->call, "x");
  EXPECT_EQ(RecordOf(Vouched("intento\t1\tm\tllamada=a<1c"))->call, "a<1c");
}

struct ReadingRow {
  const char* sentence;
  std::vector<JournalRecord> records;
  std::int64_t open;  // 0: none
  std::int64_t lines;
};

TEST(JournalReading, TellsWhatIsOpen) {
  const std::vector<ReadingRow> rows{
      ReadingRow{"nothing", {}, 0, -1},
      ReadingRow{"begun", {Beginning()}, 0, -1},
      ReadingRow{"an intent", {Beginning(), Intent(1)}, 1, 1},
      ReadingRow{"its result", {Beginning(), Intent(1), Result(1)}, 0, 2},
      ReadingRow{"one more", {Beginning(), Intent(1), Result(1), Intent(2)}, 2, 2},
      ReadingRow{"forgotten", {Beginning(), Intent(4), Forgotten(4)}, 0, 4},
      ReadingRow{"never told and gone on", {Beginning(), Intent(1), Intent(2), Result(2)}, 0, 3}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.sentence);
    std::string text;
    for (const auto& record : row.records) text += TextOf(record);
    const JournalReading reading = ReadJournal(text);
    EXPECT_TRUE(reading.is_journal);
    EXPECT_EQ(reading.length, text.size());
    EXPECT_EQ(reading.open ? reading.open->number : 0, row.open);
    EXPECT_EQ(reading.ledger.lines.value_or(-1), row.lines);
  }
}

TEST(JournalReading, CutAnywhereItIsThatOfTheWholeRecords) {
  const std::string before = TextOf(Beginning()) + TextOf(Intent(1)) + TextOf(Result(1));
  for (const auto& last : {Intent(2), Result(1), Forgotten(1)}) {
    const std::string text = before + TextOf(last);
    for (std::size_t size = before.size(); size < text.size(); ++size) {
      const JournalReading reading = ReadJournal(text.substr(0, size));
      EXPECT_EQ(reading.length, before.size()) << size;
      EXPECT_FALSE(reading.open) << size;
      EXPECT_EQ(reading.newest, 1) << size;
    }
  }
}

TEST(JournalReading, AResultCutAnywhereLeavesItsIntentOpen) {
  const std::string before = TextOf(Beginning()) + TextOf(Intent(1));
  const std::string result = TextOf(Result(1));
  for (std::size_t size = 0; size < result.size(); ++size) {
    for (const std::string& behind : {std::string(), std::string(300, '\0')}) {
      const JournalReading reading =
          ReadJournal(std::string(before).append(result, 0, size).append(behind));
      ASSERT_TRUE(reading.open) << size;
      EXPECT_EQ(reading.open->command, "b\x1CPan");
      EXPECT_EQ(reading.length, before.size());
    }
  }
  EXPECT_FALSE(ReadJournal(before + result).open);
}

TEST(JournalReading, ADamagedRecordInTheMiddleIsPassedOver) {
  std::string damaged = TextOf(Result(1));
  damaged[3] = 'X';
  const std::string behind = TextOf(Intent(2)) + TextOf(Result(2));
  const std::string text = TextOf(Beginning()) + TextOf(Intent(1)) + damaged + behind;
  EXPECT_FALSE(ReadJournal(text).open);
  EXPECT_EQ(ReadJournal(text).length, text.size());
  const JournalReading without = ReadJournal(text.substr(0, text.size() - behind.size()));
  ASSERT_TRUE(without.open);
  EXPECT_EQ(without.open->number, 1);
}

TEST(JournalReading, AFileThatIsTornInItsFirstRecordIsNew) {
  const std::string first = TextOf(Beginning());
  for (std::size_t size = 0; size < first.size(); ++size) {
    for (const std::string& behind : {std::string(), std::string(20, '\0')}) {
      const JournalReading reading = ReadJournal(first.substr(0, size) + behind);
      EXPECT_TRUE(reading.is_journal) << size;
      EXPECT_FALSE(reading.begun) << size;
      EXPECT_EQ(reading.length, 0u) << size;
    }
  }
}

TEST(JournalReading, SomebodyElsesFileIsNone) {
  std::string damaged = TextOf(Beginning());
  damaged[10] = 'X';
  for (const std::string& text :
       {std::string("ventas de hoy\n"), std::string("inicia"), std::string("\n"), damaged,
        damaged + TextOf(Intent(1)), TextOf(Intent(1)), std::string("inicio\0x", 8)}) {
    EXPECT_FALSE(ReadJournal(text).is_journal) << text;
  }
}

TEST(JournalDays, TheDayIsItsNameAndANumberWhenThatIsTaken) {
  EXPECT_EQ(FreeSuffix("2026-11-21", {}), "-20261121");
  const std::vector<std::string> taken{"-20261121", "-20261121-2", "-20261122"};
  EXPECT_EQ(FreeSuffix("2026-11-21", taken), "-20261121-3");
}

struct DayRow {
  const char* suffix;
  const char* today;
  std::int32_t days;
  bool outdated;
};

TEST(JournalDays, WhatIsOlderThanItsDaysIsOutdated) {
  for (const DayRow& row : {
           DayRow{"-20261021", "2026-11-20", 30, false},
           DayRow{"-20261021", "2026-11-21", 30, true},
           DayRow{"-20261021-2", "2026-11-21", 30, true},
           DayRow{"-20261121", "2026-11-21", 0, false},
           DayRow{"-20261120", "2026-11-21", 0, true},
           DayRow{"-20261231", "2027-01-01", 0, true},
           DayRow{"-20271231", "2026-11-21", 30, false},
           DayRow{".bak", "2026-11-21", 0, false},
           DayRow{"", "2026-11-21", 0, false},
           DayRow{"-viejo", "2026-11-21", 0, false},
           DayRow{"-20261301", "2026-11-21", 0, false},
           DayRow{"-2026112", "2026-11-21", 0, false},
           DayRow{"-20200101x", "2026-11-21", 0, false},
           DayRow{"-2020010x", "2026-11-21", 0, false},
           DayRow{"-20200101", "", 0, false},
           DayRow{"20200101", "2026-11-21", 0, false},
       }) {
    EXPECT_EQ(IsOutdated(row.suffix, row.today, row.days), row.outdated) << row.suffix;
  }
}

}  // namespace
}  // namespace kestra
