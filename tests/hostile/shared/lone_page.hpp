#pragma once

#include <cstddef>
#include <string_view>

namespace kestra::hostile {

// A page with none before it and none behind it.
class LonePage {
 public:
  LonePage();
  LonePage(const LonePage&) = delete;
  LonePage& operator=(const LonePage&) = delete;
  ~LonePage();

  // The text as the page's last bytes, or as its first; all else is filled with a mark.
  char* AtEnd(std::string_view text);
  char* AtFront(std::string_view text);

  // So many bytes for a result, at the end of the page or that far from its front.
  char* RoomAtEnd(std::size_t size);
  char* RoomAt(std::size_t place, std::size_t size);

  // The first byte behind the page: nobody can read or write there.
  [[nodiscard]] char* Nowhere() const;

  // True while nothing was written but the room.
  [[nodiscard]] bool RestUntouched() const;

  void MayBeWritten(bool writable);

 private:
  char* page_;
  std::size_t room_ = 0;  // where it begins
  std::size_t size_ = 0;
};

// ---- The system's own means ----

constexpr std::size_t kPage = 4096;

// Three pages that nobody may touch, and their end.
char* ReservePages();
void GiveBack(char* pages);

// False when the system refuses.
bool Protect(char* page, bool writable);

}  // namespace kestra::hostile
