// The host's memory at the edge of what there is.

#include "platform/seam/host.hpp"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

#include "dialogs/host_operator.hpp"
#include "fakes/fake_platform.hpp"
#include "operation/host_buffer.hpp"

namespace kestra {
namespace {

// One page that is there, and none behind it.
class PageEdge : public testing::Test {
 protected:
  PageEdge()
      : page_(static_cast<std::size_t>(::sysconf(_SC_PAGESIZE))),
        base_(static_cast<char*>(::mmap(nullptr, 2 * page_, PROT_READ | PROT_WRITE,
                                        MAP_PRIVATE | MAP_ANONYMOUS, -1, 0))) {
    ::mprotect(base_ + page_, page_, PROT_NONE);
  }
  ~PageEdge() override { ::munmap(base_, 2 * page_); }

  // The last `count` bytes that are there.
  char* Last(std::size_t count) const { return base_ + page_ - count; }
  char* Nowhere() const { return base_ + page_; }

 private:
  std::size_t page_;
  char* base_;
};

TEST_F(PageEdge, ATextThatEndsWithThePageIsReadWhole) {
  std::copy_n("ABCDE", 5, Last(5));
  EXPECT_EQ(LeerCadena(Last(5), 5), "ABCDE");
}

TEST_F(PageEdge, WhatIsNotThereReadsAsBlanks) {
  std::copy_n("ABCDE", 5, Last(5));
  EXPECT_EQ(LeerCadena(Last(5), 8), "ABCDE   ");
  EXPECT_EQ(LeerCadena(Nowhere(), 3), "   ");
}

TEST_F(PageEdge, AnUnendedTextEndsWhereItsMemoryDoes) {
  std::copy_n("ABCDE", 5, Last(5));
  EXPECT_EQ(ReadTerminatedText(Last(5)), "ABCDE");
  EXPECT_EQ(ReadTerminatedText(Nowhere()), "");
}

TEST_F(PageEdge, AnEndedTextOfAnyLengthIsReadToItsEnd) {
  const std::string text(1000, 'x');
  std::copy_n(text.c_str(), text.size() + 1, Last(text.size() + 1));
  EXPECT_EQ(ReadTerminatedText(Last(text.size() + 1)), text);
}

TEST_F(PageEdge, ABufferThatIsTooShortReceivesWhatItHolds) {
  DevolverCadena(Last(3), "ABCDE", 5);
  EXPECT_EQ(std::string_view(Last(3), 3), "ABC");
  EXPECT_EQ(DevolverCadena(Nowhere(), "ABCDE", 5), 5);
}

// Half of a record is none: what follows it could be anybody's callback.
TEST_F(PageEdge, ADialogRecordThatIsShorterThanItSaysLeavesTheDefault) {
  FakePlatform world;
  HostOperator host(world.GetOperator());
  KestraOperador record = {};
  record.tamano = sizeof record;
  record.mensaje = [](void*, const char*, const char*, std::int32_t) -> std::int32_t { return 7; };
  host.Set(&record);
  EXPECT_EQ(host.Message("text", "", kBoxYesNo), kAnswerNo);
  constexpr auto kThere = offsetof(KestraOperador, memoria_llena);
  std::memcpy(Last(kThere), &record, kThere);
  host.Set(reinterpret_cast<const KestraOperador*>(Last(kThere)));
  world.GetOperator().Queue(Answer::kYes);
  EXPECT_EQ(host.Message("text", "", kBoxYesNo), kAnswerYes);
}

}  // namespace
}  // namespace kestra
