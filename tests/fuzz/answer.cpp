// What stands on the line becomes an answer, and the answer its fields.
#include "protocol/answer.hpp"

#include <algorithm>
#include <string>
#include <vector>

#include "fuzz/input.hpp"
#include "protocol/command.hpp"
#include "protocol/packet.hpp"

namespace kestra {
namespace {

using fuzz::Require;

// An answer is whole with the fourth byte behind its end, no sooner; what follows is another's.
void CheckLength(std::string_view received) {
  const auto length = AnswerLength(received);
  if (length == 0) {
    const auto end = received.find(kEtx);
    Require(end == std::string_view::npos || received.size() < end + 1 + kChecksumDigits,
            "a whole answer is seen");
    return;
  }
  Require(length <= received.size(), "an answer is part of what was received");
  Require(received.find(kEtx) + 1 + kChecksumDigits == length, "it ends with its checksum");
  Require(AnswerLength(received.substr(0, length)) == length, "what follows has no say");
  Require(AnswerLength(received.substr(0, length - 1)) == 0, "a byte less is none");
}

void CheckCut(std::string_view received) {
  const auto cut = TrimAnswer(received);
  Require(received.find(cut) != std::string_view::npos, "nothing is added");
  Require(cut.find(kStx) == std::string::npos || cut.front() == kStx, "no noise before it");
  Require(TrimAnswer(cut) == cut, "cutting twice is cutting once");
  const auto head = AnswerHeader(received);
  Require(head.size() <= 2, "a head has two bytes");
  if (cut.size() >= 3 && cut.front() == kStx) {
    Require(AnswerHeader(cut) == std::string_view(cut).substr(1, 2), "the head is its own");
  }
}

// The same cuts by place instead of by erasing.
void CheckFields(std::string_view received) {
  std::string rest(received);
  const auto fields = CutFields(rest);
  std::size_t place = 0;
  for (const auto& field : fields) {
    const auto separator = received.find(kFs, place);
    const auto from = separator == std::string_view::npos ? place : separator + 1;
    auto to = received.find(kFs, from);
    if (to == std::string_view::npos) to = received.find(kEtx, from);
    const bool none = to == std::string_view::npos;
    Require(field == (none ? std::string_view() : received.substr(from, to - from)), "each field");
    if (!none) place = to;
  }
  Require(rest == received.substr(place), "what is left");
  Require(!ListingText(fields).empty(), "the listing has a heading");
}

std::string Harmless(std::string_view text) {
  std::string harmless(text);
  std::erase_if(harmless, [](char c) { return c == kFs || c == kStx || c == kEtx; });
  return harmless;
}

// What was framed is found again behind noise and before whatever follows.
void CheckThereAndBack(std::string_view text) {
  std::vector<std::string> fields;
  Command command('B');
  for (std::size_t at = 0; at <= text.size() && fields.size() < kAnswerFields;) {
    const auto end = std::min(text.find('\n', at), text.size());
    fields.push_back(Harmless(text.substr(at, end - at)));
    command.Field(fields.back());
    at = end + 1;
  }
  auto frame = BuildPacket(kFirstSequence, command.Bytes());
  frame += ChecksumOf(frame);
  Require(AnswerLength(frame) == frame.size(), "a frame is whole");
  Require(TrimAnswer(Harmless(text) + frame + std::string(text)) == frame, "it is found");
  Require(AnswerHeader(frame) == " B", "it is known by its head");
  auto rest = frame;
  const auto found = CutFields(rest);
  Require(std::equal(fields.begin(), fields.end(), found.begin()), "its fields come back");
}

void CheckSum(std::string_view text) {
  const auto digits = ChecksumOf(text);
  unsigned sum = 0;
  for (const char c : text) sum += static_cast<unsigned char>(c);
  Require(digits.size() == kChecksumDigits, "four digits");
  Require(digits.find_first_not_of("0123456789ABCDEF") == std::string::npos, "in upper case");
  Require(std::stoul(digits, nullptr, 16) == (sum & 0xFFFFU), "and they are the sum");
}

void CheckSequence(fuzz::Input input) {
  const SequenceNumbers before{input.Int16(), input.Int16()};
  const auto after = NextSequence(before, static_cast<int>(input.Below(60)));
  Require(after.current >= kFirstSequence && after.current <= kLastSequence, "in its range");
  const bool counted = after.current == before.current + 1 && after.previous == before.previous;
  const bool seeded = after.current == after.previous && after.current != before.previous;
  Require(counted || seeded, "one more, or a seed unlike the one before");
}

}  // namespace
}  // namespace kestra

FUZZ_TARGET(input) {
  kestra::CheckSequence(input);
  const auto received = input.Rest();
  kestra::CheckLength(received);
  kestra::CheckCut(received);
  kestra::CheckFields(received);
  kestra::CheckThereAndBack(received);
  kestra::CheckSum(received);
}
