#include "program/posix/port_link.hpp"

#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <system_error>
#include <utility>

#include "program/cannot_open.hpp"

namespace impresora {
namespace {

namespace fs = std::filesystem;

}  // namespace

PortLink::PortLink(std::string path, std::string target)
    : path_(std::move(path)), target_(std::move(target)) {
  const fs::file_status there = fs::symlink_status(path_);
  if (fs::exists(there) && !fs::is_symlink(there)) {
    throw CannotOpen(path_, std::make_error_code(std::errc::file_exists));
  }
  std::error_code error;
  const fs::path former = fs::read_symlink(path_, error);
  if (former != target_ && fs::exists(path_)) {
    // Somebody's terminal may have got the number of a printer that was killed: no more than a warning.
    std::fprintf(stderr, "impresora-virtual: %s llevaba a %s, que existe; desde ahora lleva a %s\n",
                 path_.c_str(), former.c_str(), target_.c_str());
  }
  // Made beside its place and moved over it, so that a host never finds the path missing.
  const std::string fresh = path_ + ".nuevo-" + std::to_string(getpid());
  fs::create_symlink(target_, fresh, error);
  if (error) throw CannotOpen(path_, error);
  fs::rename(fresh, path_, error);
  if (!error) return;
  std::error_code ignored;
  fs::remove(fresh, ignored);
  throw CannotOpen(path_, error);
}

PortLink::~PortLink() {
  std::error_code error;
  if (fs::read_symlink(path_, error) == target_ && !error) fs::remove(path_, error);
}

}  // namespace impresora
