#include "program/serial_device.hpp"

#include <chrono>
#include <utility>

#include "program/cannot_open.hpp"
#include "wire/speed.hpp"

namespace impresora {
namespace {

using Setting = asio::serial_port_base;

constexpr auto kUnplugged = std::chrono::seconds(1);

}  // namespace

SerialDevice::SerialDevice(asio::io_context& loop, std::string device, int baud)
    : device_(std::move(device)),
      baud_(baud > 0 ? static_cast<unsigned>(baud) : unsigned{kUsualBaud}),
      line_(loop),
      retry_(loop),
      leaving_(line_) {
  try {
    Open();
  } catch (const std::system_error& error) {
    throw CannotOpen(device_, error.code());
  }
}

void SerialDevice::Open() {
  line_.open(device_);
  line_.set_option(Setting::baud_rate(baud_));
  line_.set_option(Setting::character_size(8));
  line_.set_option(Setting::parity(Setting::parity::none));
  line_.set_option(Setting::stop_bits(Setting::stop_bits::one));
  line_.set_option(Setting::flow_control(Setting::flow_control::none));
}

void SerialDevice::Start(LineEvents events) {
  events_ = std::move(events);
  Read();
}

void SerialDevice::Read() {
  line_.async_read_some(asio::buffer(buffer_), [this](asio::error_code error, std::size_t count) {
    if (error == asio::error::operation_aborted) return;
    if (error) return HangUp();
    events_.arrived({buffer_.data(), count});
    Read();
  });
}

void SerialDevice::Write(std::string_view bytes) {
  if (line_.is_open()) leaving_.Write(bytes);
}

// The modem lines fall while the device is closed; an adapter that was pulled out is found again
// when it is back.
void SerialDevice::HangUp() {
  asio::error_code ignored;
  line_.close(ignored);
  leaving_.Clear();
  retry_.expires_after(kUnplugged);
  retry_.async_wait([this](asio::error_code error) {
    if (!error) Reopen();
  });
}

void SerialDevice::Reopen() {
  try {
    Open();
  } catch (const std::system_error&) {
    return HangUp();
  }
  events_.new_host();
  Read();
}

}  // namespace impresora
