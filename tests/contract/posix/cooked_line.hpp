#pragma once

#include <termios.h>

#include <string>
#include <string_view>

#include "contract/posix/pty_line.hpp"
#include "platform/posix/files.hpp"
#include "platform/posix/terminal_operator.hpp"

namespace kestra {

// Reads from the terminal until a text has been shown.
inline std::string ShownUntil(int terminal, const std::string& text) {
  std::string shown;
  while (shown.find(text) == std::string::npos) {
    const std::string more = ReadSome(terminal, 1);
    if (more.empty()) break;
    shown += more;
  }
  return shown;
}

// A terminal that shows what is typed and takes whole lines, with a person before it.
class CookedLine : public PtyLine {
 public:
  CookedLine() {
    termios cooked = {};
    ::tcgetattr(Near(), &cooked);
    cooked.c_iflag |= ICRNL;
    cooked.c_oflag |= OPOST | ONLCR;
    cooked.c_lflag |= ICANON | ECHO | ISIG;
    ::tcsetattr(Near(), TCSANOW, &cooked);
  }

  [[nodiscard]] OperatorSeat Seat() const {
    return {.terminal = Device(), .errors = -1, .attended = [](int) { return true; }};
  }
  [[nodiscard]] std::string ShownUntil(const std::string& text) const {
    return kestra::ShownUntil(Far(), text);
  }
  bool Type(std::string_view keys) const { return WriteAll(Far(), keys); }
};

}  // namespace kestra
