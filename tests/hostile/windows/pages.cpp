#include <windows.h>

#include <cstdlib>

#include "hostile/shared/lone_page.hpp"

namespace kestra::hostile {

char* ReservePages() {
  void* const pages = VirtualAlloc(nullptr, 3 * kPage, MEM_RESERVE, PAGE_NOACCESS);
  if (pages == nullptr) std::abort();
  return static_cast<char*>(pages);
}

void GiveBack(char* pages) {
  VirtualFree(pages, 0, MEM_RELEASE);
}

bool Protect(char* page, bool writable) {
  return VirtualAlloc(page, kPage, MEM_COMMIT, writable ? PAGE_READWRITE : PAGE_READONLY) !=
         nullptr;
}

}  // namespace kestra::hostile
