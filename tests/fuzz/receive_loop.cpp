// One exchange against a printer that says anything at any time.
#include <algorithm>
#include <string>

#include "dialogs/conditions.hpp"
#include "fakes/fake_platform.hpp"
#include "fuzz/input.hpp"
#include "fuzz/printer_script.hpp"
#include "protocol/answer.hpp"
#include "protocol/exchange.hpp"
#include "protocol/packet.hpp"
#include "state/library.hpp"

namespace kestra::fuzzing {
namespace {

using fuzz::Input;
using fuzz::Require;

constexpr std::array<std::int32_t, 8> kPauses{0, 0, 0, 0, 50, 1000, -1, -2'000'000'000};
constexpr std::array kAnswers{Answer::kYes, Answer::kNo, Answer::kRetry, Answer::kOk};
constexpr std::size_t kMostReplies = 12;

// The longest that a frame or a busy byte is waited for, with the last look at the line.
constexpr std::int64_t kWait = 5'500'000 + 60'000;

class Exchange {
 public:
  explicit Exchange(Input& input) : library_(world_) {
    PortSettings settings;
    settings.CommPort = 1;
    settings.Settings = "9600,N,8,1";
    library_.state.Puerto = world_.CreatePort(settings);
    SetUp(input);
    for (std::size_t i = 0; i < kMostReplies && !input.Empty(); ++i) QueueReply(input);
    world_.GetJournal().Take();
  }

  void Run() {
    const bool accepted = Enviar(library_, command_);
    CheckFrames();
    Require(!library_.state.Puerto->PortOpen(), "the line is left closed");
    Require(world_.GetClock().ElapsedMicros() <= LongestTime(), "it ends in time");
    if (accepted) CheckAccepted();
  }

 private:
  void SetUp(Input& input) {
    auto& state = library_.state;
    state.MostrarComandos = static_cast<std::int32_t>(input.Below(3));
    state.MostrarRespuestas = input.Flag() ? 1 : 0;
    state.ErrorMostrar = input.Flag() ? 1 : 0;
    state.LogComandos = input.Flag() ? 1 : 0;
    state.DelayComandos = input.Pick(kPauses);
    state.NroSecuencia = input.Byte();
    command_ = input.Text(12);
    const auto answers = input.Below(16);
    for (std::size_t i = 0; i < answers; ++i) {
      world_.GetOperator().Queue(input.Pick(kAnswers));
    }
  }

  void QueueReply(Input& input) {
    world_.Line().Queue([this, reply = ReadReply(input)](std::string_view frame) {
      auto bursts = reply(frame);
      for (const auto& burst : bursts) {
        busy_ += std::count(burst.bytes.begin(), burst.bytes.end(), kDc2);
        ends_ += std::count(burst.bytes.begin(), burst.bytes.end(), kEtx);
      }
      return bursts;
    });
  }

  void CheckFrames() const {
    std::int64_t acknowledgements = 0;
    std::int64_t frames = 0;
    for (const auto& event : world_.GetJournal().Events()) {
      if (event.kind != Happening::kWrite) continue;
      const bool acknowledgement = event.text == std::string_view(&kAck, 1);
      ++(acknowledgement ? acknowledgements : frames);
      if (!acknowledgement) CheckFrame(event.text);
    }
    // One for each answer, and another where a frame ends with strays alone.
    Require(acknowledgements <= ends_ + std::min(frames, ends_), "nothing else is acknowledged");
  }

  void CheckFrame(const std::string& frame) const {
    RequireWellFormed(frame);
    Require(std::string_view(frame).substr(2, command_.size()) == command_, "the command as it is");
    Require(frame.size() == command_.size() + 7, "and no more");
  }

  [[nodiscard]] std::int64_t LongestTime() const {
    const auto frames = static_cast<std::int64_t>(world_.Line().Frames().size());
    const auto pause = std::max(library_.state.DelayComandos, 0) * std::int64_t{1000};
    return (frames + busy_) * kWait + (frames + 1) * pause;
  }

  void CheckAccepted() const {
    const auto& frames = world_.Line().Frames();
    Require(!frames.empty(), "what was accepted was sent");
    const auto& answer = library_.state.RespuestaActual;
    const auto head = std::string_view(frames.back()).substr(0, command_.empty() ? 2 : 3);
    Require(answer.starts_with(head), "the answer is to the last frame");
    Require(!FailsCommand(library_.state.BitImpresora, library_.state.BitFiscal),
            "and it carries no error");
  }

  mutable FakePlatform world_;
  Library library_;
  std::string command_;
  std::int64_t busy_ = 0;
  std::int64_t ends_ = 0;
};

}  // namespace
}  // namespace kestra::fuzzing

FUZZ_TARGET(input) {
  kestra::fuzzing::Exchange(input).Run();
}
