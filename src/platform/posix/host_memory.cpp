#include "platform/seam/host.hpp"

#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>

namespace kestra {
namespace {

using Copy = ssize_t (*)(pid_t, const iovec*, unsigned long, const iovec*, unsigned long,
                         unsigned long);

// Up to the end of the page, as a part of a copy that fails alone when the page is not there.
std::size_t WithinPage(const void* address, std::size_t count) {
  const auto page = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
  return std::min<std::size_t>(count, page - reinterpret_cast<std::uintptr_t>(address) % page);
}

// The system copies and finds out what is there. 0: not there; -1: the system does not do this.
ssize_t CopyPart(Copy copy, void* ours, void* hosts, std::size_t count) {
  const iovec local = {.iov_base = ours, .iov_len = count};
  const iovec remote = {.iov_base = hosts, .iov_len = count};
  const ssize_t copied = copy(::getpid(), &local, 1, &remote, 1, 0);
  if (copied >= 0) return copied;
  return errno == EFAULT ? 0 : -1;
}

char* At(void* base, std::size_t offset) {
  return static_cast<char*>(base) + offset;
}

// Copies page by page. `plain` serves where the system refuses to help (some sandboxes do).
template <typename Plain>
std::size_t CopyAll(Copy copy, void* ours, void* hosts, std::size_t count, Plain plain) {
  std::size_t done = 0;
  while (done < count) {
    const auto part = WithinPage(At(hosts, done), count - done);
    const auto copied = CopyPart(copy, At(ours, done), At(hosts, done), part);
    if (copied == 0) return done;
    if (copied < 0) plain(At(ours, done), At(hosts, done), part);
    done += part;
  }
  return done;
}

}  // namespace

std::size_t ReadHostMemory(void* to, const void* from, std::size_t count) noexcept {
  return CopyAll(::process_vm_readv, to, const_cast<void*>(from), count,
                 [](void* ours, void* hosts, std::size_t part) { std::memcpy(ours, hosts, part); });
}

std::size_t WriteHostMemory(void* to, const void* from, std::size_t count) noexcept {
  return CopyAll(::process_vm_writev, const_cast<void*>(from), to, count,
                 [](void* ours, void* hosts, std::size_t part) { std::memcpy(hosts, ours, part); });
}

}  // namespace kestra
