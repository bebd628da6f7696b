#include "scratch.hpp"

#include <windows.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace kestra {

ScratchDirectory::ScratchDirectory() : before_(std::filesystem::current_path().string()) {
  std::array<char, MAX_PATH> folder{};
  std::array<char, MAX_PATH> name{};
  ::GetTempPathA(static_cast<DWORD>(folder.size()), folder.data());
  ::GetTempFileNameA(folder.data(), "kst", 0, name.data());
  ::DeleteFileA(name.data());
  path_ = name.data();
  ::CreateDirectoryA(path_.c_str(), nullptr);
  ::SetCurrentDirectoryA(path_.c_str());
}

ScratchDirectory::~ScratchDirectory() {
  ::SetCurrentDirectoryA(before_.c_str());
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

void WriteFileText(const std::string& name, const std::string& text) {
  std::ofstream(name, std::ios::binary) << text;
}

std::string ReadFileText(const std::string& name) {
  std::ifstream file(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace kestra
