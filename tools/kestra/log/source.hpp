#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace kestra::tool {

// Of a name in UTF-8.
std::filesystem::path PathOf(std::string_view name);

// A file that others write to. It is open only while it is read: a till may set it aside meanwhile and begin another,
// which is then read from its beginning, when the rest of the former one has been.
class GrowingFile {
 public:
  using Take = std::function<void(std::string_view bytes)>;

  explicit GrowingFile(std::filesystem::path path) : path_(std::move(path)) {}

  // All that is there and has not been read; how much it was. A file that is not there has nothing. Throws Stop for
  // one that cannot be read.
  std::uintmax_t ReadOn(const Take& take);

 private:
  std::uintmax_t ReadFrom(const std::filesystem::path& path, std::uintmax_t from, const Take& take);
  bool IsAnother(const std::filesystem::path& path, std::uintmax_t size) const;

  std::filesystem::path path_;
  std::uintmax_t read_ = 0;
  std::string head_;  // its first bytes, to know it again
};

}  // namespace kestra::tool
