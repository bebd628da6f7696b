#include "contract/shared/operator_bench.hpp"

#include <utility>

#include "dialogs/host_operator.hpp"

namespace kestra {
namespace {

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

class HostBench : public OperatorBench {
 public:
  HostBench() {
    const KestraOperador record{sizeof record, &answer_, OnMessage, OnReport, OnMemoryFull};
    host_.Set(&record);
  }
  Operator& Get() override { return host_; }
  void Answers(std::optional<Answer> answer) override {
    answer_ = !answer                     ? 0
              : *answer == Answer::kYes   ? kAnswerYes
              : *answer == Answer::kNo    ? kAnswerNo
              : *answer == Answer::kRetry ? 1
                                          : 0;
  }

 private:
  std::int32_t answer_ = 0;
  FakeBench nobody_;
  HostOperator host_{nobody_.Get()};
};

}  // namespace

std::unique_ptr<OperatorBench> MakeHostBench() {
  return std::make_unique<HostBench>();
}

std::unique_ptr<OperatorBench> MakeFakeBench() {
  return std::make_unique<FakeBench>();
}

}  // namespace kestra
