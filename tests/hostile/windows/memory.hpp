#pragma once

#include <cstddef>
#include <string_view>

namespace armour {

constexpr std::size_t kPage = 4096;
constexpr char kUntouched = '\x5A';

// One page of memory with nothing before it and nothing behind it.
class LonePage {
 public:
  LonePage();
  LonePage(const LonePage&) = delete;
  LonePage& operator=(const LonePage&) = delete;
  ~LonePage();

  // The text as the last bytes of the page.
  char* AtEnd(std::string_view text);
  // Room of so many bytes at either end of the page, which is otherwise filled with a mark.
  char* RoomAtEnd(std::size_t size);
  char* RoomAtFront(std::size_t size);
  // True when nothing but that room was written to.
  [[nodiscard]] bool RestUntouched() const;

  // Where there is no memory: the first byte behind the page.
  [[nodiscard]] char* Nowhere() const { return page_ + kPage; }

  void MayBeWritten(bool writable);

 private:
  char* page_;
  std::size_t room_ = 0, size_ = 0;
};

}  // namespace armour
