#include "faults/draft.hpp"

#include <algorithm>

#include "machine/status.hpp"
#include "wire/control_bytes.hpp"

namespace impresora {

std::uint16_t WordShown(Word word, std::uint16_t bits, ForcedBits shown) {
  const auto with = [shown](unsigned of) {
    return static_cast<std::uint16_t>((of | shown.on) & ~unsigned{shown.off});
  };
  const std::uint16_t changed = with(bits);
  return with(word == Word::kPrinter ? WithSummaryPrinter(changed) : WithSummaryFiscal(changed));
}

namespace {

std::string WordField(Word word, std::uint16_t bits, ForcedBits shown) {
  const bool as_it_is = shown.on == 0 && shown.off == 0;
  return Hex4(as_it_is ? bits : WordShown(word, bits, shown));
}

}  // namespace

Draft::Draft(const Packet& packet, const Answer& answer)
    : sequence(packet.sequence), command(packet.command), fields(2) {
  fields.insert(fields.end(), answer.fields.begin(), answer.fields.end());
  TakeWords(answer);
}

void Draft::TakeWords(const Answer& answer) {
  fields[0] = WordField(Word::kPrinter, answer.printer, shown_printer);
  fields[1] = WordField(Word::kFiscal, answer.fiscal, shown_fiscal);
}

void Draft::Render() {
  std::string body(1, static_cast<char>(command));
  for (const std::string& field : fields) body.append(1, kFs).append(field);
  bytes = Frame(sequence, body);
}

void Draft::EndAt(std::size_t at, Ending with, Micros off) {
  if (ending != Ending::kNone && end_at_ <= at) return;
  ending = with;
  end_at_ = at;
  off_time = off;
}

std::vector<Burst> Draft::Bursts() const {
  const std::size_t size = ending == Ending::kNone ? bytes.size() : std::min(end_at_, bytes.size());
  const bool cut_before_anything = ending != Ending::kNone && end_at_ == 0;
  std::vector<Burst> bursts(1, Burst{.after = delay});
  if (!cut_before_anything) bursts.back().bytes = before;
  std::size_t from = 0;
  for (const auto& [at, pause] : pauses) {
    if (at > size) break;
    bursts.back().bytes += bytes.substr(from, at - from);
    bursts.push_back({.after = pause});
    from = at;
  }
  bursts.back().bytes += bytes.substr(from, size - from);
  if (ending != Ending::kNone) bursts.push_back({.ending = ending, .off_time = off_time});
  return bursts;
}

}  // namespace impresora
