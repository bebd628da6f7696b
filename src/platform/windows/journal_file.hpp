#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/seam/files.hpp"
#include "platform/windows/handle.hpp"

namespace kestra {

// Nobody else may write to it as long as it is open; others may read it meanwhile.
class WindowsJournalFile : public JournalFile {
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
  void WriteFrom(LONGLONG place, DWORD from, std::string_view bytes);

  std::wstring path_;  // from the root: the host may change its directory
  Handle file_;
};

}  // namespace kestra
