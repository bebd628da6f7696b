#pragma once

#include <string>
#include <string_view>

#include "protocol/answer.hpp"
#include "state/report.hpp"

namespace kestra {

struct Library;

// Watches an exchange and tells the call's report what becomes of its command. It looks on and has no say in
// what is done next: without memory it knows nothing, and the exchange goes on.
class FrameReport {
 public:
  FrameReport(Library& library, std::string command);

  // A sending begins; its frame is about to be written, to which `header` begins the answer; bytes have come.
  void Begin();
  void Sending(std::string_view header);
  void Heard(std::string_view bytes) noexcept;

  // The wait is over. What the line brought says what became of this sending; `waiting` has come but was not
  // taken.
  void Judge(std::string_view waiting) noexcept;

  // The exchange is over, by itself or by a failure.
  void End();
  void Fail(const Failure& failure) noexcept;

 private:
  Verdict Known(const Verdict& without_answer) noexcept;
  void Conclude(Verdict verdict);
  void Learn(const Fields& answer);

  Library& library_;
  std::string command_;
  Errand errand_;
  Verdict verdict_;         // on all sendings so far
  bool concluded_ = false;  // the newest one is part of it
  bool sent_ = false;       // its frame is on the line, or a part of it
  std::string header_;
  std::string heard_;  // since then
};

}  // namespace kestra
