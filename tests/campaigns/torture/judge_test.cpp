// The judge of the torture and its failing heap: what they must not let pass.

#include "campaigns/torture/judge.hpp"

#include <gtest/gtest.h>

#include <array>
#include <new>

#include "campaigns/torture/allocations.hpp"

namespace kestra::torture {
namespace {

constexpr Strike At(Point point, Ailment ailment = Ailment::kFalla) {
  return {static_cast<std::size_t>(point), 1, false, ailment};
}

constexpr const char* kOneFrame =
    "\x02 K\x03"
    "0070";
constexpr const char* kOtherFrame =
    "\x02 L\x03"
    "0071";

// A command of which one frame was written, and in which the struck target failed once.
CallRecord Struck(std::int32_t result) {
  return {.name = "EP_CortaPapel",
          .result = result,
          .frames = {kOneFrame},
          .failures = 1,
          .first_struck = true};
}

using Call = CallRecord;

struct Row {
  const char* sentence;
  std::int32_t result;
  Strike strike;
  void (*change)(Call& call);  // what is different
  const char* verdict;
};

constexpr auto kNothing = [](Call&) {};

const std::array kRows{
    Row{"a failure that is told", 1, At(Point::kWrite), kNothing, ""},
    Row{"a failure that is not told", 0, At(Point::kWrite), kNothing, "told success"},
    Row{"a safe exchange that came through", 0, At(Point::kWrite),
        [](Call& call) { call.patience = kMicrosPerSecond; }, ""},
    Row{"a safe exchange that waits beyond its patience", 1, At(Point::kWrite),
        [](Call& call) {
          call.patience = 20 * kMicrosPerSecond;
          call.passed = 27 * kMicrosPerSecond;
        },
        "took 27000 ms"},
    Row{"a log line that is lost", 0, At(Point::kLog), kNothing, ""},
    Row{"a log line and a frame that are lost", 0, At(Point::kLog),
        [](Call& call) { call.frames = {kOtherFrame}; }, "told success and sent something else"},
    Row{"a result that is none", 7, At(Point::kWrite), kNothing, "gave 7"},
    Row{"an adjustment, which tells nothing", 0, At(Point::kWrite),
        [](Call& call) { call.name = kEndless; }, ""},
    Row{"a cause that is asked for", 505, At(Point::kWrite),
        [](Call& call) { call.name = "Kestra_Causa"; }, ""},
    Row{"a question that leaves the port open", 0, At(Point::kWrite),
        [](Call& call) {
          call.name = "Kestra_Estado";
          call.port_open = true;
        },
        "left the port open"},
    Row{"an item whose own frame is lost", 0, At(Point::kWrite),
        [](Call& call) {
          call.name = "EP_ImprimirItem";
          call.frames = {kOtherFrame};
        },
        "told success and sent something else"},
    Row{"a start with a key that is shown", 1, At(Point::kProfile),
        [](Call& call) { call.name = "EP_Init"; }, ""},
    Row{"a start whose journal gets no moment", 1, At(Point::kTimeOfDay),
        [](Call& call) { call.name = "EP_Init"; }, ""},
    Row{"a wait whose clock is lost", 0, At(Point::kTimeOfDay), kNothing, "told success"},
    Row{"a start without memory that goes on", 1, At(Point::kProfile, Ailment::kMemory),
        [](Call& call) { call.name = "EP_Init"; }, "told success"},
    Row{"a port that stays open", 1, At(Point::kWrite), [](Call& call) { call.port_open = true; },
        "left the port open"},
    Row{"a port that does not close", 1, At(Point::kClose),
        [](Call& call) { call.port_open = true; }, ""},
    Row{"a port that could not be closed before", 1, At(Point::kWrite),
        [](Call& call) { call.port_open = call.port_was_open = true; }, ""},
    Row{"a frame that is waited for", 1, At(Point::kWrite),
        [](Call& call) { call.passed = 6 * kMicrosPerSecond; }, ""},
    Row{"a wait that is too long", 1, At(Point::kWrite),
        [](Call& call) { call.passed = 7 * kMicrosPerSecond; }, "took 7000 ms"},
    Row{"a wait over midnight", 1, At(Point::kWrite),
        [](Call& call) {
          call.passed = 7 * kMicrosPerSecond;
          call.near_midnight = true;
        },
        ""},
    Row{"an adjustment that goes on in a world that is well", 0, At(Point::kWrite),
        [](Call& call) {
          call.name = kEndless;
          call.passed = 121 * kMicrosPerSecond;
        },
        "took 121000 ms"},
};

TEST(TheJudge, LetsPassWhatMayAndNothingElse) {
  for (const Row& row : kRows) {
    CallRecord call = Struck(row.result);
    row.change(call);
    EXPECT_EQ(Verdict(call, {{kOneFrame}}, row.strike), row.verdict) << row.sentence;
  }
}

// No new-expression: a compiler may leave out one whose memory nobody uses.
void TakeAndGive() {
  ::operator delete(::operator new(sizeof(int)));
}

TEST(Allocations, FailOnceAndOnlyWhereTheyCount) {
  Allocations::Arm(2, false);
  EXPECT_NO_THROW(TakeAndGive());  // no call is under way
  const Allocations::Counted counted;
  EXPECT_NO_THROW(TakeAndGive());
  {
    const Allocations::Spared spared;
    EXPECT_NO_THROW(TakeAndGive());
  }
  EXPECT_THROW(TakeAndGive(), std::bad_alloc);
  EXPECT_NO_THROW(TakeAndGive());
  const int failures = Allocations::Failures();
  Allocations::Disarm();
  EXPECT_EQ(failures, 1);
}

TEST(Allocations, FailFromThenOn) {
  Allocations::Arm(1, true);
  const Allocations::Counted counted;
  EXPECT_THROW(TakeAndGive(), std::bad_alloc);
  EXPECT_THROW(TakeAndGive(), std::bad_alloc);
  Allocations::Disarm();
}

TEST(Allocations, KnowWhatIsAlive) {
  const long before = Allocations::Alive();
  void* const block = ::operator new(sizeof(int));
  const long with_it = Allocations::Alive();
  ::operator delete(block);
  EXPECT_EQ(with_it, before + 1);
  EXPECT_EQ(Allocations::Alive(), before);
}

}  // namespace
}  // namespace kestra::torture
