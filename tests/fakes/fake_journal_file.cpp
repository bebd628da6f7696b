#include "fakes/fake_journal_file.hpp"

#include <utility>

#include "base/failure.hpp"

namespace kestra {

void FakeJournalFile::RequireWritable() const {
  if (disk_->read_only) throw Failure(70, "Permission denied");
}

void FakeJournalFile::Open(std::string_view file) {
  Close();
  trouble_.Reach(Point::kJournal);
  RequireWritable();
  const std::string name(file);
  if (disk_->held_by_others || disk_->held.contains(name))
    throw Failure(kFileInUse, "File already open");
  disk_->files[name];
  disk_->held.insert(name);
  name_ = name;
}

void FakeJournalFile::Close() noexcept {
  disk_->held.erase(name_);
  name_.clear();
}

std::string FakeJournalFile::Read() {
  trouble_.Reach(Point::kJournal);
  return disk_->files.at(name_);
}

void FakeJournalFile::Append(std::string_view bytes) {
  trouble_.Reach(Point::kJournal);
  RequireWritable();
  const auto fits = bytes.substr(0, disk_->room);
  disk_->files.at(name_).append(fits);
  disk_->room -= fits.size();
  if (fits.size() < bytes.size()) throw Failure(61, "Disk full");
  journal_.Add({.kind = Happening::kJournal, .text = std::string(bytes), .detail = name_});
}

void FakeJournalFile::Truncate(std::size_t length) {
  trouble_.Reach(Point::kJournal);
  RequireWritable();
  disk_->files.at(name_).resize(length);
}

void FakeJournalFile::Overwrite(std::size_t at, std::string_view bytes) {
  trouble_.Reach(Point::kJournal);
  RequireWritable();
  disk_->files.at(name_).replace(at, bytes.size(), bytes);
  journal_.Add({.kind = Happening::kJournal, .text = std::string(bytes), .detail = name_});
}

void FakeJournalFile::BeginAnew(std::string_view suffix) {
  trouble_.Reach(Point::kJournal);
  RequireWritable();
  disk_->files[name_ + std::string(suffix)] = std::exchange(disk_->files.at(name_), {});
}

std::vector<std::string> FakeJournalFile::Kept() {
  trouble_.Reach(Point::kJournal);
  std::vector<std::string> suffixes;
  for (const auto& [name, text] : disk_->files) {
    if (name.size() > name_.size() && name.starts_with(name_)) {
      suffixes.push_back(name.substr(name_.size()));
    }
  }
  return suffixes;
}

void FakeJournalFile::DeleteKept(std::string_view suffix) {
  trouble_.Reach(Point::kJournal);
  RequireWritable();
  if (disk_->files.erase(name_ + std::string(suffix)) == 0) throw Failure(76, "Path not found");
}

}  // namespace kestra
