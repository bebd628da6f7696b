#include "program/driver.hpp"

#include <chrono>
#include <utility>

namespace impresora {
namespace {

using Clock = std::chrono::steady_clock;

Micros Now() {
  return std::chrono::duration_cast<Micros>(Clock::now().time_since_epoch());
}

}  // namespace

Driver::Driver(asio::io_context& loop, Seat& seat, Endpoint& endpoint, LineSpeed& speed,
               std::function<void()> after)
    : seat_(seat),
      endpoint_(endpoint),
      speed_(speed),
      loop_(loop),
      due_(loop),
      after_(std::move(after)) {}

void Driver::Start() {
  endpoint_.Start({.arrived = [this](std::string_view bytes) { Arrived(bytes); },
                   .new_host = [this] { seat_.NewHost(); }});
}

void Driver::Arrived(std::string_view bytes) {
  seat_.Receive(speed_.FromHost(bytes), Now());
  Turn();
}

void Driver::Turn() {
  const Output output = seat_.Advance(Now());
  if (!output.bytes.empty()) endpoint_.Write(speed_.ToHost(output.bytes));
  // Not at once: the cable may be in the middle of handing over what it has read.
  if (output.hang_up) asio::post(loop_, [this] { endpoint_.HangUp(); });
  after_();
  Await();
}

void Driver::Await() {
  const auto due = seat_.NextDue();
  if (!due) {
    due_.cancel();
    return;
  }
  due_.expires_at(Clock::time_point(std::chrono::duration_cast<Clock::duration>(*due)));
  due_.async_wait([this](asio::error_code error) {
    if (!error) Turn();
  });
}

}  // namespace impresora
