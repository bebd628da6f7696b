#include "hostile/shared/lone_page.hpp"

#include <algorithm>
#include <cstdlib>

namespace kestra::hostile {
namespace {

constexpr char kUntouched = '#';

}  // namespace

LonePage::LonePage() : page_(ReservePages() + kPage) {
  MayBeWritten(true);
  RoomAtEnd(0);
}

LonePage::~LonePage() {
  GiveBack(page_ - kPage);
}

char* LonePage::AtEnd(std::string_view text) {
  char* const place = RoomAtEnd(text.size());
  std::copy(text.begin(), text.end(), place);
  return place;
}

char* LonePage::AtFront(std::string_view text) {
  char* const place = RoomAt(0, text.size());
  std::copy(text.begin(), text.end(), place);
  return place;
}

char* LonePage::RoomAtEnd(std::size_t size) {
  return RoomAt(kPage - size, size);
}

char* LonePage::RoomAt(std::size_t place, std::size_t size) {
  std::fill_n(page_, kPage, kUntouched);
  room_ = place;
  size_ = size;
  return page_ + room_;
}

char* LonePage::Nowhere() const {
  return page_ + kPage;
}

bool LonePage::RestUntouched() const {
  const auto untouched = [](char byte) { return byte == kUntouched; };
  return std::all_of(page_, page_ + room_, untouched) &&
         std::all_of(page_ + room_ + size_, page_ + kPage, untouched);
}

void LonePage::MayBeWritten(bool writable) {
  if (!Protect(page_, writable)) std::abort();
}

}  // namespace kestra::hostile
