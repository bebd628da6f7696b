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
  EXPECT_EQ(LeerCadena(TextSettings{}, Last(5), 5), "ABCDE");
}

TEST_F(PageEdge, WhatIsNotThereReadsAsBlanks) {
  std::copy_n("ABCDE", 5, Last(5));
  EXPECT_EQ(LeerCadena(TextSettings{}, Last(5), 8), "ABCDE   ");
  EXPECT_EQ(LeerCadena(TextSettings{}, Nowhere(), 3), "   ");
}

TEST_F(PageEdge, AnUnendedTextEndsWhereItsMemoryDoes) {
  std::copy_n("ABCDE", 5, Last(5));
  EXPECT_EQ(ReadTerminatedText(TextSettings{}, Last(5)), "ABCDE");
  EXPECT_EQ(ReadTerminatedText(TextSettings{}, Nowhere()), "");
}

TEST_F(PageEdge, AnEndedTextOfAnyLengthIsReadToItsEnd) {
  const std::string text(1000, 'x');
  std::copy_n(text.c_str(), text.size() + 1, Last(text.size() + 1));
  EXPECT_EQ(ReadTerminatedText(TextSettings{}, Last(text.size() + 1)), text);
}

// In each mode that looks for a text's end. The zero is the last byte that is there.
TEST_F(PageEdge, AShortTextMayEndWithThePage) {
  for (const std::int32_t mode : {1, 2}) {
    const TextSettings settings{.TextosTerminados = mode};
    std::copy_n("ABCDE", 6, Last(6));
    EXPECT_EQ(LeerCadena(settings, Last(6), 40), "ABCDE" + std::string(35, ' ')) << mode;
    EXPECT_EQ(LeerCadena(settings, Last(6), 5), "ABCDE") << mode;
    EXPECT_EQ(LeerCadena(settings, Last(1), 3), "   ") << mode;
    EXPECT_EQ(LeerCadena(settings, Nowhere(), 3), "   ") << mode;
    EXPECT_EQ(ReadTerminatedText(settings, Last(6)), "ABCDE") << mode;
    std::copy_n("ABCDE", 5, Last(5));
    EXPECT_EQ(LeerCadena(settings, Last(5), 40), "ABCDE" + std::string(35, ' ')) << mode;
  }
}

TEST_F(PageEdge, ACharacterThatThePageCutsIsNone) {
  std::copy_n("A\xE2\x82", 3, Last(3));
  EXPECT_EQ(LeerCadena(TextSettings{.TextosTerminados = 2}, Last(3), 5), "A--  ");
}

TEST_F(PageEdge, AZeroIsWrittenWithinTheBufferAlone) {
  const TextSettings settings{.TextosTerminados = 1};
  std::copy_n("......", 6, Last(6));
  DevolverCadena(settings, Last(3), "ABCDE", 3);
  DevolverCadena(settings, Last(6), "AB", 3);
  EXPECT_EQ(std::string_view(Last(6), 6), std::string_view("AB\0ABC", 6));
}

TEST_F(PageEdge, ABufferThatIsTooShortReceivesWhatItHolds) {
  DevolverCadena(TextSettings{}, Last(3), "ABCDE", 5);
  EXPECT_EQ(std::string_view(Last(3), 3), "ABC");
  EXPECT_EQ(DevolverCadena(TextSettings{}, Nowhere(), "ABCDE", 5), 5);
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
