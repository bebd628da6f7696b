#include "line.hpp"

#include <algorithm>
#include <utility>

#include "wire.hpp"

namespace impresora {
namespace {

constexpr int kBitsPerByte = 10;

Micros ByteTime(int baud) {
  return baud > 0 ? Micros(std::int64_t{kBitsPerByte} * 1'000'000 / baud) : Micros(0);
}

}  // namespace

Line::Line(Printer& printer, WallClock& clock, LineSettings settings)
    : printer_(printer), clock_(clock), settings_(settings), byte_time_(ByteTime(settings.baud)) {}

void Line::Receive(std::string_view bytes, Micros now) {
  if (incoming_.empty()) next_in_ = std::max(next_in_, now) + byte_time_;
  incoming_ += bytes;
}

std::string Line::Advance(Micros now) {
  Work(now);
  while (TakeByte(now)) Work(now);
  return Leave(now);
}

// Nothing is read while a command is being worked on.
bool Line::TakeByte(Micros now) {
  if (working_ || incoming_.empty() || next_in_ > now) return false;
  const auto event = decoder_.Push(incoming_[taken_++]);
  const Micros at = std::max(next_in_, done_at_);
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
      break;
    case EventKind::kDamagedFrame:
      Send(std::string_view(&kNak, 1), at);
      Keep(ExchangeKind::kDamaged, event.packet);
      break;
    case EventKind::kPacket:
      HandlePacket(event.packet, at);
      break;
  }
}

// A host that missed the answer sends the same frame again; it gets the same answer and nothing is
// sold twice.
void Line::HandlePacket(const Packet& packet, Micros at) {
  acknowledged_ = false;
  if (packet.body == last_body_) {
    Send(last_frame_, at);
    Keep(ExchangeKind::kRepeated, packet);
    return;
  }
  last_answer_ = printer_.Execute(packet, clock_.LocalSeconds());
  last_body_ = packet.body;
  last_frame_ = FrameAnswer(packet, last_answer_);
  working_ = true;
  done_at_ = at + printer_.WorkTime(packet.command);
  next_busy_ = at + settings_.busy_interval;
  Keep(ExchangeKind::kExecuted, packet);
}

void Line::Work(Micros now) {
  if (!working_) return;
  while (next_busy_ < done_at_ && next_busy_ <= now) {
    Send(std::string_view(&kDc2, 1), next_busy_);
    next_busy_ += settings_.busy_interval;
  }
  if (done_at_ > now) return;
  working_ = false;
  Send(last_frame_, done_at_);
}

void Line::Send(std::string_view bytes, Micros at) {
  if (outgoing_.empty()) next_out_ = std::max(next_out_, at) + byte_time_;
  outgoing_ += bytes;
}

std::string Line::Leave(Micros now) {
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
  const auto consider = [&due](Micros moment) { due = due ? std::min(*due, moment) : moment; };
  if (working_) {
    consider(std::min(next_busy_, done_at_));
  } else if (!incoming_.empty()) {
    consider(next_in_);
  }
  if (!outgoing_.empty()) consider(next_out_);
  return due;
}

void Line::Keep(ExchangeKind kind, const Packet& packet) {
  if (!settings_.keep_exchanges) return;
  const Answer answer = kind == ExchangeKind::kDamaged ? Answer{} : last_answer_;
  exchanges_.push_back({kind, clock_.LocalSeconds(), packet, answer});
}

std::vector<Exchange> Line::TakeExchanges() {
  return std::exchange(exchanges_, {});
}

}  // namespace impresora
