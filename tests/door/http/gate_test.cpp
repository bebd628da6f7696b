#include "http/gate.hpp"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace puerta {
namespace {

using Fields = std::map<std::string, std::string>;

const Gate& Plain() {
  static const Gate gate(
      {.port = 8470, .names = {"Puerta.local"}, .origins = {"https://tienda.example"}});
  return gate;
}

int Judged(const Fields& fields, const std::string& path = "/v1/impresoras") {
  const auto problem = Plain().Refuse({.method = "GET", .path = path, .fields = fields});
  return problem ? problem->status : 0;
}

TEST(Gate, TheDoorIsCalledByItsNames) {
  for (const auto* name :
       {"127.0.0.1:8470", "localhost:8470", "LocalHost:8470", "[::1]:8470", "puerta.local:8470"}) {
    EXPECT_EQ(Judged({{"host", name}}), 0) << name;
  }
  for (const auto* name :
       {"", "127.0.0.1", "localhost:80", "attacker.example:8470", "127.0.0.1:8470.attacker.example",
        "localhost:8470@attacker.example", "127.0.0.2:8470"}) {
    EXPECT_EQ(Judged({{"host", name}}), 400) << name;
  }
}

TEST(Gate, OnlyPagesThatMayAskAsk) {
  const std::map<std::string, int> rows{
      {"http://127.0.0.1:8470", 0},
      {"https://tienda.example", 0},
      {"https://127.0.0.1:8470", 403},
      {"http://127.0.0.1:9000", 403},
      {"https://tienda.example:444", 403},
      {"https://tienda.example.evil", 403},
      {"null", 403},
      {"http://evil.example", 403},
  };
  for (const auto& [origin, status] : rows) {
    EXPECT_EQ(Judged({{"host", "localhost:8470"}, {"origin", origin}}), status) << origin;
  }
}

TEST(Gate, APageElsewhereThatDoesNotSayWhoItIsIsTurnedAway) {
  Fields fields{
      {"host", "localhost:8470"}, {"sec-fetch-site", "cross-site"}, {"sec-fetch-mode", "no-cors"}};
  EXPECT_EQ(Judged(fields), 403);
  fields["sec-fetch-mode"] = "navigate";
  EXPECT_EQ(Judged(fields), 403) << "nobody navigates to data";
  EXPECT_EQ(Judged(fields, "/"), 0) << "a link to the status page is no harm";
  fields["sec-fetch-site"] = "same-origin";
  EXPECT_EQ(Judged(fields), 0);
}

TEST(Gate, ABrowserThatAsksFirstIsTold) {
  const HttpRequest asked{.method = "OPTIONS",
                          .path = "/v1/impresoras/caja1/comprobantes",
                          .fields = {{"host", "localhost:8470"},
                                     {"origin", "https://tienda.example"},
                                     {"access-control-request-method", "POST"},
                                     {"access-control-request-private-network", "true"}}};
  auto answer = Plain().Preflight(asked);
  ASSERT_TRUE(answer);
  Plain().Mark(asked, *answer);
  const Fields fields(answer->fields.begin(), answer->fields.end());
  EXPECT_EQ(fields.at("Access-Control-Allow-Origin"), "https://tienda.example");
  EXPECT_EQ(fields.at("Access-Control-Allow-Private-Network"), "true");
  EXPECT_EQ(fields.count("Access-Control-Allow-Credentials"), 0U)
      << "no authority that the browser brings along";
}

TEST(Gate, WithTlsTheNamesArePagesOfHttps) {
  const Gate gate({.secure = true, .port = 443});
  const HttpRequest request{.path = "/v1/impresoras",
                            .fields = {{"host", "localhost"}, {"origin", "https://localhost"}}};
  EXPECT_FALSE(gate.Refuse(request));
}

}  // namespace
}  // namespace puerta
