#pragma once

#include <memory>
#include <string>

#include "fakes/fake_clock.hpp"
#include "fakes/fake_journal_file.hpp"
#include "fakes/fake_log.hpp"
#include "fakes/fake_operator.hpp"
#include "fakes/fake_port.hpp"
#include "fakes/fake_profile.hpp"
#include "fakes/journal.hpp"
#include "fakes/trouble.hpp"
#include "platform/seam/platform.hpp"

namespace kestra {

// A world of fakes, with one line that every created port is plugged into.
class FakePlatform : public Platform {
 public:
  FakePlatform();

  std::unique_ptr<SerialPort> CreatePort(const PortSettings& settings) override;
  std::string DeviceInstead() override { return device_instead; }
  FakeClock& GetClock() override { return clock_; }
  FakeOperator& GetOperator() override { return operator_; }
  FakeProfile& GetProfile() override { return profile_; }
  FakeLog& GetLog() override { return log_; }
  FakeJournalFile& GetJournalFile() override { return journal_file_; }

  FakeLine& Line() { return line_; }
  Journal& GetJournal() { return journal_; }
  Trouble& GetTrouble() { return trouble_; }

  std::string device_instead;

 private:
  Journal journal_;
  Trouble trouble_;
  FakeClock clock_{journal_, trouble_};
  FakeLine line_{clock_, journal_, trouble_};
  FakeOperator operator_{journal_, trouble_};
  FakeProfile profile_{trouble_};
  FakeLog log_{journal_, trouble_};
  FakeJournalFile journal_file_{journal_, trouble_};
};

}  // namespace kestra
