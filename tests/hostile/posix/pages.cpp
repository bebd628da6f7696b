#include <sys/mman.h>

#include <cstdlib>

#include "hostile/shared/lone_page.hpp"

namespace kestra::hostile {

char* ReservePages() {
  void* const pages = ::mmap(nullptr, 3 * kPage, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (pages == MAP_FAILED) std::abort();
  return static_cast<char*>(pages);
}

void GiveBack(char* pages) {
  ::munmap(pages, 3 * kPage);
}

bool Protect(char* page, bool writable) {
  return ::mprotect(page, kPage, writable ? PROT_READ | PROT_WRITE : PROT_READ) == 0;
}

}  // namespace kestra::hostile
