// A host that calls from a second thread while a call is under way: the second call is turned away, and the
// first one does not notice. With threads, which the unit tests do without.

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <string>
#include <thread>

#include "dialogs/host_operator.hpp"
#include "fakes/fake_platform.hpp"
#include "unit/world.hpp"

namespace kestra {
namespace {

constexpr int kOften = 200'000;

FakePlatform& ShopThatAsks() {
  return unit::StartedShop("MostrarComandos", "1");
}

std::int32_t FromAnotherThread() {
  std::int32_t result = 0;
  std::thread([&] { result = EP_AvanzaPapel(1); }).join();
  return result;
}

std::ptrdiff_t Boxes(FakePlatform& world) {
  const auto events = world.GetJournal().Take();
  return std::count_if(events.begin(), events.end(),
                       [](const Event& event) { return event.kind == Happening::kBox; });
}

TEST(SecondThread, IsTurnedAwayWhileTheFirstOneAsks) {
  auto& world = ShopThatAsks();
  std::int32_t result = 0;
  world.GetOperator().Meanwhile([&] { result = FromAnotherThread(); });
  world.GetOperator().Queue(Answer::kNo);
  EXPECT_EQ(EP_CortaPapel(), 1) << "the operator said no";
  EXPECT_EQ(result, 1);
  EXPECT_EQ(Boxes(world), 1) << "the second call asked too";
}

TEST(SecondThread, IsServedOnceTheFirstOneIsDone) {
  auto& world = ShopThatAsks();
  world.GetOperator().Queue(Answer::kNo);
  EXPECT_EQ(EP_CortaPapel(), 1);
  FromAnotherThread();
  EXPECT_EQ(Boxes(world), 2) << "the second call was turned away";
}

// ---- What may be asked at any time ----

TEST(SecondThread, IsNeverToldToUnloadALibraryThatHoldsAPort) {
  ShopThatAsks();
  std::atomic<bool> over = false;
  std::atomic<int> asked = 0;
  int may_go = 0;
  int errors = 0;
  std::thread other([&] {
    for (; !over; ++asked) {
      if (DllCanUnloadNow() == 0) ++may_go;
      if (EP_Chequear_Error() != 0) ++errors;
    }
  });
  const auto blank = std::string(40, ' ');
  const char* const words = blank.data();
  for (int starts = 0; starts < 2000 || asked < 2000; ++starts) {
    EXPECT_EQ(EP_Init(), 1);
    EXPECT_EQ(EP_AbrirComprobanteFiscal("FC", "B", words, words, words, words, words, words, words,
                                        words, words, words, 1),
              1);
  }
  over = true;
  other.join();
  EXPECT_EQ(may_go, 0);
  EXPECT_EQ(errors, 0);
}

// ---- The operator that a second thread defines comes whole ----

std::atomic<int> strangers = 0;  // callbacks that met the context of another record

// Two hosts' callbacks, each of which knows its own context by its address.
template <int Number>
struct Desk {
  static inline int context = Number;

  static void KESTRA_CALL MemoryFull(void* there) {
    if (there != &context) ++strangers;
  }
  static KestraOperador Record() {
    return {sizeof(KestraOperador), &context, nullptr, nullptr, MemoryFull};
  }
};

TEST(SecondThread, MayDefineTheOperatorWhileTheFirstOneTellsHim) {
  FakePlatform world;
  HostOperator operators(world.GetOperator());
  const auto first = Desk<1>::Record();
  const auto second = Desk<2>::Record();
  operators.Set(&first);
  strangers = 0;
  std::atomic<int> told = 0;
  std::atomic<bool> over = false;
  std::thread other([&] {
    for (int i = 0; i < kOften || told < kOften; ++i) operators.Set(i % 2 == 0 ? &second : &first);
    over = true;
  });
  for (; !over; ++told) operators.MemoryFull();
  other.join();
  EXPECT_EQ(strangers, 0);
}

}  // namespace
}  // namespace kestra
