#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "command.hpp"
#include "console.hpp"
#include "prompt/call.hpp"
#include "prompt/statement.hpp"

namespace kestra::tool {

// What the prompt may do, and where paper comes from.
struct PromptRights {
  std::function<bool()> may_print;  // asked before what does more than read
  std::function<std::vector<std::string>()>
      take_paper{};  // none: the printer's paper is not ours to see
};

// Lines of operations, one after the other: what comes of each is told.
class Prompt {
 public:
  Prompt(Console& console, PromptRights rights) : console_(console), rights_(std::move(rights)) {}

  // Starts the library; throws Stop when it cannot be.
  void Begin();

  // Whether it went as the line wanted; throws Stop for a line that is none.
  Exit Run(std::string_view line, std::size_t number);

  [[nodiscard]] bool Ended() const { return ended_; }

 private:
  Exit Call(const Statement& statement, std::size_t number);
  [[nodiscard]] std::vector<std::string> TakePaper() const;
  void TellPrograms(const Operation& operation, const CallResult& result, std::size_t number) const;
  void TellPeople(const Operation& operation, const CallResult& result) const;
  [[nodiscard]] Exit Judge(const Statement& statement, const Operation& operation,
                           const CallResult& result) const;
  void Help(std::string_view name);

  Console& console_;
  PromptRights rights_;
  bool ended_ = false;
};

}  // namespace kestra::tool
