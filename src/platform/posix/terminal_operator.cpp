#include "platform/posix/terminal_operator.hpp"

#include <fcntl.h>
#include <limits.h>
#include <poll.h>
#include <termios.h>
#include <utility>

#include "platform/posix/dialog_text.hpp"
#include "platform/posix/files.hpp"
#include "platform/posix/locale_text.hpp"

namespace kestra {

namespace {

// A typed line; nothing at the end of input or when a signal comes instead.
std::optional<std::string> ReadLine(int terminal) {
  constexpr std::size_t kLongest = 1024;
  std::string line;
  for (;;) {
    char c = 0;
    if (::read(terminal, &c, 1) != 1) return std::nullopt;
    if (c == '\n' || c == '\r') return line;  // the latter while the host keeps the terminal raw
    if (line.size() < kLongest) line += c;
  }
}

}  // namespace

bool InForeground(int terminal) {
  return ::tcgetpgrp(terminal) == ::getpgrp();
}

TerminalOperator::TerminalOperator(OperatorSeat seat)
    : seat_(std::move(seat)), codeset_(UserLocale(LC_CTYPE_MASK).Codeset()) {}

FileDescriptor TerminalOperator::OpenTerminal() const {
  FileDescriptor terminal = OpenFile(seat_.terminal, O_RDWR);
  if (terminal && !seat_.attended(terminal.Get())) terminal.Close();
  return terminal;
}

// What was typed before the question was seen is no answer to it.
std::optional<std::string> TerminalOperator::Ask(int terminal, std::string_view dialog) const {
  ::tcflush(terminal, TCIFLUSH);
  if (!WriteAll(terminal, CodesetFromAnsi(dialog, codeset_))) return std::nullopt;
  const auto line = ReadLine(terminal);
  if (!line) return std::nullopt;
  return AnsiFromCodeset(*line, codeset_);
}

std::int32_t TerminalOperator::AskYesNo(int terminal, std::string_view dialog) const {
  for (;;) {
    const auto line = Ask(terminal, dialog);
    const Typed answer = line ? TypedAnswer(*line) : Typed::kNo;
    if (answer != Typed::kUnclear) return answer == Typed::kYes ? kAnswerYes : kAnswerNo;
  }
}

void TerminalOperator::Note(std::string_view line) const {
  WriteNote(seat_.errors, CodesetFromAnsi(line, codeset_));
}

std::int32_t TerminalOperator::Message(std::string_view text, std::string_view title,
                                       std::int32_t style) {
  const bool question = IsQuestion(style);
  if (const FileDescriptor terminal = OpenTerminal()) {
    const std::string dialog = MessageDialog(text, title, style);
    if (question) return AskYesNo(terminal.Get(), dialog);
    static_cast<void>(Ask(terminal.Get(), dialog));
    return kAnswerOk;
  }
  Note(MessageNote(text, title, style));
  return question ? kAnswerNo : kAnswerOk;
}

bool TerminalOperator::StatusReport(const Report& report) {
  if (const FileDescriptor terminal = OpenTerminal()) {
    const auto line = Ask(terminal.Get(), StatusReportDialog(report));
    return line && TypedRetry(*line);
  }
  Note(StatusReportNote(report));
  return false;
}

void TerminalOperator::MemoryFull() {
  if (const FileDescriptor terminal = OpenTerminal()) {
    static_cast<void>(Ask(terminal.Get(), MemoryFullDialog()));
    return;
  }
  Note(MemoryFullNote());
}

void WriteNote(int fd, std::string line) {
  // As much as a pipe that is ready takes whole.
  if (line.size() > PIPE_BUF) line.replace(PIPE_BUF - 1, std::string::npos, "\n");
  pollfd ready = {.fd = fd, .events = POLLOUT, .revents = 0};
  if (::poll(&ready, 1, 0) != 1 || (ready.revents & POLLOUT) == 0) return;
  const HeldSignals held;
  WriteAll(fd, line);
}

}  // namespace kestra
