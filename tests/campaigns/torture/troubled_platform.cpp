#include "campaigns/torture/troubled_platform.hpp"

#include <algorithm>
#include <utility>

#include "campaigns/torture/allocations.hpp"

namespace kestra::torture {
namespace {

using Spared = Allocations::Spared;

// A deadline set from here on lies behind midnight.
constexpr double kDeadlineBehindMidnight = 86'400 - 5.6;

constexpr char kBusy = '\x12';

// A port in its watch's trouble.
class TroubledPort : public SerialPort {
 public:
  TroubledPort(std::unique_ptr<SerialPort> port, Watch& watch)
      : port_(std::move(port)), watch_(watch) {
    watch_.PortMade();
  }
  ~TroubledPort() override {
    const Spared spared;
    port_.reset();
    watch_.PortGone();
  }

  [[nodiscard]] bool PortOpen() const override { return port_->PortOpen(); }
  void PortOpen(bool open) override;
  void Output(std::string_view bytes) override;
  std::size_t InBufferCount() override;
  void DiscardInput() override;
  std::string Input() override;
  [[nodiscard]] std::string_view Waiting() const override { return port_->Waiting(); }

 private:
  std::unique_ptr<SerialPort> port_;
  Watch& watch_;
  std::size_t seen_ = 0;  // of the bytes that wait
};

void TroubledPort::PortOpen(bool open) {
  const Spared spared;
  if (open != port_->PortOpen()) watch_.Reach(open ? Point::kOpen : Point::kClose);
  port_->PortOpen(open);
  seen_ = 0;
}

void TroubledPort::Output(std::string_view bytes) {
  const Spared spared;
  watch_.Reach(Point::kWrite);
  port_->Output(bytes);
}

std::size_t TroubledPort::InBufferCount() {
  const Spared spared;
  watch_.Reach(Point::kCount);
  const std::size_t count = port_->InBufferCount();
  watch_.SawArrivals(Waiting().substr(std::min(seen_, count)));
  seen_ = count;
  return count;
}

void TroubledPort::DiscardInput() {
  const Spared spared;
  watch_.Reach(Point::kDiscard);
  port_->DiscardInput();
  seen_ = 0;
}

std::string TroubledPort::Input() {
  const Spared spared;
  watch_.Reach(Point::kRead);
  seen_ = 0;
  return port_->Input();
}

}  // namespace

void Watch::Reach(Point point) {
  if (heals_after_ > 0 && Passed() > heals_after_) trouble_.Disarm();
  try {
    trouble_.Reach(point);
  } catch (...) {
    ++failures_;
    throw;
  }
}

void Watch::BeginCall(std::int64_t heals_after) {
  heals_after_ = heals_after;
  began_ = world_.GetClock().ElapsedMicros();
  failures_ = 0;
  busy_bytes_ = 0;
  near_midnight_ = false;
}

std::int64_t Watch::Passed() const {
  return world_.GetClock().ElapsedMicros() - began_;
}

void Watch::SawTimeOfDay(double seconds) {
  near_midnight_ = near_midnight_ || seconds > kDeadlineBehindMidnight;
}

void Watch::SawArrivals(std::string_view fresh) {
  busy_bytes_ += static_cast<int>(std::count(fresh.begin(), fresh.end(), kBusy));
}

double TroubledClock::TimeOfDay() {
  const Spared spared;
  watch_.Reach(Point::kTimeOfDay);
  const double seconds = watch_.World().GetClock().TimeOfDay();
  watch_.SawTimeOfDay(seconds);
  return seconds;
}

std::string TroubledClock::ShortDate() {
  const Spared spared;
  watch_.Reach(Point::kDate);
  return watch_.World().GetClock().ShortDate();
}

std::string TroubledClock::IsoDate() {
  const Spared spared;
  watch_.Reach(Point::kDate);
  return watch_.World().GetClock().IsoDate();
}

std::string TroubledClock::TimeText() {
  const Spared spared;
  watch_.Reach(Point::kTimeText);
  return watch_.World().GetClock().TimeText();
}

double TroubledClock::Elapsed() {
  const Spared spared;
  watch_.Reach(Point::kElapsed);
  return watch_.World().GetClock().Elapsed();
}

void TroubledClock::Sleep(std::int32_t milliseconds) {
  const Spared spared;
  watch_.Reach(Point::kSleep);
  watch_.World().GetClock().Sleep(milliseconds);
}

std::int32_t TroubledOperator::Message(std::string_view text, std::string_view title,
                                       std::int32_t style) {
  const Spared spared;
  watch_.Reach(Point::kMessage);
  return watch_.World().GetOperator().Message(text, title, style);
}

bool TroubledOperator::StatusReport(const Report& report) {
  const Spared spared;
  watch_.Reach(Point::kReport);
  return watch_.World().GetOperator().StatusReport(report);
}

void TroubledOperator::MemoryFull() {
  const Spared spared;
  watch_.Reach(Point::kMemoryFull);
  watch_.World().GetOperator().MemoryFull();
}

std::string TroubledProfile::Read(std::string_view section, std::string_view key,
                                  std::string_view file) {
  const Spared spared;
  watch_.Reach(Point::kProfile);
  return watch_.World().GetProfile().Read(section, key, file);
}

void TroubledLog::Append(std::string_view file, std::string_view bytes) {
  const Spared spared;
  watch_.Reach(Point::kLog);
  watch_.World().GetLog().Append(file, bytes);
}

void TroubledLog::SetAside(std::string_view file, std::uint64_t limit) {
  const Spared spared;
  watch_.Reach(Point::kLog);
  watch_.World().GetLog().SetAside(file, limit);
}

FakeJournalFile& TroubledJournalFile::Reach() {
  watch_.Reach(Point::kJournal);
  return watch_.World().GetJournalFile();
}

void TroubledJournalFile::Open(std::string_view file) {
  const Spared spared;
  Reach().Open(file);
}

void TroubledJournalFile::Close() noexcept {
  watch_.World().GetJournalFile().Close();
}

bool TroubledJournalFile::IsOpen() const noexcept {
  return watch_.World().GetJournalFile().IsOpen();
}

std::string TroubledJournalFile::Read() {
  const Spared spared;
  return Reach().Read();
}

void TroubledJournalFile::Append(std::string_view bytes) {
  const Spared spared;
  Reach().Append(bytes);
}

void TroubledJournalFile::Truncate(std::size_t length) {
  const Spared spared;
  Reach().Truncate(length);
}

void TroubledJournalFile::BeginAnew(std::string_view suffix) {
  const Spared spared;
  Reach().BeginAnew(suffix);
}

std::vector<std::string> TroubledJournalFile::Kept() {
  const Spared spared;
  return Reach().Kept();
}

void TroubledJournalFile::DeleteKept(std::string_view suffix) {
  const Spared spared;
  Reach().DeleteKept(suffix);
}

std::unique_ptr<SerialPort> TroubledPlatform::CreatePort(const PortSettings& settings) {
  const Spared spared;
  watch_.Reach(Point::kCreatePort);
  return std::make_unique<TroubledPort>(world_->CreatePort(settings), watch_);
}

}  // namespace kestra::torture
