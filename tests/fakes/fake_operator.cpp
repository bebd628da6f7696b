#include "fakes/fake_operator.hpp"

#include <utility>

namespace kestra {

std::int32_t FakeOperator::Message(std::string_view text, std::string_view title,
                                   std::int32_t style) {
  trouble_.Reach(Point::kMessage);
  RunMeanwhile();
  std::int32_t answer = kAnswerOk;
  if (style == kBoxOk) {
    Answers(Answer::kOk);
  } else {
    answer = Answers(Answer::kYes) ? kAnswerYes : kAnswerNo;
    if (answer == kAnswerNo) Answers(Answer::kNo);
  }
  journal_.Add({.kind = Happening::kBox,
                .text = std::string(text),
                .detail = std::string(title),
                .number = style,
                .answer = answer});
  return answer;
}

bool FakeOperator::StatusReport(const Report& report) {
  trouble_.Reach(Point::kReport);
  RunMeanwhile();
  const bool retry = Answers(Answer::kRetry);
  if (!retry) Answers(Answer::kClose);
  Event event{.kind = Happening::kReport,
              .text = report.printer,
              .detail = report.fiscal,
              .number = 0,
              .answer = retry ? 1 : 0};
  for (const StatusRow& row : report.rows) {
    event.rows.push_back(
        {row.group, row.number, row.error, row.lit, std::string(row.text), std::string(row.hint)});
  }
  journal_.Add(std::move(event));
  return retry;
}

void FakeOperator::MemoryFull() {
  trouble_.Reach(Point::kMemoryFull);
  RunMeanwhile();
  journal_.Add({.kind = Happening::kMemoryFull, .text = {}, .detail = {}});
}

bool FakeOperator::Answers(Answer wanted) {
  if (answers_.empty() || answers_.front() != wanted) return false;
  answers_.pop_front();
  return true;
}

void FakeOperator::RunMeanwhile() {
  if (meanwhile_.empty()) return;
  const auto action = std::move(meanwhile_.front());
  meanwhile_.pop_front();
  action();
}

}  // namespace kestra
