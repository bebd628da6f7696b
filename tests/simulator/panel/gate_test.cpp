#include "panel/gate.hpp"

#include <gtest/gtest.h>

namespace impresora {
namespace {

TEST(Addresses, OnTheWholeNetworkOnlyNumbersAreTrusted) {
  const OwnAddress everywhere("0.0.0.0", 8080);
  for (const auto& [host, refused] :
       {std::pair{"192.168.1.5", false}, {"impresora.example", true}}) {
    const auto head =
        ParseHead("GET /api/estado HTTP/1.1\r\nHost: " + std::string(host) + ":8080\r\n\r\n");
    ASSERT_TRUE(head);
    const auto refusal = Judge(*head, everywhere);
    EXPECT_EQ(refusal ? refusal->status : 0, refused ? 403 : 0) << host;
  }
  EXPECT_FALSE(everywhere.IsLoopback());
  EXPECT_TRUE(OwnAddress("127.0.0.1", 8080).IsLoopback());
  EXPECT_EQ(OwnAddress("::1", 8080).Url(), "http://[::1]:8080/");
}

TEST(Head, WhatGoesOnIsOnlyWhatIsRead) {
  const auto head = ParseHead("GET / HTTP/1.0\r\nRange: bytes=0-1\r\nHost: a\r\nCookie: b\r\n\r\n");
  ASSERT_TRUE(head);
  EXPECT_EQ(CleanedHead(*head), "GET / HTTP/1.1\r\nhost: a\r\nConnection: close\r\n\r\n");
}

}  // namespace
}  // namespace impresora
