#include "line/line.hpp"

#include <algorithm>
#include <utility>

#include "commands/commands.hpp"
#include "faults/fault_plan.hpp"
#include "wire/control_bytes.hpp"

namespace impresora {
namespace {

constexpr int kBitsPerByte = 10;

// A host that waits for an answer gives up within five seconds. The same frame after a longer
// silence is no second try: its number came round again.
constexpr Micros kSecondTry = std::chrono::seconds(6);

Micros ByteTime(int baud) {
  return baud > 0 ? Micros(std::int64_t{kBitsPerByte} * 1'000'000 / baud) : Micros(0);
}

}  // namespace

Line::Line(Printer& printer, WallClock& clock, LineSettings settings, FaultPlan* faults)
    : printer_(printer),
      clock_(clock),
      settings_(settings),
      faults_(faults),
      byte_time_(ByteTime(settings.baud)) {}

void Line::Receive(std::string_view bytes, Micros now) {
  if (incoming_.empty()) next_in_ = std::max(next_in_, now) + byte_time_;
  incoming_ += bytes;
}

std::string Line::Advance(Micros now) {
  while (Step(now)) {
  }
  return Leave(now).bytes;
}

bool Line::Step(Micros now) {
  Work(now);
  return TakeByte(now);
}

// Nothing is read while a command is being worked on.
bool Line::TakeByte(Micros now) {
  if (working_ || incoming_.empty() || next_in_ > now) return false;
  const auto event = decoder_.Push(incoming_[taken_++]);
  const Micros at = std::max(next_in_, free_at_);
  if (taken_ == incoming_.size()) {
    incoming_.clear();
    taken_ = 0;
  } else {
    next_in_ += byte_time_;
  }
  if (event) Handle(*event, at);
  return true;
}

void Line::Handle(const Event& event, Micros at) {
  switch (event.kind) {
    case EventKind::kAck:
      acknowledged_ = true;
      ++acknowledgements_;
      done_.body.clear();  // the host has its answer: nothing to say again
      break;
    case EventKind::kDamagedFrame:
      Begin(ExchangeKind::kDamaged, event, at);
      Schedule({.bursts = {{.bytes = std::string(1, kNak)}}}, at);
      break;
    case EventKind::kPacket:
      HandlePacket(event, at);
      break;
  }
}

// A host that missed the answer sends the same frame again; it gets the same answer and nothing is
// sold twice.
void Line::HandlePacket(const Event& event, Micros at) {
  const Packet& packet = event.packet;
  acknowledged_ = false;
  Begin(ExchangeKind::kExecuted, event, at);
  if (!Heard(packet, at)) return;
  if (IsSecondTry(packet, at)) {
    current_.kind = ExchangeKind::kRepeated;
    Schedule(Judge(packet, 0), at);
    return;
  }
  CarryOut(packet);
  const Machine& machine = printer_.GetMachine();
  Verdict verdict = Judge(packet, machine.paper.Lines().size() - machine.command_paper);
  verdict.busy += printer_.WorkTime(packet.command);
  Schedule(std::move(verdict), at);
}

// A question is answered anew however often it comes.
bool Line::IsSecondTry(const Packet& packet, Micros at) const {
  return printer_.GetMachine().settings.knows_repeats && packet.body == done_.body &&
         at - free_at_ <= kSecondTry && !OnlyAsks(packet);
}

// Whether the faults let the command through.
bool Line::Heard(const Packet& packet, Micros at) {
  if (faults_ == nullptr) return true;
  printer_.SetTime(clock_.LocalSeconds());
  Verdict verdict = faults_->Arriving(packet, printer_);
  if (verdict.heard) {
    current_.faults = std::move(verdict.faults);
    return true;
  }
  const bool refused = !verdict.bursts.empty() && !verdict.bursts.front().bytes.empty();
  current_.kind = refused ? ExchangeKind::kDamaged : ExchangeKind::kLost;
  Schedule(std::move(verdict), at);
  return false;
}

void Line::CarryOut(const Packet& packet) {
  const Stage stage = printer_.GetStage();
  Answer answer = printer_.Execute(packet, clock_.LocalSeconds());
  former_frame_ = std::move(done_.frame);
  done_ = {.body = packet.body, .answer = std::move(answer), .frame = {}, .stage = stage};
}

Verdict Line::Judge(const Packet& packet, std::uint64_t lines) {
  Verdict verdict;
  if (faults_ != nullptr) {
    const FaultPlan::Reply reply{packet, done_.answer, former_frame_, done_.stage, lines};
    verdict = faults_->Leaving(reply, printer_);
  }
  done_.frame = FrameAnswer(packet, done_.answer);
  if (faults_ == nullptr) verdict.bursts.push_back({.bytes = done_.frame});
  return verdict;
}

void Line::Schedule(Verdict verdict, Micros start) {
  working_ = true;
  busy_until_ = start + verdict.busy;
  next_busy_ = start + settings_.busy_interval;
  Micros at = busy_until_;
  for (Burst& burst : verdict.bursts) {
    at += burst.after;
    burst.after = at;
    bursts_.push_back(std::move(burst));
  }
  free_at_ = at;
  for (std::string& fault : verdict.faults) current_.faults.push_back(std::move(fault));
  current_.answer = current_.kind <= ExchangeKind::kRepeated ? done_.answer : Answer{};
}

void Line::Work(Micros now) {
  if (!working_) return;
  SayBusy(now);
  while (!bursts_.empty() && bursts_.front().after <= now) {
    const Burst& burst = bursts_.front();
    if (burst.ending != Ending::kNone) return;  // what has to leave before it leaves first
    if (!burst.bytes.empty()) current_.answered_at = Send(burst.bytes, burst.after);
    current_.raw_answer += burst.bytes;
    bursts_.pop_front();
  }
  if (bursts_.empty() && busy_until_ <= now) Finish();
}

void Line::SayBusy(Micros now) {
  while (next_busy_ < busy_until_ && next_busy_ <= now) {
    Send(std::string_view(&kDc2, 1), next_busy_);
    ++current_.busy_bytes;
    next_busy_ += settings_.busy_interval;
  }
}

// Returns when the last of the bytes will have left.
Micros Line::Send(std::string_view bytes, Micros at) {
  if (outgoing_.empty()) next_out_ = std::max(next_out_, at) + byte_time_;
  outgoing_ += bytes;
  return next_out_ + byte_time_ * static_cast<std::int64_t>(outgoing_.size() - 1);
}

Output Line::Leave(Micros now) {
  Output output{.bytes = LeaveBytes(now)};
  if (!outgoing_.empty() || bursts_.empty()) return output;
  const Burst last = bursts_.front();
  if (last.ending == Ending::kNone || last.after > now) return output;
  output.hang_up = last.ending == Ending::kHangUp;
  output.power_off = last.ending == Ending::kPowerOff;
  output.off_time = last.off_time;
  current_.answered_at = std::max(current_.answered_at, last.after);
  Finish();
  if (output.power_off) SwitchOff();
  Clear();
  return output;
}

std::string Line::LeaveBytes(Micros now) {
  if (byte_time_.count() == 0) return std::exchange(outgoing_, {});
  std::size_t count = 0;
  for (; count < outgoing_.size() && next_out_ <= now; ++count) next_out_ += byte_time_;
  std::string left = outgoing_.substr(0, count);
  outgoing_.erase(0, count);
  // next_out_ counts a byte that is not there once the last one has left.
  if (count > 0 && outgoing_.empty()) next_out_ -= byte_time_;
  return left;
}

std::optional<Micros> Line::NextDue() const {
  std::optional<Micros> due;
  const auto consider = [&due](std::optional<Micros> moment) {
    if (moment) due = due ? std::min(*due, *moment) : *moment;
  };
  if (working_) {
    consider(WorkDue());
  } else if (!incoming_.empty()) {
    consider(next_in_);
  }
  if (!outgoing_.empty()) consider(next_out_);
  return due;
}

std::optional<Micros> Line::WorkDue() const {
  if (next_busy_ < busy_until_) return next_busy_;
  if (bursts_.empty()) return busy_until_;
  const bool waits_for_bytes = bursts_.front().ending != Ending::kNone && !outgoing_.empty();
  if (waits_for_bytes) return std::nullopt;
  return bursts_.front().after;
}

void Line::Clear() {
  if (working_) Finish();
  decoder_ = PacketDecoder();
  incoming_.clear();
  taken_ = 0;
  outgoing_.clear();
  bursts_.clear();
  next_in_ = next_out_ = free_at_ = Micros{};
  done_.body.clear();  // whoever comes now has not asked for anything yet
}

void Line::SwitchOff() {
  Clear();
  done_ = {};
  former_frame_.clear();
}

void Line::Begin(ExchangeKind kind, const Event& event, Micros at) {
  current_ = {.kind = kind,
              .moment = clock_.LocalSeconds(),
              .packet = event.packet,
              .number = ++exchange_number_,
              .received_at = at,
              .answered_at = at,
              .raw_command = event.raw};
}

void Line::Finish() {
  working_ = false;
  current_.answered_at = std::max(current_.answered_at, busy_until_);
  if (settings_.keep_exchanges) exchanges_.push_back(std::move(current_));
}

std::vector<Exchange> Line::TakeExchanges() {
  return std::exchange(exchanges_, {});
}

}  // namespace impresora
