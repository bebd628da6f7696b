#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <string>

#include "outbox/broker.hpp"
#include "outbox/letter.hpp"
#include "outbox/letter_box.hpp"

namespace puerta {

struct OutboxState {
  bool connected = false;
  std::string trouble{};       // "" while all is well
  std::int64_t waiting = 0;    // letters that the broker has not taken
  std::int64_t delivered = 0;  // since the start
};

// Carries letters to the broker: of each printer one at a time, the next when that was acknowledged, so
// that no hitch of the network changes their order; and each until it was acknowledged, however often.
class Courier {
 public:
  using Log = std::function<void(const std::string& line)>;

  Courier(const OutboxSettings& settings, LetterBox& box, Broker& broker, Log log);

  // One round: sends what may be sent, waits, and hears what came.
  void Round();

  OutboxState State() const { return state_; }

 private:
  using Milliseconds = std::chrono::milliseconds;

  // What is under way of a printer, or until when nothing of it is tried.
  struct Lane {
    int number = 0;  // 0: nothing is under way
    Letter letter{};
    Milliseconds since{};
    std::int64_t sent = 0;                         // up to this letter the broker has them
    std::map<std::string, std::int64_t> unread{};  // by their keys: the far end has not said so
    Milliseconds unread_since{};
    Milliseconds not_before{};
    Milliseconds pause{};
  };

  void Count();
  void ConnectAgain();
  void SendWhatMay();
  void Hear(const Happening& happening);
  void HearAcknowledgement(const Happening& happening);
  void HearReceipt(const std::string& text);
  void MindReceipts(Lane& lane);
  void Lose(const std::string& words);
  void Tell(const std::string& trouble);
  Milliseconds UntilNext();

  OutboxSettings settings_;
  LetterBox& box_;
  Broker& broker_;
  Log log_;
  OutboxState state_;
  std::map<std::string, Lane> lanes_;
  bool trying_ = false;
  Milliseconds since_{};
  Milliseconds not_before_{};
  Milliseconds pause_{};
  Milliseconds next_count_{};
};

}  // namespace puerta
