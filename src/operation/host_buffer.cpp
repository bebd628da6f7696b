#include "operation/host_buffer.hpp"

#include <algorithm>
#include <limits>

#include "base/code_page.hpp"
#include "base/utf8.hpp"
#include "fields/nearest.hpp"
#include "fields/text_field.hpp"
#include "platform/seam/host.hpp"

namespace kestra {
namespace {

constexpr std::size_t kNoEnd = std::numeric_limits<std::size_t>::max();
constexpr char32_t kNoCharacter = 0xFFFFFFFF;

// Gives a byte at a time: what lies behind a text's end is none of ours. Memory that is not there is a zero.
class HostBytes {
 public:
  explicit HostBytes(const void* pointer) : next_(static_cast<const char*>(pointer)) {}

  [[nodiscard]] char Front() const {
    char byte = '\0';
    return ReadHostMemory(&byte, next_, 1) == 1 ? byte : '\0';
  }
  void Drop() { ++next_; }

 private:
  const char* next_;
};

std::string ReadWhole(const void* pointer, std::size_t length) {
  std::string text(length, ' ');
  ReadHostMemory(text.data(), pointer, text.size());
  return text;
}

std::string ReadBytes(const void* pointer, std::size_t most) {
  HostBytes bytes(pointer);
  std::string text;
  while (text.size() < most) {
    const char byte = bytes.Front();
    if (byte == '\0') break;
    text += byte;
    bytes.Drop();
  }
  return text;
}

// As far as its first byte says, and no further: an unterminated text may end with it.
std::string ReadCharacter(HostBytes& bytes) {
  const char lead = bytes.Front();
  if (lead == '\0') return {};
  std::string character(1, lead);
  bytes.Drop();
  while (character.size() < Utf8BytesAfter(lead)) {
    const char next = bytes.Front();
    if (!Utf8Continues(lead, character.size(), next)) break;
    character += next;
    bytes.Drop();
  }
  return character;
}

std::string ReadCharacters(const void* pointer, std::size_t most) {
  HostBytes bytes(pointer);
  std::string text;
  for (std::size_t count = 0; count < most; ++count) {
    const auto character = ReadCharacter(bytes);
    if (character.empty()) break;
    text += character;
  }
  return text;
}

// The nearest letters, or kStandIn, stand for what windows-1252 lacks, kStandIn for what is no UTF-8.
std::string AnsiText(std::string_view utf8, bool nearest) {
  std::string ansi;
  while (!utf8.empty()) {
    const auto bytes = Utf8Front(utf8);
    const auto character = bytes == 0 ? kNoCharacter : Utf8Character(utf8.substr(0, bytes));
    if (const auto byte = ByteOf(character)) {
      ansi += *byte;
    } else {
      ansi += nearest ? NearestLetters(character) : std::string_view(&kStandIn, 1);
    }
    utf8.remove_prefix(std::max<std::size_t>(bytes, 1));
  }
  return ansi;
}

std::string ReadThroughZero(const TextSettings& settings, const void* pointer, std::size_t most) {
  if (!settings.SpeakUtf8()) return ReadBytes(pointer, most);
  return AnsiText(ReadCharacters(pointer, most), settings.Transliterar == 1);
}

std::string ForThePrinter(const TextSettings& settings, const std::string& text) {
  return settings.Transliterar == 1 ? Transliterate(text) : text;
}

std::string ForTheHost(const TextSettings& settings, std::string_view text) {
  return settings.SpeakUtf8() ? Utf8FromAnsi(text) : std::string(text);
}

// As much of the text as fits, and a zero where there is room for one.
void WriteTerminated(const TextSettings& settings, void* pointer, std::string_view text,
                     std::int32_t size) {
  if (size <= 0 || pointer == nullptr) return;
  const auto room = static_cast<std::size_t>(size);
  std::string bytes(settings.SpeakUtf8() ? CutUtf8(text, room) : text.substr(0, room));
  bytes += '\0';
  WriteHostMemory(pointer, bytes.data(), std::min(bytes.size(), room));
}

}  // namespace

std::string LeerCadena(const TextSettings& settings, const void* pointer, std::int32_t length) {
  if (length <= 0) return {};
  const auto size = static_cast<std::size_t>(length);
  if (pointer == nullptr) return std::string(size, ' ');
  const auto text = settings.Mode() == TextMode::kWhole ? ReadWhole(pointer, size)
                                                        : ReadThroughZero(settings, pointer, size);
  return FixedWidth(ForThePrinter(settings, text), size);
}

std::string ReadTerminatedText(const TextSettings& settings, const char* pointer) {
  if (pointer == nullptr) return {};
  return ForThePrinter(settings, ReadThroughZero(settings, pointer, kNoEnd));
}

std::int32_t DevolverCadena(const TextSettings& settings, void* pointer, std::string_view text,
                            std::int32_t size) {
  const auto trimmed = TrimBlanks(text).size();
  const auto count = static_cast<std::int32_t>(
      std::min(static_cast<std::int64_t>(size), static_cast<std::int64_t>(trimmed)));
  // Kept as is: leading blanks shift what is copied; hosts have always received them so.
  const auto copied = text.substr(0, static_cast<std::size_t>(std::max(count, 0)));
  if (settings.Mode() != TextMode::kWhole) {
    WriteTerminated(settings, pointer, ForTheHost(settings, copied), size);
  } else if (pointer != nullptr && !copied.empty()) {
    WriteHostMemory(pointer, copied.data(), copied.size());
  }
  return count;
}

std::int32_t HandOver(const TextSettings& settings, void* pointer, std::string_view text,
                      std::int32_t size) {
  const auto whole = ForTheHost(settings, text);
  WriteTerminated(settings, pointer, whole, size);
  return static_cast<std::int32_t>(whole.size());
}

}  // namespace kestra
