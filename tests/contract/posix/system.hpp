#pragma once

#include "contract/posix/surroundings.hpp"
#include "contract/shared/clock_bench.hpp"
#include "platform/posix/clock.hpp"
#include "platform/posix/files.hpp"
#include "platform/posix/journal_file.hpp"

// This system's own twins, by the names that the shared cases have for them.
namespace kestra {

using SystemJournalFile = PosixJournalFile;
using SystemLog = PosixLog;
using SystemProfile = PosixProfile;

// The failure of a log in whose place there is a directory.
constexpr std::int32_t kLogIsADirectory = 75;

class SystemClock : public ClockBench {
 public:
  Clock& Get() override { return clock_; }

 private:
  Environment locale_{"LC_ALL", "C"};
  PosixClock clock_;
};

}  // namespace kestra
