#include "line/session.hpp"

#include <gtest/gtest.h>

#include "booth.hpp"

namespace impresora {
namespace {

using prueba::Body;
using prueba::Booth;
using prueba::Watched;
using std::chrono::hours;
using std::chrono::milliseconds;

// Everything that a session tells, a word each.
struct Diary : Observer {
  void Exchanged(const Exchange& exchange) override {
    text += "intercambio ";
    exchanges.push_back(exchange);
  }
  void Printed(const PaperLine& line) override {
    if (line.text.find("TIQUE") != std::string::npos) text += "título ";
  }
  void Closed(const Receipt& receipt) override { text += receipt.kind + " "; }
  void Changed() override { text += "| "; }

  std::string text;
  std::vector<Exchange> exchanges;
};

TEST(Session, TellsOnlyWhenTheAnswerIsOut) {
  Watched<Diary> booth;
  Diary& diary = booth.watcher;
  booth.session.Receive(Frame(40, "K"), booth.now);
  EXPECT_EQ(booth.session.Advance(booth.now).bytes, Frame(40, Body({"K", "0080", "0600"})));
  EXPECT_EQ(diary.text, "");
  EXPECT_EQ(booth.session.NextDue(), booth.now);
  EXPECT_EQ(booth.session.Advance(booth.now).bytes, "");
  EXPECT_EQ(diary.text, "intercambio | ");
  EXPECT_EQ(booth.session.NextDue(), std::nullopt);
}

TEST(Session, TellsADocumentsPaperBeforeItsEndHoweverFastTheHost) {
  Watched<Diary> booth;
  Diary& diary = booth.watcher;
  std::string all;
  std::uint8_t sequence = 40;
  for (int tickets = 0; tickets < 2; ++tickets) {
    all += Frame(sequence++, Body({"@", "C"}));
    all += Frame(sequence++, Body({"B", "Pan", "1000", "1000", "2100", "M", "1", "0", "0"}));
    all += Frame(sequence++, Body({"E", "T"}));
  }
  booth.session.Receive(all, booth.now);
  booth.session.Advance(booth.now);
  booth.session.Tell();
  EXPECT_EQ(diary.text,
            "título intercambio intercambio TIQUE intercambio "
            "título intercambio intercambio TIQUE intercambio | ");
}

TEST(Session, AnExchangeHasItsBytesTimesAndNumber) {
  Settings settings;
  settings.work_milliseconds['K'] = 700;
  Watched<Diary> booth(settings);
  Diary& diary = booth.watcher;
  booth.Send(40, {"Y"});
  const Micros second = booth.now;
  booth.Send(41, {"K"});
  ASSERT_EQ(diary.exchanges.size(), 2U);
  const Exchange& exchange = diary.exchanges[1];
  EXPECT_EQ(exchange.number, 2U);
  EXPECT_EQ(exchange.kind, ExchangeKind::kExecuted);
  EXPECT_EQ(exchange.received_at, second);
  EXPECT_EQ(exchange.answered_at - exchange.received_at, milliseconds(700));
  EXPECT_EQ(exchange.raw_command, Frame(41, "K"));
  EXPECT_EQ(exchange.raw_answer, Frame(41, Body({"K", "0080", "0600"})));
  EXPECT_EQ(exchange.moment, prueba::OpeningTime());
  EXPECT_EQ(exchange.packet.command, 'K');
  EXPECT_EQ(exchange.answer.fiscal, 0x0600);
}

TEST(Session, OnASlowLineTheAnswerHasItsTimeToLeave) {
  prueba::StoppedClock clock;
  Session session({}, clock, {.baud = 9600});
  Diary diary;
  session.Attach(diary);
  Micros now{};
  prueba::Ask(session, Frame(40, "K"), now);
  ASSERT_EQ(diary.exchanges.size(), 1U);
  EXPECT_EQ(diary.exchanges[0].received_at, Micros(8 * 1041));
  EXPECT_EQ(diary.exchanges[0].answered_at, Micros((8 + 18) * 1041));
}

struct KindCase {
  std::string_view rule;
  std::string frame;
  ExchangeKind kind;
  std::string answer;
};

TEST(Session, AnExchangeSaysWhatBecameOfTheCommand) {
  const std::string right = Frame(40, Body({"K", "0080", "0600"}));
  const std::string nak(1, kNak);
  std::string damaged = Frame(40, "K");
  damaged.back() ^= 1;
  const std::vector<KindCase> cases{
      {"", Frame(40, "K"), ExchangeKind::kExecuted, right},
      {"", damaged, ExchangeKind::kDamaged, nak},
      {"respuesta: callar", Frame(40, "K"), ExchangeKind::kExecuted, ""},
      {"comando: nak", Frame(40, "K"), ExchangeKind::kDamaged, nak},
      {"comando: perder", Frame(40, "K"), ExchangeKind::kLost, ""},
      {"comando: desenchufar", Frame(40, "K"), ExchangeKind::kLost, ""},
      {"comando: apagar", Frame(40, "K"), ExchangeKind::kLost, ""},
      {"respuesta: apagar en byte 3", Frame(40, "K"), ExchangeKind::kExecuted, right.substr(0, 2)},
  };
  for (const KindCase& c : cases) {
    SCOPED_TRACE(c.rule);
    Booth booth;
    booth.session.Faults().Add(c.rule);
    Diary diary;
    booth.session.Attach(diary);
    prueba::Ask(booth.session, c.frame, booth.now);
    ASSERT_EQ(diary.exchanges.size(), 1U);
    EXPECT_EQ(diary.exchanges[0].kind, c.kind);
    EXPECT_EQ(diary.exchanges[0].raw_answer, c.answer);
    EXPECT_EQ(diary.exchanges[0].raw_command, c.frame);
    EXPECT_EQ(diary.exchanges[0].faults.size(), c.rule.empty() ? 0U : 1U);
  }
}

TEST(Session, AnotherHostHearsNothingOfTheFormerOnes) {
  Booth booth(prueba::Slow(1'000));
  booth.session.Receive(Frame(40, "{") + Frame(41, "K").substr(0, 5), booth.now);
  EXPECT_EQ(booth.session.Advance(booth.now).bytes, "");
  booth.session.NewHost();
  EXPECT_EQ(booth.session.GetPrinter().DrawerOpenings(), 1U);
  EXPECT_EQ(booth.session.Advance(booth.now + hours(1)).bytes, "");
  booth.now += hours(1);
  EXPECT_EQ(booth.Send(42, {"Y"}),
            "\x12" + Frame(42, Body({"Y", "0080", "0600", "261121", "103000"})));
}

TEST(Session, AnotherHostsFirstCommandIsItsOwnWhateverItsNumber) {
  Booth booth;
  for (const unsigned openings : {1U, 2U}) {
    booth.session.Receive(Frame(40, "{"), booth.now);
    booth.session.Advance(booth.now);
    booth.session.NewHost();
    EXPECT_EQ(booth.session.GetPrinter().DrawerOpenings(), openings);
  }
}

// The paper of each document as an observer has it that is there from some moment on.
struct Folder : Observer {
  void Resumed(const std::vector<PaperLine>& paper) override {
    for (const PaperLine& line : paper) Printed(line);
  }
  void Printed(const PaperLine& line) override { text += line.text + "\n"; }
  void Closed(const Receipt& /*receipt*/) override { papers.push_back(std::exchange(text, {})); }

  std::string text;
  std::vector<std::string> papers;
};

TEST(Session, WhoeverComesInTheMiddleOfADocumentHasAllOfIt) {
  for (const bool cut : {false, true}) {
    Booth booth;
    Folder from_the_start;
    Folder late;
    booth.session.Attach(from_the_start);
    booth.Ticket(40);
    booth.Send(50, {"@", "C"});
    if (cut) booth.session.PowerCycle();
    booth.Send(51, {"B", "Pan", "1000", "1000", "2100", "M", "0001", "0000", "0"});
    booth.session.Receive(Frame(52, Body({"A", "Gracias"})), booth.now);
    booth.session.Advance(booth.now);  // printed and not yet told
    booth.session.Attach(late);
    booth.Send(53, {"E", "T"});
    booth.session.Tell();
    ASSERT_EQ(from_the_start.papers.size(), 2U);
    ASSERT_EQ(late.papers.size(), 1U);
    EXPECT_EQ(late.papers[0], from_the_start.papers[1]);
    EXPECT_NE(late.papers[0].find("Gracias"), std::string::npos);
    EXPECT_EQ(late.papers[0].find("CORTE DE ENERG") != std::string::npos, cut);
  }
}

TEST(Session, PowerGoesAndComesByHand) {
  Booth booth;
  Diary diary;
  booth.Send(40, {"@", "C"});
  booth.session.Attach(diary);
  booth.session.PowerCycle();
  EXPECT_EQ(booth.session.GetPrinter().GetStage(), Stage::kTicketItems);
  booth.session.Tell();
  EXPECT_EQ(diary.text, "| ");
  EXPECT_EQ(booth.Send(41, {"Y"}), Frame(41, Body({"Y", "0080", "1600", "261121", "103000"})));
}

TEST(Session, WhoeverChangesThePrinterByHandLetsTheOthersKnow) {
  Watched<Diary> booth;
  Diary& diary = booth.watcher;
  booth.session.GetPrinter().Faults().offline = true;
  booth.session.Touched();
  EXPECT_EQ(booth.session.NextDue(), Micros{});
  booth.session.Advance(booth.now);
  EXPECT_EQ(diary.text, "| ");
  booth.session.Detach(diary);
  booth.session.Touched();
  booth.session.Tell();
  EXPECT_EQ(diary.text, "| ");
}

// A memory that fails once.
class FullDisk : public Store {
 public:
  std::optional<Recall> Load() override { return std::nullopt; }
  void Save(const Books& /*books*/, std::span<const DailyClosing> /*closings*/,
            std::span<const Receipt> /*finished*/) override {
    if (full) throw MemoryFailure("disco lleno");
  }
  bool full = false;
};

TEST(Session, NothingIsAnsweredThatCouldNotBeKept) {
  Booth booth;
  FullDisk disk;
  booth.session.GetPrinter().UseMemory(disk);
  disk.full = true;
  booth.session.Receive(Frame(40, "K"), booth.now);
  EXPECT_THROW(booth.session.Advance(booth.now), MemoryFailure);
  EXPECT_EQ(booth.session.Advance(booth.now).bytes, "");
}

}  // namespace
}  // namespace impresora
