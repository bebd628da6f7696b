// A dialog runs the host's code while a call is under way. Whatever that code does, the call goes
// on as if nothing had happened.

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "exports/callbacks.hpp"
#include "exports/exports.hpp"
#include "fakes/fake_platform.hpp"
#include "kestra/kestra.h"
#include "unit/world.hpp"

namespace kestra {
namespace {

// A host that answers the dialogs itself and calls the library back meanwhile.
struct Host {
  bool calls_back = false;
  std::int32_t answer = 6;   // to every question
  std::int32_t retries = 0;  // left for the status report
  int dialogs = 0;
  std::vector<std::string> texts{};
  std::vector<std::int32_t> results{};  // of the calls back

  void Opened(const char* text) {
    ++dialogs;
    texts.emplace_back(text);
    if (!calls_back) return;
    for (const auto& exported : exports::Exports()) {
      if (exported.nature == exports::Nature::kBeside) continue;
      results.push_back(exported.call({}));
    }
  }
  std::int32_t Message(const char* text, const char* /*title*/, std::int32_t style) {
    Opened(text);
    return style == 0 ? 1 : answer;
  }
  std::int32_t Report(auto... /*shown*/) {
    Opened("report");
    return retries-- > 0 ? 1 : 0;
  }
  void MemoryFull() { Opened("memory"); }
};

struct ReentryRow {
  const char* sentence;
  std::string_view key;  // a setting of the shop
  std::string_view value;
  const char* printer;  // words of its answers; null: it is silent
  const char* fiscal;
  std::int32_t(KESTRA_CALL* call)();
  std::int32_t result;
  int dialogs = 1;
  std::int32_t answer = 6;  // yes
  std::int32_t retries = 0;
};

struct Story {
  std::int32_t result = 0;
  std::string wire;
  std::vector<std::string> log;
  std::vector<std::string> opened;
  std::vector<std::string> released;
  Host host;
};

Story Play(const ReentryRow& row, bool calls_back) {
  auto& world = unit::ExportsOnFakes();
  world.GetProfile().Set(row.key, row.value);
  if (row.printer == nullptr) {
    world.Line().SetDefault(nullptr);
  } else {
    world.Line().SetDefault(unit::Answering(row.printer, row.fiscal));
  }
  EXPECT_EQ(EP_Init(), 1);
  Story story;
  story.host = {.calls_back = calls_back, .answer = row.answer, .retries = row.retries};
  const auto record = exports::RecordOf(story.host);
  Kestra_DefinirOperador(&record);
  world.GetJournal().Take();
  story.result = row.call();
  const auto& journal = world.GetJournal();
  story.wire = unit::Wire(journal);
  story.log = unit::TextsOf(journal, Happening::kLog);
  story.opened = unit::TextsOf(journal, Happening::kOpen);
  story.released = unit::TextsOf(journal, Happening::kPortReleased);
  Kestra_DefinirOperador(nullptr);
  return story;
}

constexpr std::int32_t kNo = 7;

std::int32_t KESTRA_CALL PayAThousand() {
  return EP_ImprimirPago(nullptr, 1000);
}

const ReentryRow kReentries[] = {
    {"from the question before a command", "MostrarComandos", "1", "0000", "0600", EP_CortaPapel, 0,
     3},
    {"from a question that is answered no", "MostrarComandos", "1", "0000", "0600", EP_CortaPapel,
     1, 1, kNo},
    {"from the boxes around a frame", "MostrarComandos", "2", "0000", "0600", EP_CortaPapel, 0, 2},
    {"from the listing of an answer", "MostrarRespuestas", "1", "0000", "0600", EP_CortaPapel, 0},
    {"from the report that is closed", "DelayComandos", "0", "4000", "0600", EP_CortaPapel, 0},
    {"from the report of a refused command", "DelayComandos", "0", "0000", "0610", EP_CortaPapel,
     1},
    {"from the report that sends the command again", "DelayComandos", "0", "4000", "0600",
     EP_CortaPapel, 0, 3, 6, 2},
    {"from the warning of a nearly full memory", "DelayComandos", "0", "0000", "0100", EP_ReporteZ,
     0},
    {"from the question after silence", "DelayComandos", "0", nullptr, nullptr, EP_CortaPapel, 1, 1,
     kNo},
    {"from the message of a field that does not fit", "EntDesc", "0", "0000", "0600", PayAThousand,
     0},
    {"from the message of a bad key while starting", "EntPrecio", "x", "0000", "0600", EP_Init, 1},
};

TEST(Reentry, TheOuterCallIsTheSameWithAndWithoutItAndTheCallsFromWithinAreTurnedAway) {
  for (const auto& row : kReentries) {
    SCOPED_TRACE(row.sentence);
    const auto quiet = Play(row, false);
    const auto noisy = Play(row, true);
    EXPECT_EQ(noisy.wire, quiet.wire);
    EXPECT_EQ(noisy.log, quiet.log);
    EXPECT_EQ(noisy.opened, quiet.opened);
    EXPECT_EQ(noisy.host.texts, quiet.host.texts);
    EXPECT_EQ(noisy.released, quiet.released);
    EXPECT_EQ(noisy.result, row.result);
    EXPECT_EQ(quiet.result, row.result);
    EXPECT_EQ(quiet.host.dialogs, row.dialogs);
    std::vector<std::int32_t> refused;
    for (int dialog = 0; dialog < row.dialogs; ++dialog) {
      for (const auto& exported : exports::Exports()) {
        if (exported.nature != exports::Nature::kBeside) refused.push_back(exported.failed);
      }
    }
    EXPECT_EQ(noisy.host.results, refused);
  }
}

// From inside a callback the host may hand over to another operator, or to none.

struct Handover {
  const KestraOperador* next = nullptr;
  int messages = 0;
};

std::int32_t KESTRA_CALL HandOver(void* context, const char* /*text*/, const char* /*title*/,
                                  std::int32_t /*style*/) {
  auto& handover = *static_cast<Handover*>(context);
  ++handover.messages;
  Kestra_DefinirOperador(handover.next);
  return 6;
}

FakePlatform& AskingShop(std::string_view asked = "1") {
  return unit::StartedShop("MostrarComandos", asked);
}

TEST(Reentry, ANewOperatorOrTheDefaultFromWithinAnswersTheNextDialog) {
  Host second;
  const auto other = exports::RecordOf(second);
  for (const KestraOperador* const next : {&other, static_cast<const KestraOperador*>(nullptr)}) {
    auto& world = AskingShop();
    Handover first{.next = next};
    const KestraOperador record{sizeof(KestraOperador), &first, HandOver, nullptr, nullptr};
    Kestra_DefinirOperador(&record);
    EXPECT_EQ(EP_CortaPapel(), 0);
    EXPECT_EQ(first.messages, 1);
    // The boxes around the frame.
    const auto of_the_default = unit::TextsOf(world.GetJournal(), Happening::kBox).size();
    EXPECT_EQ(of_the_default, next == nullptr ? 2u : 0u);
    EXPECT_EQ(second.dialogs, 2);
  }
}

// A host written in C++ may let an exception out of its callback.

template <typename Exception>
std::int32_t KESTRA_CALL ThrowingMessage(void* /*context*/, const char* /*text*/,
                                         const char* /*title*/, std::int32_t /*style*/) {
  throw Exception();
}

template <typename Exception>
std::int32_t KESTRA_CALL ThrowingReport(void* /*context*/, const char* /*printer*/,
                                        const char* /*fiscal*/, const KestraFila* /*rows*/,
                                        std::int32_t /*count*/) {
  throw Exception();
}

struct Oddity {};  // no exception that anybody knows

using Throwers = testing::Types<std::bad_alloc, std::bad_exception, Oddity>;

template <typename Exception>
class ThrowingHost : public testing::Test {
 protected:
  static void ExpectOneFailure(FakePlatform& world, const KestraOperador& record) {
    Kestra_DefinirOperador(&record);
    EXPECT_EQ(EP_CortaPapel(), 1);
    Kestra_DefinirOperador(nullptr);
    world.GetProfile().Set("MostrarComandos", "0");
    world.Line().SetDefault(unit::Answering("0000", "0600"));
    EXPECT_EQ(EP_Init(), 1);
    EXPECT_EQ(EP_CortaPapel(), 0);
    EXPECT_EQ(unit::TextsOf(world.GetJournal(), Happening::kOpen).size(),
              unit::TextsOf(world.GetJournal(), Happening::kClose).size());
  }
};
TYPED_TEST_SUITE(ThrowingHost, Throwers);

TYPED_TEST(ThrowingHost, FromTheQuestionAndFromTheBoxesAroundTheFrame) {
  for (const auto* asked : {"1", "2"}) {
    this->ExpectOneFailure(AskingShop(asked), {sizeof(KestraOperador), nullptr,
                                               ThrowingMessage<TypeParam>, nullptr, nullptr});
  }
}

TYPED_TEST(ThrowingHost, FromTheReport) {
  auto& world = AskingShop("0");
  world.Line().SetDefault(unit::Answering("4000", "0600"));
  this->ExpectOneFailure(
      world, {sizeof(KestraOperador), nullptr, nullptr, ThrowingReport<TypeParam>, nullptr});
}

}  // namespace
}  // namespace kestra
