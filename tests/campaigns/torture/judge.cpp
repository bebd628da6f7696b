#include "campaigns/torture/judge.hpp"

#include <algorithm>
#include <array>
#include <cstddef>

namespace kestra::torture {
namespace {

// What a frame and a busy byte may cost: five seconds, rounded to whole ones, and the last look.
constexpr std::int64_t kPatience = 56 * kMicrosPerSecond / 10;
constexpr std::int64_t kOverhead = kMicrosPerSecond;

// Of the world that is well again the endless call needs little.
constexpr std::int64_t kEndlessEndsWithin = 2 * kEndlessHealsAfter;

bool Strikes(const Strike& strike, Point point) {
  return strike.target == static_cast<std::size_t>(point);
}

// Calls that tell success over failures of every kind, for hosts have always been told so: the endless
// one; the one that answers with the verdict on the last answer; and items, whose lines of text before
// them and whose new sheet are tried and not asked about.
constexpr std::array kForgiving{kEndless, std::string_view("EP_ReporteZporFechas"),
                                std::string_view("EP_ImprimirItem"),
                                std::string_view("EP_AnularItem")};

bool IsForgiving(std::string_view name) {
  return std::find(kForgiving.begin(), kForgiving.end(), name) != kForgiving.end();
}

// What asks about a call answers with numbers and lengths of its own; what it was told it may tell, though the
// printer could not be thanked for it.
bool IsQuestionAboutCalls(std::string_view name) {
  return name.starts_with("Kestra_");
}

bool IsItem(std::string_view name) {
  return name == "EP_ImprimirItem" || name == "EP_AnularItem";
}

// Calls may go on without their log and, but for openings, without their journal. What else they cannot do,
// they have to tell of.
bool MaySucceed(const CallRecord& call, const Strike& strike) {
  const bool log = Strikes(strike, Point::kLog) || Strikes(strike, Point::kDate) ||
                   Strikes(strike, Point::kTimeText) || Strikes(strike, Point::kJournal) ||
                   strike.target == kMemory;
  // A record's moment; a start writes one in the base mode too, and waits for nobody.
  const bool moment =
      Strikes(strike, Point::kTimeOfDay) && (call.patience > 0 || call.name == "EP_Init");
  // A bad key is shown to the operator, and the start goes on.
  const bool key = call.name == "EP_Init" && Strikes(strike, Point::kProfile) &&
                   strike.ailment == Ailment::kFalla;
  return log || moment || key || IsForgiving(call.name);
}

// A frame without its number and its sum.
std::string_view Body(std::string_view frame) {
  constexpr std::size_t number = 2;
  constexpr std::size_t sum = 4;
  return frame.size() < number + sum ? frame : frame.substr(number, frame.size() - number - sum);
}

std::string_view LastBody(const std::vector<std::string>& frames) {
  return frames.empty() ? std::string_view() : Body(frames.back());
}

// An item that ended with a new sheet goes out after all where opening the sheet is what failed.
bool SentTheItem(std::string_view body, const QuietCall& quiet) {
  if (!quiet.told_failure) return body == LastBody(quiet.frames);
  return !body.empty() && (body[0] == 'b' || body[0] == 'B');
}

// Success without what failed is success all the same: the printer got all that it had to get.
bool SentTheSame(const CallRecord& call, const QuietCall& quiet) {
  if (!call.first_struck) return true;  // the calls before it went another way
  if (IsItem(call.name)) return SentTheItem(LastBody(call.frames), quiet);
  return IsForgiving(call.name) || call.frames == quiet.frames;
}

bool TookTooLong(const CallRecord& call) {
  if (call.name == kEndless) return call.passed > kEndlessEndsWithin;
  if (call.near_midnight) return false;
  const auto waits = static_cast<std::int64_t>(call.frames.size()) + call.busy_bytes;
  return call.passed > call.slept + call.patience + waits * kPatience + kOverhead;
}

}  // namespace

bool ToldFailure(const CallRecord& call) {
  return call.name == "EP_Init" ? call.result == 0 : call.result != 0;
}

std::string Verdict(const CallRecord& call, const QuietCall& quiet, const Strike& strike) {
  const bool struck = call.failures > 0;
  const bool asks = IsQuestionAboutCalls(call.name);
  if (!asks && call.result != 0 && call.result != 1) return "gave " + std::to_string(call.result);
  if (TookTooLong(call)) return "took " + std::to_string(call.passed / 1000) + " ms";
  const bool failed_to_close = struck && Strikes(strike, Point::kClose);
  const bool pardoned = call.tried_to_close || failed_to_close || call.port_was_open;
  if (call.port_open && !pardoned) return "left the port open";
  if (!struck || asks || ToldFailure(call)) return {};
  // A safe exchange asks and sends again: whether what it told is true, line_faults judges on the paper.
  if (call.patience > 0) return {};
  if (!MaySucceed(call, strike)) return "told success";
  return SentTheSame(call, quiet) ? std::string() : "told success and sent something else";
}

}  // namespace kestra::torture
