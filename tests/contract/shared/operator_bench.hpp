#pragma once

#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "contract/shared/bench.hpp"
#include "dialogs/host_operator.hpp"
#include "fakes/fake_operator.hpp"
#include "platform/seam/operator.hpp"

namespace kestra {

// An operator who can be told what to answer.
class OperatorBench : public Bench {
 public:
  virtual Operator& Get() = 0;

  // To the next dialog; nothing: from here on nobody is there to answer.
  virtual void Answers(std::optional<Answer> answer) = 0;
};

// Those that can be tried without a window.
std::vector<Twin<OperatorBench>> OperatorTwins();

// The fake.
class FakeBench : public OperatorBench {
 public:
  Operator& Get() override { return operator_; }
  void Answers(std::optional<Answer> answer) override {
    operator_.Forget();
    if (answer) operator_.Queue(*answer);
  }

 private:
  Journal journal_;
  Trouble trouble_;
  FakeOperator operator_{journal_, trouble_};
};

// A host's callbacks.
class HostBench : public OperatorBench {
 public:
  HostBench();
  Operator& Get() override { return host_; }
  void Answers(std::optional<Answer> answer) override;

 private:
  // What he says next, once.
  struct NextAnswer {
    std::int32_t next = 0;

    std::int32_t Message(auto... /*shown*/) { return std::exchange(next, 0); }
    std::int32_t Report(auto... /*shown*/) { return std::exchange(next, 0); }
    void MemoryFull() { next = 0; }
  };

  NextAnswer answer_;
  FakeBench nobody_;
  HostOperator host_{nobody_.Get()};
};

}  // namespace kestra
