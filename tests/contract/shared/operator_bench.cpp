#include "contract/shared/operator_bench.hpp"

#include <utility>

namespace kestra {
namespace {

std::int32_t AnswerOf(void* context) {
  return std::exchange(*static_cast<std::int32_t*>(context), 0);
}

std::int32_t KESTRA_CALL OnMessage(void* context, const char* /*text*/, const char* /*title*/,
                                   std::int32_t /*style*/) {
  return AnswerOf(context);
}

std::int32_t KESTRA_CALL OnReport(void* context, const char* /*printer*/, const char* /*fiscal*/,
                                  const KestraFila* /*rows*/, std::int32_t /*count*/) {
  return AnswerOf(context);
}

void KESTRA_CALL OnMemoryFull(void* context) {
  AnswerOf(context);
}

}  // namespace

HostBench::HostBench() {
  const KestraOperador record{sizeof record, &answer_, OnMessage, OnReport, OnMemoryFull};
  host_.Set(&record);
}

void HostBench::Answers(std::optional<Answer> answer) {
  answer_ = !answer                     ? 0
            : *answer == Answer::kYes   ? kAnswerYes
            : *answer == Answer::kNo    ? kAnswerNo
            : *answer == Answer::kRetry ? 1
                                        : 0;
}

}  // namespace kestra
