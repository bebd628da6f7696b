#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "contract/shared/bench.hpp"
#include "contract/shared/scratch.hpp"
#include "fakes/failure_number.hpp"
#include "fakes/fake_journal_file.hpp"
#include "system.hpp"

namespace kestra {
namespace {

constexpr const char* kName = ".\\diario.txt";

// A journal, another program's hands on the same disk, and what is there.
class JournalBench : public Bench {
 public:
  virtual JournalFile& Get() = 0;
  virtual JournalFile& Other() = 0;
  virtual std::string Text(const std::string& suffix = "") = 0;
};

class SystemJournal : public JournalBench {
 public:
  JournalFile& Get() override { return journal_; }
  JournalFile& Other() override { return other_; }
  std::string Text(const std::string& suffix) override { return ReadFile("diario.txt" + suffix); }

 private:
  ScratchDirectory scratch_;
  SystemJournalFile journal_;
  SystemJournalFile other_;
};

class JournalInMemory : public JournalBench {
 public:
  JournalFile& Get() override { return journal_; }
  JournalFile& Other() override { return other_; }
  std::string Text(const std::string& suffix) override {
    const auto found = journal_.Disk()->files.find(kName + suffix);
    return found == journal_.Disk()->files.end() ? std::string() : found->second;
  }

 private:
  Journal events_;
  Trouble trouble_;
  FakeJournalFile journal_{events_, trouble_};
  FakeJournalFile other_{events_, trouble_, journal_.Disk()};
};

class JournalContract : public ::testing::TestWithParam<Twin<JournalBench>> {
 protected:
  std::vector<std::string> Kept() {
    auto kept = journal_.Kept();
    std::sort(kept.begin(), kept.end());
    return kept;
  }

  std::unique_ptr<JournalBench> bench_ = GetParam().make();
  JournalFile& journal_ = bench_->Get();
};

TEST_P(JournalContract, AMissingOneIsCreatedEmpty) {
  EXPECT_FALSE(journal_.IsOpen());
  journal_.Open(kName);
  EXPECT_TRUE(journal_.IsOpen());
  EXPECT_EQ(journal_.Read(), "");
}

TEST_P(JournalContract, GrowsAtItsEndAndKeepsEveryByte) {
  const std::string bytes("\x1C\x00\t\xF3\n", 5);
  journal_.Open(kName);
  journal_.Append("uno\n");
  EXPECT_EQ(journal_.Read(), "uno\n");
  journal_.Append(bytes);
  EXPECT_EQ(journal_.Read(), "uno\n" + bytes);
  EXPECT_EQ(bench_->Text(), "uno\n" + bytes);  // for whoever reads it meanwhile
}

TEST_P(JournalContract, IsTakenUpWhereItWasLeft) {
  journal_.Open(kName);
  journal_.Append("uno\n");
  journal_.Close();
  EXPECT_FALSE(journal_.IsOpen());
  journal_.Open(kName);
  journal_.Append("dos\n");
  EXPECT_EQ(journal_.Read(), "uno\ndos\n");
}

TEST_P(JournalContract, ATornTailIsCutOff) {
  journal_.Open(kName);
  journal_.Append("uno\ndo");
  journal_.Truncate(4);
  EXPECT_EQ(journal_.Read(), "uno\n");
  journal_.Append("tres\n");
  EXPECT_EQ(journal_.Read(), "uno\ntres\n");
}

TEST_P(JournalContract, IsOverwrittenInItsMiddleAndGrowsAtItsEnd) {
  journal_.Open(kName);
  journal_.Append("uno\ndos\n");
  journal_.Overwrite(4, "DOS\n");
  EXPECT_EQ(journal_.Read(), "uno\nDOS\n");
  journal_.Append("tres\n");
  journal_.Overwrite(0, "U");
  EXPECT_EQ(bench_->Text(), "Uno\nDOS\ntres\n");
}

TEST_P(JournalContract, AnotherProgramDoesNotGetItMeanwhile) {
  journal_.Open(kName);
  EXPECT_EQ(FailureNumber([&] { bench_->Other().Open(kName); }), kFileInUse);
  EXPECT_FALSE(bench_->Other().IsOpen());
  journal_.Append("uno\n");
  journal_.Close();
  bench_->Other().Open(kName);
  EXPECT_EQ(bench_->Other().Read(), "uno\n");
  EXPECT_EQ(FailureNumber([&] { journal_.Open(kName); }), kFileInUse);
}

TEST_P(JournalContract, OpenedAgainItStaysWithThisProgram) {
  journal_.Open(kName);
  journal_.Append("uno\n");
  journal_.Open(kName);
  EXPECT_EQ(journal_.Read(), "uno\n");
  EXPECT_EQ(FailureNumber([&] { bench_->Other().Open(kName); }), kFileInUse);
}

TEST_P(JournalContract, BeginsAnewAndKeepsTheOldOneAside) {
  journal_.Open(kName);
  journal_.Append("lunes\n");
  journal_.BeginAnew("-20261121");
  EXPECT_EQ(journal_.Read(), "");
  journal_.Append("martes\n");
  EXPECT_EQ(bench_->Text("-20261121"), "lunes\n");
  EXPECT_EQ(bench_->Text(), "martes\n");
  EXPECT_EQ(FailureNumber([&] { bench_->Other().Open(kName); }), kFileInUse);
}

TEST_P(JournalContract, WhatIsKeptIsListedAndDeleted) {
  journal_.Open(kName);
  journal_.BeginAnew("-20261120");
  journal_.BeginAnew("-20261121");
  EXPECT_EQ(Kept(), (std::vector<std::string>{"-20261120", "-20261121"}));
  journal_.DeleteKept("-20261120");
  EXPECT_EQ(Kept(), std::vector<std::string>{"-20261121"});
  EXPECT_EQ(FailureNumber([&] { journal_.DeleteKept("-20261120"); }), 76);
}

INSTANTIATE_TEST_SUITE_P(Twins, JournalContract,
                         ::testing::Values(TwinOf<JournalBench, SystemJournal>("System"),
                                           TwinOf<JournalBench, JournalInMemory>("Fake")),
                         TwinName<JournalBench>);

class JournalFileTest : public ::testing::Test {
 protected:
  ScratchDirectory scratch_;
  SystemJournalFile journal_;
};

TEST_F(JournalFileTest, StaysWhereItIsWhenTheHostGoesElsewhere) {
  journal_.Open(kName);
  std::filesystem::create_directory("otra");
  std::filesystem::current_path("otra");
  journal_.Append("uno\n");
  journal_.BeginAnew("-1");
  EXPECT_EQ(journal_.Kept(), std::vector<std::string>{"-1"});
  journal_.DeleteKept("-1");
  std::filesystem::current_path("..");
  EXPECT_EQ(ReadFile("diario.txt"), "");
  EXPECT_TRUE(std::filesystem::is_empty("otra"));
}

TEST_F(JournalFileTest, AMissingDirectoryIsAFailure) {
  EXPECT_EQ(FailureNumber([&] { journal_.Open(".\\no\\diario.txt"); }), 76);
  EXPECT_FALSE(journal_.IsOpen());
}

TEST_F(JournalFileTest, ADirectoryIsNoJournal) {
  std::filesystem::create_directory("diario.txt");
  EXPECT_EQ(FailureNumber([&] { journal_.Open(kName); }), kLogIsADirectory);
}

TEST_F(JournalFileTest, WhatCannotBeKeptAsideStaysWhereItIs) {
  journal_.Open(kName);
  journal_.Append("lunes\n");
  std::filesystem::create_directory("diario.txt-1");
  EXPECT_NE(FailureNumber([&] { journal_.BeginAnew("-1"); }), 0);
  EXPECT_EQ(journal_.Read(), "lunes\n");
  journal_.Append("martes\n");
  EXPECT_EQ(ReadFile("diario.txt"), "lunes\nmartes\n");
}

}  // namespace
}  // namespace kestra
