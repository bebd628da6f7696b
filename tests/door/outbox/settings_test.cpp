#include "outbox/settings.hpp"

#include <gtest/gtest.h>

#include <vector>

namespace puerta {
namespace {

std::string ErrorsOf(const char* text) {
  std::vector<FieldError> errors;
  ReadOutboxSettings(Json::parse(text), "/mqtt", errors);
  std::string words;
  for (const FieldError& error : errors) words += error.pointer + ": " + error.message + "\n";
  return words;
}

OutboxSettings Read(const char* text) {
  std::vector<FieldError> errors;
  OutboxSettings settings = ReadOutboxSettings(Json::parse(text), "/mqtt", errors);
  EXPECT_TRUE(errors.empty()) << text;
  return settings;
}

TEST(OutboxSettings, TheLeast) {
  const OutboxSettings settings = Read(R"({"servidor":"b","local":"suc-1"})");
  EXPECT_EQ(settings.host, "b");
  EXPECT_EQ(settings.port, 1883);
  EXPECT_EQ(settings.prefix, "kestra");
  EXPECT_FALSE(settings.tls);
  EXPECT_TRUE(settings.waits_for_listener);
}

TEST(OutboxSettings, All) {
  const OutboxSettings settings =
      Read(R"({"servidor":"b","puerto":1,"prefijo":"p","local":"l","identificacion":"i",
               "usuario":"u","clave_archivo":"c","espera_destinatario":false,"espera_acuse":true,
               "tls":{"autoridad":"a","certificado":"x","clave":"y"}})");
  EXPECT_EQ(settings.port, 1);
  EXPECT_EQ(settings.prefix, "p");
  EXPECT_EQ(settings.client_id, "i");
  EXPECT_EQ(settings.user, "u");
  EXPECT_EQ(settings.password_file, "c");
  EXPECT_TRUE(settings.tls);
  EXPECT_EQ(settings.authority_file, "a");
  EXPECT_EQ(settings.certificate_file, "x");
  EXPECT_EQ(settings.key_file, "y");
  EXPECT_FALSE(settings.waits_for_listener);
  EXPECT_TRUE(settings.waits_for_receipt);
}

TEST(OutboxSettings, PortsOfTls) {
  EXPECT_EQ(Read(R"({"servidor":"b","local":"l","tls":true})").port, 8883);
  EXPECT_EQ(Read(R"({"servidor":"b","local":"l","tls":true,"puerto":9})").port, 9);
}

TEST(OutboxSettings, WhatIsWrongAllAtOnce) {
  struct Case {
    const char* text;
    const char* words;
  };
  const std::vector<Case> cases{
      {"[]", "/mqtt: tiene que ser un objeto\n"},
      {"{}", "/mqtt/servidor: falta\n/mqtt/local: falta\n"},
      {R"({"servidor":"","local":"a/b"})",
       "/mqtt/servidor: tiene que ser un texto\n"
       "/mqtt/local: usa letras, cifras, punto, guion y guion bajo, 64 a lo sumo\n"},
      {R"({"servidor":"b","local":"l","puerto":0,"espera_destinatario":1,"x":1})",
       "/mqtt/puerto: tiene que ser un número de 1 a 65535\n"
       "/mqtt/espera_destinatario: tiene que ser true o false\n/mqtt/x: no se conoce esta clave\n"},
      {R"({"servidor":"b","local":"l","puerto":"1883"})",
       "/mqtt/puerto: tiene que ser un número de 1 a 65535\n"},
      {R"({"servidor":"b","local":"l","tls":1})",
       "/mqtt/tls: tiene que ser true, false o un objeto\n"},
      {R"({"servidor":"b","local":"l","tls":{"clave":"k","z":1}})",
       "/mqtt/tls/z: no se conoce esta clave\n/mqtt/tls/certificado: certificado y clave van "
       "juntos\n"},
  };
  for (const Case& row : cases) EXPECT_EQ(ErrorsOf(row.text), row.words) << row.text;
}

}  // namespace
}  // namespace puerta
