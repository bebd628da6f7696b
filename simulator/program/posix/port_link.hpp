#pragma once

#include <string>

namespace impresora {

// A symbolic link to the port that lasts as long as this object. It takes the place of an older
// link, never that of anything else.
class PortLink {
 public:
  // Throws CannotOpen when there is something else at that path, or no permission.
  PortLink(std::string path, std::string target);
  PortLink(const PortLink&) = delete;
  PortLink& operator=(const PortLink&) = delete;
  ~PortLink();

  const std::string& Target() const { return target_; }

 private:
  std::string path_;
  std::string target_;
};

}  // namespace impresora
