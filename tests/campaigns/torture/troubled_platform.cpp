#include "campaigns/torture/troubled_platform.hpp"

#include <algorithm>
#include <utility>

namespace kestra::torture {
namespace {

using Spared = Allocations::Spared;

// A deadline set from here on lies behind midnight.
constexpr double kDeadlineBehindMidnight = 86'400 - 5.6;

constexpr char kBusy = '\x12';

// A port in its watch's trouble.
class TroubledPort : public SerialPort {
 public:
  TroubledPort(std::unique_ptr<SerialPort> port, Watch& watch)
      : port_(std::move(port)), watch_(watch) {
    watch_.PortMade();
  }
  ~TroubledPort() override {
    const Spared spared;
    port_.reset();
    watch_.PortGone();
  }

  [[nodiscard]] bool PortOpen() const override { return port_->PortOpen(); }
  void PortOpen(bool open) override {
    const auto set = [this, open] {
      port_->PortOpen(open);
      seen_ = 0;
    };
    if (open == port_->PortOpen()) {
      const Spared spared;
      set();
    } else {
      watch_.At(open ? Point::kOpen : Point::kClose, set);
    }
  }
  void Output(std::string_view bytes) override {
    watch_.At(Point::kWrite, [this, bytes] { port_->Output(bytes); });
  }
  std::size_t InBufferCount() override {
    return watch_.At(Point::kCount, [this] {
      const std::size_t count = port_->InBufferCount();
      watch_.SawArrivals(Waiting().substr(std::min(seen_, count)));
      return seen_ = count;
    });
  }
  void DiscardInput() override {
    watch_.At(Point::kDiscard, [this] {
      port_->DiscardInput();
      seen_ = 0;
    });
  }
  std::string Input() override {
    return watch_.At(Point::kRead, [this] {
      seen_ = 0;
      return port_->Input();
    });
  }
  [[nodiscard]] std::string_view Waiting() const override { return port_->Waiting(); }

 private:
  std::unique_ptr<SerialPort> port_;
  Watch& watch_;
  std::size_t seen_ = 0;  // of the bytes that wait
};

class TroubledClock : public Clock {
 public:
  explicit TroubledClock(Watch& watch) : watch_(watch), clock_(watch.World().GetClock()) {}

  double TimeOfDay() override {
    return watch_.At(Point::kTimeOfDay, [this] {
      const double seconds = clock_.TimeOfDay();
      watch_.SawTimeOfDay(seconds);
      return seconds;
    });
  }
  std::string ShortDate() override {
    return watch_.At(Point::kDate, [this] { return clock_.ShortDate(); });
  }
  std::string IsoDate() override {
    return watch_.At(Point::kDate, [this] { return clock_.IsoDate(); });
  }
  std::string TimeText() override {
    return watch_.At(Point::kTimeText, [this] { return clock_.TimeText(); });
  }
  double Elapsed() override {
    return watch_.At(Point::kElapsed, [this] { return clock_.Elapsed(); });
  }
  void Sleep(std::int32_t milliseconds) override {
    watch_.At(Point::kSleep, [&] { clock_.Sleep(milliseconds); });
  }

 private:
  Watch& watch_;
  Clock& clock_;
};

class TroubledOperator : public Operator {
 public:
  explicit TroubledOperator(Watch& watch) : watch_(watch), operator_(watch.World().GetOperator()) {}

  std::int32_t Message(std::string_view text, std::string_view title, std::int32_t style) override {
    return watch_.At(Point::kMessage, [&] { return operator_.Message(text, title, style); });
  }
  bool StatusReport(const Report& report) override {
    return watch_.At(Point::kReport, [&] { return operator_.StatusReport(report); });
  }
  void MemoryFull() override {
    watch_.At(Point::kMemoryFull, [this] { operator_.MemoryFull(); });
  }

 private:
  Watch& watch_;
  Operator& operator_;
};

class TroubledProfile : public ProfileFile {
 public:
  explicit TroubledProfile(Watch& watch) : watch_(watch) {}
  std::string Read(std::string_view section, std::string_view key, std::string_view file) override {
    return watch_.At(Point::kProfile,
                     [&] { return watch_.World().GetProfile().Read(section, key, file); });
  }

 private:
  Watch& watch_;
};

class TroubledLog : public LogFile {
 public:
  explicit TroubledLog(Watch& watch) : watch_(watch) {}
  void Append(std::string_view file, std::string_view bytes) override {
    watch_.At(Point::kLog, [&] { watch_.World().GetLog().Append(file, bytes); });
  }
  void SetAside(std::string_view file, std::uint64_t limit) override {
    watch_.At(Point::kLog, [&] { watch_.World().GetLog().SetAside(file, limit); });
  }

 private:
  Watch& watch_;
};

class TroubledJournalFile : public JournalFile {
 public:
  explicit TroubledJournalFile(Watch& watch)
      : watch_(watch), journal_(watch.World().GetJournalFile()) {}

  void Open(std::string_view file) override {
    watch_.At(Point::kJournal, [&] { journal_.Open(file); });
  }
  void Close() noexcept override { journal_.Close(); }
  [[nodiscard]] bool IsOpen() const noexcept override { return journal_.IsOpen(); }
  std::string Read() override {
    return watch_.At(Point::kJournal, [this] { return journal_.Read(); });
  }
  void Append(std::string_view bytes) override {
    watch_.At(Point::kJournal, [&] { journal_.Append(bytes); });
  }
  void Truncate(std::size_t length) override {
    watch_.At(Point::kJournal, [&] { journal_.Truncate(length); });
  }
  void Overwrite(std::size_t at, std::string_view bytes) override {
    watch_.At(Point::kJournal, [&] { journal_.Overwrite(at, bytes); });
  }
  void BeginAnew(std::string_view suffix) override {
    watch_.At(Point::kJournal, [&] { journal_.BeginAnew(suffix); });
  }
  std::vector<std::string> Kept() override {
    return watch_.At(Point::kJournal, [this] { return journal_.Kept(); });
  }
  void DeleteKept(std::string_view suffix) override {
    watch_.At(Point::kJournal, [&] { journal_.DeleteKept(suffix); });
  }

 private:
  Watch& watch_;
  JournalFile& journal_;
};

}  // namespace

void Watch::Reach(Point point) {
  if (heals_after_ > 0 && Passed() > heals_after_) trouble_.Disarm();
  try {
    trouble_.Reach(point);
  } catch (...) {
    ++failures_;
    throw;
  }
}

void Watch::BeginCall(std::int64_t heals_after) {
  heals_after_ = heals_after;
  began_ = world_.GetClock().ElapsedMicros();
  failures_ = 0;
  busy_bytes_ = 0;
  near_midnight_ = false;
}

std::int64_t Watch::Passed() const {
  return world_.GetClock().ElapsedMicros() - began_;
}

void Watch::SawTimeOfDay(double seconds) {
  near_midnight_ = near_midnight_ || seconds > kDeadlineBehindMidnight;
}

void Watch::SawArrivals(std::string_view fresh) {
  busy_bytes_ += static_cast<int>(std::count(fresh.begin(), fresh.end(), kBusy));
}

TroubledPlatform::TroubledPlatform(std::unique_ptr<FakePlatform> world)
    : world_(std::move(world)),
      watch_(*world_),
      clock_(std::make_unique<TroubledClock>(watch_)),
      operator_(std::make_unique<TroubledOperator>(watch_)),
      profile_(std::make_unique<TroubledProfile>(watch_)),
      log_(std::make_unique<TroubledLog>(watch_)),
      journal_(std::make_unique<TroubledJournalFile>(watch_)) {}

std::unique_ptr<SerialPort> TroubledPlatform::CreatePort(const PortSettings& settings) {
  return watch_.At(Point::kCreatePort, [&] {
    return std::make_unique<TroubledPort>(world_->CreatePort(settings), watch_);
  });
}

}  // namespace kestra::torture
