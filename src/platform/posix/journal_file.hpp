#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>
#include <vector>

#include "platform/posix/files.hpp"
#include "platform/seam/files.hpp"

namespace kestra {

// Locked as long as it is open; others may read it meanwhile.
class PosixJournalFile : public JournalFile {
 public:
  void Open(std::string_view file) override;
  void Close() noexcept override { file_.Close(); }
  [[nodiscard]] bool IsOpen() const noexcept override { return static_cast<bool>(file_); }
  std::string Read() override;
  void Append(std::string_view bytes) override;
  void Truncate(std::size_t length) override;
  void Overwrite(std::size_t at, std::string_view bytes) override;
  void BeginAnew(std::string_view suffix) override;
  std::vector<std::string> Kept() override;
  void DeleteKept(std::string_view suffix) override;

 private:
  void WriteFrom(off_t place, int from, std::string_view bytes);

  std::string path_;  // from the root: the host may change its directory
  FileDescriptor file_;
};

}  // namespace kestra
