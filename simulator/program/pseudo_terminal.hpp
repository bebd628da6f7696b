#pragma once

#include <string>
#include <string_view>

namespace impresora {

// A file descriptor that closes itself.
class Descriptor {
 public:
  explicit Descriptor(int fd = -1) : fd_(fd) {}
  Descriptor(Descriptor&& other) noexcept : fd_(other.fd_) { other.fd_ = -1; }
  Descriptor& operator=(Descriptor&& other) noexcept;
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor();

  int get() const { return fd_; }
  bool valid() const { return fd_ >= 0; }

 private:
  int fd_;
};

// The serial cable: hosts open path(), the printer reads and writes the other end. The host's side
// is held open here too, so that the line stays up between one host exchange and the next.
class PseudoTerminal {
 public:
  // Throws std::system_error when the system has none to give.
  PseudoTerminal();

  const std::string& path() const { return path_; }
  int fd() const { return printer_side_.get(); }

  // Appends what has arrived; false when nothing had.
  bool Read(std::string& bytes);

  // What does not fit in the line's buffer is lost, as it is on a wire that nobody listens to.
  void Write(std::string_view bytes);

  // Undoes the exclusive use that a host may have left behind when it was killed.
  void AllowEveryone();

 private:
  Descriptor printer_side_;
  Descriptor host_side_;
  std::string path_;
};

// A symbolic link to the port that lasts as long as this object. It takes the place of an older
// link, never that of anything else.
class PortLink {
 public:
  // Throws std::system_error when there is something else at that path, or no permission.
  PortLink(std::string path, std::string target);
  PortLink(const PortLink&) = delete;
  PortLink& operator=(const PortLink&) = delete;
  ~PortLink();

 private:
  std::string path_;
  std::string target_;
};

}  // namespace impresora
