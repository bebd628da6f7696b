#include <gtest/gtest.h>

#include "contract/shared/operator_bench.hpp"

namespace kestra {
namespace {

class OperatorContract : public ::testing::TestWithParam<Twin<OperatorBench>> {
 protected:
  std::int32_t Asked(std::int32_t style, std::optional<Answer> answer) {
    bench_->Answers(answer);
    return bench_->Get().Message("Seguir?", "Envia?", style);
  }
  bool Reported(std::optional<Answer> answer) {
    bench_->Answers(answer);
    return bench_->Get().StatusReport(
        {"4000", "0000", {{0, 14, true, true, "Impresora sin papel", "Verifique."}}});
  }

  std::unique_ptr<OperatorBench> bench_ = GetParam().make();
};

TEST_P(OperatorContract, AQuestionHasTwoAnswers) {
  for (const std::int32_t style : {kBoxYesNo, kBoxYesNoQuestion}) {
    EXPECT_EQ(Asked(style, Answer::kYes), kAnswerYes);
    EXPECT_EQ(Asked(style, Answer::kNo), kAnswerNo);
  }
}

TEST_P(OperatorContract, AMessageIsAccepted) {
  EXPECT_EQ(Asked(kBoxOk, Answer::kOk), kAnswerOk);
}

TEST_P(OperatorContract, AReportIsSentAgainOrClosed) {
  EXPECT_TRUE(Reported(Answer::kRetry));
  EXPECT_FALSE(Reported(Answer::kClose));
}

TEST_P(OperatorContract, TheWarningOfAFullMemoryIsClosed) {
  bench_->Answers(Answer::kClose);
  bench_->Get().MemoryFull();
}

TEST_P(OperatorContract, WhereNobodyAnswersNothingIsRisked) {
  EXPECT_EQ(Asked(kBoxYesNo, std::nullopt), kAnswerNo);
  EXPECT_EQ(Asked(kBoxYesNoQuestion, std::nullopt), kAnswerNo);
  EXPECT_EQ(Asked(kBoxOk, std::nullopt), kAnswerOk);
  EXPECT_FALSE(Reported(std::nullopt));
  bench_->Get().MemoryFull();
}

INSTANTIATE_TEST_SUITE_P(Twins, OperatorContract, ::testing::ValuesIn(OperatorTwins()),
                         TwinName<OperatorBench>);

}  // namespace
}  // namespace kestra
