#include "log/source.hpp"

#include <algorithm>
#include <array>
#include <fstream>
#include <system_error>

#include "command.hpp"

namespace kestra::tool {
namespace {

constexpr std::size_t kHead = 64;
constexpr std::string_view kSetAside =
    ".1";  // what the driver adds to the name of a log that is full

std::string ReadHead(const std::filesystem::path& path, std::size_t count) {
  std::string head(count, '\0');
  std::ifstream file(path, std::ios::binary);
  file.read(head.data(), static_cast<std::streamsize>(count));
  head.resize(static_cast<std::size_t>(std::max<std::streamsize>(file.gcount(), 0)));
  return head;
}

}  // namespace

std::filesystem::path PathOf(std::string_view name) {
  return {std::u8string(name.begin(), name.end())};
}

std::uintmax_t GrowingFile::ReadOn(const Take& take) {
  std::error_code error;
  const auto size = std::filesystem::file_size(path_, error);
  if (error) return 0;
  std::uintmax_t count = 0;
  if (IsAnother(path_, size)) {
    std::filesystem::path former = path_;
    former += kSetAside;
    const auto left = std::filesystem::file_size(former, error);
    if (!error && !IsAnother(former, left)) count = ReadFrom(former, read_, take);
    read_ = 0;
    head_.clear();
  }
  if (size > read_) count += ReadFrom(path_, read_, take);
  return count;
}

bool GrowingFile::IsAnother(const std::filesystem::path& path, std::uintmax_t size) const {
  return size < read_ || ReadHead(path, head_.size()) != head_;
}

std::uintmax_t GrowingFile::ReadFrom(const std::filesystem::path& path, std::uintmax_t from,
                                     const Take& take) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw Stop(Exit::kBroken, "no se puede leer " + path.string());
  file.seekg(static_cast<std::streamoff>(from));
  std::array<char, 65'536> bytes{};
  std::uintmax_t count = 0;
  while (file.read(bytes.data(), bytes.size()), file.gcount() > 0) {
    const std::string_view piece(bytes.data(), static_cast<std::size_t>(file.gcount()));
    if (head_.size() < kHead) head_.append(piece.substr(0, kHead - head_.size()));
    count += piece.size();
    take(piece);
  }
  read_ = from + count;
  return count;
}

}  // namespace kestra::tool
