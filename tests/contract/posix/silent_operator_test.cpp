#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <array>

#include "base/ansi.hpp"
#include "contract/posix/pty_line.hpp"
#include "contract/posix/surroundings.hpp"
#include "platform/posix/terminal_operator.hpp"

namespace kestra {
namespace {

// A host without a terminal, with a pipe for its standard error.
class SilentOperator : public ::testing::Test {
 protected:
  SilentOperator() {
    std::array<int, 2> ends{};
    EXPECT_EQ(::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK), 0);
    reader_ = FileDescriptor(ends[0]);
    writer_ = FileDescriptor(ends[1]);
  }

  OperatorSeat Seat() {
    return {.terminal = "/dev/no-hay-tal", .errors = writer_.Get(), .attended = InForeground};
  }

  std::string Said() {
    std::string said(8192, '\0');
    const ssize_t count = ::read(reader_.Get(), said.data(), said.size());
    said.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    return said;
  }

  Environment locale_{"LC_ALL", "C.UTF-8"};
  FileDescriptor reader_;
  FileDescriptor writer_;
};

TEST_F(SilentOperator, AQuestionIsAnsweredNo) {
  TerminalOperator dialogs(Seat());
  EXPECT_EQ(dialogs.Message("Error de Comunicación con la fiscal. Reintentar?"_ansi, "Error !",
                            kBoxYesNo),
            kAnswerNo);
  EXPECT_EQ(Said(),
            "kestra: pregunta \"Error !\": Error de Comunicación con la fiscal. Reintentar? | sin "
            "operador, se responde: No\n");
}

TEST_F(SilentOperator, AMessageIsAcceptedAndAReportClosed) {
  TerminalOperator dialogs(Seat());
  EXPECT_EQ(dialogs.Message("hola", "", kBoxOk), kAnswerOk);
  EXPECT_FALSE(dialogs.StatusReport({.printer = "4000", .fiscal = "0000", .rows = {}}));
  dialogs.MemoryFull();
  const std::string said = Said();
  EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 3);
}

TEST_F(SilentOperator, NothingGoesToStandardOutput) {
  ::testing::internal::CaptureStdout();
  TerminalOperator dialogs(Seat());
  dialogs.Message("hola", "", kBoxOk);
  dialogs.MemoryFull();
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
}

TEST_F(SilentOperator, ATerminalThatIsNotTheProcesssOwnIsNotAsked) {
  PtyLine line;
  OperatorSeat seat = Seat();
  seat.terminal = line.Device();
  TerminalOperator dialogs(seat);
  EXPECT_EQ(dialogs.Message("pregunta", "", kBoxYesNo), kAnswerNo);
  EXPECT_NE(Said(), "");
}

TEST_F(SilentOperator, WithoutUtf8AccentsAreQuestionMarks) {
  const Environment plain("LC_ALL", "C");
  TerminalOperator dialogs(Seat());
  dialogs.Message("Comunicación"_ansi, "", kBoxOk);
  EXPECT_NE(Said().find("Comunicaci?n"), std::string::npos);
}

TEST_F(SilentOperator, AHostWhoseStandardErrorHasNoReaderLives) {
  reader_.Close();
  TerminalOperator dialogs(Seat());
  EXPECT_EQ(dialogs.Message("hola", "", kBoxOk), kAnswerOk);
  sigset_t pending = {};
  ::sigpending(&pending);
  EXPECT_EQ(::sigismember(&pending, SIGPIPE), 0);
}

TEST_F(SilentOperator, AFullStandardErrorDoesNotStopTheHost) {
  while (::write(writer_.Get(), "x", 1) == 1) {
  }
  ASSERT_EQ(::fcntl(writer_.Get(), F_SETFL, 0), 0);  // from here on a write would wait
  TerminalOperator dialogs(Seat());
  EXPECT_EQ(dialogs.Message("hola", "", kBoxOk), kAnswerOk);
}

TEST_F(SilentOperator, AClosedStandardErrorIsNoFailure) {
  OperatorSeat seat = Seat();
  seat.errors = -1;
  TerminalOperator dialogs(seat);
  EXPECT_EQ(dialogs.Message("hola", "", kBoxYesNo), kAnswerNo);
}

TEST_F(SilentOperator, AVeryLongTextIsCutToOneLine) {
  TerminalOperator dialogs(Seat());
  dialogs.Message(std::string(100'000, 'x'), "", kBoxOk);
  const std::string said = Said();
  EXPECT_EQ(said.size(), 4096u);
  EXPECT_EQ(said.find('\n'), said.size() - 1);
}

}  // namespace
}  // namespace kestra
