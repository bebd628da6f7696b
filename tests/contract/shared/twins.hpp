#pragma once

#include <cstdint>
#include <memory>

#include "platform/seam/clock.hpp"
#include "platform/seam/files.hpp"

// The system's own twins: each system has its twins.cpp.
namespace kestra {

std::unique_ptr<LogFile> MakeLog();
// The failure of a log in whose place there is a directory.
extern const std::int32_t kLogIsADirectory;

std::unique_ptr<JournalFile> MakeJournal();

std::unique_ptr<ProfileFile> MakeProfile();

// A clock of a user whose dates are 21/11/2026 and whose times are 18:30:00.
class ClockBench {
 public:
  ClockBench() = default;
  ClockBench(const ClockBench&) = delete;
  ClockBench& operator=(const ClockBench&) = delete;
  virtual ~ClockBench() = default;

  virtual Clock& Get() = 0;
};
std::unique_ptr<ClockBench> MakeClock();

}  // namespace kestra
