#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "contract/posix/surroundings.hpp"
#include "contract/shared/scratch.hpp"
#include "fakes/failure_number.hpp"
#include "platform/posix/journal_file.hpp"

namespace kestra {
namespace {

namespace fs = std::filesystem;

constexpr const char* kName = ".\\diario.txt";

class PosixJournalTest : public ::testing::Test {
 protected:
  std::int32_t FailureOfOpening() {
    return FailureNumber([&] { journal_.Open(kName); });
  }

  ScratchDirectory scratch_;
  PosixJournalFile journal_;
};

struct NoFile {
  const char* what;
  void (*make)(const char* name);
  std::int32_t failure;
};

TEST_F(PosixJournalTest, WhatKeepsNothingIsNoJournal) {
  for (const NoFile& row : {
           NoFile{"a pipe", [](const char* name) { ASSERT_EQ(::mkfifo(name, 0600), 0); }, 75},
           NoFile{"what swallows all",
                  [](const char* name) { fs::create_symlink("/dev/null", name); }, 75},
           NoFile{"a link to nowhere",
                  [](const char* name) { fs::create_symlink("no/esta", name); }, 76},
           NoFile{"more than a journal grows to",
                  [](const char* name) {
                    WriteFile(name, "");
                    fs::resize_file(name, std::uintmax_t{65} << 20);
                  },
                  75},
       }) {
    const ScratchDirectory here;
    row.make("diario.txt");
    EXPECT_EQ(FailureOfOpening(), row.failure) << row.what;
    EXPECT_FALSE(journal_.IsOpen()) << row.what;
  }
}

TEST_F(PosixJournalTest, WithoutRightsInTheFolderItIsAFailure) {
  const OrdinaryUser user(scratch_.Path());
  EXPECT_EQ(FailureOfOpening(), 70);
}

TEST_F(PosixJournalTest, AReadOnlyFileIsAFailure) {
  WriteFile("diario.txt", "viejo");
  ASSERT_EQ(::chmod("diario.txt", 0444), 0);
  const OrdinaryUser user(scratch_.Path());
  EXPECT_EQ(FailureOfOpening(), 70);
}

TEST_F(PosixJournalTest, OneThatMayNotGrowEndsNobodyIsCutWhereItWasAndOverwritten) {
  EXPECT_EQ(InChild([] {
              const rlimit seven = {.rlim_cur = 7, .rlim_max = 7};
              ::setrlimit(RLIMIT_FSIZE, &seven);
              PosixJournalFile journal;
              journal.Open(kName);
              journal.Append("uno\n");
              const bool failed = FailureNumber([&] { journal.Append("dos tres\n"); }) == 75;
              journal.Truncate(4);
              journal.Append("dos");
              journal.Overwrite(4, "DOS");
              return failed;
            }),
            0);
  EXPECT_EQ(ReadFile("diario.txt"), "uno\nDOS");
}

TEST_F(PosixJournalTest, AProgramThatWasKilledLeavesItToTheNext) {
  const int status = InChild([] {
    PosixJournalFile journal;
    journal.Open(kName);
    journal.Append("uno\n");
    return ::kill(::getpid(), SIGKILL) == 0;
  });
  EXPECT_TRUE(WIFSIGNALED(status));
  journal_.Open(kName);
  EXPECT_EQ(journal_.Read(), "uno\n");
}

TEST_F(PosixJournalTest, AProgramThatThisOneStartsDoesNotHoldIt) {
  journal_.Open(kName);
  const int fds = std::system("ls -l /proc/self/fd | grep -q diario");
  EXPECT_NE(fds, 0);
}

TEST_F(PosixJournalTest, ALinkToItIsItself) {
  WriteFile("otro", "");
  fs::create_symlink("otro", "diario.txt");
  journal_.Open(kName);
  journal_.Append("uno\n");
  PosixJournalFile other;
  EXPECT_EQ(FailureNumber([&] { other.Open(".\\otro"); }), kFileInUse);
  EXPECT_EQ(ReadFile("otro"), "uno\n");
}

}  // namespace
}  // namespace kestra
