#include "com_line.hpp"

#include <gtest/gtest.h>
#include <winsock2.h>

#include <cstdlib>
#include <cstring>

#include "platform/windows/serial_port.hpp"

namespace kestra {
namespace {

// The connection to the program at the far end; one for all tests.
class FarEnd {
 public:
  static FarEnd& Get() {
    static FarEnd far_end;
    return far_end;
  }

  [[nodiscard]] const std::string& Device() const { return device_; }

  std::string Ask(char letter, std::uint32_t count, std::string_view data = {}) const {
    std::string request(1, letter);
    request.append(reinterpret_cast<const char*>(&count), sizeof count).append(data);
    ::send(socket_, request.data(), static_cast<int>(request.size()), 0);
    std::uint32_t length = 0;
    const std::string head = Exactly(sizeof length);
    if (head.size() == sizeof length) std::memcpy(&length, head.data(), sizeof length);
    return Exactly(length);
  }

 private:
  FarEnd() {
    const char* const place = std::getenv("KESTRA_FAR_END");
    if (place == nullptr) {
      ADD_FAILURE() << "run by far_end.py";
      std::exit(1);
    }
    const std::string_view words = place;
    device_ = words.substr(0, words.find(':'));
    WSADATA data = {};
    ::WSAStartup(MAKEWORD(2, 2), &data);
    socket_ = ::socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<u_short>(std::atoi(place + words.find(':') + 1)));
    EXPECT_EQ(::connect(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
  }

  [[nodiscard]] std::string Exactly(std::size_t count) const {
    std::string data(count, '\0');
    std::size_t filled = 0;
    while (filled < count) {
      const int got = ::recv(socket_, data.data() + filled, static_cast<int>(count - filled), 0);
      if (got <= 0) break;
      filled += static_cast<std::size_t>(got);
    }
    data.resize(filled);
    return data;
  }

  std::string device_;
  SOCKET socket_ = INVALID_SOCKET;
};

}  // namespace

ComLine::ComLine() : device_(FarEnd::Get().Device()) {
  FarEnd::Get().Ask('N', 0);
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
  FarEnd::Get().Ask(taken ? 'O' : 'F', 0);
}

void ComLine::Unplug() {
  FarEnd::Get().Ask('U', 0);
}

}  // namespace kestra
