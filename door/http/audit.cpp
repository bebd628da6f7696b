#include "http/audit.hpp"

#include <chrono>
#include <filesystem>
#include <system_error>

#include "base/moment.hpp"

namespace puerta {
namespace {

constexpr std::streamoff kLargest = 8 << 20;
constexpr int kMostInASecond =
    100;  // an attack is not to fill the disk, nor to make the tills wait

}  // namespace

Audit::Audit(const std::string& path, const Clock& clock) : path_(path), clock_(clock) {
  if (!path_.empty()) file_.open(std::filesystem::u8path(path_), std::ios::app | std::ios::binary);
}

void Audit::Write(Json line) {
  if (!file_.is_open()) return;
  const auto now = clock_.Now();
  const auto second = std::chrono::floor<std::chrono::seconds>(now).time_since_epoch().count();
  lines_ = second == second_ ? lines_ + 1 : 0;
  second_ = second;
  if (lines_ > kMostInASecond) return;
  if (lines_ == kMostInASecond) line = {{"hecho", "demasiados"}};
  line["momento"] = MomentText(now);
  file_ << LineOf(line) << "\n" << std::flush;
  if (file_.tellp() > kLargest) Turn();
}

void Audit::Turn() {
  file_.close();
  std::error_code ignored;
  std::filesystem::rename(std::filesystem::u8path(path_), std::filesystem::u8path(path_ + ".1"),
                          ignored);
  file_.open(std::filesystem::u8path(path_), std::ios::trunc | std::ios::binary);
}

}  // namespace puerta
