#include "campaigns/crashes/telling.hpp"

#include <algorithm>
#include <utility>

#include "campaigns/line_faults/judge.hpp"

namespace kestra::crashes {
namespace {

constexpr char kText = 'A';

// Shorter than the driver's patience.
constexpr line_faults::Micros kAMoment = std::chrono::seconds(3);

Words WithoutTexts(Words deeds) {
  std::erase_if(deeds, [](const std::string& deed) { return deed.front() == kText; });
  return deeds;
}

// What a text's command prints.
std::string TextOf(const std::string& deed) {
  const auto text = deed.substr(deed.find('\x1C') + 1);
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

}  // namespace

void Telling::Wrong(std::string_view what) {
  if (report_.ending == Ending::kWrong) return;
  End(Ending::kWrong);
  report_.wrong = what;
}

void Telling::Begin() {
  if (report_.ending == Ending::kPassed)
    report_.operation = CallWords().substr(0, CallWords().find(' '));
  mark_ = shop_.Exchanges();
  results_ = shop_.Results();
}

bool Telling::CallWell() {
  told_ = shop_.Call(CallWords());
  return !shop_.Host().Over() && told_.result == Good().result && told_.outcome == Good().outcome;
}

// False at the first call that is not as on a good day; `call_` is that one.
bool Telling::Sell(std::size_t from) {
  for (call_ = from; call_ < story_.good_.size(); ++call_) {
    Begin();
    if (shop_.Host().Over() || !CallWell()) return false;
    if (told_.buffers != Good().buffers) Wrong("something else was read");
  }
  return !shop_.Host().Over();
}

// The same till goes on: it makes a call again until it knows that it is done. Two faults cannot spoil more than
// three of them.
bool Telling::SellOn() {
  constexpr int kTries = 3;
  for (call_ = 0; call_ < story_.good_.size(); ++call_) {
    Begin();
    bool well = CallWell();
    for (int i = 0; !well && i < kTries; ++i) {
      const auto ending = report_.ending;
      Learn();
      if (ending == Ending::kUnknown || ending == Ending::kWrong) End(ending);
      const auto& asked = Good().deeds;
      const bool done = report_.ending != Ending::kRepeated && !asked.empty() &&
                        std::find(deeds_.begin(), deeds_.end(), asked.back()) != deeds_.end();
      well = done || CallWell();
      deeds_ = shop_.DeedsFrom(mark_);
      if (well && !DoneOnce()) Wrong("in the end the call was not done once");
    }
    if (!well) Wrong("made again and again, the call never ended well");
    if (told_.result == 0 && told_.buffers != Good().buffers) Wrong("something else was read");
  }
  return true;
}

StoryReport Telling::Run() {
  const auto mended = disaster_.passes ? std::optional(kAMoment) : std::nullopt;
  if (disaster_.breakdown) shop_.World().Break(*disaster_.breakdown, mended);
  Begin();
  shop_.Start(disaster_.death);
  bool sold = true;
  if (disaster_.storm) {
    Weather();
  } else {
    sold = disaster_.faults.empty() ? Sell(0) : SellOn();
  }
  call_ = std::min(call_, story_.good_.size() - 1);
  report_.last_act = shop_.Host().Last();
  if (!sold) {
    Recover();
    Learn();
    GoOn();
  }
  CheckPaper();
  if (!disaster_.faults.empty()) LookAtSums();
  return std::move(report_);
}

void Telling::Recover() {
  died_ = shop_.Host().Over() || disaster_.again != kNever;
  if (!disaster_.at_once) shop_.World().Settle();
  shop_.World().Mend();
  if (disaster_.printer_too) shop_.World().PowerCycle();
  if (disaster_.again != kNever) {
    std::string told;
    shop_.Start(disaster_.again);
    shop_.Pending(told);
    shop_.Resolve(told);
  }
  shop_.Start();
}

// An item's lines may have come out once more, where nobody knew of them.
bool Telling::DoneOnce() {
  const bool in_order = IsWhole() || (IsRounding() && !deeds_.empty());
  const bool in_doubt = report_.ending == Ending::kUnknown || report_.ending == Ending::kUnlearnt;
  if (in_doubt) doubted_.insert(doubted_.end(), deeds_.begin(), deeds_.end());
  return in_order || (in_doubt && WithoutTexts(deeds_) == WithoutTexts(Good().deeds));
}

// The call is made again where it was not done, then the others.
void Telling::GoOn() {
  const bool again =
      report_.ending == Ending::kRepeated || IsRounding() || deeds_.empty() || !IsWhole();
  if (again && !CallWell())
    return Wrong("made again, the call ended with " + std::to_string(told_.outcome));
  if (again && told_.buffers != Good().buffers) Wrong("made again, the call told something else");
  deeds_ = shop_.DeedsFrom(mark_);
  if (!DoneOnce()) return Wrong("in the end the call was not done once");
  const auto broken = call_;
  for (++call_; call_ < story_.good_.size(); ++call_) {
    const auto from = shop_.Exchanges();
    if (!CallWell() || told_.buffers != Good().buffers)
      return Wrong("a later call was not as ever");
    if (shop_.DeedsFrom(from) != Good().deeds) return Wrong("a later call did something else");
  }
  call_ = broken;
}

void Telling::CheckPaper() {
  shop_.World().Settle();
  auto paper = shop_.Paper(), good = story_.paper_;
  for (const auto& deed : doubted_) {
    if (deed.front() != kText) continue;
    for (auto* lines : {&paper, &good}) {
      std::erase_if(*lines,
                    [&](const auto& line) { return line.find(TextOf(deed)) != std::string::npos; });
    }
  }
  if (paper == good) return;
  if (OnlyRepeated()) return End(Ending::kTwice);
  const auto [ours, theirs] = std::mismatch(paper.begin(), paper.end(), good.begin(), good.end());
  Wrong("the paper is another one: " + (ours == paper.end() ? "" : *ours) + " / " +
        (theirs == good.end() ? "" : *theirs));
}

// Two faults can make up for each other in a sum of bytes: nobody can see that at once.
void Telling::LookAtSums() {
  const auto damaged = shop_.DamagedAnswers();
  for (const auto& answer : damaged) {
    if (!line_faults::LooksLikeAnAnswer(answer, shop_.World()))
      return Wrong("took an answer that shows its damage");
  }
  if (shop_.DidWhatNobodyWrote()) {
    const bool shown =
        told_.outcome == KESTRA_DESENLACE_NO_ENVIADO && told_.cause == KESTRA_CAUSA_TOTAL_DISTINTO;
    if (!shown && shop_.Totals() != story_.totals_) return Wrong("closed with another total");
    report_.ending = shown ? Ending::kTotalDiffers : Ending::kAltered;
  } else if (!damaged.empty()) {
    report_.ending = Ending::kMisled;
  } else if (report_.ending == Ending::kWrong && OnlyRepeated()) {
    report_.ending = Ending::kTwice;
  }
}

// Whether all was done as on a good day, but for a command that no book shows, which came out twice.
bool Telling::OnlyRepeated() {
  const bool powerless =
      disaster_.passes && disaster_.breakdown && disaster_.breakdown->kind == Breakage::kPowerless;
  const bool forgotten = powerless || !disaster_.faults.empty();
  const bool may = forgotten && story_.mode_ == Mode::kSafeWithRepeats;
  auto deeds = shop_.DeedsFrom(0);
  const auto twice = std::adjacent_find(deeds.begin(), deeds.end());
  if (!may || twice == deeds.end() || line_faults::HasBook(*twice)) return false;
  deeds.erase(twice);
  Words good;
  for (const auto& call : story_.good_)
    good.insert(good.end(), call.deeds.begin(), call.deeds.end());
  return deeds == good;
}

void Telling::Measure(Story& story) {
  shop_.Start();
  for (const auto& words : story.document_.calls) {
    const auto from = shop_.Exchanges();
    auto told = shop_.Call(words);
    story.good_.push_back(
        {told.result, told.outcome, std::move(told.buffers), shop_.DeedsFrom(from)});
  }
  story.paper_ = shop_.Paper();
  story.totals_ = shop_.Totals();
  story.moments_ = shop_.Host().Lived();
  story.bytes_ = {shop_.World().ToPrinter().Carried(), shop_.World().ToHost().Carried()};
}

}  // namespace kestra::crashes
