#pragma once

#include <atomic>

#include "kestra/kestra.h"
#include "platform/seam/operator.hpp"
#include "state/text_settings.hpp"

namespace kestra {

// The host's own dialogs where it has given some, another operator's where it has not. Each
// callback may give new ones while it runs.
class HostOperator : public Operator {
 public:
  explicit HostOperator(Operator& fallback) : fallback_(fallback) {}

  // As these say, for as long as they live; without them as hosts have always heard them.
  void Speak(const TextSettings& texts) { texts_ = &texts; }

  // Copies the record as far as its `tamano` reaches; null takes all callbacks away. On any thread.
  void Set(const KestraOperador* record);

  std::int32_t Message(std::string_view text, std::string_view title, std::int32_t style) override;
  bool StatusReport(const Report& report) override;
  void MemoryFull() override;

 private:
  // Held for the copying of a record and nothing else: whoever waits waits for a few instructions.
  class Copying {
   public:
    explicit Copying(std::atomic_flag& busy) : busy_(busy) {
      while (busy_.test_and_set(std::memory_order_acquire)) {
      }
    }
    Copying(const Copying&) = delete;
    Copying& operator=(const Copying&) = delete;
    ~Copying() { busy_.clear(std::memory_order_release); }

   private:
    std::atomic_flag& busy_;
  };

  // The host's record as it is now: another thread may set the next one meanwhile.
  KestraOperador Record() const {
    const Copying copying(busy_);
    return record_;
  }

  Operator& fallback_;
  TextSettings plain_;
  const TextSettings* texts_ = &plain_;
  KestraOperador record_ = {};
  mutable std::atomic_flag busy_;
};

}  // namespace kestra
