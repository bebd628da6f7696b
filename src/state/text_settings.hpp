#pragma once

#include <cstdint>
#include <optional>

namespace kestra {

// How the host and the library hand each other texts.
enum class TextMode : std::int32_t {
  kWhole = 0,       // so many bytes of windows-1252, whatever they are
  kTerminated = 1,  // at most so many, through to a zero
  kUtf8 = 2,        // likewise so many characters of UTF-8
};
constexpr std::int32_t kTextModes = 3;

struct TextSettings {
  std::int32_t TextosTerminados = 0;  // keys of Fiscal.ini
  std::int32_t Transliterar = 0;
  // By a call of the host's: over the key, whatever is read again.
  std::optional<TextMode> chosen = {};

  [[nodiscard]] TextMode Mode() const {
    return chosen.value_or(static_cast<TextMode>(TextosTerminados));
  }
  [[nodiscard]] bool SpeakUtf8() const { return Mode() == TextMode::kUtf8; }
};

// Lets the host choose, where the number is one of a mode. The number of the mode that was in force.
inline std::int32_t ChooseTexts(TextSettings& settings, std::int32_t mode) {
  const auto before = static_cast<std::int32_t>(settings.Mode());
  if (mode >= 0 && mode < kTextModes) settings.chosen = static_cast<TextMode>(mode);
  return before;
}

}  // namespace kestra
