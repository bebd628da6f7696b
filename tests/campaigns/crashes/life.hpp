#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace kestra::crashes {

// What a host does to the world, for telling where it died.
enum class Act : std::uint8_t { kJournal, kWrite, kListen, kPort, kOther };
inline constexpr std::array<std::string_view, 5> kActNames{
    "journal: opened, read, written, cut, begun anew", "port: written",
    "port: looked at, read, emptied", "port: opened, closed", "log, boxes"};

inline constexpr std::size_t kNever = SIZE_MAX;

// The life of one host, in moments: one for each of its acts, and for each byte of what it writes. It dies in
// the moment that it is given, with that byte unwritten.
class Life {
 public:
  explicit Life(std::size_t death) : death_(death) {}

  // The act begins: how many of its bytes are done before the host is dead. For an act without bytes, 1 or 0.
  std::size_t Reach(Act act, std::size_t bytes = 1) {
    if (over_) return 0;
    if (bytes == 0) bytes = 1;
    if (death_ - lived_ >= bytes) {
      lived_ += bytes;
      return bytes;
    }
    over_ = true;
    last_ = act;
    return death_ - lived_;
  }

  // So many moments from now.
  void DieIn(std::size_t moments) { death_ = lived_ + moments; }

  [[nodiscard]] bool Over() const { return over_; }
  [[nodiscard]] Act Last() const { return last_; }
  [[nodiscard]] std::size_t Lived() const { return lived_; }

 private:
  std::size_t death_;
  std::size_t lived_ = 0;
  bool over_ = false;
  Act last_ = Act::kOther;
};

}  // namespace kestra::crashes
