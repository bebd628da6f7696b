#include "trace/recording.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <sstream>

#include "line_player.hpp"
#include "story_test.hpp"
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

// Stories on tape: until "replay" it records, from there on the player answers. "again" lays the
// tape aside and begins another, which "differs" compares with it.
class TapePlayer : public prueba::LinePlayer {
 public:
  TapePlayer() {
    texts_["told"] = [this] { return std::exchange(told_, {}); };
    verbs_["replay"] = [this](std::string_view) {
      bench_->session.Tell();
      player_.emplace(tape_->Read(), [this](const std::string& words) { told_ += words + "\n"; });
      now_ = {};
    };
    verbs_["finished"] = [this](std::string_view wanted) {
      Expect(wanted, player_->Finished() ? "yes" : "no");
    };
    verbs_["strayed"] = [this](std::string_view wanted) {
      Expect(wanted, std::to_string(player_->Strayed()));
    };
    verbs_["clock"] = [this](std::string_view wanted) {
      Expect(wanted, std::to_string(now_ / kMillisecond) + " ms");
    };
    verbs_["later"] = [this](std::string_view seconds) {
      bench_->clock.moment += std::stoi(std::string(seconds));
    };
    verbs_["again"] = [this](std::string_view) {
      bench_->session.Tell();
      former_ = tape_->Read();
      Begin({});
    };
    for (const bool clock : {false, true}) {
      verbs_[clock ? "differs_by_clock" : "differs"] = [this, clock](std::string_view wanted) {
        bench_->session.Tell();
        Expect(wanted, Compare(former_, tape_->Read(), {.clock = clock}).value_or(""));
      };
    }
    verbs_["unreadable"] = [this](std::string_view rest) {
      const std::size_t arrow = rest.find(" => ");
      std::istringstream stream(prueba::Unescaped(rest.substr(0, arrow)));
      std::string words;
      try {
        ReadRecording(stream);
      } catch (const RecordingFailure& failure) {
        words = failure.what();
      }
      Expect(rest.substr(arrow + 4), words);
    };
    const Verb host = verbs_["host"];
    verbs_["host"] = [this, host](std::string_view rest) {
      player_ ? player_->NewHost() : host(rest);
    };
  }

 protected:
  void Begin(const Settings& settings) override {
    LinePlayer::Begin(settings);
    player_.reset();
    tape_ = std::make_unique<Tape>(settings);
    bench_->session.Attach(tape_->recorder);
  }
  void Command(std::string_view line, std::string_view expected) override {
    const std::string frame = prueba::BytesOf(line);
    const std::string heard =
        player_ ? Ask(*player_, frame, now_) : Ask(bench_->session, frame, bench_->now);
    if (expected != "*") Expect(expected, prueba::Frames(heard));
  }

 private:
  std::unique_ptr<Tape> tape_;
  Recording former_;
  std::optional<impresora::Player> player_;
  std::string told_;
  Micros now_{};
};

PLAY_STORIES(Tapes, TapePlayer, "trace")

TEST(Recording, HoldsBytesTimesAndWords) {
  Taped original(prueba::Slow(1200));
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

}  // namespace
}  // namespace impresora
