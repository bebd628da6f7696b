#include "fakes/fake_port.hpp"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "base/failure.hpp"
#include "platform/seam/port_fault.hpp"

namespace kestra {
namespace {

// How long a look at an empty line takes at most.
constexpr std::int64_t kPollStep = 50'000;

// No session sends more frames than this: something sends for ever.
constexpr std::size_t kTooMany = 10'000;

constexpr std::string_view kAcknowledge = "\x06";

}  // namespace

void FakeLine::Forget() {
  replies_.clear();
  due_.clear();
  received_.clear();
}

void FakeLine::Arrive(const std::vector<Burst>& bursts) {
  for (const Burst& burst : bursts) {
    due_.push_back({clock_.ElapsedMicros() + burst.delay, burst.bytes, burst.unplug});
  }
  std::stable_sort(due_.begin(), due_.end(),
                   [](const Due& a, const Due& b) { return a.when < b.when; });
}

void FakeLine::Open() {
  trouble_.Reach(Point::kOpen);
  if (device_ == DeviceState::kMissing || unplugged_) {
    throw Failure(8015, "No existe el dispositivo de prueba", PortReason(PortFault::kMissing));
  }
  if (device_ == DeviceState::kBusy)
    throw Failure(8005, "Otro programa usa el dispositivo", PortReason(PortFault::kBusy));
  journal_.Add({.kind = Happening::kOpen, .text = {}, .detail = {}});
  Deliver();
  received_.clear();
}

void FakeLine::Close() {
  journal_.Add({.kind = Happening::kClose, .text = {}, .detail = {}});
  trouble_.Reach(Point::kClose);
}

void FakeLine::Write(std::string_view bytes) {
  trouble_.Reach(Point::kWrite);
  RequirePlug();
  journal_.Add({.kind = Happening::kWrite, .text = std::string(bytes), .detail = {}});
  if (bytes == kAcknowledge) return;
  if (frames_.size() == kTooMany) throw std::runtime_error("the frames never end");
  frames_.emplace_back(bytes);
  if (!replies_.empty()) {
    const Reply reply = std::move(replies_.front());
    replies_.pop_front();
    Arrive(reply(bytes));
  } else if (default_) {
    Arrive(default_(bytes));
  }
}

std::size_t FakeLine::Count() {
  trouble_.Reach(Point::kCount);
  if (!Deliver()) {
    const std::int64_t next = due_.empty() ? kPollStep : due_.front().when - clock_.ElapsedMicros();
    clock_.Advance(std::min(next, kPollStep));
    Deliver();
  }
  RequirePlug();
  return received_.size();
}

void FakeLine::Discard() {
  trouble_.Reach(Point::kDiscard);
  Deliver();
  RequirePlug();
  received_.clear();
}

std::string FakeLine::Take() {
  trouble_.Reach(Point::kRead);
  RequirePlug();
  return std::exchange(received_, {});
}

// Takes over what has come by now; true when that was anything.
bool FakeLine::Deliver() {
  bool anything = false;
  while (!due_.empty() && due_.front().when <= clock_.ElapsedMicros()) {
    unplugged_ = unplugged_ || due_.front().unplug;
    received_ += due_.front().bytes;
    due_.pop_front();
    anything = true;
  }
  return anything;
}

void FakeLine::RequirePlug() const {
  if (unplugged_)
    throw Failure(8020, "Se desconect\xf3 el dispositivo", PortReason(PortFault::kLost));
}

void FakePort::PortOpen(bool open) {
  if (open) {
    if (open_) throw Failure(8005, "El dispositivo ya est\xe1 abierto");
    line_.Open();
    open_ = true;
  } else if (open_) {
    line_.Close();
    open_ = false;
  }
}

void FakePort::Abandon() {
  ++line_.abandonings_;
  PortOpen(false);
}

void FakePort::Output(std::string_view bytes) {
  RequireOpen();
  line_.Write(bytes);
}

std::size_t FakePort::InBufferCount() {
  RequireOpen();
  return line_.Count();
}

void FakePort::DiscardInput() {
  RequireOpen();
  line_.Discard();
}

std::string FakePort::Input() {
  RequireOpen();
  return line_.Take();
}

void FakePort::RequireOpen() const {
  if (!open_) throw Failure(8012, "El puerto de prueba no est\xe1 abierto");
}

}  // namespace kestra
