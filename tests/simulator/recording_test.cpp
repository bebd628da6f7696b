#include "trace/recording.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "booth.hpp"
#include "trace/compare.hpp"
#include "trace/player.hpp"

namespace impresora {
namespace {

using prueba::Ask;
using prueba::Body;
using prueba::Booth;

constexpr Micros kMillisecond = std::chrono::milliseconds(1);

// What a printer did, written down and read again.
class Tape {
 public:
  explicit Tape(const Settings& settings = {})
      : recorder(settings, [this](std::string_view line) { text.append(line) += '\n'; }) {}

  Recording Read() const {
    std::istringstream stream(text);
    return ReadRecording(stream);
  }

  std::string text;
  Recorder recorder;
};

struct Taped {
  explicit Taped(Settings settings = {}) : tape(settings), booth(std::move(settings)) {
    booth.session.Attach(tape.recorder);
  }
  Tape tape;
  Booth booth;
};

// A player and everything that it told.
struct Replay {
  explicit Replay(Recording recording)
      : player(std::move(recording), [this](const std::string& words) { told.push_back(words); }) {}

  std::string Send(std::uint8_t sequence, std::initializer_list<std::string_view> parts) {
    return Ask(player, Frame(sequence, Body(parts)), now);
  }

  std::vector<std::string> told;
  Player player;
  Micros now{};
};

Settings Slow(std::uint32_t milliseconds) {
  Settings settings;
  settings.work_milliseconds.fill(milliseconds);
  return settings;
}

TEST(Recording, HoldsBytesTimesAndWords) {
  Taped original(Slow(1200));
  const std::string answer = original.booth.Send(40, {"K"});
  const Recording recording = original.tape.Read();
  ASSERT_EQ(recording.size(), 1U);
  EXPECT_EQ(recording[0].host, Frame(40, "K"));
  EXPECT_EQ(recording[0].received, Micros(0));
  EXPECT_EQ(recording[0].answered, 1200 * kMillisecond);
  EXPECT_EQ(recording[0].busy, 2U);
  EXPECT_EQ(std::string(2, kDc2) + recording[0].printer, answer);
  EXPECT_NE(original.tape.text.find("Cortar papel"), std::string::npos);
}

TEST(Player, GivesTheRecordedAnswersAtTheirTimes) {
  Taped original(Slow(1200));
  std::vector<std::string> answers{original.booth.Send(40, {"@", "C"}),
                                   original.booth.Send(41, {"C", "N"}),
                                   original.booth.Send(42, {"Y"})};
  Replay replay(original.tape.Read());
  EXPECT_EQ(replay.Send(40, {"@", "C"}), answers[0]);
  EXPECT_EQ(replay.now, 1200 * kMillisecond);
  EXPECT_EQ(replay.Send(41, {"C", "N"}), answers[1]);
  EXPECT_FALSE(replay.player.Finished());
  EXPECT_EQ(replay.Send(42, {"Y"}), answers[2]);
  EXPECT_EQ(replay.now, 3600 * kMillisecond);
  EXPECT_TRUE(replay.player.Finished());
  EXPECT_TRUE(replay.told.empty());
}

TEST(Player, AnswersUnderTheNumberOfTheHost) {
  Taped original;
  original.booth.Ticket(40);
  Replay replay(original.tape.Read());
  EXPECT_EQ(replay.Send(60, {"@", "C"}), Frame(60, Body({"@", "0080", "1600"})));
}

TEST(Player, WhatTheHostBeforeWasAnsweredIsNoAnswerForANewHost) {
  Taped original;
  original.booth.Send(40, {"Y"});
  original.booth.Send(41, {"{"});
  original.booth.Send(40, {"Y"});
  Replay replay(original.tape.Read());
  replay.Send(40, {"Y"});
  replay.player.NewHost();
  replay.Send(40, {"Y"});
  EXPECT_EQ(replay.told,
            (std::vector<std::string>{"se esperaba 2 ({ Abrir cajón) y llegó Y Leer fecha y "
                                      "hora: se responde como el 3"}));
}

TEST(Player, NamesTheFieldsThatDiffer) {
  Taped original;
  original.booth.Ticket(40);
  Replay replay(original.tape.Read());
  replay.Send(40, {"@", "C"});
  const std::string answer =
      replay.Send(41, {"B", "Pan", "2000", "1000", "2100", "M", "0001", "0000"});
  EXPECT_EQ(answer, Frame(41, Body({"B", "0080", "1600"})));
  EXPECT_EQ(replay.told,
            (std::vector<std::string>{
                "intercambio 2 (B Ítem de tique): cantidad: grabado '1000', llegó '2000'",
                "intercambio 2 (B Ítem de tique): cantidad de campos: grabado '8', llegó '7'"}));
  EXPECT_EQ(replay.player.Strayed(), 2U);
}

TEST(Player, ACommandOutOfTurnGetsTheAnswerOfItsKind) {
  Taped original;
  original.booth.Ticket(40);
  Replay replay(original.tape.Read());
  EXPECT_EQ(replay.Send(40, {"E", "T"}), Frame(40, Body({"E", "0080", "0600", "00000001"})));
  EXPECT_EQ(replay.Send(41, {"@", "C"}), Frame(41, Body({"@", "0080", "1600"})));
  EXPECT_EQ(replay.Send(42, {"K"}), "");
  EXPECT_EQ(replay.told,
            (std::vector<std::string>{
                "se esperaba 1 (@ Abrir tique) y llegó E Cerrar tique: se responde como el 3",
                "se esperaba 2 (B Ítem de tique) y llegó K Cortar papel: no hay respuesta"}));
}

TEST(Player, FollowsAHostThatLeavesSomethingOut) {
  Taped original;
  original.booth.Ticket(40);
  original.booth.Send(43, {"K"});
  original.booth.Send(44, {"Y"});
  Replay replay(original.tape.Read());
  replay.Send(40, {"@", "C"});
  replay.Send(41, {"E", "T"});
  replay.Send(42, {"K"});
  EXPECT_EQ(replay.told.size(), 1U);
  EXPECT_NE(replay.Send(43, {"Y"}), "");
  EXPECT_TRUE(replay.player.Finished());
}

TEST(Player, ARepeatedFrameGetsTheSameAnswerAgain) {
  Taped original;
  original.booth.Ticket(40);
  Replay replay(original.tape.Read());
  const std::string first = replay.Send(50, {"@", "C"});
  EXPECT_EQ(replay.Send(50, {"@", "C"}), first);
  EXPECT_TRUE(replay.told.empty());
  std::string damaged = Frame(51, "K");
  damaged.back() ^= 1;
  EXPECT_EQ(Ask(replay.player, damaged, replay.now), std::string(1, kNak));
}

TEST(Player, RecordedRepetitionsDoNotHoldUpTheHost) {
  Taped original;
  original.booth.Send(40, {"@", "C"});
  original.booth.Send(40, {"@", "C"});
  original.booth.Send(41, {"C", "N"});
  Replay replay(original.tape.Read());
  replay.Send(40, {"@", "C"});
  replay.Send(41, {"C", "N"});
  EXPECT_TRUE(replay.told.empty());
  EXPECT_TRUE(replay.player.Finished());
}

TEST(Player, OnlySoundAnswersGetANewChecksum) {
  const std::string sound = Frame(40, Body({"K", "0080", "0600"}));
  std::string wrong = sound;
  wrong.back() = 'x';
  EXPECT_EQ(Renumbered(sound, 40, 50), Frame(50, Body({"K", "0080", "0600"})));
  EXPECT_EQ(Renumbered(wrong, 40, 50).substr(0, 3), std::string("\x02\x32K"));
  EXPECT_EQ(Renumbered(wrong, 40, 50).back(), 'x');
  EXPECT_EQ(Renumbered("ruido" + sound, 40, 40), "ruido" + sound);
  EXPECT_EQ(Renumbered(sound, 39, 50), sound);  // another frame's answer stays so
  EXPECT_EQ(Renumbered("", 40, 50), "");
  EXPECT_EQ(Renumbered("\x02", 40, 50), "\x02");
}

// The second session of two that are compared, and how it ends.
struct CompareRow {
  const char* name;
  void (*act)(Booth& booth);
  std::string difference;
};

TEST(Compare, NamesTheFirstDifference) {
  const std::vector<CompareRow> rows{
      {"the same under other numbers and later",
       [](Booth& b) {
         b.now += std::chrono::seconds(9);
         b.clock.moment += 3600;
         b.Ticket(60);
         b.Send(63, {"Y"});
       },
       ""},
      {"another field",
       [](Booth& b) {
         b.Send(40, {"@", "C"});
         b.Send(41, {"B", "Pan", "1000", "1001", "2100", "M", "0001", "0000", "0"});
       },
       "intercambio 2 (B Ítem de tique): precio: A '1000', B '1001'"},
      {"another command", [](Booth& b) { b.Send(40, {"H"}); },
       "intercambio 1 (@ Abrir tique): comando: A '@ Abrir tique', B 'H Abrir no fiscal'"},
      {"another answer",
       [](Booth& b) {
         b.session.GetPrinter().Faults().low_battery = true;
         b.Send(40, {"@", "C"});
       },
       "intercambio 1 (@ Abrir tique): palabra fiscal: A '1600', B '9604'"},
      {"one less", [](Booth& b) { b.Ticket(40); },
       "B termina antes: falta el intercambio 4 (Y Leer fecha y hora)"},
  };
  Taped original;
  original.booth.Ticket(40);
  original.booth.Send(43, {"Y"});
  for (const CompareRow& row : rows) {
    Taped other;
    row.act(other.booth);
    EXPECT_EQ(Compare(original.tape.Read(), other.tape.Read(), {}).value_or(""), row.difference)
        << row.name;
  }
}

TEST(Compare, TheClockCountsWhenAsked) {
  Taped original;
  Taped other;
  other.booth.clock.moment += 1;
  original.booth.Send(40, {"Y"});
  other.booth.Send(40, {"Y"});
  EXPECT_FALSE(Compare(original.tape.Read(), other.tape.Read(), {.clock = false}));
  EXPECT_EQ(Compare(original.tape.Read(), other.tape.Read(), {.clock = true}).value_or(""),
            "intercambio 1 (Y Leer fecha y hora): hora: A '103000', B '103001'");
}

TEST(Compare, FilesEndAsAProgramDoes) {
  const auto folder = std::filesystem::path(testing::TempDir());
  const auto put = [&folder](const char* name, const std::string& text) {
    std::ofstream(folder / name) << text;
    return folder / name;
  };
  Taped ticket;
  ticket.booth.Ticket(40);
  Taped nothing;
  const auto a = put("compare-a.jsonl", ticket.tape.text);
  const auto b = put("compare-b.jsonl", nothing.tape.text);
  std::ostringstream out;
  std::ostringstream errors;
  EXPECT_EQ(CompareFiles(a, a, {}, out, errors), kSame);
  EXPECT_EQ(CompareFiles(a, b, {}, out, errors), kDifferent);
  EXPECT_EQ(out.str(),
            "Iguales: 3 intercambios\nB termina antes: falta el intercambio 1 (@ Abrir tique)\n");
  EXPECT_EQ(CompareFiles(a, folder / "missing.jsonl", {}, out, errors), kUnreadable);
  EXPECT_NE(errors.str().find("no se puede abrir"), std::string::npos);
}

TEST(Recording, SaysWhereItCannotBeRead) {
  const std::string head = R"({"grabacion":1})"
                           "\n";
  struct Row {
    std::string text, words;
  };
  const std::vector<Row> rows{
      {"", "está vacía"},
      {"hola\n", "línea 1: no es un objeto JSON"},
      {"{}\n", "línea 1: falta «grabacion»"},
      {R"({"grabacion":2})", "línea 1: es una grabación de otra versión"},
      {head + "[]\n", "línea 2: no es un objeto JSON"},
      {head + R"({"numero":"x"})", "línea 2: «numero» no es lo que debe ser"},
      {head + R"({"numero":1,"recibido_us":0,"respondido_us":0,"ocupado":0,"anfitrion":"0"})",
       "línea 2: bytes que no son pares hexadecimales"},
      {head + R"({"numero":1,"recibido_us":0,"respondido_us":0,"ocupado":0,"anfitrion":"02"})",
       "línea 2: falta «impresora»"},
  };
  for (const Row& row : rows) {
    std::istringstream stream(row.text);
    try {
      ReadRecording(stream);
      ADD_FAILURE() << row.text;
    } catch (const RecordingFailure& failure) {
      EXPECT_EQ(failure.what(), row.words);
    }
  }
}

}  // namespace
}  // namespace impresora
