#include "fakes/fake_log.hpp"

#include <string>

#include "base/failure.hpp"

namespace kestra {

void FakeLog::Append(std::string_view file, std::string_view bytes) {
  trouble_.Reach(Point::kLog);
  if (read_only_) throw Failure(75, "Path/File access error");
  journal_.Add({.kind = Happening::kLog, .text = std::string(bytes), .detail = std::string(file)});
}

}  // namespace kestra
