#pragma once

#include <cstddef>
#include <random>
#include <string>
#include <string_view>

#include "campaigns/crashes/shop.hpp"
#include "campaigns/crashes/story.hpp"
#include "kestra/kestra.h"

namespace kestra::crashes {

// It asks for the total first, and what it does depends on that: made again it does what is missing.
inline constexpr std::string_view kRounding = "EP_AjusteRedondeo";

// One play of a story.
class Telling {
 public:
  Telling(const Story& story, const Disaster& disaster)
      : story_(story), disaster_(disaster), shop_(story.document_, story.mode_, disaster.faults) {}

  StoryReport Run();
  void Measure(Story& story);

 private:
  using GoodCall = Story::GoodCall;

  bool Sell(std::size_t from);
  bool SellOn();
  void Weather();
  void Befall();
  bool CallWell();
  bool DoneOnce();
  void Recover();
  void Learn();
  void Repeat();
  void LearnFromJournal();
  void LearnFromCall();
  void GoOn();
  void CheckPaper();
  bool OnlyRepeated();
  void LookAtSums();
  void End(Ending ending) { report_.ending = ending; }
  void Wrong(std::string_view what);

  [[nodiscard]] const GoodCall& Good() const { return story_.good_[call_]; }
  [[nodiscard]] const std::string& CallWords() const { return story_.document_.calls[call_]; }
  [[nodiscard]] bool IsRounding() const { return CallWords().starts_with(kRounding); }
  [[nodiscard]] bool IsWhole() const { return deeds_ == Good().deeds; }
  // Of a closing without anything before it, nobody knows whether there was something to close.
  [[nodiscard]] bool MayStayUnknown() const { return Good().outcome == KESTRA_DESENLACE_RECHAZADO; }
  void Begin();
  [[nodiscard]] std::size_t Chance(std::size_t below) { return random_() % below; }

  const Story& story_;
  Disaster disaster_;
  Shop shop_;
  StoryReport report_;
  std::size_t call_ = 0;  // under way
  std::size_t mark_ = 0;  // the printer's exchanges when it began
  std::size_t results_ = 0;
  Told told_;
  bool died_ = false;  // the till to which the call was told
  std::mt19937_64 random_;
  Words deeds_;    // of that call
  Words doubted_;  // of the calls that were in doubt
};

}  // namespace kestra::crashes
