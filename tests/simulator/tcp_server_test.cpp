#include "program/tcp_server.hpp"

#include <gtest/gtest.h>

#include <array>
#include <optional>

#include "cables.hpp"

namespace impresora {
namespace {

using asio::ip::tcp;
using prueba::FarEnd;

class TcpServerTest : public testing::Test {
 protected:
  TcpServerTest() { far_.Start(*server_); }

  tcp::socket Connect() {
    tcp::socket host(loop_);
    const std::string port = server_->Port();
    const auto number = std::stoi(port.substr(port.rfind(':') + 1));
    host.connect({asio::ip::address_v4::loopback(), static_cast<std::uint16_t>(number)});
    return host;
  }

  // What a host reads: `count` bytes, or nothing when the line was closed.
  static std::string Read(tcp::socket& host, std::size_t count) {
    std::string bytes(count, '\0');
    asio::error_code error;
    bytes.resize(asio::read(host, asio::buffer(bytes), error));
    return bytes;
  }

  asio::io_context loop_;
  std::optional<TcpServer> server_{std::in_place, loop_, TcpAddress{}};
  FarEnd far_{loop_};
};

TEST_F(TcpServerTest, SaysWhereItIs) {
  EXPECT_EQ(server_->Port().substr(0, 14), "tcp:127.0.0.1:");
  EXPECT_NE(server_->Port(), "tcp:127.0.0.1:0");
}

TEST_F(TcpServerTest, BytesGoBothWays) {
  tcp::socket host = Connect();
  asio::write(host, asio::buffer("hola", 4));
  ASSERT_TRUE(far_.UntilArrived("hola"));
  EXPECT_EQ(far_.hosts, 1);
  server_->Write("que tal");
  EXPECT_EQ(Read(host, 7), "que tal");
}

TEST_F(TcpServerTest, WhileAnotherTillHasThePortEveryHostIsTurnedAway) {
  EXPECT_TRUE(server_->Occupy(true));
  tcp::socket away = Connect();
  away.non_blocking(true);
  std::array<char, 1> byte{};
  asio::error_code error;
  ASSERT_TRUE(far_.Until([&] {
    away.read_some(asio::buffer(byte), error);
    return error != asio::error::would_block;
  }));
  EXPECT_EQ(error, asio::error::eof);
  EXPECT_TRUE(server_->Occupy(false));
  tcp::socket host = Connect();
  asio::write(host, asio::buffer("1", 1));
  EXPECT_TRUE(far_.UntilArrived("1"));
}

TEST_F(TcpServerTest, ASecondHostIsTurnedAwayWhileOneIsThere) {
  tcp::socket first = Connect();
  asio::write(first, asio::buffer("1", 1));
  ASSERT_TRUE(far_.UntilArrived("1"));
  tcp::socket second = Connect();
  second.non_blocking(true);
  std::array<char, 1> byte{};
  asio::error_code error;
  ASSERT_TRUE(far_.Until([&] {
    second.read_some(asio::buffer(byte), error);
    return error != asio::error::would_block;
  }));
  EXPECT_EQ(error, asio::error::eof);
  asio::write(first, asio::buffer("2", 1));
  EXPECT_TRUE(far_.UntilArrived("12"));
  EXPECT_EQ(far_.hosts, 1);
}

// Neither the one's last bytes nor its leaving have been looked at when the next one comes.
TEST_F(TcpServerTest, AHostThatIsBackAtOnceIsLetIn) {
  for (int visit = 1; visit <= 20; ++visit) {
    tcp::socket host = Connect();
    asio::write(host, asio::buffer("x", 1));
  }
  tcp::socket host = Connect();
  asio::write(host, asio::buffer("y", 1));
  ASSERT_TRUE(far_.UntilArrived(std::string(20, 'x') + "y"));
  EXPECT_EQ(far_.hosts, 21);
}

TEST_F(TcpServerTest, WhatTheFormerHostDidNotReadIsNotForTheNext) {
  {
    tcp::socket former = Connect();
    asio::write(former, asio::buffer("x", 1));
    ASSERT_TRUE(far_.UntilArrived("x"));
    server_->Write("para el primero");
  }
  server_->Write("para nadie");
  tcp::socket next = Connect();
  ASSERT_TRUE(far_.Until([&] { return far_.hosts == 2; }));
  server_->Write("para el segundo");
  EXPECT_EQ(Read(next, 15), "para el segundo");
}

TEST_F(TcpServerTest, HangingUpIsSeenByTheHostAndTheNextIsWelcome) {
  tcp::socket host = Connect();
  ASSERT_TRUE(far_.Until([&] { return far_.hosts == 1; }));
  server_->HangUp();
  EXPECT_EQ(Read(host, 1), "");
  tcp::socket next = Connect();
  asio::write(next, asio::buffer("z", 1));
  EXPECT_TRUE(far_.UntilArrived("z"));
}

TEST_F(TcpServerTest, APortThatIsTakenIsNotHad) {
  TcpAddress taken;
  ASSERT_TRUE(ReadTcpAddress(server_->Port().substr(4), taken));
  EXPECT_THROW(TcpServer(loop_, taken), std::system_error);
}

struct AddressCase {
  std::string_view text;
  std::string_view host;  // empty: refused
  int port;
};

TEST(TcpAddressTest, HowAnAddressIsWritten) {
  constexpr std::array<AddressCase, 11> kCases{{
      {"127.0.0.1:4001", "127.0.0.1", 4001},
      {"4001", "127.0.0.1", 4001},
      {":4001", "127.0.0.1", 4001},
      {"0.0.0.0:0", "0.0.0.0", 0},
      {"[::1]:4001", "::1", 4001},
      {"caja:65535", "caja", 65535},
      {"caja:65536", "", 0},
      {"caja", "", 0},
      {"::1:4001", "", 0},
      {"caja:", "", 0},
      {"una caja:1", "", 0},
  }};
  for (const AddressCase& c : kCases) {
    TcpAddress address;
    ASSERT_EQ(ReadTcpAddress(c.text, address), !c.host.empty()) << c.text;
    if (c.host.empty()) continue;
    EXPECT_EQ(address.host, c.host) << c.text;
    EXPECT_EQ(address.port, c.port) << c.text;
  }
}

}  // namespace
}  // namespace impresora
