#include "outbox/courier.hpp"

#include <algorithm>
#include <utility>

namespace puerta {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

constexpr milliseconds kFirstPause = seconds{1};
constexpr milliseconds kLongestPause = seconds{60};
// A connection on which nothing is acknowledged is none.
constexpr milliseconds kPatience = seconds{60};
// The far end may be busy, or its word was lost: then it gets all that it has not confirmed once more.
constexpr milliseconds kPatienceForReceipts = seconds{300};
// Should a call be missed, nothing waits longer than this.
constexpr milliseconds kRounds = seconds{5};

milliseconds Longer(milliseconds pause) {
  return std::clamp(pause * 2, kFirstPause, kLongestPause);
}

}  // namespace

Courier::Courier(const OutboxSettings& settings, LetterBox& box, Broker& broker, Log log)
    : settings_(settings), box_(box), broker_(broker), log_(std::move(log)) {}

void Courier::Round() {
  try {
    if (!state_.connected && !trying_) ConnectAgain();
    if (trying_ && broker_.Now() - since_ >= kPatience) Lose("el servidor no contesta");
    if (state_.connected) SendWhatMay();
    for (const Happening& happening : broker_.Wait(UntilNext())) Hear(happening);
    Count();
  } catch (const StoreFailure& failure) {
    // What could not be forgotten is sent again; the disk gets time.
    Lose(failure.what());
  }
}

// Not at each round: after days without a network there is much to count.
void Courier::Count() {
  const milliseconds now = broker_.Now();
  if (now < next_count_) return;
  next_count_ = now + seconds{1};
  state_.waiting = box_.Waiting();
}

void Courier::ConnectAgain() {
  if (broker_.Now() < not_before_) return;
  since_ = broker_.Now();
  trying_ = true;
  broker_.Connect();
}

void Courier::SendWhatMay() {
  const milliseconds now = broker_.Now();
  for (const std::string& printer : box_.Printers()) {
    Lane& lane = lanes_[printer];
    if (lane.number != 0) {
      if (now - lane.since >= kPatience) return Lose("el servidor no confirma lo que recibe");
      continue;
    }
    MindReceipts(lane);
    if (now < lane.not_before) continue;
    std::optional<Letter> letter = box_.Oldest(printer, lane.sent);
    if (!letter) continue;
    lane.number = broker_.Send(TopicOf(settings_, *letter), PayloadOf(settings_, *letter));
    if (lane.number == 0) return Lose("no se pudo enviar");
    lane.letter = *std::move(letter);
    lane.since = now;
  }
}

void Courier::Hear(const Happening& happening) {
  switch (happening.sign) {
    case Sign::kConnected:
      trying_ = false;
      state_.connected = true;
      if (settings_.waits_for_receipt) broker_.Subscribe(ReceiptsOf(settings_));
      return Tell("");
    case Sign::kReceived:
      return HearReceipt(happening.words);
    case Sign::kLost:
      return Lose(happening.words);
    case Sign::kAcknowledged:
      return HearAcknowledgement(happening);
  }
}

void Courier::HearAcknowledgement(const Happening& happening) {
  const auto found = std::ranges::find_if(
      lanes_, [&](const auto& entry) { return entry.second.number == happening.letter; });
  if (found == lanes_.end()) return;
  Lane& lane = found->second;
  lane.number = 0;
  if (happening.refused || (happening.nobody_listens && settings_.waits_for_listener)) {
    lane.pause = Longer(lane.pause);
    lane.not_before = broker_.Now() + broker_.Spread(lane.pause);
    return Tell(happening.refused ? "el servidor rechaza: " + happening.words
                                  : "nadie escucha en el servidor");
  }
  if (settings_.waits_for_receipt) {
    if (lane.unread.empty()) lane.unread_since = broker_.Now();
    lane.unread.emplace(lane.letter.key, lane.letter.id);
    lane.sent = lane.letter.id;
  } else {
    box_.Forget(found->first, lane.letter.id);
  }
  lane.pause = {};
  pause_ = {};
  ++state_.delivered;
  Tell("");
}

// {"claves": [...]}: from far away, so that anything may stand there.
void Courier::HearReceipt(const std::string& text) {
  const Json receipt = Json::parse(text, nullptr, false);
  if (!receipt.is_object() || !receipt.contains("claves")) return;
  for (const Json& key : receipt["claves"]) {
    if (!key.is_string()) continue;
    for (auto& [printer, lane] : lanes_) {
      const auto found = lane.unread.find(key.get_ref<const std::string&>());
      if (found == lane.unread.end()) continue;
      box_.Forget(printer, found->second);
      lane.unread.erase(found);
      lane.unread_since = broker_.Now();
    }
  }
}

void Courier::MindReceipts(Lane& lane) {
  if (lane.unread.empty() || broker_.Now() - lane.unread_since < kPatienceForReceipts) return;
  lane.unread.clear();
  lane.sent = 0;
  Tell("la central no acusa recibo");
}

void Courier::Lose(const std::string& words) {
  broker_.Disconnect();
  trying_ = false;
  state_.connected = false;
  lanes_.clear();
  pause_ = Longer(pause_);
  not_before_ = broker_.Now() + broker_.Spread(pause_);
  Tell(words);
}

// Said once, not at every try.
void Courier::Tell(const std::string& trouble) {
  if (trouble == state_.trouble) return;
  state_.trouble = trouble;
  log_(trouble.empty() ? "mqtt: publica" : "mqtt: " + trouble);
}

milliseconds Courier::UntilNext() {
  const milliseconds now = broker_.Now();
  milliseconds until = now + kRounds;
  if (!state_.connected && !trying_) until = std::min(until, not_before_);
  for (const auto& [printer, lane] : lanes_) {
    if (lane.number == 0 && lane.not_before > now) until = std::min(until, lane.not_before);
  }
  return std::max(until - now, milliseconds{0});
}

}  // namespace puerta
