#pragma once

#include <unistd.h>
#include <optional>
#include <string>
#include <string_view>

#include "platform/posix/files.hpp"
#include "platform/seam/operator.hpp"

namespace kestra {

// True when the terminal is the process's own and its input belongs to the process now.
bool InForeground(int terminal);

// Where the operator sits. The defaults are the world; tests bring a pseudo-terminal and a pipe.
struct OperatorSeat {
  std::string terminal = "/dev/tty";
  int errors = STDERR_FILENO;
  bool (*attended)(int terminal) = InForeground;
};

// Asks on the process's terminal when somebody can answer there. Otherwise it answers at once what
// does no harm, and says so on standard error. Standard output belongs to the host.
class TerminalOperator : public Operator {
 public:
  explicit TerminalOperator(OperatorSeat seat = {});

  std::int32_t Message(std::string_view text, std::string_view title, std::int32_t style) override;
  bool StatusReport(const Report& report) override;
  void MemoryFull() override;

 private:
  [[nodiscard]] FileDescriptor OpenTerminal() const;
  [[nodiscard]] std::optional<std::string> Ask(int terminal, std::string_view dialog) const;
  [[nodiscard]] std::int32_t AskYesNo(int terminal, std::string_view dialog) const;
  void Note(std::string_view line) const;

  OperatorSeat seat_;
  std::string codeset_;
};

// Writes a line to the host's standard error if that takes it at once. Nothing that is wrong with
// it, a full pipe or one whose reader is gone, stops or ends the host.
void WriteNote(int fd, std::string line);

}  // namespace kestra
