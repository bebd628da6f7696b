#include "platform/shared/tcp_port.hpp"

#include <gtest/gtest.h>

namespace kestra {
namespace {

struct GoodRow {
  const char* device;
  const char* host;
  std::uint16_t port;
  bool literal;
};

constexpr GoodRow kGood[] = {
    {"tcp:127.0.0.1:4001", "127.0.0.1", 4001, false},
    {"tcp:caja-1.local:1", "caja-1.local", 1, false},
    {"TCP:Caja_1:65535", "Caja_1", 65535, false},
    {"tcp:[::1]:4001", "::1", 4001, true},
    {"tcp:[fe80::1%eth0]:4001", "fe80::1%eth0", 4001, true},
    {"tcp:caja:04001", "caja", 4001, false},
};

TEST(TcpAddress, IsAHostAndAPort) {
  for (const GoodRow& row : kGood) {
    const auto address = TcpAddressOf(row.device);
    ASSERT_TRUE(address) << row.device;
    EXPECT_EQ(address->host, row.host);
    EXPECT_EQ(address->port, row.port) << row.device;
    EXPECT_EQ(address->literal, row.literal) << row.device;
  }
}

TEST(TcpAddress, AnythingElseIsNone) {
  for (const char* const device : {"tcp:",
                                   "tcp:caja",
                                   "tcp:caja:",
                                   "tcp::4001",
                                   "tcp:caja:0",
                                   "tcp:caja:65536",
                                   "tcp:caja:99999999999",
                                   "tcp:caja:-1",
                                   "tcp:caja:+1",
                                   "tcp:caja:4001 ",
                                   "tcp: caja:4001",
                                   "tcp:la caja:4001",
                                   "tcp:caja: 4001",
                                   "tcp:caja:40x1",
                                   "tcp:::1:4001",
                                   "tcp:[::1]",
                                   "tcp:[::1]4001",
                                   "tcp:[]:4001",
                                   "tcp:[::1:4001",
                                   "tcp:::1]:4001",
                                   "tcp://caja:4001",
                                   "tcp:caja/x:4001",
                                   "tcp:ca\xF1"
                                   "a:4001"}) {
    EXPECT_TRUE(IsTcp(device)) << device;
    EXPECT_FALSE(TcpAddressOf(device)) << device;
  }
  EXPECT_FALSE(TcpAddressOf("tcp:" + std::string(254, 'x') + ":1"));
}

TEST(TcpAddress, ADeviceOfThisMachineIsNoNetwork) {
  for (const char* const device :
       {"", "tcp", "/dev/ttyS0", "COM1", "tcp4:caja:1", "./tcp:caja:1"}) {
    EXPECT_FALSE(IsTcp(device)) << device;
  }
}

}  // namespace
}  // namespace kestra
