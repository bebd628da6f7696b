#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kestra::tool {

// The till writes windows-1252. Who opened the log and saved it again may have left it in another code, and tills of
// old systems wrote in the one of their screens.
enum class CodePage { kAnsi, kUtf8, kUtf16, kDos850, kDos437 };

// "1252", "utf-8", "utf-16", "850", "437".
std::optional<CodePage> ReadCodePage(std::string_view name);

// Of all that a file holds: a code can only be told from it as a whole.
class CodePageGuess {
 public:
  void Feed(std::string_view bytes);
  [[nodiscard]] CodePage Guess() const;

 private:
  void FeedByte(unsigned byte);

  std::string head_;
  unsigned following_ = 0;  // bytes that the character under way still needs
  bool many_ = false;       // there was a character of several bytes
  bool broken_ = false;
};

// Bytes of a code, however cut into pieces, as windows-1252; what that lacks becomes a question mark.
class ToAnsi {
 public:
  explicit ToAnsi(CodePage page) : page_(page) {}

  std::string operator()(std::string_view bytes);

 private:
  CodePage page_;
  std::string rest_;  // the beginning of a character
  bool begun_ = false;
};

}  // namespace kestra::tool
