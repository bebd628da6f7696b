// A process in which not even the platform can be made: the exports say so and throw nothing.

#include <gtest/gtest.h>

#include "exports/exports.hpp"
#include "kestra/kestra.h"

namespace kestra {
namespace {

TEST(WithoutAWorld, AHostsOperatorIsNotTakenAndNothingIsThrown) {
  const KestraOperador record{sizeof(KestraOperador), nullptr, nullptr, nullptr, nullptr};
  EXPECT_NO_THROW(Kestra_DefinirOperador(&record));
  EXPECT_NO_THROW(Kestra_DefinirOperador(nullptr));
}

TEST(WithoutAWorld, EveryExportGivesItsFailureResultAndThrowsNothing) {
  for (const auto& exported : exports::Exports()) {
    SCOPED_TRACE(exported.name);
    EXPECT_NO_THROW({
      const auto result = exported.call({});
      if (exported.nature != exports::Nature::kBeside) {
        EXPECT_EQ(result, exported.failed);
      }
    });
  }
}

}  // namespace
}  // namespace kestra
