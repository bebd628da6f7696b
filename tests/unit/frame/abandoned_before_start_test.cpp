// A host that calls before the start, and jumps out of the box that says so: there is no port to let go of.

#include <gtest/gtest.h>

#include <csetjmp>

#include "fakes/fake_platform.hpp"
#include "frame/instance.hpp"
#include "unit/lost_memory.hpp"
#include "unit/world.hpp"

namespace kestra {
namespace {

std::int32_t KESTRA_CALL LeaveByJump(void* context, const char* /*text*/, const char* /*title*/,
                                     std::int32_t /*style*/) {
  std::longjmp(*static_cast<std::jmp_buf*>(context), 1);  // NOLINT(cert-err52-cpp): the host's way
}

void CallAndLeave() {
  const unit::LostMemory lost;
  std::jmp_buf way_out;
  const KestraOperador record{sizeof record, &way_out, LeaveByJump, nullptr, nullptr};
  Kestra_DefinirOperador(&record);
  if (setjmp(way_out) == 0) {  // NOLINT(cert-err52-cpp)
    EP_CortaPapel();
    FAIL() << "the call came back";
  }
  Kestra_DefinirOperador(nullptr);
}

TEST(AbandonedBeforeTheStart, TheStartAndWhatFollowsWork) {
  auto& world = unit::ExportsOnFakes();
  CallAndLeave();
  EXPECT_EQ(EP_Init(), 1);
  EXPECT_EQ(EP_CortaPapel(), 0);
  EXPECT_EQ(unit::TextsOf(world.GetJournal(), Happening::kOpen).size(), 1u);
}

TEST(AbandonedBeforeTheStart, AnotherCallFailsAsTheFirstOneDid) {
  auto& world = unit::ExportsOnFakes();
  CallAndLeave();
  EXPECT_EQ(EP_CortaPapel(), 1);
  EXPECT_EQ(unit::Wire(world.GetJournal()), "");
}

}  // namespace
}  // namespace kestra
