#pragma once

#include "kestra/kestra.h"
#include "platform/seam/operator.hpp"

namespace kestra {

// The host's own dialogs where it has given some, another operator's where it has not. Each
// callback may give new ones while it runs.
class HostOperator : public Operator {
 public:
  explicit HostOperator(Operator& fallback) : fallback_(fallback) {}

  // Copies the record as far as its `tamano` reaches; null takes all callbacks away.
  void Set(const KestraOperador* record);

  std::int32_t Message(std::string_view text, std::string_view title, std::int32_t style) override;
  bool StatusReport(const Report& report) override;
  void MemoryFull() override;

 private:
  Operator& fallback_;
  KestraOperador record_ = {};
};

}  // namespace kestra
