#include "program/configuration.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace puerta {
namespace {

ReadConfiguration Read(const std::string& text) {
  return ParseConfiguration(*ParseJson(text), "/tienda");
}

TEST(Configuration, TheLeastThatIsNeeded) {
  const auto read = Read(R"({"impresoras":[{"id":"caja1","carpeta":"caja1"}]})");
  EXPECT_TRUE(read.errors.empty());
  EXPECT_EQ(read.configuration.address, "127.0.0.1");
  EXPECT_EQ(read.configuration.printers.at(0).folder, "/tienda/caja1");
  EXPECT_EQ(read.configuration.data, "/tienda/datos");
}

TEST(Configuration, AllOfIt) {
  const auto read = Read(R"({
    "escuchar": {"direccion": "0.0.0.0", "puerto": 0}, "datos": "/var/lib/puerta", "tls": true, "nombres": ["puerta.local"],
    "origenes": ["https://tienda.example"], "espera": 30, "caja_web": "web", "mqtt": {"servidor": "x"},
    "cajas": [{"nombre": "uno", "clave": "0123456789abcdef", "derechos": ["leer", "vender"]}],
    "impresoras": [{"id": "caja1", "carpeta": "/srv/caja1"}], "limites": {"conexiones": 10, "cuerpo": 2048, "en_cola": 5}})");
  ASSERT_TRUE(read.errors.empty()) << read.errors[0].pointer << read.errors[0].message;
  EXPECT_EQ(read.configuration.tills.at(0).rights, unsigned{kRead | kSell});
  EXPECT_TRUE(read.configuration.tls);
  EXPECT_EQ(read.configuration.most_waiting, 5U);
}

TEST(Configuration, WhatIsWrongIsSaidWhereItStands) {
  struct Row {
    std::string more, pointer;
  };
  const std::string printer = R"("impresoras":[{"id":"caja1","carpeta":"c"}])";
  const std::vector<Row> rows{
      {R"({"impresora":[]})", "/impresora"},
      {R"({})", "/impresoras"},
      {R"({"impresoras":[{"id":"Caja 1","carpeta":"c"}]})", "/impresoras/0/id"},
      {R"({"impresoras":[{"id":"a","carpeta":"c"},{"id":"b","carpeta":"c"}]})", "/impresoras/1"},
      {"{" + printer + R"(,"escuchar":{"puerto":70000}})", "/escuchar/puerto"},
      {"{" + printer + R"(,"escuchar":{"direccion":"0.0.0.0"}})", "/cajas"},
      {"{" + printer +
           R"(,"escuchar":{"direccion":"0.0.0.0"},"cajas":[{"nombre":"a","clave":"0123456789abcdef"}]})",
       "/tls"},
      {"{" + printer + R"(,"cajas":[{"nombre":"a","clave":"corta"}]})", "/cajas/0/clave"},
      {"{" + printer + R"(,"cajas":[{"nombre":"a","clave_sha256":"xyz"}]})",
       "/cajas/0/clave_sha256"},
      {"{" + printer +
           R"(,"cajas":[{"nombre":"a","clave":"0123456789abcdef","derechos":["todo"]}]})",
       "/cajas/0/derechos"},
      {"{" + printer + R"(,"tls":{"certificado":"a"}})", "/tls"},
      {"{" + printer + R"(,"espera":"mucho"})", "/espera"},
  };
  for (const auto& row : rows) {
    const auto read = Read(row.more);
    ASSERT_FALSE(read.errors.empty()) << row.more;
    EXPECT_EQ(read.errors.at(0).pointer, row.pointer) << row.more;
  }
}

}  // namespace
}  // namespace puerta
