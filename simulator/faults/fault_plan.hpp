#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "commands/printer.hpp"
#include "wire/burst.hpp"
#include "wire/packet.hpp"

namespace impresora {

struct FaultRule;

// A line that is no rule: which, what stands there and what was expected instead.
struct FaultMistake {
  unsigned line = 0;  // from 1
  std::string read;
  std::string expected;

  // "renglón 3: dice «perdr», se esperaba una acción"
  std::string Words() const;
};

// One rule as people see it.
struct FaultCount {
  unsigned id = 0;
  std::string text;
  std::uint64_t due = 0;    // how often its moment came
  std::uint64_t acted = 0;  // how often it did something
  bool over = false;        // its moment will not come again
};

// The rules that spoil what passes over the line. The same rules with the same seed do the same to
// the same commands, on every platform.
class FaultPlan {
 public:
  explicit FaultPlan(std::uint64_t seed = 1);
  ~FaultPlan();
  FaultPlan(const FaultPlan&) = delete;
  FaultPlan& operator=(const FaultPlan&) = delete;

  // Adds every rule of the text, one a line, or none when there is a mistake. The rules get the
  // next numbers: 1, 2, 3...
  std::vector<FaultMistake> Add(std::string_view text);
  bool Remove(unsigned id);
  void Clear();

  bool Empty() const { return rules_.empty(); }
  std::vector<FaultCount> Rules() const;

  // The same as a text of several lines, for people; empty without rules.
  std::string Report() const;

  // A command has arrived; it has not been carried out. `printer` may be changed by rules.
  Verdict Arriving(const Packet& packet, Printer& printer);

  // What the printer is about to answer, and what it knows of before.
  struct Reply {
    const Packet& packet;
    Answer& answer;           // rules that change the printer change its words here too
    std::string_view former;  // the frame that answered the command before, or nothing
    Stage stage;              // before the command was carried out
    std::uint64_t lines = 0;  // that it printed
  };
  Verdict Leaving(const Reply& reply, Printer& printer);

 private:
  std::uint64_t seed_;
  unsigned last_id_ = 0;
  std::vector<std::unique_ptr<FaultRule>> rules_;
};

}  // namespace impresora
