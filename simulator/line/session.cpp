#include "line/session.hpp"

#include <algorithm>
#include <utility>

namespace impresora {
namespace {

LineSettings ForLine(const SessionSettings& session) {
  return {.baud = session.baud, .busy_interval = session.busy_interval, .keep_exchanges = true};
}

struct Teller {
  Observer& observer;
  void operator()(const PaperLine& line) const { observer.Printed(line); }
  void operator()(const Receipt& receipt) const { observer.Closed(receipt); }
  void operator()(const Exchange& exchange) const { observer.Exchanged(exchange); }
};

}  // namespace

Session::Session(Settings settings, WallClock& clock, SessionSettings session)
    : clock_(clock),
      printer_(std::move(settings)),
      faults_(session.seed),
      line_(printer_, clock, ForLine(session), &faults_) {
  printer_.SetTime(clock_.LocalSeconds());
}

void Session::Receive(std::string_view bytes, Micros now) {
  now_ = std::max(now_, now);
  if (off_until_ && now < *off_until_) return;  // nobody listens
  signs_.heard = clock_.LocalSeconds();
  if (!signs_.puzzled) signs_.puzzled = signs_.heard;
  line_.Receive(bytes, now);
}

Output Session::Advance(Micros now) {
  now_ = std::max(now_, now);
  Tell();
  if (off_until_) {
    if (now < *off_until_) return {};
    SwitchOn();
  }
  while (line_.Step(now)) Gather();
  Output output = line_.Leave(now);
  if (output.power_off) off_until_ = now + output.off_time;
  Gather();
  return output;
}

void Session::SwitchOn() {
  off_until_.reset();
  printer_.SetTime(clock_.LocalSeconds());
  printer_.Restart();
  Touched();
}

std::optional<Micros> Session::NextDue() const {
  if (changed_ || !news_.empty()) return now_;
  return off_until_ ? off_until_ : line_.NextDue();
}

// What is still to be told comes with the next call, and is not told twice.
void Session::Attach(Observer& observer) {
  Gather();
  const auto is_line = [](const News& item) { return std::holds_alternative<PaperLine>(item); };
  const auto untold = std::count_if(news_.begin(), news_.end(), is_line);
  const std::vector<PaperLine>& printed = printer_.GetMachine().printed;
  if (untold < static_cast<std::ptrdiff_t>(printed.size())) {
    observer.Resumed({printed.begin(), printed.end() - untold});
  }
  observers_.push_back(&observer);
}

void Session::Detach(Observer& observer) {
  observers_.erase(std::remove(observers_.begin(), observers_.end(), &observer), observers_.end());
}

void Session::Gather() {
  if (std::exchange(heard_, line_.Heard()) != line_.Heard()) signs_.puzzled.reset();
  for (PaperLine& line : printer_.TakePaper()) news_.emplace_back(std::move(line));
  for (Receipt& receipt : printer_.TakeReceipts()) news_.emplace_back(std::move(receipt));
  for (Exchange& exchange : line_.TakeExchanges()) news_.emplace_back(std::move(exchange));
}

void Session::Tell() {
  const std::vector<News> news = std::exchange(news_, {});
  if (!std::exchange(changed_, false) && news.empty()) return;
  for (Observer* observer : observers_) {
    for (const News& item : news) std::visit(Teller{*observer}, item);
    observer->Changed();
  }
}

void Session::Touched() {
  Gather();
  changed_ = true;
}

void Session::NewHost() {
  line_.Clear();
  Gather();
}

void Session::PowerCycle() {
  line_.SwitchOff();
  SwitchOn();
}

}  // namespace impresora
