// A host that answers the dialogs itself.

#include "dialogs/host_operator.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "exports/callbacks.hpp"
#include "fakes/fake_operator.hpp"

namespace kestra {
namespace {

struct SeenRow {
  KestraFila row;
  std::string text;
  std::string hint;
};

// What the host's callbacks were handed.
struct Host {
  std::int32_t answer = 0;
  std::vector<std::string> texts;
  std::vector<std::string> titles;
  std::vector<std::int32_t> styles;
  std::string printer;
  std::string fiscal;
  std::vector<SeenRow> rows;
  int warnings = 0;

  std::int32_t Message(const char* text, const char* title, std::int32_t style) {
    texts.emplace_back(text);
    titles.emplace_back(title);
    styles.push_back(style);
    return answer;
  }
  std::int32_t Report(const char* printer_word, const char* fiscal_word, const KestraFila* shown,
                      std::int32_t count) {
    printer = printer_word;
    fiscal = fiscal_word;
    for (const auto& row : std::span(shown, static_cast<std::size_t>(count))) {
      rows.push_back({row, row.texto, row.ayuda});
    }
    return answer;
  }
  void MemoryFull() { ++warnings; }
};

class HostsOperator : public testing::Test {
 protected:
  KestraOperador Record() { return exports::RecordOf(host_); }

  void TakeThePlace() {
    const auto record = Record();
    operator_.Set(&record);
  }

  void RaiseAll() {
    operator_.Message("text", "title", kBoxOk);
    operator_.StatusReport({"4000", "0600", {}});
    operator_.MemoryFull();
  }

  // Which of the three the library's own operator was left to do.
  std::vector<Happening> LeftToTheDefault() {
    std::vector<Happening> kinds;
    for (const auto& event : journal_.Events()) kinds.push_back(event.kind);
    return kinds;
  }

  Journal journal_;
  Trouble trouble_;
  FakeOperator fallback_{journal_, trouble_};
  HostOperator operator_{fallback_};
  Host host_;
};

const std::vector<Happening> kAll{Happening::kBox, Happening::kReport, Happening::kMemoryFull};

TEST_F(HostsOperator, WithoutOneTheDefaultAnswersEverythingAndItsAnswersCount) {
  RaiseAll();
  EXPECT_EQ(LeftToTheDefault(), kAll);
  fallback_.Queue(Answer::kYes);
  fallback_.Queue(Answer::kRetry);
  EXPECT_EQ(operator_.Message("text", "", kBoxYesNo), kAnswerYes);
  EXPECT_TRUE(operator_.StatusReport({}));
}

TEST_F(HostsOperator, AWholeRecordAnswersEverything) {
  TakeThePlace();
  RaiseAll();
  EXPECT_TRUE(LeftToTheDefault().empty());
  EXPECT_EQ(host_.texts, std::vector<std::string>{"text"});
  EXPECT_EQ(host_.titles, std::vector<std::string>{"title"});
  EXPECT_EQ(host_.printer, "4000");
  EXPECT_EQ(host_.warnings, 1);
}

TEST_F(HostsOperator, NullBringsTheDefaultBack) {
  TakeThePlace();
  operator_.Set(nullptr);
  RaiseAll();
  EXPECT_EQ(LeftToTheDefault(), kAll);
}

TEST_F(HostsOperator, TheRecordIsCopied) {
  auto record = Record();
  operator_.Set(&record);
  record = {};
  RaiseAll();
  EXPECT_TRUE(LeftToTheDefault().empty());
}

TEST_F(HostsOperator, ANewRecordReplacesTheOldOneWhole) {
  auto record = Record();
  operator_.Set(&record);
  record.mensaje = nullptr;
  record.informe_estados = nullptr;
  operator_.Set(&record);
  RaiseAll();
  EXPECT_EQ(LeftToTheDefault(), (std::vector{Happening::kBox, Happening::kReport}));
  EXPECT_EQ(host_.warnings, 1);
}

TEST_F(HostsOperator, EachNullMemberIsLeftToTheDefault) {
  KestraOperador records[] = {Record(), Record(), Record()};
  records[0].mensaje = nullptr;
  records[1].informe_estados = nullptr;
  records[2].memoria_llena = nullptr;
  for (std::size_t i = 0; i < kAll.size(); ++i) {
    journal_.Take();
    operator_.Set(&records[i]);
    RaiseAll();
    EXPECT_EQ(LeftToTheDefault(), std::vector{kAll[i]});
  }
}

// A host built with an older or a newer header.

constexpr std::size_t kPointer = sizeof(void*);

constexpr std::size_t kMessageAt = offsetof(KestraOperador, mensaje);
constexpr std::size_t kReportAt = offsetof(KestraOperador, informe_estados);
constexpr std::size_t kWarningAt = offsetof(KestraOperador, memoria_llena);

constexpr struct {
  const char* sentence;
  std::size_t size;
  std::ptrdiff_t answered;  // of the three
} kSizes[] = {
    {"no size at all", 0, 0},
    {"one byte", 1, 0},
    {"the size alone", sizeof(std::uint32_t), 0},
    {"as far as the context", kMessageAt, 0},
    {"half of the message callback", kMessageAt + kPointer / 2, 0},
    {"as far as the message callback", kReportAt, 1},
    {"all but a byte of the report callback", kWarningAt - 1, 1},
    {"as far as the report callback", kWarningAt, 2},
    {"all but a byte of the whole", sizeof(KestraOperador) - 1, 2},
    {"the whole", sizeof(KestraOperador), 3},
    {"more than the whole", sizeof(KestraOperador) + 64, 3},
    {"the greatest size", 0xFFFFFFFF, 3},
};

TEST_F(HostsOperator, MembersBeyondTheSizeOfTheRecordCountAsNull) {
  for (const auto& row : kSizes) {
    SCOPED_TRACE(row.sentence);
    // A record of that very size, so that reading beyond it shows.
    const auto record = Record();
    const auto length = std::max(sizeof record.tamano, std::min(row.size, sizeof record));
    std::vector<std::max_align_t> room((length + sizeof(std::max_align_t) - 1) /
                                       sizeof(std::max_align_t));
    std::memcpy(room.data(), &record, length);
    const auto size = static_cast<std::uint32_t>(row.size);
    std::memcpy(room.data(), &size, sizeof size);
    operator_.Set(reinterpret_cast<KestraOperador*>(room.data()));
    journal_.Take();
    RaiseAll();
    EXPECT_EQ(LeftToTheDefault(), std::vector<Happening>(kAll.begin() + row.answered, kAll.end()));
  }
}

TEST_F(HostsOperator, AQuestionIsYesForSixAloneAndAMessageIsAlwaysAccepted) {
  TakeThePlace();
  for (const std::int32_t answer : {-1, 0, 1, 2, 5, 6, 7, 8}) {
    host_.answer = answer;
    for (const std::int32_t style : {kBoxYesNo, kBoxYesNoQuestion}) {
      EXPECT_EQ(operator_.Message("a", "", style), answer == 6 ? kAnswerYes : kAnswerNo);
      EXPECT_EQ(host_.styles.back(), style);
    }
    EXPECT_EQ(operator_.Message("a", "", kBoxOk), kAnswerOk);
    EXPECT_EQ(host_.styles.back(), kBoxOk);
  }
}

TEST_F(HostsOperator, AZeroByteInsideATextComesAsABlank) {
  TakeThePlace();
  operator_.Message({"a\0b", 3}, {"\0t", 2}, kBoxOk);
  EXPECT_EQ(host_.texts, std::vector<std::string>{"a b"});
  EXPECT_EQ(host_.titles, std::vector<std::string>{" t"});
  operator_.StatusReport({std::string("4\0", 2), std::string("\0", 1), {}});
  EXPECT_EQ(host_.printer, "4 ");
  EXPECT_EQ(host_.fiscal, " ");
}

TEST_F(HostsOperator, TextsNeedNoZeroByteBehindThem) {
  TakeThePlace();
  operator_.Message(std::string_view("Envia?x").substr(0, 6), std::string_view("ab").substr(0, 1),
                    kBoxOk);
  EXPECT_EQ(host_.texts, std::vector<std::string>{"Envia?"});
  EXPECT_EQ(host_.titles, std::vector<std::string>{"a"});
}

TEST_F(HostsOperator, TheReportComesRowByRow) {
  TakeThePlace();
  Report report{"4000", "0600", {}};
  for (std::int32_t i = 0; i < 23; ++i) {
    report.rows.push_back({.group = i % 2,
                           .number = i,
                           .error = i % 3 == 0,
                           .lit = i % 5 == 0,
                           .text = std::string_view("abcdefghijklmnopqrstuvwxyz")
                                       .substr(0, 3 + static_cast<std::size_t>(i)),
                           .hint = std::string_view("a\0b", 3)});
  }
  operator_.StatusReport(report);
  ASSERT_EQ(host_.rows.size(), 23u);
  for (std::int32_t i = 0; i < 23; ++i) {
    const auto& [row, text, hint] = host_.rows[static_cast<std::size_t>(i)];
    EXPECT_EQ(row.grupo, i % 2);
    EXPECT_EQ(row.numero, i);
    EXPECT_EQ(row.clase, i % 3 == 0 ? 1 : 0);
    EXPECT_EQ(row.encendida, i % 5 == 0 ? 1 : 0);
    EXPECT_EQ(text, report.rows[static_cast<std::size_t>(i)].text);
    EXPECT_EQ(hint, "a b");
  }
}

TEST_F(HostsOperator, AnythingButZeroSendsTheCommandAgain) {
  TakeThePlace();
  for (const std::int32_t answer : {0, 1, -1, 6}) {
    host_.answer = answer;
    EXPECT_EQ(operator_.StatusReport({"0000", "0000", {}}), answer != 0) << answer;
  }
  operator_.StatusReport({});
  EXPECT_EQ(host_.printer + host_.fiscal, "");
}

TEST_F(HostsOperator, TextsAreWindows1252UnlessTheHostSpeaksUtf8) {
  TakeThePlace();
  const Report report{"4000", "0600", {{.text = "l\xEDnea", .hint = "\x80"}}};
  const auto hear = [&] {
    operator_.Message("\xBFsigue?", {"A\xD1O\0", 4}, kBoxOk);
    operator_.StatusReport(report);
    return host_.texts.back() + "|" + host_.titles.back() + "|" + host_.rows.back().text + "|" +
           host_.rows.back().hint;
  };
  EXPECT_EQ(hear(), "\xBFsigue?|A\xD1O |l\xEDnea|\x80");
  TextSettings texts;
  operator_.Speak(texts);
  EXPECT_EQ(hear(), "\xBFsigue?|A\xD1O |l\xEDnea|\x80");
  texts.TextosTerminados = 1;
  EXPECT_EQ(hear(), "\xBFsigue?|A\xD1O |l\xEDnea|\x80");
  texts.chosen = TextMode::kUtf8;
  EXPECT_EQ(hear(), "\u00BFsigue?|A\u00D1O |l\u00EDnea|\u20AC");
}

// A callback gives the operator's place up while it runs.
struct Leaving {
  HostOperator* place;
  int warnings = 0;
};

void KESTRA_CALL TakeTheRecordAway(void* context) {
  auto& leaving = *static_cast<Leaving*>(context);
  leaving.place->Set(nullptr);
  ++leaving.warnings;
}

TEST_F(HostsOperator, ACallbackMayTakeTheRecordAway) {
  Leaving leaving{&operator_};
  auto record = Record();
  record.contexto = &leaving;
  record.memoria_llena = TakeTheRecordAway;
  operator_.Set(&record);
  operator_.MemoryFull();
  operator_.MemoryFull();
  EXPECT_EQ(leaving.warnings, 1);
  EXPECT_EQ(LeftToTheDefault(), std::vector{Happening::kMemoryFull});
}

}  // namespace
}  // namespace kestra
