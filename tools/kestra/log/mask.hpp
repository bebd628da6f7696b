#pragma once

#include <set>
#include <string>
#include <string_view>

namespace kestra::tool {

// Hides what is the customers' own: their data wherever a frame carries them, any free text of a document, and
// within all else long numbers (documents, cards) and the names that the log has shown. What is hidden keeps its
// shape: letters become x, digits #. Texts are UTF-8.
class Mask {
 public:
  explicit Mask(bool on) : on_(on) {}

  [[nodiscard]] bool IsOn() const { return on_; }

  // What a field of a frame or of an answer is.
  enum class Kind {
    kText,
    kNumber,   // or a letter
    kUnknown,  // no row names it
  };

  // A field by the name of its row.
  std::string Field(std::string_view name, std::string_view value, Kind kind);

  // A text that the driver wrote, a call with its arguments perhaps.
  [[nodiscard]] std::string Note(std::string_view text) const;

  // Bytes of nobody knows what.
  [[nodiscard]] std::string Unknown(std::string_view text) const;

 private:
  [[nodiscard]] std::string Text(std::string_view text) const;

  bool on_;
  std::set<std::string, std::less<>> seen_;
};

// Which of the commands' text fields are hidden, and which are the shop's: every text field is one or the other.
bool IsHidden(std::string_view field);
bool IsShown(std::string_view field);

}  // namespace kestra::tool
