#include "platform/windows/profile_file.hpp"

#include <windows.h>

#include <algorithm>
#include <array>

namespace kestra {
namespace {

// The file as a path from a drive's root: a bare name would be looked for in the Windows directory. A
// directory that the system's code page cannot write keeps the path relative, which ".\" makes safe.
std::string FromCurrentDirectory(const std::string& file) {
  std::string path(32768, '\0');
  const auto size = static_cast<DWORD>(path.size());
  const DWORD length = ::GetFullPathNameA(file.c_str(), size, path.data(), nullptr);
  if (length == 0 || length >= size) return file;
  path.resize(length);
  const bool exists = ::GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
  return exists ? path : file;
}

}  // namespace

std::string WindowsProfile::Read(std::string_view section, std::string_view key,
                                 std::string_view file) {
  std::array<char, kLongestProfileValue + 1> value{};
  value.fill(' ');
  const DWORD length = ::GetPrivateProfileStringA(
      std::string(section).c_str(), std::string(key).c_str(), "", value.data(),
      static_cast<DWORD>(value.size()), FromCurrentDirectory(std::string(file)).c_str());
  return {value.data(), std::min<std::size_t>(length, kLongestProfileValue)};
}

}  // namespace kestra
