#include "contract/shared/twins.hpp"

#include "contract/windows/user_form.hpp"
#include "platform/windows/clock.hpp"
#include "platform/windows/files.hpp"
#include "platform/windows/journal_file.hpp"

namespace kestra {
namespace {

class PlainClock : public ClockBench {
 public:
  Clock& Get() override { return clock_; }

 private:
  UserForm date_{LOCALE_SSHORTDATE, L"dd/MM/yyyy"};
  UserForm time_{LOCALE_STIMEFORMAT, L"HH:mm:ss"};
  WindowsClock clock_;
};

}  // namespace

const std::int32_t kLogIsADirectory = 70;

std::unique_ptr<LogFile> MakeLog() {
  return std::make_unique<WindowsLog>();
}

std::unique_ptr<JournalFile> MakeJournal() {
  return std::make_unique<WindowsJournalFile>();
}

std::unique_ptr<ProfileFile> MakeProfile() {
  return std::make_unique<WindowsProfile>();
}

std::unique_ptr<ClockBench> MakeClock() {
  return std::make_unique<PlainClock>();
}

}  // namespace kestra
