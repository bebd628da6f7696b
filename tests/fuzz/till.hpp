#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "line/session.hpp"

namespace impresora::fuzzing {

// Tells the time that the input says.
class WallAtInput : public WallClock {
 public:
  std::int64_t LocalSeconds() override { return moment; }
  std::int64_t moment = 1'795'257'000;  // a Saturday of 2026, half past ten
};

// The books as somebody keeps them who sees nothing but the finished documents.
class Ledger : public Observer {
 public:
  void Closed(const Receipt& receipt) override;
  void Printed(const PaperLine& line) override;

  // The printer's own must agree, once it has told everything.
  void Compare(const Machine& machine) const;

 private:
  void TakeFiscal(const Receipt& receipt);

  unsigned ordinal_ = 0;
  std::map<std::pair<char, char>, std::uint32_t> numbers_;  // by kind and letter
  std::uint32_t last_closing_ = 0;
  std::int64_t sales_ = 0;
  std::int64_t credits_ = 0;
  unsigned documents_ = 0;
  unsigned cancelled_ = 0;
  unsigned non_fiscal_ = 0;
};

// The bytes that a printer without faults sends: busy bytes, refusals and whole answers.
class AnswerReader {
 public:
  void Read(std::string_view bytes);
  void Forget() { frame_.clear(); }
  [[nodiscard]] unsigned answers() const { return answers_; }

 private:
  void CheckFrame() const;

  std::string frame_;
  unsigned answers_ = 0;
};

// A printer, its host, and who watches both.
class Till {
 public:
  explicit Till(Settings settings, SessionSettings line = {});
  ~Till() { session.Detach(ledger_); }
  Till(const Till&) = delete;
  Till& operator=(const Till&) = delete;

  // Sends the bytes and waits until the printer is at rest, but not for ever; what it said.
  std::string Send(std::string_view bytes);

  // A command with the next number.
  std::string Command(std::string_view body);

  // The time passes for printer and wall.
  void Pass(std::int64_t seconds);

  void CheckBooks();

  WallAtInput clock;
  Session session;
  Micros now = std::chrono::hours(1);

 private:
  Ledger ledger_;
  std::uint8_t sequence_ = 0x20;
};

}  // namespace impresora::fuzzing
