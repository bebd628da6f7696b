#include "contract/shared/twins.hpp"

#include "contract/posix/surroundings.hpp"
#include "platform/posix/clock.hpp"
#include "platform/posix/files.hpp"
#include "platform/posix/journal_file.hpp"

namespace kestra {
namespace {

class PlainClock : public ClockBench {
 public:
  Clock& Get() override { return clock_; }

 private:
  Environment locale_{"LC_ALL", "C"};
  PosixClock clock_;
};

}  // namespace

const std::int32_t kLogIsADirectory = 75;

std::unique_ptr<LogFile> MakeLog() {
  return std::make_unique<PosixLog>();
}

std::unique_ptr<JournalFile> MakeJournal() {
  return std::make_unique<PosixJournalFile>();
}

std::unique_ptr<ProfileFile> MakeProfile() {
  return std::make_unique<PosixProfile>();
}

std::unique_ptr<ClockBench> MakeClock() {
  return std::make_unique<PlainClock>();
}

}  // namespace kestra
