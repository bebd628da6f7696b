#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "fakes/fake_operator.hpp"
#include "platform/seam/operator.hpp"

namespace kestra {

// An operator who can be told what to answer.
class OperatorBench {
 public:
  OperatorBench() = default;
  OperatorBench(const OperatorBench&) = delete;
  OperatorBench& operator=(const OperatorBench&) = delete;
  virtual ~OperatorBench() = default;

  virtual Operator& Get() = 0;

  // To the next dialog; nothing: from here on nobody is there to answer.
  virtual void Answers(std::optional<Answer> answer) = 0;
};

struct OperatorTwin {
  const char* name;
  std::unique_ptr<OperatorBench> (*make)();
};

// Those that can be tried without a window.
std::vector<OperatorTwin> OperatorTwins();

// The host's callbacks, and the fake.
std::unique_ptr<OperatorBench> MakeHostBench();
std::unique_ptr<OperatorBench> MakeFakeBench();

}  // namespace kestra
