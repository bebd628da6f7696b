#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "campaigns/torture/allocations.hpp"
#include "fakes/fake_platform.hpp"
#include "fakes/trouble.hpp"

namespace kestra::torture {

// What the wrappers around a world's interfaces share.
class Watch {
 public:
  explicit Watch(FakePlatform& world) : world_(world) {}

  FakePlatform& World() { return world_; }
  Trouble& GetTrouble() { return trouble_; }

  // Announces a call, which throws when it is to fail, and makes it.
  template <typename Call>
  auto At(Point point, Call call) {
    const Allocations::Spared spared;
    Reach(point);
    return call();
  }

  // The trouble ends when the call has taken so long (virtual microseconds); 0: never.
  void BeginCall(std::int64_t heals_after);

  // Since the call began: virtual time, interface calls that failed, busy bytes that came, and whether
  // the time of day came so near to midnight that the library may wait for ever.
  [[nodiscard]] std::int64_t Passed() const;
  [[nodiscard]] int Failures() const { return failures_; }
  [[nodiscard]] int BusyBytes() const { return busy_bytes_; }
  [[nodiscard]] bool NearMidnight() const { return near_midnight_; }

  void SawTimeOfDay(double seconds);
  void SawArrivals(std::string_view fresh);

  void PortMade() { ++ports_; }
  void PortGone() { --ports_; }
  [[nodiscard]] int Ports() const { return ports_; }

 private:
  void Reach(Point point);

  FakePlatform& world_;
  Trouble trouble_;
  std::int64_t began_ = 0;
  std::int64_t heals_after_ = 0;
  int failures_ = 0;
  int busy_bytes_ = 0;
  bool near_midnight_ = false;
  int ports_ = 0;
};

// A case's world, each interface of which can fail by a trouble of its own: the one that the case
// brings along (its "fail" lines) stays as it is. The fakes' own allocations never fail.
class TroubledPlatform : public Platform {
 public:
  explicit TroubledPlatform(std::unique_ptr<FakePlatform> world);

  std::unique_ptr<SerialPort> CreatePort(const PortSettings& settings) override;
  Clock& GetClock() override { return *clock_; }
  Operator& GetOperator() override { return *operator_; }
  ProfileFile& GetProfile() override { return *profile_; }
  LogFile& GetLog() override { return *log_; }
  JournalFile& GetJournalFile() override { return *journal_; }

  Watch& GetWatch() { return watch_; }

 private:
  std::unique_ptr<FakePlatform> world_;
  Watch watch_;
  std::unique_ptr<Clock> clock_;
  std::unique_ptr<Operator> operator_;
  std::unique_ptr<ProfileFile> profile_;
  std::unique_ptr<LogFile> log_;
  std::unique_ptr<JournalFile> journal_;
};

}  // namespace kestra::torture
