#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "campaigns/crashes/life.hpp"
#include "campaigns/line_faults/line_world.hpp"

namespace kestra::crashes {

using line_faults::LineWorld;

// The world as one host has it, as long as it lives. Nothing that its library does afterwards reaches the world:
// it runs on among shadows until it returns to nobody. Printer, disk and clock outlive it.
class MortalPlatform : public Platform {
 public:
  MortalPlatform(LineWorld& world, Life& life)
      : world_(world), life_(life), clock_(*this), operator_(*this), log_(*this), file_(*this) {}

  std::unique_ptr<SerialPort> CreatePort(const PortSettings& settings) override;
  Clock& GetClock() override { return clock_; }
  Operator& GetOperator() override { return operator_; }
  ProfileFile& GetProfile() override { return world_.GetProfile(); }
  LogFile& GetLog() override { return log_; }
  JournalFile& GetJournalFile() override { return file_; }

 private:
  friend class MortalPort;

  // A part of the world, and whether the host still has it.
  class Part {
   public:
    explicit Part(MortalPlatform& host) : host_(host) {}
    [[nodiscard]] LineWorld& World() const { return host_.world_; }
    [[nodiscard]] Life& Living() const { return host_.life_; }

   private:
    MortalPlatform& host_;
  };

  // A dead host's time flies.
  class MortalClock : public Clock, Part {
   public:
    using Part::Part;
    double TimeOfDay() override { return World().GetClock().TimeOfDay(); }
    std::string ShortDate() override { return World().GetClock().ShortDate(); }
    std::string IsoDate() override { return World().GetClock().IsoDate(); }
    std::string TimeText() override { return World().GetClock().TimeText(); }
    double Elapsed() override;
    void Sleep(std::int32_t milliseconds) override;

   private:
    double flown_ = 0;
  };

  class MortalOperator : public Operator, Part {
   public:
    using Part::Part;
    std::int32_t Message(std::string_view text, std::string_view title,
                         std::int32_t style) override;
    bool StatusReport(const Report& report) override;
    void MemoryFull() override { Living().Reach(Act::kOther); }
  };

  class MortalLog : public LogFile, Part {
   public:
    using Part::Part;
    void Append(std::string_view file, std::string_view bytes) override;
    void SetAside(std::string_view /*file*/, std::uint64_t /*limit*/) override {}
  };

  // Its own handle of the world's disk: the lock goes with the host.
  class MortalFile : public JournalFile, Part {
   public:
    explicit MortalFile(MortalPlatform& host)
        : Part(host), file_(journal_, trouble_, host.world_.GetJournalFile().Disk()) {}
    void Open(std::string_view file) override;
    void Close() noexcept override { file_.Close(); }
    [[nodiscard]] bool IsOpen() const noexcept override { return file_.IsOpen(); }
    std::string Read() override;
    void Append(std::string_view bytes) override;
    void Truncate(std::size_t length) override;
    void Overwrite(std::size_t at, std::string_view bytes) override;
    void BeginAnew(std::string_view suffix) override;
    std::vector<std::string> Kept() override { return file_.Kept(); }
    void DeleteKept(std::string_view suffix) override;

   private:
    void RequireLife();

    Journal journal_;
    Trouble trouble_;
    FakeJournalFile file_;
    std::string name_;
  };

  LineWorld& world_;
  Life& life_;
  MortalClock clock_;
  MortalOperator operator_;
  MortalLog log_;
  MortalFile file_;
};

}  // namespace kestra::crashes
