// A host's whole day through the exported functions: any settings, any calls, any answers of the
// printer and of the operator, and a world that fails now and then.
#include <string>

#include "fakes/fake_platform.hpp"
#include "frame/instance.hpp"
#include "fuzz/calls.hpp"
#include "fuzz/host_dialogs.hpp"
#include "fuzz/input.hpp"
#include "fuzz/printer_script.hpp"
#include "golden/base_configuration.hpp"
#include "kestra/kestra.h"
#include "state/library.hpp"

namespace kestra::fuzzing {
namespace {

using fuzz::Input;
using fuzz::Require;
using golden::kBaseConfiguration;

// The status words of a printer that has nothing to say.
constexpr std::string_view kFine = "0000\0340600";

constexpr std::size_t kMostCalls = 12;
// A session that sends more has got into a loop that only the operator can end: he pulls the plug.
constexpr int kMostFrames = 24;

constexpr std::array<std::string_view, 24> kValues{
    "0",  "1",  "2", "3", "12",    "15",    "40",    "-1",      "9600",       "19200", "TF", "TQ",
    "FC", "XX", "I", "",  "32767", "32768", "99999", "TM-U220", "2147483647", "+7 ",   "no", "80"};
constexpr std::array kAnswers{Answer::kYes, Answer::kNo, Answer::kRetry, Answer::kOk,
                              Answer::kClose};
constexpr std::array kStates{DeviceState::kReady, DeviceState::kReady, DeviceState::kMissing,
                             DeviceState::kBusy};
constexpr std::array kAilments{Ailment::kFalla, Ailment::kMemory, Ailment::kOther};

// The settings in the order in which they are read, so that none has to be looked for.
class QuickProfile : public FakeProfile {
 public:
  explicit QuickProfile(Trouble& trouble) : FakeProfile(trouble), trouble_(trouble) {
    for (std::size_t i = 0; i < values_.size(); ++i) values_[i] = kBaseConfiguration[i].value;
  }

  std::string Read(std::string_view /*section*/, std::string_view key,
                   std::string_view /*file*/) override {
    trouble_.Reach(Point::kProfile);
    for (std::size_t i = 0; i < values_.size(); ++i, next_ = (next_ + 1) % values_.size()) {
      if (kBaseConfiguration[next_].key == key) return std::string(values_[next_]);
    }
    return std::string(device_);
  }

  void Change(Input& input) {
    const auto which = input.Below(values_.size() + 1);
    auto& value = which < values_.size() ? values_[which] : device_;
    value = input.Flag() ? input.Pick(kValues) : input.Text(12);
  }

 private:
  Trouble& trouble_;
  std::array<std::string_view, kBaseConfiguration.size()> values_;
  std::string_view device_;
  std::size_t next_ = 0;
};

class Shop : public FakePlatform {
 public:
  FakeProfile& GetProfile() override { return profile_; }
  QuickProfile& Settings() { return profile_; }

 private:
  QuickProfile profile_{GetTrouble()};
};

class Session {
 public:
  explicit Session(Input& input) : input_(input) {
    auto shop = std::make_unique<Shop>();
    shop_ = shop.get();
    ReplaceInstance(std::move(shop));
    shop_->GetClock().Advance(kLongest - kSession);
    Answer(std::string(kFine));
    const auto changes = input.Below(8);
    for (std::size_t i = 0; i < changes; ++i) shop_->Settings().Change(input);
  }

  void Run() {
    CallPlain(0);
    while (!input_.Empty() && calls_ < kMostCalls && !over_) Step();
    shop_->GetTrouble().Disarm();
    CallPlain(1);
    Kestra_DefinirOperador(nullptr);
    Require(Instance().state.Puerto == nullptr, "the last call is let in and gives the port up");
  }

 private:
  using Handler = void (Session::*)();

  void Step() {
    static constexpr std::array<Handler, 16> kSteps{
        &Session::Call,    &Session::Call, &Session::Call,     &Session::Call,
        &Session::Call,    &Session::Call, &Session::Reply,    &Session::Reply,
        &Session::Operate, &Session::Hire, &Session::Standard, &Session::Change,
        &Session::Device,  &Session::Log,  &Session::Fail,     &Session::Meanwhile};
    (this->*input_.Pick(kSteps))();
  }

  void Call() {
    ++calls_;
    const auto called = CallAny(input_);
    Require(called.kill || called.result == 0 || called.result == 1, "it went or it did not");
    CheckFrames();
    const auto& port = Instance().state.Puerto;
    Require(failing_ || port == nullptr || !port->PortOpen(), "the line is left closed");
    CheckTime(called.rounding);
    shop_->GetJournal().Take();
  }

  // The day ends when the clock has had enough; for that there are two good reasons: sums that never
  // agree, and a pause before each command that somebody set so.
  void CheckTime(bool rounding) {
    over_ = shop_->GetClock().ElapsedMicros() >= kLongest;
    const bool long_pause = Instance().state.DelayComandos > kLongPause;
    Require(!over_ || rounding || long_pause || frames_ > kMostFrames, "no call goes on for ever");
  }

  void CheckFrames() {
    const auto& frames = shop_->Line().Frames();
    for (; checked_ < frames.size(); ++checked_) RequireWellFormed(frames[checked_]);
  }

  void Reply() { shop_->Line().Queue(ReadReply(input_)); }
  void Operate() { shop_->GetOperator().Queue(input_.Pick(kAnswers)); }
  void Hire() { host_.Hire(input_); }
  void Change() { shop_->Settings().Change(input_); }
  void Device() { shop_->Line().SetDevice(input_.Pick(kStates)); }
  void Log() { shop_->GetLog().SetReadOnly(input_.Flag()); }

  // What every frame is answered that nothing else was said about.
  void Standard() {
    std::string fields(kFine);
    const auto count = input_.Below(14);
    for (std::size_t i = 0; i < count; ++i) fields.append(1, '\x1c').append(input_.Text(10));
    Answer(fields);
  }

  void Answer(std::string fields) {
    shop_->Line().SetDefault([this, fields = std::move(fields)](std::string_view frame) {
      if (++frames_ > kMostFrames) shop_->GetClock().Advance(3 * 3600 * kMicrosPerSecond);
      return std::vector<Burst>{{.delay = 0, .bytes = AnswerTo(frame, fields), .unplug = false}};
    });
  }

  void Fail() {
    failing_ = true;
    const auto point = input_.Pick(kPointNames).point;
    const auto nth = 1 + static_cast<int>(input_.Below(20));
    const bool forever = input_.Flag();
    shop_->GetTrouble().Arm(point, nth, forever, input_.Pick(kAilments));
  }

  // The host's timers do not stand still while a box is open; they are turned away.
  void Meanwhile() {
    shop_->GetOperator().Meanwhile([which = input_.Below(4)] { CallWithin(which); });
  }

  static constexpr std::int64_t kLongest = 7200 * kMicrosPerSecond;
  // Without a printer the rounding waits as long as anybody lets it, and each round costs real time: five minutes
  // are more than all frames of a session take with the pauses that count as short.
  static constexpr std::int64_t kSession = 300 * kMicrosPerSecond;
  static constexpr std::int32_t kLongPause = 2'000;

  Input& input_;
  HostDialogs host_{input_};
  Shop* shop_ = nullptr;  // the library's own
  std::size_t calls_ = 0;
  std::size_t checked_ = 0;
  int frames_ = 0;
  bool failing_ = false;
  bool over_ = false;
};

}  // namespace
}  // namespace kestra::fuzzing

FUZZ_TARGET(input) {
  kestra::fuzzing::Session(input).Run();
}
