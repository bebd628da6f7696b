#include "contract/windows/far_end.hpp"

#include <gtest/gtest.h>
#include <winsock2.h>

#include <cstdlib>
#include <cstring>

namespace kestra {

FarEnd& FarEnd::Get() {
  static FarEnd far_end;
  return far_end;
}

std::string FarEnd::Ask(char letter, std::uint32_t count, std::string_view data) const {
  std::string request(1, letter);
  request.append(reinterpret_cast<const char*>(&count), sizeof count).append(data);
  ::send(socket_, request.data(), static_cast<int>(request.size()), 0);
  std::uint32_t length = 0;
  const std::string head = Exactly(sizeof length);
  if (head.size() == sizeof length) std::memcpy(&length, head.data(), sizeof length);
  return Exactly(length);
}

FarEnd::FarEnd() {
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

std::string FarEnd::Exactly(std::size_t count) const {
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

}  // namespace kestra
