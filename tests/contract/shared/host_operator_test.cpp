#include "dialogs/host_operator.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <vector>

namespace kestra {
namespace {

// Remembers what it was asked and gives the prepared answers.
class Fallback : public Operator {
 public:
  std::int32_t Message(std::string_view text, std::string_view, std::int32_t) override {
    asked.emplace_back(text);
    return kAnswerYes;
  }
  bool StatusReport(const Report&) override {
    asked.emplace_back("report");
    return true;
  }
  void MemoryFull() override { asked.emplace_back("memory"); }

  std::vector<std::string> asked;
};

// A host in C.
struct Host {
  std::int32_t answer = 0;
  std::string text;
  std::string title;
  std::int32_t style = -1;
  std::string words;
  std::vector<std::string> rows;
  int memory = 0;
  HostOperator* dialogs = nullptr;
};

std::int32_t KESTRA_CALL OnMessage(void* context, const char* text, const char* title,
                                   std::int32_t style) {
  auto& host = *static_cast<Host*>(context);
  host.text = text;
  host.title = title;
  host.style = style;
  return host.answer;
}

std::int32_t KESTRA_CALL OnReport(void* context, const char* printer, const char* fiscal,
                                  const KestraFila* rows, std::int32_t count) {
  auto& host = *static_cast<Host*>(context);
  host.words = std::string(printer) + "/" + fiscal;
  for (std::int32_t i = 0; i < count; ++i) {
    const KestraFila& row = rows[i];
    host.rows.push_back(std::to_string(row.grupo) + "," + std::to_string(row.numero) + "," +
                        std::to_string(row.clase) + "," + std::to_string(row.encendida) + "," +
                        row.texto + "," + row.ayuda);
  }
  return host.answer;
}

void KESTRA_CALL OnMemoryFull(void* context) {
  ++static_cast<Host*>(context)->memory;
}

class HostOperatorTest : public ::testing::Test {
 protected:
  KestraOperador Record() {
    return {.tamano = sizeof(KestraOperador),
            .contexto = &host,
            .mensaje = OnMessage,
            .informe_estados = OnReport,
            .memoria_llena = OnMemoryFull};
  }
  void Set(const KestraOperador& record) { dialogs.Set(&record); }

  Fallback fallback;
  HostOperator dialogs{fallback};
  Host host;
};

TEST_F(HostOperatorTest, WithoutARecordTheFallbackIsAsked) {
  EXPECT_EQ(dialogs.Message("a", "", kBoxYesNo), kAnswerYes);
  EXPECT_TRUE(dialogs.StatusReport({}));
  dialogs.MemoryFull();
  EXPECT_EQ(fallback.asked, (std::vector<std::string>{"a", "report", "memory"}));
}

TEST_F(HostOperatorTest, TheHostGetsTextTitleAndStyle) {
  Set(Record());
  dialogs.Message("texto", "Envia?", kBoxYesNoQuestion);
  EXPECT_EQ(host.text, "texto");
  EXPECT_EQ(host.title, "Envia?");
  EXPECT_EQ(host.style, 36);
  EXPECT_TRUE(fallback.asked.empty());
}

TEST_F(HostOperatorTest, AQuestionIsYesForSixAlone) {
  Set(Record());
  for (const std::int32_t answer : {-1, 0, 1, 2, 5, 6, 7, 8}) {
    host.answer = answer;
    EXPECT_EQ(dialogs.Message("a", "", kBoxYesNo), answer == 6 ? kAnswerYes : kAnswerNo);
    EXPECT_EQ(dialogs.Message("a", "", kBoxYesNoQuestion), answer == 6 ? kAnswerYes : kAnswerNo);
    EXPECT_EQ(dialogs.Message("a", "", kBoxOk), kAnswerOk);
  }
}

TEST_F(HostOperatorTest, AZeroByteInsideATextIsABlank) {
  Set(Record());
  dialogs.Message(std::string_view("a\0b", 3), std::string_view("\0", 1), kBoxOk);
  EXPECT_EQ(host.text, "a b");
  EXPECT_EQ(host.title, " ");
}

TEST_F(HostOperatorTest, AReportComesWithItsWordsAndRows) {
  Set(Record());
  const std::string caption = "sin papel, y algo que no es suyo";
  const Report report = {
      .printer = "4000",
      .fiscal = "0104",
      .rows = {{0, 14, true, true, std::string_view(caption).substr(0, 9), "ayuda"},
               {1, 2, false, false, "bateria", std::string_view("a\0b", 3)}}};
  host.answer = 5;
  EXPECT_TRUE(dialogs.StatusReport(report));
  host.answer = 0;
  EXPECT_FALSE(dialogs.StatusReport(report));
  EXPECT_EQ(host.words, "4000/0104");
  EXPECT_EQ(host.rows[0], "0,14,1,1,sin papel,ayuda");
  EXPECT_EQ(host.rows[1], "1,2,0,0,bateria,a b");
}

TEST_F(HostOperatorTest, AnEmptyReportIsAReport) {
  Set(Record());
  EXPECT_FALSE(dialogs.StatusReport({}));
  EXPECT_EQ(host.words, "/");
}

TEST_F(HostOperatorTest, TheMemoryWarningReachesTheHost) {
  Set(Record());
  dialogs.MemoryFull();
  EXPECT_EQ(host.memory, 1);
}

TEST_F(HostOperatorTest, ANullMemberLeavesThatKindToTheFallback) {
  KestraOperador record = Record();
  record.informe_estados = nullptr;
  Set(record);
  EXPECT_TRUE(dialogs.StatusReport({}));
  dialogs.MemoryFull();
  EXPECT_EQ(fallback.asked, (std::vector<std::string>{"report"}));
  EXPECT_EQ(host.memory, 1);
}

TEST_F(HostOperatorTest, NullBringsTheFallbackBack) {
  Set(Record());
  dialogs.Set(nullptr);
  EXPECT_EQ(dialogs.Message("a", "", kBoxYesNo), kAnswerYes);
  EXPECT_EQ(fallback.asked.size(), 1u);
}

TEST_F(HostOperatorTest, TheRecordIsCopied) {
  {
    KestraOperador record = Record();
    dialogs.Set(&record);
    std::memset(&record, 0xFF, sizeof record);
  }
  dialogs.MemoryFull();
  EXPECT_EQ(host.memory, 1);
}

TEST_F(HostOperatorTest, MembersBeyondTheStatedSizeAreNull) {
  KestraOperador record = Record();
  for (const std::size_t size :
       {offsetof(KestraOperador, informe_estados), offsetof(KestraOperador, informe_estados) + 3}) {
    record.tamano = static_cast<std::uint32_t>(size);
    Set(record);
    EXPECT_TRUE(dialogs.StatusReport({}));
    dialogs.Message("del host", "", kBoxOk);
    EXPECT_EQ(host.text, "del host");
  }
  EXPECT_EQ(fallback.asked, (std::vector<std::string>{"report", "report"}));
}

TEST_F(HostOperatorTest, ASizeTooSmallForAnythingIsNoRecord) {
  KestraOperador record = Record();
  for (const std::uint32_t size : {0u, 1u, 4u}) {
    record.tamano = size;
    Set(record);
    dialogs.Message("a", "", kBoxOk);
  }
  EXPECT_EQ(fallback.asked.size(), 3u);
}

TEST_F(HostOperatorTest, ALargerRecordOfANewerHostIsReadAsFarAsItIsKnown) {
  struct {
    KestraOperador known;
    void* more;
  } record = {Record(), this};
  record.known.tamano = sizeof record;
  dialogs.Set(&record.known);
  dialogs.MemoryFull();
  EXPECT_EQ(host.memory, 1);
}

void KESTRA_CALL TakeTheRecordAway(void* context) {
  auto& host = *static_cast<Host*>(context);
  host.dialogs->Set(nullptr);
  ++host.memory;
}

TEST_F(HostOperatorTest, ACallbackMayTakeTheRecordAway) {
  host.dialogs = &dialogs;
  KestraOperador record = Record();
  record.memoria_llena = TakeTheRecordAway;
  Set(record);
  dialogs.MemoryFull();
  dialogs.MemoryFull();
  EXPECT_EQ(host.memory, 1);
  EXPECT_EQ(fallback.asked, (std::vector<std::string>{"memory"}));
}

}  // namespace
}  // namespace kestra
