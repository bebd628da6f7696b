#include "campaigns/crashes/story.hpp"

#include <algorithm>
#include <utility>

#include "campaigns/crashes/shop.hpp"
#include "kestra/kestra.h"

namespace kestra::crashes {
namespace {

// It asks for the total first, and what it does depends on that: made again it does what is missing.
constexpr std::string_view kRounding = "EP_AjusteRedondeo";

// The printer's clock goes on, and whoever comes later cannot tell from it when it was set.
constexpr std::string_view kClock = "EP_CambiarFechaHora";

constexpr char kText = 'A';

// Shorter than the driver's patience.
constexpr line_faults::Micros kAMoment = std::chrono::seconds(3);

CanonicalDocument WithJournal(CanonicalDocument document, bool with_journal) {
  if (with_journal) document.configuration.emplace_back("Diario", kJournalName);
  return document;
}

Words WithoutTexts(Words deeds) {
  std::erase_if(deeds, [](const std::string& deed) { return deed.front() == kText; });
  return deeds;
}

// Texts, reports that close nothing, lists, drawers, paper.
bool HasBook(const std::string& deed) {
  return std::string_view("AI:;KR{|").find(deed.front()) == std::string_view::npos &&
         !deed.starts_with("9\x1CX");
}

// What a text's command prints.
std::string TextOf(const std::string& deed) {
  const auto text = deed.substr(deed.find('\x1C') + 1);
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

}  // namespace

// One play of a story.
class Telling {
 public:
  Telling(const Story& story, const Disaster& disaster)
      : story_(story), disaster_(disaster), shop_(story.document_, story.mode_) {}

  StoryReport Run();
  void Measure(Story& story);

 private:
  using GoodCall = Story::GoodCall;

  bool Sell(std::size_t from);
  bool CallWell();
  void Recover();
  void Learn();
  void Repeat();
  void LearnFromJournal();
  void LearnFromCall();
  void GoOn();
  void CheckPaper();
  bool OnlyRepeated();
  void End(Ending ending) { report_.ending = ending; }
  void Wrong(std::string_view what);

  [[nodiscard]] const GoodCall& Good() const { return story_.good_[call_]; }
  [[nodiscard]] const std::string& CallWords() const { return story_.document_.calls[call_]; }
  [[nodiscard]] bool IsRounding() const { return CallWords().starts_with(kRounding); }
  [[nodiscard]] bool IsWhole() const { return deeds_ == Good().deeds; }
  // Of a closing without anything before it, nobody knows whether there was something to close.
  [[nodiscard]] bool MayStayUnknown() const {
    return CallWords().starts_with(kClock) || Good().outcome == KESTRA_DESENLACE_RECHAZADO;
  }
  void Begin();

  const Story& story_;
  const Disaster& disaster_;
  Shop shop_;
  StoryReport report_;
  std::size_t call_ = 0;  // under way
  std::size_t mark_ = 0;  // the printer's exchanges when it began
  std::size_t results_ = 0;
  Told told_;
  Words deeds_;  // of that call
};

void Telling::Wrong(std::string_view what) {
  if (report_.ending == Ending::kWrong) return;
  End(Ending::kWrong);
  report_.wrong = what;
}

void Telling::Begin() {
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
  }
  return !shop_.Host().Over();
}

StoryReport Telling::Run() {
  if (disaster_.breakdown) shop_.World().Break(*disaster_.breakdown);
  if (disaster_.passes) shop_.World().MendAfter(kAMoment);
  Begin();
  shop_.Start(disaster_.death);
  const bool sold = Sell(0);
  call_ = std::min(call_, story_.good_.size() - 1);
  report_.operation = CallWords().substr(0, CallWords().find(' '));
  report_.last_act = shop_.Host().Last();
  if (!sold) {
    Recover();
    Learn();
    GoOn();
  }
  CheckPaper();
  return std::move(report_);
}

void Telling::Recover() {
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

// The new program's first lines.
void Telling::Learn() {
  std::string name, number;
  const auto pending = shop_.Pending(name);
  if (pending == 0) {
    deeds_ = shop_.DeedsFrom(mark_);
    return shop_.Host().Lived() > 0 && disaster_.death != kNever ? LearnFromJournal()
                                                                 : LearnFromCall();
  }
  // Operators have always read some names with a letter more.
  const auto half = report_.operation.substr(report_.operation.size() / 2);
  if (pending != 1 || (!IsRounding() && name.find(half) == std::string::npos)) {
    return Wrong("another call is pending: " + name);
  }
  if (!disaster_.asks) return Repeat();
  const auto outcome = shop_.Resolve(number);
  deeds_ = shop_.DeedsFrom(mark_);
  if (outcome == KESTRA_DESENLACE_HECHO) {
    if (IsRounding() ? deeds_.empty() : !IsWhole()) return Wrong("settled as done, and is not");
    const auto& buffers = Good().buffers;
    if (!buffers.empty() && number != buffers.front()) return Wrong("another number: " + number);
    return End(Ending::kDone);
  }
  if (outcome == KESTRA_DESENLACE_DESCONOCIDO && MayStayUnknown()) return End(Ending::kUnknown);
  if (outcome != KESTRA_DESENLACE_NO_HECHO) return Wrong("a book shows it, and it stays unknown");
  if (IsWhole()) return Wrong("settled as not done, and is");
  End(Ending::kNotDone);
}

// The till makes the call again, as if nothing had been. What stays unknown is told to it once.
void Telling::Repeat() {
  if (!MayStayUnknown()) return End(Ending::kRepeated);
  CallWell();
  deeds_ = shop_.DeedsFrom(mark_);
  told_.outcome == KESTRA_DESENLACE_DESCONOCIDO ? End(Ending::kUnknown)
                                                : Wrong("told something else than unknown");
}

// Nothing is pending although the host died: the till looks at what the journal has of the call.
void Telling::LearnFromJournal() {
  const auto last = shop_.LastRecord();
  if (last.starts_with("intento\t")) {
    if (last.find("\tlibro=si\t") != std::string::npos) return Wrong("in flight, and not pending");
    return End(Ending::kUnknown);
  }
  if (shop_.Results() > results_) return End(Ending::kUnlearnt);
  if (!deeds_.empty()) return Wrong("done, and the journal knows nothing of it");
  End(Ending::kUnsent);
}

// The call had ended, in its way.
void Telling::LearnFromCall() {
  if (told_.outcome == KESTRA_DESENLACE_DESCONOCIDO) {
    if (shop_.LastRecord().find("\tlibro=si\t") != std::string::npos) Wrong("not kept as pending");
    const bool unknown = shop_.LastRecord().find("\tdesenlace=4\t") != std::string::npos;
    return unknown ? End(Ending::kUnknown) : Wrong("the journal does not say that nobody knows");
  }
  const bool undone =
      told_.outcome == KESTRA_DESENLACE_RECHAZADO || told_.outcome == KESTRA_DESENLACE_NO_ENVIADO ||
      told_.outcome == KESTRA_DESENLACE_NO_HECHO || told_.outcome == KESTRA_DESENLACE_EN_PARTE;
  if (!undone) return Wrong("told " + std::to_string(told_.outcome));
  if (IsWhole() && !deeds_.empty()) return Wrong("told as not done, and is");
  End(Ending::kToldUndone);
}

// The call is made again where it was not done, then the others.
void Telling::GoOn() {
  const bool again =
      report_.ending == Ending::kRepeated || IsRounding() || deeds_.empty() || !IsWhole();
  if (again && !CallWell())
    return Wrong("made again, the call ended with " + std::to_string(told_.outcome));
  if (again && told_.buffers != Good().buffers) Wrong("made again, the call told something else");
  deeds_ = shop_.DeedsFrom(mark_);
  const bool in_order = deeds_ == Good().deeds || (IsRounding() && !deeds_.empty());
  const bool in_doubt = report_.ending == Ending::kUnknown || report_.ending == Ending::kUnlearnt;
  const bool texts_twice = in_doubt && WithoutTexts(deeds_) == WithoutTexts(Good().deeds);
  if (!in_order && !texts_twice) return Wrong("in the end the call was not done once");
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
  for (const auto& deed : deeds_) {
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

// Whether all was done as on a good day, but for a command that no book shows, which came out twice.
bool Telling::OnlyRepeated() {
  const bool may = story_.mode_ == Mode::kSafeWithRepeats && disaster_.passes &&
                   disaster_.breakdown && disaster_.breakdown->kind == Breakage::kPowerless;
  auto deeds = shop_.DeedsFrom(0);
  const auto twice = std::adjacent_find(deeds.begin(), deeds.end());
  if (!may || twice == deeds.end() || HasBook(*twice)) return false;
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
  story.moments_ = shop_.Host().Lived();
  story.bytes_ = {shop_.World().ToPrinter().Carried(), shop_.World().ToHost().Carried()};
}

Story::Story(const CanonicalDocument& document, Mode mode, bool with_journal)
    : document_(WithJournal(document, with_journal)), mode_(mode) {
  Telling(*this, {}).Measure(*this);
}

StoryReport Story::Play(const Disaster& disaster) const {
  return Telling(*this, disaster).Run();
}

}  // namespace kestra::crashes
