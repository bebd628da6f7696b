#pragma once

#include "contract/shared/clock_bench.hpp"
#include "contract/windows/user_form.hpp"
#include "platform/windows/clock.hpp"
#include "platform/windows/files.hpp"
#include "platform/windows/journal_file.hpp"

// This system's own twins, by the names that the shared cases have for them.
namespace kestra {

using SystemJournalFile = WindowsJournalFile;
using SystemLog = WindowsLog;
using SystemProfile = WindowsProfile;

// The failure of a log in whose place there is a directory.
constexpr std::int32_t kLogIsADirectory = 70;

class SystemClock : public ClockBench {
 public:
  Clock& Get() override { return clock_; }

 private:
  UserForm date_{LOCALE_SSHORTDATE, L"dd/MM/yyyy"};
  UserForm time_{LOCALE_STIMEFORMAT, L"HH:mm:ss"};
  WindowsClock clock_;
};

}  // namespace kestra
