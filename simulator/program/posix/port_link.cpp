#include "posix/port_link.hpp"

#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <utility>

namespace impresora {
namespace {

namespace fs = std::filesystem;

}  // namespace

PortLink::PortLink(std::string path, std::string target)
    : path_(std::move(path)), target_(std::move(target)) {
  const fs::file_status there = fs::symlink_status(path_);
  if (fs::exists(there) && !fs::is_symlink(there)) {
    throw std::system_error(EEXIST, std::generic_category(), path_);
  }
  // Made beside its place and moved over it, so that a host never finds the path missing.
  const std::string fresh = path_ + ".nuevo-" + std::to_string(getpid());
  fs::create_symlink(target_, fresh);
  std::error_code error;
  fs::rename(fresh, path_, error);
  if (!error) return;
  std::error_code ignored;
  fs::remove(fresh, ignored);
  throw std::system_error(error, path_);
}

PortLink::~PortLink() {
  std::error_code error;
  if (fs::read_symlink(path_, error) == target_ && !error) fs::remove(path_, error);
}

}  // namespace impresora
