#include "http/reader.hpp"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace puerta {
namespace {

constexpr std::size_t kLargest = 100;

RequestReader::State Read(RequestReader& reader, const std::string& bytes) {
  return reader.Feed(bytes);
}

TEST(Reader, ARequestComesInAnyPieces) {
  const std::string bytes =
      "POST /v1/x?a=1&b=dos%20tres HTTP/1.1\r\nHost: localhost\r\nContent-Length: 2\r\n\r\n{}";
  for (std::size_t piece = 1; piece <= bytes.size(); ++piece) {
    RequestReader reader(kLargest);
    auto state = RequestReader::State::kMore;
    for (std::size_t at = 0; at < bytes.size(); at += piece)
      state = reader.Feed(bytes.substr(at, piece));
    ASSERT_EQ(state, RequestReader::State::kWhole) << piece;
    const auto request = reader.Take();
    EXPECT_EQ(request.method, "POST");
    EXPECT_EQ(request.path, "/v1/x");
    EXPECT_EQ(request.Query("b"), "dos tres");
    EXPECT_EQ(request.Query("c"), "");
    EXPECT_EQ(request.Field("host"), "localhost");
    EXPECT_EQ(request.body, "{}");
  }
}

TEST(Reader, WhatStandsBehindIsTheNextOne) {
  RequestReader reader(kLargest);
  EXPECT_EQ(Read(reader, "GET / HTTP/1.1\r\nHost: a\r\n\r\nGET /2"), RequestReader::State::kWhole);
  EXPECT_TRUE(reader.Take().keep_alive);
  EXPECT_EQ(reader.Rest(), "GET /2");
}

TEST(Reader, WhatCanBeReadInTwoWaysIsNotRead) {
  const std::string head = "POST / HTTP/1.1\r\nHost: a\r\n";
  const std::map<std::string, int> rows{
      {head + "Host: b\r\n\r\n", 400},
      {head + "Content-Length: 1\r\nContent-Length: 2\r\n\r\nab", 400},
      {head + "Content-Length: 1\r\nTransfer-Encoding: chunked\r\n\r\n0\r\n\r\n", 400},
      {head + "Idempotency-Key: 12345678\r\nIdempotency-Key: 12345679\r\n\r\n", 400},
      {head + "Authorization: a\r\nAuthorization: b\r\n\r\n", 400},
      {"GET http://a/ HTTP/1.1\r\nHost: a\r\n\r\n", 400},
      {"GET /\r\nHost: a\r\n\r\n", 400},
      {"\x16\x03\x01 hello", 400},
      {head + "Content-Length: 101\r\n\r\n", 413},
      {head + "X: " + std::string(kLargestHead, 'x'), 431},
  };
  for (const auto& [bytes, status] : rows) {
    RequestReader reader(kLargest);
    ASSERT_EQ(Read(reader, bytes), RequestReader::State::kBad) << bytes.substr(0, 80);
    EXPECT_EQ(reader.Refusal().status, status) << bytes.substr(0, 80);
  }
}

TEST(Reader, AnAnswerInBytes) {
  const auto bytes = ToBytes(
      {.status = 201, .body = "{}", .fields = {{"Location", "/v1/trabajos/1"}}}, true, false);
  EXPECT_TRUE(bytes.starts_with("HTTP/1.1 201 Created\r\n"));
  EXPECT_NE(bytes.find("Location: /v1/trabajos/1\r\n"), std::string::npos);
  EXPECT_NE(bytes.find("Content-Length: 2\r\n"), std::string::npos);
  EXPECT_TRUE(bytes.ends_with("Connection: keep-alive\r\n\r\n{}"));
  EXPECT_TRUE(ToBytes({.body = "{}"}, false, true).ends_with("Connection: close\r\n\r\n"));
  EXPECT_EQ(ToChunk("hola"), "4\r\nhola\r\n");
}

}  // namespace
}  // namespace puerta
