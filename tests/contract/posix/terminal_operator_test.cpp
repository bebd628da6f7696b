#include "platform/posix/terminal_operator.hpp"

#include <gtest/gtest.h>
#include <pthread.h>
#include <pty.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <future>
#include <vector>

#include "base/ansi.hpp"
#include "contract/posix/cooked_line.hpp"
#include "contract/posix/surroundings.hpp"

namespace kestra {
namespace {

// A person at a terminal that shows what is typed and takes whole lines.
class TerminalOperatorTest : public ::testing::Test {
 protected:
  template <typename Action>
  auto Meanwhile(Action action) {
    return std::async(std::launch::async, action);
  }
  std::future<std::int32_t> Ask(std::int32_t style) {
    return Meanwhile([this, style] { return operator_.Message("Seguir?", "Envia?", style); });
  }
  std::string Shown(const std::string& until) { return line_.ShownUntil(until); }
  void Type(std::string_view keys) { ASSERT_TRUE(line_.Type(keys)); }

  Environment locale_{"LC_ALL", "C.UTF-8"};
  CookedLine line_;
  TerminalOperator operator_{line_.Seat()};
};

TEST_F(TerminalOperatorTest, AQuestionIsAskedUntilTheAnswerIsClear) {
  const struct {
    const char* what;
    std::vector<const char*> typed;
    std::int32_t answer;
  } rows[] = {
      {"yes is yes", {"s\n"}, kAnswerYes},
      {"an unclear answer is asked for again", {"\n", "tal vez\n", "sí\n"}, kAnswerYes},
      {"the end of input is the safe answer", {"\x04"}, kAnswerNo},
  };
  for (const auto& row : rows) {
    auto answer = Ask(kBoxYesNoQuestion);
    const std::string shown = Shown("N = No: ");
    EXPECT_NE(shown.find("--- Envia? ---\r\nSeguir?\r\nS = Sí, N = No: "), std::string::npos);
    for (const char* const keys : row.typed) {
      if (keys != row.typed.front()) Shown("N = No: ");
      Type(keys);
    }
    EXPECT_EQ(answer.get(), row.answer) << row.what;
  }
}

TEST_F(TerminalOperatorTest, WhatWasTypedBeforeTheQuestionIsNoAnswer) {
  Type("s\n");
  Shown("\n");
  auto answer = Ask(kBoxYesNo);
  Shown("N = No: ");
  Type("n\n");
  EXPECT_EQ(answer.get(), kAnswerNo);
}

TEST_F(TerminalOperatorTest, ATerminalThatGoesAwayIsTheSafeAnswer) {
  auto answer = Ask(kBoxYesNo);
  Shown("N = No: ");
  line_.Unplug();
  EXPECT_EQ(answer.get(), kAnswerNo);
}

TEST_F(TerminalOperatorTest, ASignalIsTheSafeAnswer) {
  struct sigaction action = {};
  struct sigaction before = {};
  action.sa_handler = [](int) {};
  ::sigaction(SIGUSR1, &action, &before);
  std::atomic<pthread_t> asker = ::pthread_self();
  auto answer = Meanwhile([&] {
    asker = ::pthread_self();
    return operator_.Message("Seguir?", "", kBoxYesNo);
  });
  Shown("N = No: ");
  while (answer.wait_for(std::chrono::milliseconds(5)) != std::future_status::ready) {
    ::pthread_kill(asker, SIGUSR1);
  }
  EXPECT_EQ(answer.get(), kAnswerNo);
  ::sigaction(SIGUSR1, &before, nullptr);
}

TEST_F(TerminalOperatorTest, AMessageWaitsForEnter) {
  auto answer = Ask(kBoxOk);
  Shown("Enter = Aceptar: ");
  EXPECT_EQ(answer.wait_for(std::chrono::milliseconds(20)), std::future_status::timeout);
  Type("\n");
  EXPECT_EQ(answer.get(), kAnswerOk);
}

TEST_F(TerminalOperatorTest, RRetriesAndEnterCloses) {
  for (const bool retry : {true, false}) {
    auto answer = Meanwhile([this] {
      return operator_.StatusReport(
          {.printer = "4000",
           .fiscal = "0000",
           .rows = {{0, 14, true, true, "Impresora sin papel", "Verifique."}}});
    });
    EXPECT_NE(Shown("Enter = Cerrar: ").find("[!] Impresora sin papel"), std::string::npos);
    Type(retry ? "r\n" : "\n");
    EXPECT_EQ(answer.get(), retry);
  }
}

TEST_F(TerminalOperatorTest, TheMemoryWarningWaitsForEnter) {
  auto done = Meanwhile([this] { operator_.MemoryFull(); });
  EXPECT_NE(Shown("Enter = Cerrar: ").find("ATENCIÓN!\r\nRestan"), std::string::npos);
  Type("\n");
  done.get();
}

TEST_F(TerminalOperatorTest, NoControlOfATextReachesTheTerminal) {
  auto answer = Meanwhile([this] { return operator_.Message("\x1B[2J\x9D", "\x07", kBoxOk); });
  const std::string shown = Shown("Aceptar: ");
  EXPECT_NE(shown.find("<1B>[2J<9D>"), std::string::npos);
  EXPECT_EQ(shown.find_first_of("\x1B\x07"), std::string::npos);
  EXPECT_EQ(shown.find("\xC2\x9D"), std::string::npos);
  Type("\n");
  answer.get();
}

// A process of its own session, whose terminal is a new one; what it shows and its exit code.
struct Session {
  std::string shown;
  int code = -1;
};

template <typename Main>
Session RunInSession(Main main, const char* until, const char* keys) {
  int terminal = -1;
  const pid_t child = ::forkpty(&terminal, nullptr, nullptr, nullptr);
  if (child == 0) ::_exit(main());
  const FileDescriptor owned(terminal);
  Session session;
  session.shown = ShownUntil(terminal, until);
  WriteAll(terminal, keys);
  int status = 0;
  ::waitpid(child, &status, 0);
  if (WIFEXITED(status)) session.code = WEXITSTATUS(status);
  return session;
}

int AskOnTheTerminal() {
  TerminalOperator dialogs;
  return dialogs.Message("Seguir?", "Envia?", kBoxYesNo);
}

TEST(TerminalOperatorInASession, AProcessInTheForegroundAsksOnItsTerminal) {
  const Session session = RunInSession(AskOnTheTerminal, "N = No: ", "s\n");
  EXPECT_NE(session.shown.find("Seguir?"), std::string::npos);
  EXPECT_EQ(session.code, kAnswerYes);
}

TEST(TerminalOperatorInASession, AProcessInTheBackgroundAnswersByItself) {
  const auto in_background = [] {
    const pid_t child = ::fork();
    if (child == 0) {
      ::setpgid(0, 0);
      ::_exit(AskOnTheTerminal());
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    return WEXITSTATUS(status);
  };
  const Session session = RunInSession(in_background, "se responde: No", "");
  EXPECT_EQ(session.code, kAnswerNo);
}

}  // namespace
}  // namespace kestra
