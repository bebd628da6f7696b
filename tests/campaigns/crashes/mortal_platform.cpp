#include "campaigns/crashes/mortal_platform.hpp"

#include <utility>

#include "base/failure.hpp"
#include "platform/seam/port_fault.hpp"

namespace kestra::crashes {
namespace {

// So many seconds pass at each look of a dead host at its clock.
constexpr double kFlight = 0.5;

Failure NobodyThere() {
  return {8020, "Nadie", PortReason(PortFault::kBadSettings)};
}

}  // namespace

class MortalPort : public SerialPort {
 public:
  MortalPort(std::unique_ptr<SerialPort> port, Life& life) : port_(std::move(port)), life_(life) {}

  [[nodiscard]] bool PortOpen() const override { return !life_.Over() && port_->PortOpen(); }
  void PortOpen(bool open) override {
    if (Lives(Act::kPort)) return port_->PortOpen(open);
    if (open) throw NobodyThere();
  }
  void Output(std::string_view bytes) override {
    const auto passed = life_.Reach(Act::kWrite, bytes.size());
    if (passed > 0) port_->Output(bytes.substr(0, passed));
    if (life_.Over()) throw NobodyThere();
  }
  std::size_t InBufferCount() override {
    RequireLife();
    return port_->InBufferCount();
  }
  void DiscardInput() override {
    RequireLife();
    port_->DiscardInput();
  }
  std::string Input() override {
    RequireLife();
    return port_->Input();
  }
  [[nodiscard]] std::string_view Waiting() const override { return port_->Waiting(); }

 private:
  bool Lives(Act act) { return life_.Reach(act) > 0; }
  void RequireLife() {
    if (!Lives(Act::kListen)) throw NobodyThere();
  }

  std::unique_ptr<SerialPort> port_;
  Life& life_;
};

std::unique_ptr<SerialPort> MortalPlatform::CreatePort(const PortSettings& settings) {
  return std::make_unique<MortalPort>(world_.CreatePort(settings), life_);
}

double MortalPlatform::MortalClock::Elapsed() {
  if (Living().Over()) flown_ += kFlight;
  return static_cast<double>(World().Now().count()) / 1e6 + flown_;
}

void MortalPlatform::MortalClock::Sleep(std::int32_t milliseconds) {
  if (!Living().Over()) return World().GetClock().Sleep(milliseconds);
  flown_ += milliseconds / 1000.0;
}

std::int32_t MortalPlatform::MortalOperator::Message(std::string_view text, std::string_view title,
                                                     std::int32_t style) {
  if (Living().Reach(Act::kOther) == 0) return style == kBoxOk ? kAnswerOk : kAnswerNo;
  return World().GetOperator().Message(text, title, style);
}

bool MortalPlatform::MortalOperator::StatusReport(const Report& report) {
  return Living().Reach(Act::kOther) > 0 && World().GetOperator().StatusReport(report);
}

void MortalPlatform::MortalLog::Append(std::string_view file, std::string_view bytes) {
  if (Living().Reach(Act::kOther) > 0) World().GetLog().Append(file, bytes);
}

void MortalPlatform::MortalFile::RequireLife() {
  if (Living().Over()) throw NobodyThere();
}

void MortalPlatform::MortalFile::Open(std::string_view file) {
  Living().Reach(Act::kJournal);
  RequireLife();
  file_.Open(file);
  name_ = file;
}

std::string MortalPlatform::MortalFile::Read() {
  Living().Reach(Act::kJournal);
  RequireLife();
  return file_.Read();
}

// The power may go at any byte of it.
void MortalPlatform::MortalFile::Append(std::string_view bytes) {
  const auto written = Living().Reach(Act::kJournal, bytes.size());
  if (written > 0) file_.Append(bytes.substr(0, written));
  RequireLife();
}

void MortalPlatform::MortalFile::Truncate(std::size_t length) {
  Living().Reach(Act::kJournal);
  RequireLife();
  file_.Truncate(length);
}

void MortalPlatform::MortalFile::Overwrite(std::size_t at, std::string_view bytes) {
  const auto written = Living().Reach(Act::kJournal, bytes.size());
  if (written > 0) file_.Overwrite(at, bytes.substr(0, written));
  RequireLife();
}

// The old file has its new name before there is a new one.
void MortalPlatform::MortalFile::BeginAnew(std::string_view suffix) {
  constexpr std::size_t kMoments = 2;
  const auto done = Living().Reach(Act::kJournal, kMoments);
  if (done > 0) file_.BeginAnew(suffix);
  if (done == 1) file_.Disk()->files.erase(name_);
  RequireLife();
}

void MortalPlatform::MortalFile::DeleteKept(std::string_view suffix) {
  Living().Reach(Act::kJournal);
  RequireLife();
  file_.DeleteKept(suffix);
}

}  // namespace kestra::crashes
