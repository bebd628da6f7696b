// Where the printer is, by who says so.

#include "frame/startup.hpp"

#include <gtest/gtest.h>

#include <string>

#include "fakes/fake_platform.hpp"
#include "state/library.hpp"
#include "unit/world.hpp"

namespace kestra {
namespace {

struct DeviceRow {
  const char* why;
  std::string instead;  // by the environment
  std::string device;   // by ImpresoraDispositivo
  std::string number;   // by ImpresoraPuerto
  std::string found;
};

// What of a port that was made says where it is.
std::string PlaceOf(const Journal& journal) {
  for (const Event& event : journal.Events()) {
    if (event.kind != Happening::kPortCreated) continue;
    return event.detail.empty() ? std::to_string(event.number) : event.detail;
  }
  return "nowhere";
}

TEST(StartUp, ThePrinterIsWhereTheEnvironmentSaysOrElseTheFile) {
  const DeviceRow rows[] = {
      {"the number alone", "", "", "3", "3"},
      {"a device before the number", "", "/dev/pts/5", "999", "/dev/pts/5"},
      {"the environment before the number", "tcp:caja:4001", "", "999", "tcp:caja:4001"},
      {"the environment before both", "tcp:caja:4001", "/dev/pts/5", "1", "tcp:caja:4001"},
  };
  for (const DeviceRow& row : rows) {
    FakePlatform world;
    unit::FillProfile(world);
    world.device_instead = row.instead;
    world.GetProfile().Set("ImpresoraDispositivo", row.device);
    world.GetProfile().Set("ImpresoraPuerto", row.number);
    Library library(world);
    EXPECT_EQ(Init(library), 1) << row.why;
    EXPECT_EQ(PlaceOf(world.GetJournal()), row.found) << row.why;
  }
}

TEST(StartUp, WhereThePrinterIsIsLookedForEachTime) {
  FakePlatform world;
  unit::FillProfile(world);
  Library library(world);
  for (const char* const device : {"tcp:caja:4001", "", "tcp:otra:4001"}) {
    world.device_instead = device;
    world.GetJournal().Take();
    EXPECT_EQ(Init(library), 1);
    EXPECT_EQ(PlaceOf(world.GetJournal()), *device == '\0' ? "1" : device);
  }
}

}  // namespace
}  // namespace kestra
