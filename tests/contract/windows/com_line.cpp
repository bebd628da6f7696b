#include "contract/windows/com_line.hpp"

#include "contract/windows/far_end.hpp"
#include "platform/windows/serial_port.hpp"

namespace kestra {

ComLine::ComLine() : device_(FarEnd::Get().Device()) {
  FarEnd::Get().Ask('N');
}

std::unique_ptr<SerialPort> ComLine::MakePort() {
  return std::make_unique<WindowsPort>(device_, 9600);
}

void ComLine::Send(std::string_view bytes) {
  FarEnd::Get().Ask('S', static_cast<std::uint32_t>(bytes.size()), bytes);
}

std::string ComLine::Receive(std::size_t count) {
  return FarEnd::Get().Ask('R', static_cast<std::uint32_t>(count));
}

void ComLine::Occupy(bool taken) {
  FarEnd::Get().Ask(taken ? 'O' : 'F');
}

void ComLine::Unplug() {
  FarEnd::Get().Ask('U');
}

}  // namespace kestra
