#pragma once

#include "platform/seam/operator.hpp"

namespace kestra {

// The person before the screen. Every window belongs to the host's active one and holds the calling
// thread until it is closed; its messages go on meanwhile, so that the host may call in again.
class WindowOperator : public Operator {
 public:
  std::int32_t Message(std::string_view text, std::string_view title, std::int32_t style) override;
  bool StatusReport(const Report& report) override;
  void MemoryFull() override;
};

}  // namespace kestra
