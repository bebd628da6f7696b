#include "hostile/posix/places.hpp"

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

namespace kestra::hostile {
namespace {

constexpr char kUntouched = '#';

}  // namespace

LonePage::LonePage() : size_(static_cast<std::size_t>(::sysconf(_SC_PAGESIZE))) {
  void* const reserved = ::mmap(nullptr, 3 * size_, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  page_ = static_cast<char*>(reserved) + size_;
  if (reserved == MAP_FAILED) std::abort();
  MayBeWritten(true);
  RoomAtEnd(0);
}

LonePage::~LonePage() {
  ::munmap(page_ - size_, 3 * size_);
}

char* LonePage::AtEnd(std::string_view text) {
  char* const place = RoomAtEnd(0) - text.size();
  std::copy(text.begin(), text.end(), place);
  return place;
}

char* LonePage::AtFront(std::string_view text) {
  char* const place = RoomAt(0, 0);
  std::copy(text.begin(), text.end(), place);
  return place;
}

char* LonePage::RoomAtEnd(std::size_t size) {
  return RoomAt(size_ - size, size);
}

char* LonePage::RoomAt(std::size_t place, std::size_t size) {
  std::fill_n(page_, size_, kUntouched);
  room_ = place;
  room_size_ = size;
  return page_ + room_;
}

char* LonePage::Nowhere() const {
  return page_ + size_;
}

bool LonePage::RestUntouched() const {
  const auto untouched = [](char byte) { return byte == kUntouched; };
  return std::all_of(page_, page_ + room_, untouched) &&
         std::all_of(page_ + room_ + room_size_, page_ + size_, untouched);
}

void LonePage::MayBeWritten(bool writable) {
  if (::mprotect(page_, size_, writable ? PROT_READ | PROT_WRITE : PROT_READ) != 0) std::abort();
}

}  // namespace kestra::hostile
