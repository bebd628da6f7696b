#pragma once

#include <kestra/kestra.h>

#include <cstdint>
#include <string>
#include <vector>

namespace kestra::tool {

// The library at work by the settings of the current folder, as a till has it: EP_Init, and EP_Kill at the end. No
// box is shown: each question is answered with No, and what was said is kept. Texts are UTF-8.
class LibraryAtWork {
 public:
  // Throws Stop when it cannot start.
  LibraryAtWork();
  LibraryAtWork(const LibraryAtWork&) = delete;
  LibraryAtWork& operator=(const LibraryAtWork&) = delete;
  ~LibraryAtWork();

  [[nodiscard]] const std::vector<std::string>& Said() const { return said_; }

 private:
  std::vector<std::string> said_;
};

// What a function of the library that fills a text gives: ask(buffer, length) returns the whole length.
template <typename Ask>
std::string TextFrom(Ask ask) {
  constexpr int kRoom = 4096;
  std::string text(kRoom, '\0');
  ask(text.data(), kRoom);
  return text.c_str();
}

// The sentence about the last call.
inline std::string CauseInWords() {
  return TextFrom([](char* text, std::int32_t length) { return Kestra_CausaTexto(text, length); });
}

}  // namespace kestra::tool
