#pragma once

#include <cstddef>
#include <limits>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "fakes/journal.hpp"
#include "fakes/trouble.hpp"
#include "platform/seam/files.hpp"

namespace kestra {

// What outlives the program, and the machine's power: two programs may share it, one may come after the other.
struct FakeDisk {
  std::map<std::string, std::string> files;
  std::set<std::string> held;                                  // open somewhere
  std::size_t room = std::numeric_limits<std::size_t>::max();  // bytes that still fit
  bool read_only = false;
  bool held_by_others = false;  // whatever is not open here
};

class FakeJournalFile : public JournalFile {
 public:
  FakeJournalFile(Journal& journal, Trouble& trouble, std::shared_ptr<FakeDisk> disk = nullptr)
      : journal_(journal),
        trouble_(trouble),
        disk_(disk ? std::move(disk) : std::make_shared<FakeDisk>()) {}
  ~FakeJournalFile() override { FakeJournalFile::Close(); }

  void Open(std::string_view file) override;
  void Close() noexcept override;
  [[nodiscard]] bool IsOpen() const noexcept override { return !name_.empty(); }
  std::string Read() override;
  void Append(std::string_view bytes) override;
  void Truncate(std::size_t length) override;
  void Overwrite(std::size_t at, std::string_view bytes) override;
  void BeginAnew(std::string_view suffix) override;
  std::vector<std::string> Kept() override;
  void DeleteKept(std::string_view suffix) override;

  [[nodiscard]] const std::shared_ptr<FakeDisk>& Disk() const { return disk_; }
  // Another disk, while the file is closed.
  void UseDisk(std::shared_ptr<FakeDisk> disk) { disk_ = std::move(disk); }

 private:
  void RequireWritable() const;

  Journal& journal_;
  Trouble& trouble_;
  std::shared_ptr<FakeDisk> disk_;
  std::string name_;  // of the open file
};

}  // namespace kestra
