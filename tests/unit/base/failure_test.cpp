// A failure in the words of the log, whatever it was that failed.

#include "base/failure.hpp"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>

namespace kestra {
namespace {

std::string InTheLog(const std::exception& error) {
  return FailureText(ToFailure(error));
}

TEST(Failure, OfOurOwnKeepsItsNumberAndWords) {
  EXPECT_EQ(InTheLog(Failure(8002, "Puerto")), "Error 8002 (Puerto)");
  EXPECT_EQ(InTheLog(TypeMismatch()), "Error 13 (Type mismatch)");
}

TEST(Failure, OfMemoryHasItsOwnNumber) {
  EXPECT_EQ(InTheLog(std::bad_alloc()), "Error 7 (Out of memory)");
}

TEST(Failure, OfAnyOtherKindIsInternal) {
  EXPECT_EQ(InTheLog(std::runtime_error("anything")), "Error 51 (Internal error)");
}

TEST(Failure, TellsItsWordsToWhomeverKnowsNoMoreThanAnException) {
  const Failure failure(8018, "Puerto cerrado");
  const std::exception& error = failure;
  EXPECT_STREQ(error.what(), "Puerto cerrado");
}

}  // namespace
}  // namespace kestra
