#include "bare_line.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <string_view>
#include <utility>

#include "packet.hpp"

namespace kestra::bench {

BareLine::BareLine(std::string path, const std::string& command) : path_(std::move(path)) {
  for (char sequence = kFirstSequence; sequence <= kLastSequence; ++sequence) {
    frames_.push_back(Frame(sequence, command));
  }
  // As the library sets it, so that neither finds the other's settings to undo.
  raw_.c_iflag = IGNBRK;
  raw_.c_cflag = CS8 | CREAD | CLOCAL;
  raw_.c_cc[VMIN] = 1;
  ::cfsetispeed(&raw_, B9600);
  ::cfsetospeed(&raw_, B9600);
}

bool BareLine::Exchange() {
  const std::string& frame = frames_[next_];
  next_ = (next_ + 1) % frames_.size();
  const int fd = ::open(path_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (fd < 0) return false;
  bool done = ::tcsetattr(fd, TCSANOW, &raw_) == 0 &&
              ::write(fd, frame.data(), frame.size()) == static_cast<ssize_t>(frame.size());
  std::array<char, 256> answer{};
  std::size_t length = 0;
  while (done && !EndsFrame({answer.data(), length})) {
    const ssize_t count = ::read(fd, answer.data() + length, answer.size() - length);
    done = count > 0;
    if (done) length += static_cast<std::size_t>(count);
  }
  done = done && answer[1] == frame[1] && ::write(fd, &kAck, 1) == 1;
  ::close(fd);
  return done;
}

}  // namespace kestra::bench
