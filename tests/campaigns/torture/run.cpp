#include "campaigns/torture/run.hpp"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

#include "campaigns/torture/allocations.hpp"
#include "campaigns/torture/judge.hpp"
#include "campaigns/torture/troubled_platform.hpp"
#include "frame/instance.hpp"
#include "golden/base_configuration.hpp"
#include "golden/frame_check.hpp"
#include "golden/onlooker.hpp"
#include "golden/replies.hpp"
#include "golden/session.hpp"
#include "protocol/settlement.hpp"
#include "state/journal.hpp"
#include "state/library.hpp"

namespace kestra::torture {
namespace {

bool IsBox(Happening kind) {
  return kind == Happening::kBox || kind == Happening::kReport || kind == Happening::kMemoryFull;
}

bool PortIsOpen() {
  const auto& port = Instance().state.Puerto;
  return port != nullptr && port->PortOpen();
}

class Torturer : public golden::Onlooker {
 public:
  // Without a quiet run to compare with, this one is it.
  Torturer(const Strike& strike, const Quiet* quiet, Tally& tally, Outcome& outcome)
      : strike_(strike), quiet_(quiet), tally_(tally), outcome_(outcome) {}

  std::unique_ptr<Platform> Surround(std::unique_ptr<FakePlatform> world) override;
  void BeforeCall(std::string_view name) override;
  void AfterCall(std::string_view name, std::int32_t result) override;

  void Complain(std::string_view what, const std::string& why);
  void Heal();
  void ExpectAWorkingLibrary();

  // What was seen of its calls.
  Quiet seen;

 private:
  [[nodiscard]] bool StrikesMemory() const { return strike_.target == kMemory; }
  [[nodiscard]] int Failures() const;
  CallRecord RecordOf(std::string_view name, std::int32_t result);
  void Count(const CallRecord& call);
  void ExpectStarted();
  void ExpectOneGoodCommand(std::string_view when);

  const Strike& strike_;
  const Quiet* quiet_;
  Tally& tally_;
  Outcome& outcome_;
  TroubledPlatform* platform_ = nullptr;  // owned by the library
  std::size_t events_before_ = 0;
  std::size_t frames_before_ = 0;
  bool port_was_open_ = false;
  int lost_before_ = 0;
  std::optional<Allocations::Counted> counted_;
};

std::unique_ptr<Platform> Torturer::Surround(std::unique_ptr<FakePlatform> world) {
  auto platform = std::make_unique<TroubledPlatform>(std::move(world));
  platform_ = platform.get();
  if (StrikesMemory()) {
    Allocations::Arm(strike_.nth, strike_.forever);
  } else {
    Allocations::Disarm();
    if (strike_.nth > 0) {
      platform_->GetWatch().GetTrouble().Arm(kPointNames[strike_.target].point, strike_.nth,
                                             strike_.forever, strike_.ailment);
    }
  }
  return platform;
}

int Torturer::Failures() const {
  return StrikesMemory() ? Allocations::Failures() - lost_before_
                         : platform_->GetWatch().Failures();
}

void Torturer::BeforeCall(std::string_view name) {
  auto& watch = platform_->GetWatch();
  watch.BeginCall(name == kEndless ? kEndlessHealsAfter : 0);
  watch.World().GetClock().StartOver();
  events_before_ = watch.World().GetJournal().Events().size();
  frames_before_ = watch.World().Line().Frames().size();
  port_was_open_ = PortIsOpen();
  lost_before_ = Allocations::Failures();
  counted_.emplace();
}

void Torturer::AfterCall(std::string_view name, std::int32_t result) {
  counted_.reset();
  const CallRecord call = RecordOf(name, result);
  Count(call);
  seen.push_back({call.frames, ToldFailure(call)});
  const auto& quiet = quiet_ == nullptr ? seen : *quiet_;
  // Every line of the case is played, whatever becomes of it: the calls are the same ones.
  const std::string verdict = Verdict(call, quiet.at(seen.size() - 1), strike_);
  if (!verdict.empty()) Complain(name, verdict);
}

CallRecord Torturer::RecordOf(std::string_view name, std::int32_t result) {
  auto& watch = platform_->GetWatch();
  const auto& events = watch.World().GetJournal().Events();
  CallRecord call{.name = name,
                  .result = result,
                  .passed = watch.Passed(),
                  .busy_bytes = watch.BusyBytes(),
                  .near_midnight = watch.NearMidnight(),
                  .port_open = PortIsOpen(),
                  .port_was_open = port_was_open_,
                  .failures = Failures(),
                  .first_struck = outcome_.failures == 0};
  const auto& settings = Instance().certainty.settings;
  if (settings.ModoSeguro == 1) call.patience = settings.PacienciaSegura * kMicrosPerSecond;
  const auto& frames = watch.World().Line().Frames();
  for (std::size_t i = frames_before_; i < frames.size(); ++i) call.frames.push_back(frames[i]);
  for (std::size_t i = events_before_; i < events.size(); ++i) {
    if (events[i].kind == Happening::kOpen) call.tried_to_close = false;
    if (events[i].kind == Happening::kClose) call.tried_to_close = true;
    if (events[i].kind == Happening::kSleep) call.slept += std::int64_t{events[i].number} * 1000;
  }
  return call;
}

void Torturer::Count(const CallRecord& call) {
  ++tally_.calls;
  outcome_.failures += call.failures;
  if (call.failures == 0) return;
  tally_.longest = std::max(tally_.longest, call.passed);
  Row& row = tally_.rows[strike_.target];
  row.failures += call.failures;
  ++(ToldFailure(call) ? row.told_failure : row.told_success);
  if (!ToldFailure(call)) {
    outcome_.AddSuccess(call.name);
  }
  const auto& events = platform_->GetWatch().World().GetJournal().Events();
  for (std::size_t i = events_before_; i < events.size(); ++i) row.boxes += IsBox(events[i].kind);
}

void Torturer::Complain(std::string_view what, const std::string& why) {
  if (outcome_.complaint.empty()) outcome_.complaint = std::string(what) + ": " + why;
}

// Everything that the case or the strike has put out of order.
void Torturer::Heal() {
  auto& watch = platform_->GetWatch();
  for (const PointName& row : kPointNames) {
    outcome_.reached[static_cast<std::size_t>(row.point)] = watch.GetTrouble().Calls(row.point);
  }
  outcome_.reached[kMemory] = Allocations::Reached();
  Allocations::Disarm();
  watch.GetTrouble().Disarm();
  auto& world = watch.World();
  world.GetTrouble().Disarm();
  world.GetClock().StartOver();
  world.GetClock().SetTimeOfDay(10.5 * 3600);
  world.GetLog().SetReadOnly(false);
  world.GetOperator().Forget();
  world.Line().Forget();
  world.Line().SetDevice(DeviceState::kReady);
  world.Line().SetDefault(golden::ReadReply("ok 0000|0000"));
  // What a safe exchange has to settle first would come before the command that is looked at; a journal that
  // could not be opened may have more of it.
  PrepareJournal(Instance());
  ForgetPending(Instance());
  Instance().certainty.unheard = false;
}

void Torturer::ExpectAWorkingLibrary() {
  if (Instance().state.Puerto != nullptr) ExpectOneGoodCommand("the next call");
  ExpectStarted();
  ExpectOneGoodCommand("the first call after a new start");
  EP_Kill();
  if (platform_->GetWatch().Ports() != 0) Complain("EP_Kill", "a port is still held");
}

void Torturer::ExpectStarted() {
  EP_Kill();
  FakeProfile& profile = platform_->GetWatch().World().GetProfile();
  profile.RemoveAll();
  for (const golden::Setting& setting : golden::kBaseConfiguration) {
    profile.Set(setting.key, setting.value);
  }
  ++tally_.checks;
  if (EP_Init() != 1) Complain("EP_Init", "fails in a world that is well again");
}

// One command, one frame, the right bytes, and the port closed behind it.
void Torturer::ExpectOneGoodCommand(std::string_view when) {
  auto& world = platform_->GetWatch().World();
  const auto& frames = world.Line().Frames();
  const std::size_t before = frames.size();
  world.GetOperator().Queue(Answer::kYes);  // for those settings that ask first
  ++tally_.checks;
  if (EP_CortaPapel() != 0) return Complain(when, "fails");
  world.GetOperator().Forget();
  if (frames.size() != before + 1) return Complain(when, "did not send one frame");
  const std::string& frame = frames.back();
  if (!golden::IsFrame(frame) || frame.size() != 8 || frame[2] != 'K') {
    return Complain(when, "sent other bytes");
  }
  if (PortIsOpen()) Complain(when, "left the port open");
}

// Replies and answers that nobody asked for are what a failure leaves behind; anything else is not.
bool IsLeftover(const std::string& fault) {
  return fault.find("still had") != std::string::npos ||
         fault.find("shows nothing") != std::string::npos;
}

void PlayAndCheck(std::string_view text, Torturer& torturer) {
  const golden::Played played = golden::Play(text, torturer);
  if (!played.fault.empty() && !IsLeftover(played.fault)) torturer.Complain("case", played.fault);
  torturer.Heal();
  torturer.ExpectAWorkingLibrary();
}

void Note(const Outcome& outcome, const Strike& strike, Tally& tally) {
  if (outcome.failures > 0) ++tally.rows[strike.target].runs;
  for (std::size_t i = 0; i < outcome.success_count; ++i) {
    ++tally.successes
          [std::string(outcome.successes[i]).append(" after ").append(TargetName(strike.target))];
  }
}

// The world of the last case is gone, and all that it held.
void Rest() {
  ReplaceInstance(std::make_unique<FakePlatform>());
}

}  // namespace

void Outcome::AddSuccess(std::string_view name) {
  const bool known = std::find(successes.begin(), successes.end(), name) != successes.end();
  if (known || success_count == successes.size()) return;
  successes[success_count++] = name;
}

Outcome Run(std::string_view text, const Strike& strike, const Quiet& quiet, Tally& tally) {
  Outcome outcome;
  Rest();
  const long before = Allocations::Alive();
  {
    Torturer torturer(strike, &quiet, tally, outcome);
    PlayAndCheck(text, torturer);
  }
  Rest();
  if (outcome.complaint.empty() && Allocations::Alive() != before) {
    outcome.complaint = "memory: " + std::to_string(Allocations::Alive() - before) + " blocks left";
  }
  Note(outcome, strike, tally);
  return outcome;
}

Quiet RunQuietly(std::string_view text, Tally& tally) {
  Outcome outcome;
  const Strike none;
  Torturer torturer(none, nullptr, tally, outcome);
  PlayAndCheck(text, torturer);
  Rest();
  return torturer.seen;
}

}  // namespace kestra::torture
