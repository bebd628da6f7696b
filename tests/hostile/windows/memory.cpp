#include "memory.hpp"

#include <windows.h>

#include <algorithm>
#include <cstdlib>

namespace armour {

LonePage::LonePage() {
  auto* const reserved =
      static_cast<char*>(VirtualAlloc(nullptr, 3 * kPage, MEM_RESERVE, PAGE_NOACCESS));
  page_ = reserved + kPage;
  if (reserved == nullptr || !VirtualAlloc(page_, kPage, MEM_COMMIT, PAGE_READWRITE)) std::abort();
  RoomAtEnd(0);
}

LonePage::~LonePage() {
  VirtualFree(page_ - kPage, 0, MEM_RELEASE);
}

char* LonePage::AtEnd(std::string_view text) {
  char* const place = page_ + kPage - text.size();
  std::copy(text.begin(), text.end(), place);
  return place;
}

char* LonePage::RoomAtEnd(std::size_t size) {
  std::fill_n(page_, kPage, kUntouched);
  size_ = size;
  room_ = kPage - size;
  return page_ + room_;
}

char* LonePage::RoomAtFront(std::size_t size) {
  RoomAtEnd(size);
  room_ = 0;
  return page_;
}

bool LonePage::RestUntouched() const {
  const auto untouched = [](char byte) { return byte == kUntouched; };
  return std::all_of(page_, page_ + room_, untouched) &&
         std::all_of(page_ + room_ + size_, page_ + kPage, untouched);
}

void LonePage::MayBeWritten(bool writable) {
  DWORD before = 0;
  if (!VirtualProtect(page_, kPage, writable ? PAGE_READWRITE : PAGE_READONLY, &before))
    std::abort();
}

}  // namespace armour
