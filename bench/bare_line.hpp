#pragma once

#include <termios.h>

#include <string>
#include <vector>

namespace kestra::bench {

// The floor: one exchange with the least that a program can do on a terminal. It opens the device,
// sets raw mode, writes the frame, reads the answer, acknowledges it and closes. It blocks, checks
// nothing and has its frames and its terminal settings ready beforehand.
class BareLine {
 public:
  BareLine(std::string path, const std::string& command);

  // False when the answer is not to the frame that went out.
  bool Exchange();

 private:
  static constexpr char kFirstSequence = 32;
  static constexpr char kLastSequence = 70;

  std::string path_;
  std::vector<std::string> frames_;  // one for each sequence number
  std::size_t next_ = 0;
  termios raw_ = {};
};

}  // namespace kestra::bench
