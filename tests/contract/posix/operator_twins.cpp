#include <thread>

#include "contract/posix/cooked_line.hpp"
#include "contract/posix/surroundings.hpp"
#include "contract/shared/operator_bench.hpp"
#include "platform/posix/terminal_operator.hpp"

namespace kestra {
namespace {

// What is shown last, and what is typed then: whoever types before it is not heard.
struct How {
  const char* prompt;
  const char* keys;
};

How HowTo(Answer answer) {
  switch (answer) {
    case Answer::kYes:
      return {"N = No: ", "s\n"};
    case Answer::kNo:
      return {"N = No: ", "n\n"};
    case Answer::kOk:
      return {"Enter = Aceptar: ", "\n"};
    case Answer::kRetry:
      return {"Enter = Cerrar: ", "r\n"};
    default:
      return {"Enter = Cerrar: ", "\n"};
  }
}

// A person who answers a dialog when it has been shown to its end; gone when nobody is to answer.
class TerminalBench : public OperatorBench {
 public:
  ~TerminalBench() override { Wait(); }

  Operator& Get() override { return *operator_; }

  void Answers(std::optional<Answer> answer) override {
    Wait();
    if (!answer) {
      operator_ = std::make_unique<TerminalOperator>(
          OperatorSeat{.terminal = "/dev/no-hay-tal", .errors = -1});
      return;
    }
    person_ = std::thread([this, how = HowTo(*answer)] {
      if (!line_.ShownUntil(how.prompt).empty()) line_.Type(how.keys);
    });
  }

 private:
  void Wait() {
    if (person_.joinable()) person_.join();
  }

  Environment locale_{"LC_ALL", "C.UTF-8"};
  CookedLine line_;
  std::unique_ptr<TerminalOperator> operator_ = std::make_unique<TerminalOperator>(line_.Seat());
  std::thread person_;
};

}  // namespace

std::vector<Twin<OperatorBench>> OperatorTwins() {
  return {TwinOf<OperatorBench, HostBench>("Host"), TwinOf<OperatorBench, FakeBench>("Fake"),
          TwinOf<OperatorBench, TerminalBench>("Terminal")};
}

}  // namespace kestra
