#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "campaigns/line_faults/byte_fault.hpp"
#include "campaigns/line_faults/canonical_documents.hpp"
#include "campaigns/line_faults/faulty_wire.hpp"
#include "fakes/fake_clock.hpp"
#include "fakes/fake_journal_file.hpp"
#include "fakes/fake_log.hpp"
#include "fakes/fake_operator.hpp"
#include "fakes/fake_profile.hpp"
#include "fakes/journal.hpp"
#include "fakes/trouble.hpp"
#include "line/session.hpp"
#include "platform/seam/platform.hpp"

namespace kestra::line_faults {

// How the driver is set up: with ModoSeguro, and with ReconoceRepetidas too. The forgetful printer takes each
// frame for a new command.
enum class Mode { kBase, kSafe, kSafeForgetful, kSafeWithRepeats };

// How a line ends. Whatever the printer does, nobody hears of it; without power it does nothing either, and
// forgets the last frame.
enum class Breakage { kCut, kUnplugged, kPowerless };
struct Breakdown {
  Direction direction = Direction::kToPrinter;
  std::size_t byte = 0;  // the first one that does not pass, among all of its direction
  Breakage kind = Breakage::kCut;
};

// The virtual printer at the end of a line that fails as told, on a clock that moves when somebody
// waits for the line.
class LineWorld : public Platform, private impresora::WallClock, private impresora::Observer {
 public:
  LineWorld(const CanonicalDocument& document, std::span<const ByteFault> faults,
            Mode mode = Mode::kBase);
  ~LineWorld() override;

  std::unique_ptr<SerialPort> CreatePort(const PortSettings& settings) override;
  Clock& GetClock() override { return clock_; }
  FakeOperator& GetOperator() override { return operator_; }
  ProfileFile& GetProfile() override { return profile_; }
  LogFile& GetLog() override { return log_; }
  FakeJournalFile& GetJournalFile() override { return journal_file_; }

  [[nodiscard]] Micros Now() const { return Micros(clock_.ElapsedMicros()); }

  // Waits until nothing is on its way any more.
  void Settle();

  // Somebody does something to the world when so much time has passed.
  void In(Micros time, std::function<void()> deed) {
    deeds_.push_back({Now() + time, std::move(deed)});
  }

  // The cable is out of its socket after so many bytes more to the printer, or behind the next frame;
  // without a number, now.
  static constexpr std::size_t kWholeFrame = SIZE_MAX;
  void Unplug(std::size_t bytes = 0) {
    plug_holds_ = bytes == kWholeFrame ? kWholeFrame : to_printer_.Carried() + bytes;
  }
  void PlugIn() { plug_holds_.reset(); }

  // The line ends with that byte, until somebody mends it, or so much later. The printer is switched on again
  // with it.
  void Break(const Breakdown& breakdown, std::optional<Micros> mended_after = {}) {
    breakdown_ = breakdown;
    mended_after_ = mended_after;
  }
  void Mend();
  [[nodiscard]] bool Broken() const { return broken_; }
  void PowerCycle();

  // The printer's calendar goes on from now on.
  void RunCalendar() { calendar_runs_ = true; }
  [[nodiscard]] bool CalendarRuns() const { return calendar_runs_; }

  // What a person may do to the printer.
  impresora::Machine& Printer() { return session_.GetPrinter().GetMachine(); }

  [[nodiscard]] const FaultyWire& ToPrinter() const { return to_printer_; }
  [[nodiscard]] const FaultyWire& ToHost() const { return to_host_; }
  [[nodiscard]] const Journal& GetJournal() const { return journal_; }

  // The frames that the host wrote, and what the printer did with what it got, each in order.
  [[nodiscard]] const std::vector<std::string>& Frames() const { return frames_; }
  [[nodiscard]] const std::vector<impresora::Exchange>& Exchanges() const { return exchanges_; }

  // All that it printed.
  [[nodiscard]] const std::vector<impresora::PaperLine>& Paper() const { return paper_; }

  // All that the printer said.
  [[nodiscard]] const std::string& Said() const { return said_; }

 private:
  friend class WorldPort;

  std::int64_t LocalSeconds() override;
  void Exchanged(const impresora::Exchange& exchange) override { exchanges_.push_back(exchange); }
  void Printed(const impresora::PaperLine& line) override { paper_.push_back(line); }

  struct Deed {
    Micros when;
    std::function<void()> what;
  };

  void Write(std::string_view bytes);
  void WaitALittle();
  void DoWhatIsDue();
  std::string_view UpToTheBreak(Direction direction, std::string_view bytes);
  [[nodiscard]] bool Unplugged() const;
  void RequirePlug();
  void Carry();
  [[nodiscard]] Micros NextDue(Micros latest) const;

  Journal journal_;
  Trouble trouble_;
  FakeClock clock_{journal_, trouble_};
  FakeOperator operator_{journal_, trouble_};
  FakeProfile profile_{trouble_};
  FakeLog log_{journal_, trouble_};
  std::int64_t local_seconds_;
  bool calendar_runs_ = false;
  FakeJournalFile journal_file_{journal_, trouble_};
  impresora::Session session_;
  FaultyWire to_printer_;
  FaultyWire to_host_;
  std::optional<std::size_t> plug_holds_;  // until the printer was sent so many bytes
  std::optional<Breakdown> breakdown_;     // that is to come, or has
  std::optional<Micros> mended_after_;
  bool broken_ = false;
  std::vector<Deed> deeds_;
  std::string said_;
  std::string received_;
  std::vector<std::string> frames_;
  std::vector<impresora::Exchange> exchanges_;
  std::vector<impresora::PaperLine> paper_;
};

}  // namespace kestra::line_faults
