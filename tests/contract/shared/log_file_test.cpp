#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "contract/shared/bench.hpp"
#include "contract/shared/odd_files.hpp"
#include "fakes/fake_log.hpp"

namespace kestra {
namespace {

constexpr const char* kName = ".\\fiscal.log";

// A log, and what is in it.
class LogBench : public Bench {
 public:
  virtual LogFile& Get() = 0;
  virtual std::string Text() = 0;
  virtual std::string Aside() = 0;  // what was set aside
  virtual void Block() = 0;         // nothing can be written any more
};

class LogInAFile : public LogBench {
 public:
  LogFile& Get() override { return log_; }
  std::string Text() override { return ReadFile("fiscal.log"); }
  std::string Aside() override { return ReadFile("fiscal.log.1"); }
  void Block() override { std::filesystem::create_directory("fiscal.log"); }

 private:
  ScratchDirectory scratch_;
  SystemLog log_;
};

class LogInMemory : public LogBench {
 public:
  LogFile& Get() override { return log_; }
  std::string Text() override { return log_.Text(kName); }
  std::string Aside() override { return log_.Text(std::string(kName) + ".1"); }
  void Block() override { log_.SetReadOnly(true); }

 private:
  Journal journal_;
  Trouble trouble_;
  FakeLog log_{journal_, trouble_};
};

class LogContract : public ::testing::TestWithParam<Twin<LogBench>> {
 protected:
  void Append(std::string_view bytes) { bench_->Get().Append(kName, bytes); }

  std::unique_ptr<LogBench> bench_ = GetParam().make();
};

TEST_P(LogContract, IsCreatedWhenMissing) {
  Append("uno\r\n");
  EXPECT_EQ(bench_->Text(), "uno\r\n");
}

TEST_P(LogContract, GrowsAtItsEnd) {
  Append("viejo\r\n");
  Append("uno\r\n");
  Append("dos\r\n");
  EXPECT_EQ(bench_->Text(), "viejo\r\nuno\r\ndos\r\n");
}

TEST_P(LogContract, KeepsEveryByteAsItIs) {
  const std::string bytes("\x02\x00\x1C\xF3\r\n", 6);
  Append(bytes);
  EXPECT_EQ(bench_->Text(), bytes);
}

TEST_P(LogContract, OneThatCannotBeWrittenIsAFailure) {
  bench_->Block();
  EXPECT_EQ(FailureNumber([&] { Append("x"); }), GetParam().failure);
}

TEST_P(LogContract, OneThatHasGrownIsSetAsideOverWhatWasThere) {
  for (const char* const text : {"uno\r\n", "dos\r\n"}) {
    Append(text);
    bench_->Get().SetAside(kName, 6);
    EXPECT_EQ(bench_->Text(), text);  // 5 bytes
    bench_->Get().SetAside(kName, 5);
    EXPECT_EQ(bench_->Text(), "");
    EXPECT_EQ(bench_->Aside(), text);
  }
}

TEST_P(LogContract, OneThatIsNotThereIsNotSetAside) {
  bench_->Get().SetAside(kName, 0);
  EXPECT_EQ(bench_->Aside(), "");
}

INSTANTIATE_TEST_SUITE_P(Twins, LogContract,
                         ::testing::Values(TwinOf<LogBench, LogInAFile>("System", kLogIsADirectory),
                                           TwinOf<LogBench, LogInMemory>("Fake", 75)),
                         TwinName<LogBench>);

TEST_F(OddFiles, TheLogTakesALogOfAnEarlierDayUp) {
  WriteFile("fiscal.log", "viejo\r\n");
  log_.Append(kName, "uno\r\n");
  EXPECT_EQ(ReadFile("fiscal.log"), "viejo\r\nuno\r\n");
}

TEST_F(OddFiles, TheLogMayBeDeletedBetweenTwoLines) {
  log_.Append(kName, "uno");
  std::filesystem::remove("fiscal.log");
  log_.Append(kName, "dos");
  EXPECT_EQ(ReadFile("fiscal.log"), "dos");
}

TEST_F(OddFiles, AMissingDirectoryOfTheLogIsAFailure) {
  EXPECT_EQ(FailureNumber([&] { log_.Append(".\\no\\fiscal.log", "x"); }), 76);
}

}  // namespace
}  // namespace kestra
