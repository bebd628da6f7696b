// The host's callbacks: what they find, and what they may leave behind.

#include <kestra/kestra.h>

#include <cstdint>
#include <cstring>

#include "library.hpp"
#include "programs/stories.hpp"

namespace armour {
namespace {

struct Seen {
  int boxes = 0;
  std::uint16_t control = 0;
  std::uint32_t vector = 0;
  bool spoil = false;
};

// A host's box may leave the units as it likes: toolkits set them up anew
// whenever they show something.
void LeaveEverythingTrapping() {
  const std::uint16_t control = 0x0340;
  const std::uint32_t vector = 0;
  __asm__ volatile("fldcw %0" : : "m"(control));
  __asm__ volatile("ldmxcsr %0" : : "m"(vector));
}

int32_t KESTRA_CALL Look(void* context, const char*, const char*, int32_t style) {
  auto& seen = *static_cast<Seen*>(context);
  ++seen.boxes;
  __asm__ volatile("fnstcw %0" : "=m"(seen.control));
  __asm__ volatile("stmxcsr %0" : "=m"(seen.vector));
  if (seen.spoil) LeaveEverythingTrapping();
  return style == 0 ? 1 : 7;
}

constexpr std::uint64_t kNoNumber = 0x7FF8000000000000;

// Four amounts that are none: four boxes, and work of the library behind each.
Target FourBadAmounts() {
  static char text[50];
  std::memset(text, ' ', sizeof text);
  Words words;
  words.Address(text);
  for (int i = 0; i < 4; ++i) words.Number(kNoNumber);
  return words.Address(text).Address(text).Address(text).For("EP_ImprimirItem");
}

Seen Play(const Habit& habit, bool spoil) {
  Seen seen;
  seen.spoil = spoil;
  const KestraOperador record = {sizeof record, &seen, Look, nullptr, nullptr};
  CallIntact(Words().Address(&record).For("Kestra_DefinirOperador"), habit);
  CallIntact(FourBadAmounts(), habit);
  TakeTheOperatorsPlace();
  return seen;
}

}  // namespace

STORY(callbacks) {
  constexpr std::uint16_t kAllMasked = 0x3F;
  constexpr std::uint32_t kVectorMasks = 0x1F80;
  StartLibraryUnderTest();
  for (const Habit& habit : Habits()) {
    const Seen seen = Play(habit, false);
    Expect(seen.boxes >= 4, habit.name, "not every bad amount was shown");
    Expect((seen.control & kAllMasked) == kAllMasked, habit.name,
           "the old unit traps in a callback");
    Expect((seen.vector & kVectorMasks) == kVectorMasks, habit.name, "vectors trap in a callback");
    Expect(Play(habit, true).boxes == seen.boxes, habit.name, "boxes that change the units");
  }
  CallIntact(Words().For("EP_Kill"), EverythingTraps());
}

}  // namespace armour
