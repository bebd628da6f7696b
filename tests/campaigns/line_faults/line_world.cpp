#include "campaigns/line_faults/line_world.hpp"

#include <algorithm>
#include <array>
#include <utility>

#include "base/failure.hpp"
#include "fiscal/calendar.hpp"
#include "golden/base_configuration.hpp"
#include "platform/seam/port_fault.hpp"

namespace kestra::line_faults {

namespace {

Failure TroubleOf(PortFault fault) {
  return {8020, "El cable de prueba no est\xe1", PortReason(fault)};
}

}  // namespace

// The host's end of the line.
class WorldPort : public SerialPort {
 public:
  explicit WorldPort(LineWorld& world) : world_(world) {}

  [[nodiscard]] bool PortOpen() const override { return open_; }
  void PortOpen(bool open) override {
    if (open) {
      // Whoever looks for a device lets time pass for the printer too.
      world_.Carry();
      if (world_.Unplugged()) throw TroubleOf(PortFault::kMissing);
      DiscardInput();
    }
    open_ = open;
  }
  void Output(std::string_view bytes) override { world_.Write(bytes); }
  std::size_t InBufferCount() override {
    world_.RequirePlug();
    world_.WaitALittle();
    return world_.received_.size();
  }
  void DiscardInput() override {
    world_.Carry();
    world_.received_.clear();
  }
  std::string Input() override { return std::exchange(world_.received_, {}); }
  [[nodiscard]] std::string_view Waiting() const override { return world_.received_; }

 private:
  LineWorld& world_;
  bool open_ = false;
};

namespace {

constexpr int kBaud = 9600;

// How long a look at an empty line takes at most.
constexpr Micros kLook = std::chrono::milliseconds(50);
// After this long nothing is on its way any more.
constexpr Micros kRest = 2 * kPastTheDeadline;

// What prints long: the printer says meanwhile that it is busy.
constexpr std::string_view kSlowCommands = "9:;EeJ";
constexpr std::uint32_t kSlow = 1200;

constexpr std::string_view kAcknowledge = "\x06";

// The digits that the virtual printer reads.
constexpr std::array<std::pair<std::string_view, std::string_view>, 4> kDigits{
    {{"EntDesc", "7"}, {"EntImpInt", "7"}, {"DecImpInt", "2"}, {"EntPercepcion", "7"}}};

impresora::Settings PrinterOf(const CanonicalDocument& document, Mode mode) {
  impresora::Settings settings;
  settings.knows_repeats = mode != Mode::kSafeForgetful;
  settings.family = document.family;
  for (const char command : kSlowCommands) {
    settings.work_milliseconds[static_cast<unsigned char>(command)] = kSlow;
  }
  return settings;
}

// The printer's calendar stands still: what the host reads differs for the line's faults alone. In the safe
// mode it goes on where a document sets it, and begins at another hour, which can be told from the one that is set.
std::int64_t HourOf(Mode mode) {
  return *impresora::ParseDate("261121") +
         *impresora::ParseTime(mode == Mode::kBase ? "103000" : "093000");
}

bool SetsTheClock(const CanonicalDocument& document) {
  return std::any_of(document.calls.begin(), document.calls.end(), [](const std::string& call) {
    return call.starts_with("EP_CambiarFechaHora");
  });
}

}  // namespace

LineWorld::LineWorld(const CanonicalDocument& document, std::span<const ByteFault> faults,
                     Mode mode)
    : local_seconds_(HourOf(mode)),
      calendar_runs_(mode != Mode::kBase && SetsTheClock(document)),
      session_(PrinterOf(document, mode), *this, {.baud = kBaud}),
      to_printer_(Direction::kToPrinter, faults),
      to_host_(Direction::kToHost, faults) {
  clock_.SetDate(21, 11, 2026);
  clock_.SetTimeOfDay(10.5 * 3600);
  for (const auto& setting : golden::kBaseConfiguration) profile_.Set(setting.key, setting.value);
  for (const auto& [key, value] : kDigits) profile_.Set(key, value);
  if (mode != Mode::kBase) profile_.Set("ModoSeguro", "1");
  if (mode == Mode::kSafeWithRepeats) profile_.Set("ReconoceRepetidas", "1");
  for (const auto& [key, value] : document.configuration) profile_.Set(key, value);
  session_.Attach(*this);
}

LineWorld::~LineWorld() {
  session_.Detach(*this);
}

std::unique_ptr<SerialPort> LineWorld::CreatePort(const PortSettings& /*settings*/) {
  return std::make_unique<WorldPort>(*this);
}

std::int64_t LineWorld::LocalSeconds() {
  if (!calendar_runs_) return local_seconds_;
  return local_seconds_ + std::chrono::duration_cast<std::chrono::seconds>(Now()).count();
}

void LineWorld::Write(std::string_view bytes) {
  RequirePlug();
  if (bytes != kAcknowledge) frames_.emplace_back(bytes);
  const auto room = plug_holds_ ? *plug_holds_ - to_printer_.Carried() : bytes.size();
  to_printer_.Push(UpToTheBreak(Direction::kToPrinter, bytes.substr(0, room)), Now());
  if (plug_holds_ == kWholeFrame) Unplug();
  Carry();
}

bool LineWorld::Unplugged() const {
  const bool unplugged = broken_ && breakdown_->kind == Breakage::kUnplugged;
  return unplugged || (plug_holds_ && to_printer_.Carried() >= *plug_holds_);
}

// What of these bytes still passes. With the first that does not, the line ends.
std::string_view LineWorld::UpToTheBreak(Direction direction, std::string_view bytes) {
  if (broken_) return {};
  if (!breakdown_ || breakdown_->direction != direction) return bytes;
  const auto carried = (direction == Direction::kToPrinter ? to_printer_ : to_host_).Carried();
  if (breakdown_->byte >= carried + bytes.size()) return bytes;
  broken_ = true;
  if (breakdown_->kind == Breakage::kPowerless) PowerCycle();
  if (mended_after_) In(*mended_after_, [this] { Mend(); });
  return bytes.substr(0, breakdown_->byte - carried);
}

void LineWorld::Mend() {
  if (broken_ && breakdown_->kind == Breakage::kPowerless) PowerCycle();
  broken_ = false;
  breakdown_.reset();
}

void LineWorld::PowerCycle() {
  session_.PowerCycle();
}

void LineWorld::RequirePlug() {
  DoWhatIsDue();
  if (Unplugged()) throw TroubleOf(PortFault::kLost);
}

void LineWorld::DoWhatIsDue() {
  for (auto& deed : deeds_) {
    if (deed.what && deed.when <= Now()) std::exchange(deed.what, nullptr)();
  }
}

// Everything that has come to its time moves one step on.
void LineWorld::Carry() {
  DoWhatIsDue();
  const Micros now = Now();
  const std::string arrived = to_printer_.Take(now);
  const bool powerless = broken_ && breakdown_->kind == Breakage::kPowerless;
  if (!arrived.empty() && !powerless) session_.Receive(arrived, now);
  const std::string saying = session_.Advance(now).bytes;
  said_ += saying;
  to_host_.Push(UpToTheBreak(Direction::kToHost, saying), now);
  const std::string leaving = to_host_.Take(now);
  if (!Unplugged()) received_ += leaving;
}

Micros LineWorld::NextDue(Micros latest) const {
  Micros next = latest;
  for (const auto due : {to_printer_.NextDue(), session_.NextDue(), to_host_.NextDue()}) {
    if (due) next = std::min(next, *due);
  }
  return std::max(next, Now());
}

void LineWorld::WaitALittle() {
  const auto before = received_.size();
  Carry();
  if (received_.size() != before) return;
  clock_.Advance((NextDue(Now() + kLook) - Now()).count());
  Carry();
}

void LineWorld::Settle() {
  for (const Micros end = Now() + kRest; Now() < end;) {
    clock_.Advance((NextDue(end) - Now()).count());
    Carry();
  }
  session_.Tell();
}

}  // namespace kestra::line_faults
