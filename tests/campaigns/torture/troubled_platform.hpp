#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "fakes/fake_platform.hpp"
#include "fakes/trouble.hpp"

namespace kestra::torture {

// What the wrappers around a world's interfaces share.
class Watch {
 public:
  explicit Watch(FakePlatform& world) : world_(world) {}

  FakePlatform& World() { return world_; }
  Trouble& GetTrouble() { return trouble_; }

  // Announces a call. Throws when it is to fail.
  void Reach(Point point);

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
  FakePlatform& world_;
  Trouble trouble_;
  std::int64_t began_ = 0;
  std::int64_t heals_after_ = 0;
  int failures_ = 0;
  int busy_bytes_ = 0;
  bool near_midnight_ = false;
  int ports_ = 0;
};

class TroubledClock : public Clock {
 public:
  explicit TroubledClock(Watch& watch) : watch_(watch) {}
  double TimeOfDay() override;
  std::string ShortDate() override;
  std::string IsoDate() override;
  std::string TimeText() override;
  double Elapsed() override;
  void Sleep(std::int32_t milliseconds) override;

 private:
  Watch& watch_;
};

class TroubledOperator : public Operator {
 public:
  explicit TroubledOperator(Watch& watch) : watch_(watch) {}
  std::int32_t Message(std::string_view text, std::string_view title, std::int32_t style) override;
  bool StatusReport(const Report& report) override;
  void MemoryFull() override;

 private:
  Watch& watch_;
};

class TroubledProfile : public ProfileFile {
 public:
  explicit TroubledProfile(Watch& watch) : watch_(watch) {}
  std::string Read(std::string_view section, std::string_view key, std::string_view file) override;

 private:
  Watch& watch_;
};

class TroubledLog : public LogFile {
 public:
  explicit TroubledLog(Watch& watch) : watch_(watch) {}
  void Append(std::string_view file, std::string_view bytes) override;
  void SetAside(std::string_view file, std::uint64_t limit) override;

 private:
  Watch& watch_;
};

class TroubledJournalFile : public JournalFile {
 public:
  explicit TroubledJournalFile(Watch& watch) : watch_(watch) {}
  void Open(std::string_view file) override;
  void Close() noexcept override;
  [[nodiscard]] bool IsOpen() const noexcept override;
  std::string Read() override;
  void Append(std::string_view bytes) override;
  void Truncate(std::size_t length) override;
  void BeginAnew(std::string_view suffix) override;
  std::vector<std::string> Kept() override;
  void DeleteKept(std::string_view suffix) override;

 private:
  FakeJournalFile& Reach();

  Watch& watch_;
};

// A case's world, each interface of which can fail by a trouble of its own: the one that the case
// brings along (its "fail" lines) stays as it is. The fakes' own allocations never fail.
class TroubledPlatform : public Platform {
 public:
  explicit TroubledPlatform(std::unique_ptr<FakePlatform> world)
      : world_(std::move(world)), watch_(*world_) {}

  std::unique_ptr<SerialPort> CreatePort(const PortSettings& settings) override;
  Clock& GetClock() override { return clock_; }
  Operator& GetOperator() override { return operator_; }
  ProfileFile& GetProfile() override { return profile_; }
  LogFile& GetLog() override { return log_; }
  JournalFile& GetJournalFile() override { return journal_; }

  Watch& GetWatch() { return watch_; }

 private:
  std::unique_ptr<FakePlatform> world_;
  Watch watch_;
  TroubledClock clock_{watch_};
  TroubledOperator operator_{watch_};
  TroubledProfile profile_{watch_};
  TroubledLog log_{watch_};
  TroubledJournalFile journal_{watch_};
};

}  // namespace kestra::torture
