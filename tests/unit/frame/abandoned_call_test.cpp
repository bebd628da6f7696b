// A host that leaves a callback with a jump or an exception that only it knows: the call that the
// callback came from never ends. The next one works all the same.

#include <gtest/gtest.h>

#include <csetjmp>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "base/failure.hpp"
#include "exports/callbacks.hpp"
#include "exports/exports.hpp"
#include "fakes/fake_platform.hpp"
#include "frame/instance.hpp"
#include "kestra/kestra.h"
#include "unit/lost_memory.hpp"
#include "unit/world.hpp"

namespace kestra {
namespace {

// A world that counts how often start-up began and ended.
class CountingPlatform : public FakePlatform {
 public:
  void BeginStartUp() override { ++begun; }
  void EndStartUp() override {
    ++ended;
    if (end_fails) throw Failure(70, "Permission denied");
  }

  int begun = 0;
  int ended = 0;
  bool end_fails = false;
};

CountingPlatform& Shop() {
  auto world = std::make_unique<CountingPlatform>();
  auto& kept = *world;
  unit::FillProfile(kept);
  kept.Line().SetDefault(unit::Answering("0000", "0600"));
  ReplaceInstance(std::move(world));
  return kept;
}

struct Host {
  std::jmp_buf way_out{};
  bool leaves = true;
  int dialogs = 0;
  std::int32_t from_within = -1;

  void Opened() {
    ++dialogs;
    from_within = EP_CortaPapel();
    if (leaves) std::longjmp(way_out, 1);  // NOLINT(cert-err52-cpp): the host's own way
  }
  std::int32_t Message(const char* /*text*/, const char* /*title*/, std::int32_t style) {
    Opened();
    return style == 0 ? 1 : 6;
  }
  std::int32_t Report(auto... /*shown*/) {
    Opened();
    return 0;
  }
  void MemoryFull() { Opened(); }
};

void TakeTheOperatorsPlace(Host& host) {
  const auto record = exports::RecordOf(host);
  Kestra_DefinirOperador(&record);
}

using Call = std::int32_t(KESTRA_CALL*)();

void Abandon(Host& host, Call call) {
  const unit::LostMemory lost;
  TakeTheOperatorsPlace(host);
  if (setjmp(host.way_out) == 0) {  // NOLINT(cert-err52-cpp)
    call();
    FAIL() << "the call came back";
  }
  EXPECT_EQ(host.dialogs, 1);
  EXPECT_EQ(host.from_within, 1) << "a call from within was not turned away";
}

struct AbandonedRow {
  const char* sentence;
  const char* key;  // a setting of the shop
  const char* value;
  const char* printer;
  const char* fiscal;
  Call call;
  std::int32_t outcome;  // as far as it came
};

class Abandoned : public testing::TestWithParam<AbandonedRow> {
 protected:
  static CountingPlatform& ShopOfRow(Host& host) {
    SCOPED_TRACE(GetParam().sentence);
    auto& world = Shop();
    EXPECT_EQ(EP_Init(), 1);
    world.GetProfile().Set(GetParam().key, GetParam().value);
    host.leaves = false;
    if (GetParam().call != EP_Init) {
      EXPECT_EQ(EP_Init(), 1);
    }
    world.Line().SetDefault(unit::Answering(GetParam().printer, GetParam().fiscal));
    host = Host{};
    Abandon(host, GetParam().call);
    Kestra_DefinirOperador(nullptr);
    world.Line().SetDefault(unit::Answering("0000", "0600"));
    return world;
  }
};

TEST_P(Abandoned, TheNextCallWorksAndNothingStaysOpen) {
  Host host;
  auto& world = ShopOfRow(host);
  world.GetOperator().Queue(Answer::kYes);
  EXPECT_EQ(EP_CortaPapel(), 0);
  EXPECT_EQ(unit::TextsOf(world.GetJournal(), Happening::kOpen).size(),
            unit::TextsOf(world.GetJournal(), Happening::kClose).size());
  EXPECT_GE(world.ended, world.begun);
}

TEST_P(Abandoned, TheNextCallIsToldHowFarItCame) {
  Host host;
  ShopOfRow(host);
  EXPECT_EQ(Kestra_Desenlace(), GetParam().outcome);
}

// Whatever it has to remember in its own frame.
TEST_P(Abandoned, AnyCallMayBeTheNext) {
  for (const auto& exported : exports::Exports()) {
    if (exported.nature != exports::Nature::kOperation &&
        exported.nature != exports::Nature::kLifetime) {
      continue;
    }
    SCOPED_TRACE(exported.name);
    Host host;
    auto& world = ShopOfRow(host);
    const int ended = world.ended;
    exported.call({});
    EXPECT_GT(world.ended, ended) << "was turned away";
    EXPECT_EQ(EP_Init(), 1);
  }
}

TEST_P(Abandoned, TheNextCallHasATurnOfItsOwn) {
  Host host;
  auto& world = ShopOfRow(host);
  unit::FillProfile(world);
  world.GetProfile().Set("MostrarRespuestas", "1");
  ASSERT_EQ(EP_Init(), 1);
  host.leaves = false;
  host.dialogs = 0;
  host.from_within = -1;
  TakeTheOperatorsPlace(host);
  EXPECT_EQ(EP_CortaPapel(), 0);
  EXPECT_GE(host.dialogs, 1);
  EXPECT_EQ(host.from_within, 1);
  Kestra_DefinirOperador(nullptr);
}

const AbandonedRow kRows[] = {
    {"from the question before a command", "MostrarComandos", "1", "0000", "0600", EP_CortaPapel,
     KESTRA_DESENLACE_NADA},
    {"from the listing of an answer", "MostrarRespuestas", "1", "0000", "0600", EP_CortaPapel,
     KESTRA_DESENLACE_HECHO},
    {"from the report", "DelayComandos", "0", "4000", "0600", EP_CortaPapel,
     KESTRA_DESENLACE_HECHO},
    {"from the warning of a nearly full memory", "DelayComandos", "0", "0000", "0100", EP_ReporteZ,
     KESTRA_DESENLACE_HECHO},
    {"from the message of a bad key while starting", "EntPrecio", "x", "0000", "0600", EP_Init,
     KESTRA_DESENLACE_NADA},
};
INSTANTIATE_TEST_SUITE_P(Rows, Abandoned, testing::ValuesIn(kRows));

// ---- Before the start, out of the box that says so: there is no port to let go of ----

TEST(AbandonedBeforeTheStart, AnotherCallFailsAsTheFirstOneDidAndTheStartAndWhatFollowsWork) {
  auto& world = Shop();
  Host host;
  Abandon(host, EP_CortaPapel);
  Kestra_DefinirOperador(nullptr);
  EXPECT_EQ(EP_CortaPapel(), 1);
  EXPECT_EQ(unit::Wire(world.GetJournal()), "");
  EXPECT_EQ(EP_Init(), 1);
  EXPECT_EQ(EP_CortaPapel(), 0);
  EXPECT_EQ(unit::TextsOf(world.GetJournal(), Happening::kOpen).size(), 1u);
}

// ---- What begins with start-up ends with it ----

TEST(StartUp, EndsWhatItBeganWhateverFailsInIt) {
  for (const auto ailment : {Ailment::kFalla, Ailment::kMemory, Ailment::kOther}) {
    auto& world = Shop();
    world.GetTrouble().Arm(Point::kCreatePort, 1, false, ailment);
    EXPECT_EQ(EP_Init(), 0);
    EXPECT_EQ(world.begun, 1);
    EXPECT_EQ(world.ended, 1);
  }
}

TEST(StartUp, FailsWhenItCannotEndWhatItBegan) {
  auto& world = Shop();
  world.end_fails = true;
  EXPECT_EQ(EP_Init(), 0);
  world.end_fails = false;
  EXPECT_EQ(EP_Init(), 1);
}

TEST(StartUp, ThatFailsTwiceTellsOfTheFirstFailure) {
  auto& world = Shop();
  ASSERT_EQ(EP_Init(), 1);
  world.end_fails = true;
  world.GetTrouble().Arm(Point::kCreatePort, 1, false, Ailment::kFalla);
  world.GetJournal().Take();
  EXPECT_EQ(EP_Init(), 0);
  const auto lines = unit::TextsOf(world.GetJournal(), Happening::kLog);
  ASSERT_EQ(lines.size(), 1u);
  EXPECT_NE(lines.front().find("Error 57"), std::string::npos) << lines.front();
}

}  // namespace
}  // namespace kestra
