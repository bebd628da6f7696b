#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace kestra {

// Every place where the library reaches for the world.
enum class Point {
  kCreatePort,
  kOpen,
  kClose,
  kWrite,
  kCount,
  kDiscard,
  kRead,
  kTimeOfDay,
  kDate,
  kTimeText,
  kElapsed,
  kSleep,
  kMessage,
  kReport,
  kMemoryFull,
  kLog,
  kProfile,
  kJournal,
};

struct PointName {
  Point point;
  std::string_view name;
};

inline constexpr std::array kPointNames{
    PointName{Point::kCreatePort, "create"},
    PointName{Point::kOpen, "open"},
    PointName{Point::kClose, "close"},
    PointName{Point::kWrite, "write"},
    PointName{Point::kCount, "count"},
    PointName{Point::kDiscard, "discard"},
    PointName{Point::kRead, "read"},
    PointName{Point::kTimeOfDay, "time"},
    PointName{Point::kDate, "date"},
    PointName{Point::kTimeText, "timetext"},
    PointName{Point::kElapsed, "elapsed"},
    PointName{Point::kSleep, "sleep"},
    PointName{Point::kMessage, "box"},
    PointName{Point::kReport, "report"},
    PointName{Point::kMemoryFull, "memoryfull"},
    PointName{Point::kLog, "log"},
    PointName{Point::kProfile, "profile"},
    PointName{Point::kJournal, "journal"},
};

// What comes out of a call that fails.
enum class Ailment {
  kFalla,   // a run-time failure, as the interfaces announce it
  kMemory,  // std::bad_alloc
  kOther,   // anything else
};

// Makes the k-th call of an interface fail, once or from then on.
class Trouble {
 public:
  void Arm(Point point, int nth, bool forever, Ailment ailment);
  void Disarm() { armed_.reset(); }

  // Every fake announces its calls here before it does anything. Throws when the call is to fail.
  void Reach(Point point);

  [[nodiscard]] int Calls(Point point) const { return calls_[Index(point)]; }

 private:
  struct Armed {
    Point point;
    int call;
    bool forever;
    Ailment ailment;
  };

  static constexpr std::size_t Index(Point point) { return static_cast<std::size_t>(point); }

  std::array<int, kPointNames.size()> calls_{};
  std::optional<Armed> armed_;
};

}  // namespace kestra
