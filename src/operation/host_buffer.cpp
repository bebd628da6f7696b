#include "operation/host_buffer.hpp"

#include <algorithm>

#include "fields/text_field.hpp"
#include "platform/seam/host.hpp"

namespace kestra {

std::string LeerCadena(const void* pointer, std::int32_t length) {
  if (length <= 0) return {};
  std::string text(static_cast<std::size_t>(length), ' ');
  if (pointer != nullptr) ReadHostMemory(text.data(), pointer, text.size());
  return text;
}

std::string ReadTerminatedText(const char* pointer) {
  std::string text;
  if (pointer == nullptr) return text;
  // A byte at a time: what lies behind the zero is none of ours.
  char byte = '\0';
  while (ReadHostMemory(&byte, pointer + text.size(), 1) == 1 && byte != '\0') text += byte;
  return text;
}

std::int32_t DevolverCadena(void* pointer, std::string_view text, std::int32_t size) {
  const auto trimmed = TrimBlanks(text).size();
  const auto count = static_cast<std::int32_t>(
      std::min(static_cast<std::int64_t>(size), static_cast<std::int64_t>(trimmed)));
  // Kept as is: leading blanks shift what is copied; hosts have always received them so.
  if (count > 0 && pointer != nullptr) {
    WriteHostMemory(pointer, text.data(), static_cast<std::size_t>(count));
  }
  return count;
}

std::int32_t HandOver(void* pointer, std::string_view text, std::int32_t size) {
  if (size > 0 && pointer != nullptr) {
    std::string bytes(text);
    bytes += '\0';
    WriteHostMemory(pointer, bytes.data(), std::min(bytes.size(), static_cast<std::size_t>(size)));
  }
  return static_cast<std::int32_t>(text.size());
}

}  // namespace kestra
