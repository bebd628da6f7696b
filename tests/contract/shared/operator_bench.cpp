#include "contract/shared/operator_bench.hpp"

#include "exports/callbacks.hpp"

namespace kestra {

HostBench::HostBench() {
  const auto record = exports::RecordOf(answer_);
  host_.Set(&record);
}

void HostBench::Answers(std::optional<Answer> answer) {
  answer_.next = !answer                     ? 0
                 : *answer == Answer::kYes   ? kAnswerYes
                 : *answer == Answer::kNo    ? kAnswerNo
                 : *answer == Answer::kRetry ? 1
                                             : 0;
}

}  // namespace kestra
