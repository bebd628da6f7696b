#include "campaigns/line_faults/run.hpp"

#include <algorithm>
#include <memory>
#include <utility>

#include "commands/commands.hpp"
#include "frame/instance.hpp"
#include "golden/exports.hpp"
#include "golden/words.hpp"
#include "kestra/kestra.h"

namespace kestra::line_faults {
namespace {

// A printer that sets one of these has not done what it was told: unknown command, bad field, wrong
// moment, overflow.
constexpr unsigned kRefused = 0x0078;

constexpr std::size_t kChecksumDigits = 4;
constexpr std::string_view kAnswerLine = " - Respuesta : ";

bool ChangedThePrinter(const impresora::Exchange& exchange) {
  return exchange.kind == impresora::ExchangeKind::kExecuted &&
         (exchange.answer.fiscal & kRefused) == 0 && !impresora::OnlyAsks(exchange.packet);
}

// Gives what the printer did to the calls whose frames made it do so. Frames come in order.
void Assign(const LineWorld& world, const std::vector<std::size_t>& calls_of_frames,
            RunReport& report) {
  const auto& frames = world.Frames();
  std::size_t next = 0;
  for (const auto& exchange : world.Exchanges()) {
    std::size_t frame = next;
    while (frame < frames.size() && frames[frame] != exchange.raw_command) ++frame;
    const bool known = frame < frames.size();
    if (known) next = frame + 1;
    if (!ChangedThePrinter(exchange)) continue;
    Deeds& deeds = known ? report.calls[calls_of_frames[frame]].done : report.foreign;
    deeds.push_back(exchange.packet.body.substr(1));
  }
}

// From the start byte to the checksum; nothing when either end is missing.
std::string_view FrameIn(std::string_view received) {
  const auto start = received.find('\x02');
  if (start == std::string_view::npos) return {};
  const auto end = received.find('\x03', start);
  if (end == std::string_view::npos) return {};
  return received.substr(start, end + 1 + kChecksumDigits - start);
}

bool HasOwnChecksum(std::string_view frame) {
  if (frame.size() <= kChecksumDigits) return false;
  const auto summed = frame.substr(0, frame.size() - kChecksumDigits);
  return frame.substr(summed.size()) == impresora::Hex4(impresora::Checksum(summed));
}

// The answers that the library took are in its log, those made up for a time-out have no checksum.
// `calls_end` has the number of events at the end of each call.
void LookAtAnswers(const LineWorld& world, const std::vector<std::size_t>& calls_end,
                   RunReport& report) {
  std::size_t number = 0, call = 0;
  for (const Event& event : world.GetJournal().Events()) {
    while (call < calls_end.size() && number >= calls_end[call]) ++call;
    ++number;
    if (event.kind != Happening::kLog) continue;
    const auto at = event.text.find(kAnswerLine);
    if (at == std::string::npos) continue;
    const auto answer = std::string_view(event.text).substr(at + kAnswerLine.size());
    if (answer.find('\x03') == std::string_view::npos) continue;
    const auto frame = FrameIn(answer);
    if (!HasOwnChecksum(frame)) report.bad_checksum = true;
    if (!frame.empty() && world.Said().find(frame) != std::string::npos) continue;
    report.damaged_answer = true;
    const bool looks_well = LooksLikeAnAnswer(frame, world);
    if (!looks_well) report.visible_damage = true;
    if (looks_well && call < report.calls.size()) report.calls[call].disguised = true;
  }
}

}  // namespace

bool LooksLikeAnAnswer(std::string_view frame, const LineWorld& world) {
  constexpr std::size_t kHeader = 2;
  if (!HasOwnChecksum(frame) || frame.size() < 1 + kHeader + 1 + kChecksumDigits) return false;
  const auto body = frame.substr(1, frame.size() - 2 - kChecksumDigits);
  const auto& frames = world.Frames();
  return std::all_of(
             body.begin(), body.end(),
             [](char byte) { return byte == '\x1C' || static_cast<unsigned char>(byte) >= ' '; }) &&
         std::any_of(frames.begin(), frames.end(), [&](const std::string& one) {
           return std::string_view(one).substr(1, kHeader) == body.substr(0, kHeader);
         });
}

RunReport Play(const CanonicalDocument& document, std::span<const ByteFault> faults,
               OperatorHabit habit, Mode mode) {
  auto owned = std::make_unique<LineWorld>(document, faults, mode);
  LineWorld& world = *owned;
  if (habit == OperatorHabit::kOnce) world.GetOperator().Queue(Answer::kYes);
  ReplaceInstance(std::move(owned));
  EP_Init();
  RunReport report;
  std::vector<std::size_t> calls_of_frames, calls_end;
  for (std::string_view words : document.calls) {
    const std::string_view operation = golden::TakeWord(words);
    const Micros before = world.Now();
    const std::size_t first_byte = world.ToPrinter().Carried();
    auto outcome = golden::CallExport(operation, golden::Words(words));
    const std::size_t frames = world.Frames().size() - calls_of_frames.size();
    calls_of_frames.resize(world.Frames().size(), report.calls.size());
    report.calls.push_back({.operation = std::string(operation),
                            .result = outcome.result,
                            .buffers = std::move(outcome.buffers),
                            .lasted = world.Now() - before,
                            .frames = frames,
                            .first_byte = first_byte,
                            .done = {}});
    calls_end.push_back(world.GetJournal().Events().size());
    if (outcome.result != 0) break;
  }
  world.Settle();
  Assign(world, calls_of_frames, report);
  LookAtAnswers(world, calls_end, report);
  report.to_printer = world.ToPrinter().Carried();
  report.to_host = world.ToHost().Carried();
  EP_Kill();
  return report;
}

}  // namespace kestra::line_faults
