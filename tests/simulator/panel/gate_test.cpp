#include "panel/gate.hpp"

#include <gtest/gtest.h>

namespace impresora {
namespace {

const OwnAddress kOwn("127.0.0.1", 8080);
const std::string kHost = "Host: 127.0.0.1:8080\r\n";

struct Row {
  const char* words;
  std::string request;  // through its fields
  int status;           // 0: let in
};

int StatusOf(const std::string& request, const OwnAddress& own = kOwn) {
  const auto head = ParseHead(request + "\r\n");
  if (!head) return 400;
  const auto refusal = Judge(*head, own);
  return refusal ? refusal->status : 0;
}

std::string Get(const std::string& fields) {
  return "GET /api/estado HTTP/1.1\r\n" + fields;
}

std::string Post(const std::string& fields) {
  return "POST /api/controles HTTP/1.1\r\n" + kHost + fields;
}

TEST(Gate, LetsInTheOwnPageAndPrograms) {
  const Row rows[] = {
      {"a program", Get(kHost), 0},
      {"by name", Get("Host: localhost:8080\r\n"), 0},
      {"IPv6", Get("Host: [::1]:8080\r\n"), 0},
      {"the page itself",
       Get(kHost + "Origin: http://127.0.0.1:8080\r\nSec-Fetch-Site: same-origin\r\n"), 0},
      {"typed by hand", Get(kHost + "Sec-Fetch-Site: none\r\n"), 0},
      {"JSON", Post("Content-Type: application/json\r\nContent-Length: 2\r\n"), 0},
      {"JSON, told in full",
       Post("Content-Type: application/json; charset=utf-8\r\nContent-Length: 2\r\n"), 0},
  };
  for (const Row& row : rows) EXPECT_EQ(StatusOf(row.request), row.status) << row.words;
}

TEST(Gate, RefusesOtherPages) {
  const Row rows[] = {
      {"a name that somebody points here", Get("Host: malo.example:8080\r\n"), 403},
      {"a name that ends like ours", Get("Host: malo-127.0.0.1:8080\r\n"), 403},
      {"another port", Get("Host: 127.0.0.1:80\r\n"), 403},
      {"no port", Get("Host: 127.0.0.1\r\n"), 403},
      {"the port alone", Get("Host: :8080\r\n"), 403},
      {"no host", Get(""), 403},
      {"two hosts", Get(kHost + kHost), 403},
      {"another origin", Get(kHost + "Origin: http://malo.example\r\n"), 403},
      {"a neighbour's port", Get(kHost + "Origin: http://127.0.0.1:3000\r\n"), 403},
      {"an origin without a name", Get(kHost + "Origin: null\r\n"), 403},
      {"the other scheme", Get(kHost + "Origin: https://127.0.0.1:8080\r\n"), 403},
      {"from another site", Get(kHost + "Sec-Fetch-Site: cross-site\r\n"), 403},
      {"from a neighbour", Get(kHost + "Sec-Fetch-Site: same-site\r\n"), 403},
  };
  for (const Row& row : rows) EXPECT_EQ(StatusOf(row.request), row.status) << row.words;
}

TEST(Gate, ALinkFromElsewhereMayOpenThePageAndNothingElse) {
  const std::string link = kHost +
                           "Sec-Fetch-Site: cross-site\r\nSec-Fetch-Mode: navigate\r\n"
                           "Sec-Fetch-Dest: document\r\n";
  EXPECT_EQ(StatusOf("GET / HTTP/1.1\r\n" + link), 0);
  EXPECT_EQ(StatusOf(Get(link)), 403);
}

TEST(Gate, RefusesWhatIsNoRequestOfOurs) {
  const std::string json = "Content-Type: application/json\r\n";
  const Row rows[] = {
      {"another method", "PUT / HTTP/1.1\r\n" + kHost, 405},
      {"asking for leave from another page", "OPTIONS / HTTP/1.1\r\n" + kHost, 405},
      {"an endless address", "GET /" + std::string(2000, 'a') + " HTTP/1.1\r\n" + kHost, 414},
      {"an address elsewhere", "GET http://malo.example/ HTTP/1.1\r\n" + kHost, 400},
      {"another protocol", "GET / HTTP/2\r\n" + kHost, 400},
      {"no protocol", "GET /\r\n" + kHost, 400},
      {"a folded field", Get(kHost + "X: a\r\n b\r\n"), 400},
      {"a field without a colon", Get(kHost + "nada\r\n"), 400},
      {"a blank in a name", Get("Host : 127.0.0.1:8080\r\n"), 400},
      {"a byte that steers", Get(kHost + "X: a\x01\r\n"), 400},
      {"a form", Post("Content-Type: text/plain\r\nContent-Length: 2\r\n"), 415},
      {"no type", Post("Content-Length: 2\r\n"), 415},
      {"a type that begins alike", Post("Content-Type: application/jsonx\r\nContent-Length: 2\r\n"),
       415},
      {"no length", Post(json), 411},
      {"pieces", Post(json + "Transfer-Encoding: chunked\r\n"), 411},
      {"both", Post(json + "Transfer-Encoding: chunked\r\nContent-Length: 2\r\n"), 411},
      {"two lengths", Post(json + "Content-Length: 2\r\nContent-Length: 3\r\n"), 400},
      {"a length that is none", Post(json + "Content-Length: -1\r\n"), 400},
      {"too long", Post(json + "Content-Length: 65537\r\n"), 413},
      {"far too long", Post(json + "Content-Length: 99999999999999999999999\r\n"), 413},
      {"a body where none belongs", Get(kHost + "Content-Length: 2\r\n"), 400},
  };
  for (const Row& row : rows) EXPECT_EQ(StatusOf(row.request), row.status) << row.words;
}

TEST(Gate, OnTheWholeNetworkOnlyNumbersAreTrusted) {
  const OwnAddress everywhere("0.0.0.0", 8080);
  EXPECT_EQ(StatusOf(Get("Host: 192.168.1.5:8080\r\n"), everywhere), 0);
  EXPECT_EQ(StatusOf(Get("Host: impresora.example:8080\r\n"), everywhere), 403);
  EXPECT_FALSE(everywhere.IsLoopback());
  EXPECT_TRUE(kOwn.IsLoopback());
  EXPECT_EQ(OwnAddress("::1", 8080).Url(), "http://[::1]:8080/");
}

TEST(Gate, WhatGoesOnIsOnlyWhatIsRead) {
  const auto head = ParseHead("GET / HTTP/1.0\r\nRange: bytes=0-1\r\nHost: a\r\nCookie: b\r\n\r\n");
  ASSERT_TRUE(head);
  EXPECT_EQ(CleanedHead(*head), "GET / HTTP/1.1\r\nhost: a\r\nConnection: close\r\n\r\n");
}

}  // namespace
}  // namespace impresora
