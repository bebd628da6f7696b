#include "contract/shared/tcp_line.hpp"

#include <cstdlib>

#include "contract/windows/far_end.hpp"

namespace kestra {

// The whole of it is elsewhere.
struct TcpLine::FarEnd {};

TcpLine::TcpLine(const std::string& host) : host_(host) {
  const std::string number =
      kestra::FarEnd::Get().Ask('T', static_cast<std::uint32_t>(host.size()), host);
  number_ = static_cast<std::uint16_t>(std::atoi(number.c_str()));
}

TcpLine::~TcpLine() {
  kestra::FarEnd::Get().Ask('U');
}

std::unique_ptr<SerialPort> TcpLine::MakePort(const PortPatience& patience) const {
  return MakeTcpPort(Device(), patience);
}

void TcpLine::Send(std::string_view bytes) {
  kestra::FarEnd::Get().Ask('S', static_cast<std::uint32_t>(bytes.size()), bytes);
}

std::string TcpLine::Receive(std::size_t count) {
  return kestra::FarEnd::Get().Ask('R', static_cast<std::uint32_t>(count));
}

void TcpLine::Occupy(bool taken) {
  kestra::FarEnd::Get().Ask(taken ? 'O' : 'F');
}

void TcpLine::Unplug() {
  kestra::FarEnd::Get().Ask('U');
}

void TcpLine::HangUp() {
  kestra::FarEnd::Get().Ask('H');
}

void TcpLine::Reset() {
  kestra::FarEnd::Get().Ask('X');
}

void TcpLine::Neglect() {
  kestra::FarEnd::Get().Ask('G');
}

}  // namespace kestra
