#include "golden/session.hpp"

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>
#include <memory>
#include <stdexcept>

#include "fakes/fake_platform.hpp"
#include "frame/instance.hpp"
#include "golden/base_configuration.hpp"
#include "golden/exports.hpp"
#include "golden/onlooker.hpp"
#include "golden/replies.hpp"
#include "golden/state_fields.hpp"
#include "golden/transcript.hpp"
#include "golden/visible.hpp"
#include "golden/words.hpp"
#include "state/causes.hpp"
#include "state/library.hpp"

namespace kestra::golden {
namespace {

constexpr std::string_view kPrinterIsFine = "ok 0000|0000";
constexpr std::int64_t kWorthTelling = kMicrosPerSecond / 2;

class Session {
 public:
  explicit Session(Onlooker* onlooker);

  Played Play(std::string_view text);

 private:
  struct Input {
    std::string_view name;
    void (*handler)(Session& session, std::string_view rest);
  };
  static const std::array<Input, 19> kInputs;

  void Run(std::string_view line);
  void Ini(std::string_view rest);
  void SetDate(std::string_view rest);
  void QueueAnswers(std::string_view rest);
  void SetJournal(std::string_view rest);
  void Fail(std::string_view rest);
  void Meanwhile(std::string_view rest);
  void Call(std::string_view rest);
  void ShowState(std::string_view rest);
  void ShowOutcome();

  void Print(const std::string& line) { output_ += OutputLine(line); }
  void PrintEvents();
  [[nodiscard]] std::string Leftovers() const;

  FakePlatform* world_;  // owned by the library
  Onlooker* onlooker_;   // or null
  Detail detail_;
  std::string output_;
};

template <class Value>
struct Named {
  std::string_view name;
  Value value;
};

template <class Value, std::size_t Count>
Value Lookup(const std::array<Named<Value>, Count>& table, std::string_view name) {
  for (const Named<Value>& row : table) {
    if (row.name == name) return row.value;
  }
  throw std::invalid_argument("unknown word " + std::string(name));
}

constexpr std::array<Named<DeviceState>, 3> kDevices{{{"ok", DeviceState::kReady},
                                                      {"missing", DeviceState::kMissing},
                                                      {"busy", DeviceState::kBusy}}};
constexpr std::array<Named<bool>, 2> kLogs{{{"ok", false}, {"readonly", true}}};

struct Disk {
  bool full = false;
  bool read_only = false;
  bool busy = false;
};
constexpr std::array<Named<Disk>, 4> kDisks{{{"ok", {}},
                                             {"full", {.full = true}},
                                             {"readonly", {.read_only = true}},
                                             {"busy", {.busy = true}}}};

const std::array<Session::Input, 19> Session::kInputs{{
    {"#", [](Session&, std::string_view) {}},
    {"ini", [](Session& s, std::string_view rest) { s.Ini(rest); }},
    {"clock", [](Session& s,
                 std::string_view rest) { s.world_->GetClock().SetTimeOfDay(ToTimeOfDay(rest)); }},
    {"date", [](Session& s, std::string_view rest) { s.SetDate(rest); }},
    {"wait", [](Session& s,
                std::string_view rest) { s.world_->GetClock().Advance(Micros(ToNumber(rest))); }},
    {"reply", [](Session& s, std::string_view rest) { s.world_->Line().Queue(ReadReply(rest)); }},
    {"default",
     [](Session& s, std::string_view rest) { s.world_->Line().SetDefault(ReadReply(rest)); }},
    {"operator", [](Session& s, std::string_view rest) { s.QueueAnswers(rest); }},
    {"port",
     [](Session& s, std::string_view rest) { s.world_->Line().SetDevice(Lookup(kDevices, rest)); }},
    {"log", [](Session& s,
               std::string_view rest) { s.world_->GetLog().SetReadOnly(Lookup(kLogs, rest)); }},
    {"journal", [](Session& s, std::string_view rest) { s.SetJournal(rest); }},
    {"fail", [](Session& s, std::string_view rest) { s.Fail(rest); }},
    {"meanwhile", [](Session& s, std::string_view rest) { s.Meanwhile(rest); }},
    {"call", [](Session& s, std::string_view rest) { s.Call(rest); }},
    {"state", [](Session& s, std::string_view rest) { s.ShowState(rest); }},
    {"outcome", [](Session& s, std::string_view) { s.ShowOutcome(); }},
    {"showseq", [](Session& s, std::string_view) { s.detail_.sequence = true; }},
    {"showdate", [](Session& s, std::string_view) { s.detail_.date = true; }},
    {"showrows", [](Session& s, std::string_view) { s.detail_.rows = true; }},
}};

std::unique_ptr<Platform> Surrounded(Onlooker* onlooker, std::unique_ptr<FakePlatform> world) {
  if (onlooker == nullptr) return world;
  return onlooker->Surround(std::move(world));
}

Session::Session(Onlooker* onlooker) : onlooker_(onlooker) {
  auto world = std::make_unique<FakePlatform>();
  world_ = world.get();
  for (const Setting& setting : kBaseConfiguration) {
    world_->GetProfile().Set(setting.key, setting.value);
  }
  world_->Line().SetDefault(ReadReply(kPrinterIsFine));
  ReplaceInstance(Surrounded(onlooker, std::move(world)));
}

Played Session::Play(std::string_view text) {
  Played played;
  std::size_t number = 0;
  bool any_output = false;
  if (text.substr(0, 2) != "# ")
    played.fault = "line 1: say first, in a comment, why this case exists";
  if (!text.empty() && text.back() == '\n') text.remove_suffix(1);
  for (const std::string_view line : Split(text, "\n")) {
    ++number;
    if (!line.empty() && line[0] == '>') continue;
    played.text += std::string(line) + "\n";
    output_.clear();
    try {
      Run(line);
    } catch (const std::exception& fault) {
      if (played.fault.empty()) {
        played.fault = "line " + std::to_string(number) + ": " + fault.what();
      }
    }
    any_output = any_output || !output_.empty();
    played.text += output_;
  }
  if (played.fault.empty()) played.fault = Leftovers();
  if (played.fault.empty() && !any_output) played.fault = "this case shows nothing";
  return played;
}

void Session::Run(std::string_view line) {
  if (line.empty()) return;
  const std::string_view name = TakeWord(line);
  const auto* const input = std::find_if(kInputs.begin(), kInputs.end(),
                                         [&](const Input& row) { return row.name == name; });
  if (input == kInputs.end()) throw std::invalid_argument("unknown input " + std::string(name));
  input->handler(*this, line);
}

void Session::Ini(std::string_view rest) {
  FakeProfile& profile = world_->GetProfile();
  const auto equals = rest.find('=');
  if (rest == "none") {
    profile.RemoveAll();
  } else if (!rest.empty() && rest[0] == '-') {
    profile.Remove(rest.substr(1));
  } else if (equals != std::string_view::npos) {
    profile.Set(rest.substr(0, equals), FromVisible(rest.substr(equals + 1)));
  } else {
    throw std::invalid_argument("a setting reads Key=Value");
  }
}

void Session::SetDate(std::string_view rest) {
  const auto parts = Split(rest, "/");
  if (parts.size() != 3) throw std::invalid_argument("a date reads DD/MM/YYYY");
  world_->GetClock().SetDate(ToInteger(parts[0]), ToInteger(parts[1]), ToInteger(parts[2]));
}

void Session::QueueAnswers(std::string_view rest) {
  static constexpr std::array<Named<Answer>, 5> answers{{{"ok", Answer::kOk},
                                                         {"yes", Answer::kYes},
                                                         {"no", Answer::kNo},
                                                         {"retry", Answer::kRetry},
                                                         {"close", Answer::kClose}}};
  for (const std::string_view word : Words(rest)) {
    world_->GetOperator().Queue(Lookup(answers, word));
  }
}

void Session::SetJournal(std::string_view rest) {
  const Disk state = Lookup(kDisks, rest);
  FakeDisk& disk = *world_->GetJournalFile().Disk();
  disk.room = state.full ? 0 : std::numeric_limits<std::size_t>::max();
  disk.read_only = state.read_only;
  disk.held_by_others = state.busy;
}

Point ToPoint(std::string_view name) {
  for (const PointName& row : kPointNames) {
    if (row.name == name) return row.point;
  }
  throw std::invalid_argument("nothing there can fail: " + std::string(name));
}

void Session::Fail(std::string_view rest) {
  const auto words = Words(rest);
  if (words.size() < 2) throw std::invalid_argument("fail POINT K [forever] [memory|other]");
  bool forever = false;
  Ailment ailment = Ailment::kFalla;
  for (std::size_t i = 2; i < words.size(); ++i) {
    if (words[i] == "forever") {
      forever = true;
    } else {
      static constexpr std::array<Named<Ailment>, 2> ailments{
          {{"memory", Ailment::kMemory}, {"other", Ailment::kOther}}};
      ailment = Lookup(ailments, words[i]);
    }
  }
  world_->GetTrouble().Arm(ToPoint(words[0]), ToInteger(words[1]), forever, ailment);
}

void Session::Meanwhile(std::string_view rest) {
  world_->GetOperator().Meanwhile([this, text = std::string(rest)] {
    std::string_view arguments = text;
    const std::string_view name = TakeWord(arguments);
    const CallOutcome outcome = CallExport(name, Words(arguments));
    world_->GetJournal().Add(
        {.kind = Happening::kMeanwhile, .text = text, .detail = {}, .number = outcome.result});
  });
}

void Session::Call(std::string_view rest) {
  const std::int64_t before = world_->GetClock().ElapsedMicros();
  const std::string_view name = TakeWord(rest);
  const CallOutcome outcome = CallExport(name, Words(rest), onlooker_);
  PrintEvents();
  const std::int64_t passed = world_->GetClock().ElapsedMicros() - before;
  if (passed > kWorthTelling) {
    const std::int64_t tenths = (passed + kMicrosPerSecond / 20) / (kMicrosPerSecond / 10);
    Print("time +" + std::to_string(tenths / 10) + "." + std::to_string(tenths % 10));
  }
  for (const std::string& buffer : outcome.buffers) Print("buffer \"" + Visible(buffer) + "\"");
  // The result of EP_Kill carries no meaning, so that none may be expected of it.
  Print(name == "EP_Kill" ? "done" : "= " + std::to_string(outcome.result));
}

void Session::ShowState(std::string_view rest) {
  for (const std::string_view name : Words(rest)) {
    Print(std::string(name) + " = " + ShowField(Instance().state, name));
  }
}

void Session::ShowOutcome() {
  const auto& report = Instance().certainty.report;
  const auto number = [](auto value) { return std::to_string(static_cast<int>(value)); };
  Print("outcome " + number(report.outcome) + " cause " + number(report.cause) + " sent " +
        number(report.attempts) + " \"" + Visible(CauseText(report.cause, report.outcome)) + "\"");
}

void Session::PrintEvents() {
  for (const Event& event : world_->GetJournal().Take()) output_ += Describe(event, detail_);
}

// Replies and answers that nobody asked for: the case expects something that did not come.
std::string Session::Leftovers() const {
  if (world_->Line().Queued() > 0) return "the printer still had replies to give";
  if (world_->GetOperator().Queued() > 0) return "the operator still had answers to give";
  return {};
}

}  // namespace

Played Play(std::string_view text) {
  Session session(nullptr);
  return session.Play(text);
}

Played Play(std::string_view text, Onlooker& onlooker) {
  Session session(&onlooker);
  return session.Play(text);
}

}  // namespace kestra::golden
