#include "fakes/fake_log.hpp"

#include <string>
#include <utility>

#include "base/failure.hpp"

namespace kestra {

void FakeLog::Append(std::string_view file, std::string_view bytes) {
  trouble_.Reach(Point::kLog);
  if (read_only_) throw Failure(75, "Path/File access error");
  files_[std::string(file)].append(bytes);
  journal_.Add({.kind = Happening::kLog, .text = std::string(bytes), .detail = std::string(file)});
}

void FakeLog::SetAside(std::string_view file, std::uint64_t limit) {
  trouble_.Reach(Point::kLog);
  const auto found = files_.find(std::string(file));
  if (found == files_.end() || found->second.size() < limit) return;
  if (read_only_) throw Failure(75, "Path/File access error");
  files_[found->first + ".1"] = std::exchange(found->second, {});
}

std::string FakeLog::Text(const std::string& file) const {
  const auto found = files_.find(file);
  return found == files_.end() ? std::string() : found->second;
}

}  // namespace kestra
