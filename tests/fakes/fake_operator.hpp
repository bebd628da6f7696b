#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <string_view>

#include "fakes/journal.hpp"
#include "fakes/trouble.hpp"
#include "platform/seam/operator.hpp"

namespace kestra {

enum class Answer { kOk, kYes, kNo, kRetry, kClose };

// An operator who follows a list. Where the list has no fitting answer at its front he is careful:
// No to questions, OK to messages, and he closes the report.
class FakeOperator : public Operator {
 public:
  FakeOperator(Journal& journal, Trouble& trouble) : journal_(journal), trouble_(trouble) {}

  std::int32_t Message(std::string_view text, std::string_view title, std::int32_t style) override;
  bool StatusReport(const Report& report) override;
  void MemoryFull() override;

  void Queue(Answer answer) { answers_.push_back(answer); }
  [[nodiscard]] std::size_t Queued() const { return answers_.size(); }

  // The list is torn up.
  void Forget() {
    answers_.clear();
    meanwhile_.clear();
  }

  // What goes on in the host while the next box is open: its timers may call the library.
  void Meanwhile(std::function<void()> action) { meanwhile_.push_back(std::move(action)); }

 private:
  bool Answers(Answer wanted);
  void RunMeanwhile();

  Journal& journal_;
  Trouble& trouble_;
  std::deque<Answer> answers_;
  std::deque<std::function<void()>> meanwhile_;
};

}  // namespace kestra
