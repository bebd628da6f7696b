// What the panel says of the till, and what it has tills set up with.
#include "panel/till_json.hpp"

#include <gtest/gtest.h>

#include "../booth.hpp"
#include "panel/kept_recording.hpp"
#include "panel/scenes.hpp"

namespace impresora {
namespace {

constexpr std::int64_t kNow = 1'000'000;

TEST(PanelTill, WhatItDoes) {
  struct Row {
    const char* story;
    HostSigns signs;
    HostLine line;
    std::string_view word;
  };
  const HostLine plain;
  HostLine garbles;
  garbles.garbles = true;
  HostLine occupied;
  occupied.occupied = true;
  const std::vector<Row> rows{
      {"nobody ever called", {}, plain, "nadie"},
      {"called just now", {kNow, {}}, plain, "activa"},
      {"a quarter of a minute ago", {kNow - 14, {}}, plain, "activa"},
      {"longer ago", {kNow - 15, {}}, plain, "callada"},
      {"a frame that is still coming", {kNow, kNow - 2}, plain, "activa"},
      {"nothing but noise", {kNow, kNow - 3}, plain, "ilegible"},
      {"at another speed", {kNow, {}}, garbles, "ilegible"},
      {"at another speed, and nobody called", {}, garbles, "nadie"},
      {"another till has the port", {kNow, {}}, occupied, "ocupada"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(TillJson(row.line, row.signs, kNow, "TF")["estado"], row.word) << row.story;
  }
}

TEST(PanelTill, HowOneGetsHere) {
  const auto lines = [](const HostLine& line) {
    std::string all;
    const Json till = TillJson(line, {}, kNow, "FC");
    for (const Json& row : till["conexion"]) {
      all += row["sistema"].get<std::string>() + ": " + row["lineas"].get<std::string>() + "\n";
    }
    return all;
  };
  EXPECT_EQ(
      lines({.cable = Cable::kPseudoTerminal, .port = "/dev/pts/3", .link = "/tmp/impresora"}),
      "Linux, en esta máquina: ImpresoraDispositivo=/tmp/impresora\nTipoComprobante=FC\n"
      "Windows: ImpresoraDispositivo=tcp:127.0.0.1:4001\nTipoComprobante=FC\n"
      "Otra máquina: ImpresoraDispositivo=tcp:EQUIPO:4001\nTipoComprobante=FC\n");
  EXPECT_EQ(lines({.cable = Cable::kPseudoTerminal, .port = "/dev/pts/3"}).substr(0, 56),
            "Linux, en esta máquina: ImpresoraDispositivo=/dev/pts/3");
  EXPECT_EQ(lines({.cable = Cable::kTcp, .port = "tcp:[::1]:40123"}),
            "Linux o Windows, en esta máquina: ImpresoraDispositivo=tcp:127.0.0.1:40123\n"
            "TipoComprobante=FC\n"
            "Otra máquina: ImpresoraDispositivo=tcp:EQUIPO:40123\nTipoComprobante=FC\n");
  EXPECT_EQ(lines({.cable = Cable::kSerial, .port = "COM3", .baud = 19200}),
            "Windows, del otro lado del cable: ImpresoraPuerto=1\nImpresoraConfig=19200\n"
            "TipoComprobante=FC\n"
            "Linux, del otro lado del cable: ImpresoraDispositivo=/dev/ttyUSB0\n"
            "ImpresoraConfig=19200\nTipoComprobante=FC\n");
  EXPECT_EQ(lines({.cable = Cable::kPipe, .port = "\\\\.\\pipe\\caja"}),
            "Windows, en esta máquina: ImpresoraDispositivo=\\\\.\\pipe\\caja\nTipoComprobante=FC\n"
            "Otra máquina: ImpresoraDispositivo=tcp:EQUIPO:4001\nTipoComprobante=FC\n");
}

TEST(PanelTill, NoiseIsToldFromFrames) {
  prueba::Booth booth;
  EXPECT_FALSE(booth.session.Signs().heard);
  booth.session.Receive("\x80\x80", booth.now);
  booth.session.Advance(booth.now);
  EXPECT_EQ(booth.session.Signs().heard, booth.clock.moment);
  EXPECT_EQ(booth.session.Signs().puzzled, booth.clock.moment);
  booth.clock.moment += 9;
  booth.session.Receive("\x80", booth.now);
  booth.session.Advance(booth.now);
  EXPECT_EQ(booth.session.Signs().heard, booth.clock.moment);
  EXPECT_EQ(booth.session.Signs().puzzled, booth.clock.moment - 9);
  booth.Send(40, {"Y"});
  EXPECT_EQ(booth.session.Signs().heard, booth.clock.moment);
  EXPECT_FALSE(booth.session.Signs().puzzled);
}

TEST(PanelScenes, EachIsOneThatThePrinterKnows) {
  for (const SceneRow& scene : Scenes()) {
    FaultPlan plan;
    EXPECT_TRUE(plan.Add(scene.rules).empty()) << scene.key;
    EXPECT_EQ(plan.Rules().size(), scene.rules.empty() ? 0U : 1U) << scene.key;
    for (const FaultCount& rule : plan.Rules()) EXPECT_EQ(rule.text, scene.rules);
    EXPECT_EQ(FindControl(scene.control) != nullptr, !scene.control.empty()) << scene.key;
    EXPECT_EQ(FindScene(scene.key), &scene);
    const int deeds = (scene.rules.empty() ? 0 : 1) + (scene.control.empty() ? 0 : 1) +
                      (scene.seconds != 0 ? 1 : 0) + (scene.occupies ? 1 : 0);
    EXPECT_EQ(deeds, 1) << scene.key;
  }
}

TEST(PanelRecording, EndsByItselfWhenItIsFull) {
  KeptRecording recording(1000);
  prueba::Booth booth;
  booth.session.Attach(recording);
  recording.Begin({});
  for (std::uint8_t number = 40; number < 60; ++number) booth.Send(number, {"Y"});
  booth.session.Tell();
  EXPECT_EQ(recording.Status()["activa"], false);
  EXPECT_EQ(recording.Status()["llena"], true);
  EXPECT_LT(recording.Text().size(), 1500U);
  EXPECT_EQ(recording.Text().back(), '\n');
}

}  // namespace
}  // namespace impresora
